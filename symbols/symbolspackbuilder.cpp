// SPDX-License-Identifier: LGPL-2.1-or-later
#include "symbolspackbuilder.h"

#include "kxerror.h"
#include "lumsheetitem.h"
#include "textfile.h"

#include <QBuffer>
#include <QDir>
#include <QDirIterator>
#include <QHash>
#include <QImageReader>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace {

const QUuid identifierNamespace = QUuid::fromString(u"{6f3c2a1e-8d4b-5e7f-9a0c-1b2d3e4f5a6b}"_s);

QByteArray renderSvg(const QString &file, int size)
{
    QSvgRenderer renderer(file);
    if (!renderer.isValid())
        throw kx::Error(u"Das Bild %1 kann nicht gelesen werden: kein gültiges SVG."_s.arg(file));
    QSize target = renderer.defaultSize().isEmpty() ? QSize(size, size) : renderer.defaultSize();
    target.scale(size, size, Qt::KeepAspectRatio);
    QImage image(target, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    painter.end();
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return png;
}

QByteArray checkedImage(const QString &file)
{
    QFile in(file);
    if (!in.open(QIODevice::ReadOnly))
        throw kx::Error(u"Das Bild %1 kann nicht gelesen werden: %2"_s.arg(file, in.errorString()));
    const QByteArray data = in.readAll();
    QBuffer buffer;
    buffer.setData(data);
    QImageReader reader(&buffer);
    if (reader.size().isEmpty() && !reader.canRead())
        throw kx::Error(u"Das Bild %1 kann nicht gelesen werden: %2"_s.arg(file, reader.errorString()));
    return data;
}

// A names line: the symbol's name and category in the language, and where it was read.
struct NamesLine
{
    QString name;
    QString category;
    QString file;
    int number = 0;
};
// The names files of the root: language code -> relative path -> line.
using Names = QHash<QString, QHash<QString, NamesLine>>;

Names readNames(const QDir &root)
{
    static const QRegularExpression namesFile(u"^names\\.([A-Za-z-]{2,8})\\.csv$"_s);
    Names names;
    for (const QString &file : root.entryList({ u"names.*.csv"_s }, QDir::Files, QDir::Name)) {
        const QRegularExpressionMatch match = namesFile.match(file);
        if (!match.hasMatch())
            continue;
        kx::TextLineReader reader(root.filePath(file));
        QString line;
        for (int number = 1; reader.readLine(line); ++number) {
            if (line.trimmed().isEmpty())
                continue;
            const QStringList parts = line.split(u';');
            if (parts.size() != 3)
                throw kx::Error(u"%1, Zeile %2: erwartet wird \"Datei;Name;Kategorie\"."_s.arg(file).arg(number));
            names[match.captured(1)][parts[0].trimmed()] = { parts[1].trimmed(), parts[2].trimmed(), file, number };
        }
    }
    return names;
}

} // namespace

SymbolsPackFacts SymbolsBuildPack(const QString &folder, const QString &packFile, int svgSize)
{
    const QDir root(QFileInfo(folder).absoluteFilePath());
    if (!root.exists())
        throw kx::Error(u"Der Ordner %1 existiert nicht."_s.arg(folder));
    const Names names = readNames(root);

    QStringList files;
    QDirIterator it(root.path(), { u"*"_s }, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString file = it.next();
        const QString suffix = QFileInfo(file).suffix().toLower();
        if (suffix == u"svg"_s || GetImageTypeByFileExt(u'.' + suffix) != litUnknown)
            files << root.relativeFilePath(file);
    }
    files.sort();

    TLumSheetItemManager pack;
    for (const QString &relative : files) {
        const QString path = root.filePath(relative);
        const QString suffix = QFileInfo(relative).suffix().toLower();
        auto *item = pack.CreateItem();
        pack.AddItem(item);
        item->Guid = QUuid::createUuidV5(identifierNamespace, relative).toString();
        item->ImageType = suffix == u"svg"_s ? litPng : GetImageTypeByFileExt(u'.' + suffix);
        item->SetData(suffix == u"svg"_s ? renderSvg(path, svgSize) : checkedImage(path));
        TTexts german;
        german.SetName(QFileInfo(relative).completeBaseName());
        german.SetCategory(QFileInfo(relative).path() == u"."_s ? root.dirName() : QFileInfo(relative).path());
        item->Texts.Add(german);
        for (auto language = names.begin(); language != names.end(); ++language) {
            const auto entry = language->constFind(relative);
            if (entry == language->constEnd())
                continue;
            TTexts texts(language.key());
            texts.SetName(entry->name);
            texts.SetCategory(entry->category);
            item->Texts.Add(texts);
        }
    }
    pack.SaveToFile(packFile);
    SymbolsPackFacts facts;
    facts.symbols = pack.Count();
    QStringList others = names.keys();
    others.sort();
    facts.languages = QStringList{ u"de"_s } + others;
    for (const auto &lines : names)
        for (auto line = lines.begin(); line != lines.end(); ++line)
            if (!files.contains(line.key()))
                facts.warnings << u"%1, Zeile %2: das Bild \"%3\" gibt es im Ordner nicht; die Zeile wird übergangen."_s
                                      .arg(line->file)
                                      .arg(line->number)
                                      .arg(line.key());
    facts.warnings.sort();
    return facts;
}
