// SPDX-License-Identifier: LGPL-2.1-or-later
// kxcommon symbols pack, list, extract: building, listing and unpacking symbol packs.
#include "command.h"

#include "symbolspackbuilder.h"
#include "symbolspackcommon.h"

#include <QFileInfo>
#include <QTextStream>
#include <QJsonArray>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

// By image type code (TLumImageType).
const QStringList typeNames = { u"unbekannt"_s, u"wmf"_s, u"jpg"_s, u"bmp"_s, u"emf"_s, u"png"_s, u"gif"_s, u"tif"_s };

TSymbolsSymbolType symbolType(const QString &value)
{
    if (value == u"system"_s)
        return stSystem;
    if (value == u"user"_s)
        return stUserdefined;
    if (value == u"all"_s)
        return stAll;
    throw CliUsageError{ u"--type erwartet system, user oder all, nicht \"%1\"."_s.arg(value) };
}

CliOutput packSymbols(const CliContext &context)
{
    const CliArguments args(context, { u"svg-size"_s }, {});
    const QStringList &p = args.positional(2, u"ORDNER PAKET"_s);
    const int size = cliWholeNumber(args.value(u"svg-size"_s, u"64"_s), u"--svg-size"_s);
    if (size < 8 || size > 1024)
        throw CliUsageError{ u"--svg-size erwartet 8 bis 1024 Pixel."_s };
    if (!QFileInfo(p[0]).isDir())
        throw CliInputError{ u"Den Ordner \"%1\" gibt es nicht."_s.arg(p[0]) };
    const SymbolsPackFacts facts = SymbolsBuildPack(p[0], p[1], size);
    for (const QString &warning : facts.warnings)
        QTextStream(stderr) << warning << '\n';
    const qint64 bytes = QFileInfo(p[1]).size();
    return { QJsonObject{ { u"folder"_s, p[0] },
                          { u"file"_s, p[1] },
                          { u"symbols"_s, facts.symbols },
                          { u"languages"_s, QJsonArray::fromStringList(facts.languages) },
                          { u"warnings"_s, QJsonArray::fromStringList(facts.warnings) },
                          { u"bytes"_s, bytes } },
             u"%1: %2, Sprachen %3, %4 Bytes.\n"_s.arg(p[1], cliCount(facts.symbols, u"Symbol"_s, u"Symbole"_s),
                                                         facts.languages.join(u", "_s)).arg(bytes) };
}

CliOutput listSymbols(const CliContext &context)
{
    const CliArguments args(context, { u"type"_s }, {});
    const QString source = args.positional(1, u"PAKET|ORDNER"_s)[0];
    TItemSymbolManager symbols;
    if (QFileInfo(source).isDir()) {
        TSymbolsPackIconManager::LoadFrom(&symbols, symbolType(args.value(u"type"_s, u"all"_s)), source);
    } else if (QFileInfo(source).isFile()) {
        if (args.has(u"type"_s))
            throw CliUsageError{ u"--type gilt nur für einen Symbolordner."_s };
        symbols.LoadFromFile(source);
    } else {
        throw CliInputError{ u"Die Datei oder den Ordner \"%1\" gibt es nicht."_s.arg(source) };
    }
    QJsonArray json;
    QString text;
    for (int i = 0; i < symbols.Count(); ++i) {
        TLumSheetItem *item = symbols.Item(i);
        QJsonArray texts;
        for (int t = 0; t < item->Texts.Count(); ++t) {
            const TTexts &x = item->Texts.Item(t);
            texts.append(QJsonObject{ { u"language"_s, x.GetLanguageCode() }, { u"name"_s, x.GetName() },
                                      { u"category"_s, x.GetCategory() } });
        }
        const QString format = typeNames.value(item->ImageType, typeNames.first());
        QJsonObject entry{ { u"identifier"_s, item->Guid }, { u"imageType"_s, item->ImageType },
                           { u"imageFormat"_s, format }, { u"bytes"_s, item->DataSize() }, { u"texts"_s, texts } };
        if (!item->FileName.isEmpty())
            entry.insert(u"fileName"_s, item->FileName);
        json.append(entry);
        const TTexts *german = item->Texts.ByLanguage(u"de"_s);
        text += u"%1  %2  %3  %4\n"_s.arg(item->Guid, -40).arg(format, -9).arg(german ? german->GetCategory() : QString(), -20)
                    .arg(german ? german->GetName() : QString());
    }
    return { json, text };
}

CliOutput extractSymbol(const CliContext &context)
{
    const QStringList p = CliArguments(context, {}, {}).positional(3, u"PAKET KENNUNG DATEI"_s);
    TItemSymbolManager symbols;
    symbols.LoadFromFile(p[0]);
    // The identifier as symbols list shows it, "{…}", or without its braces, in either case.
    const QString given = p[1].trimmed();
    const QString bare = given.startsWith(u'{') && given.endsWith(u'}') ? given.mid(1, given.size() - 2) : given;
    TItemSymbol *item = nullptr;
    const QStringList candidates{ given, u'{' + bare + u'}', bare, u'{' + bare.toUpper() + u'}', bare.toUpper() };
    for (const QString &candidate : candidates)
        if (!item)
            item = static_cast<TItemSymbol *>(symbols.ItemByGuid(candidate));
    if (!item)
        throw CliInputError{ u"Das Symbol %1 gibt es in %2 nicht."_s.arg(p[1], p[0]) };
    item->SaveDataToFile(p[2]);
    return { QJsonObject{ { u"identifier"_s, item->Guid }, { u"file"_s, item->SavedFileName() },
                          { u"bytes"_s, item->DataSize() } },
             u"%1: %2 Bytes.\n"_s.arg(item->SavedFileName()).arg(item->DataSize()) };
}

} // namespace

void registerSymbolsCommands()
{
    registerCommand({ u"symbols pack"_s, u"ORDNER PAKET [--svg-size N]"_s,
                      u"Baut aus einem Ordner mit Bildern eine Symboldatei für die Lagekarte."_s, packSymbols, false });
    registerCommand({ u"symbols list"_s, u"PAKET|ORDNER [--type system|user|all]"_s,
                      u"Listet die Symbole einer Symboldatei oder eines Symbolordners."_s, listSymbols, false });
    registerCommand({ u"symbols extract"_s, u"PAKET KENNUNG DATEI"_s,
                      u"Schreibt das Bild eines Symbols der Symboldatei in eine Datei."_s, extractSymbol, false });
    cliGraphics({ u"symbols pack"_s, u"symbols list"_s, u"symbols extract"_s });
    cliDetails(u"symbols pack"_s,
               u"  ORDNER             Bilder (PNG, JPEG, BMP, SVG); Unterordner sind die Kategorien, Dateinamen\n"
               u"                     die Namen; names.<Sprache>.csv (\"Datei;Name;Kategorie\") fügt Texte einer\n"
               u"                     weiteren Sprache hinzu\n"
               u"  PAKET              die zu schreibende Symboldatei (z. B. symbols.pak)\n"
               u"  --svg-size N       längere Seite eines SVG-Bildes in Pixeln, 8 bis 1024 (Vorgabe 64)\n"_s);
    cliDetails(u"symbols list"_s,
               u"  PAKET|ORDNER       eine Symboldatei, oder ein Symbolordner wie SymbolPath der Lagekarte\n"
               u"  --type system|user|all  nur bei einem Ordner: system = nur dessen symbols.pak (oder die\n"
               u"                     des Programmordners), user = nur die Bilddateien, all = beides (Vorgabe)\n"_s);
    cliDetails(u"symbols extract"_s,
               u"  PAKET              die Symboldatei\n"
               u"  KENNUNG            die Kennung des Symbols, wie symbols list sie zeigt (mit oder ohne {})\n"
               u"  DATEI              die zu schreibende Bilddatei\n"_s);
}
