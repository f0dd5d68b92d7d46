// SPDX-License-Identifier: LGPL-2.1-or-later
// The symbol pack unit: settings, image formats, the folder scan, the pack search and its
// errors, and the pack format against damaged files.
#include "property.h"
#include "symbolstest.h"

#include "scratchfiles.h"
#include "testdatabase.h"

#include <QtEndian>

using namespace Qt::StringLiterals;

namespace {

TEST_F(SymbolsTest, SettingsAndFileExtensions)
{
    const struct {
        const char *written; // nullptr: no value
        TSymbolsSymbolType read;
    } types[] = { { nullptr, stSystem }, { "1", stUserdefined }, { "2", stAll }, { "5", stSystem }, { "-1", stSystem } };
    for (const auto &t : types) {
        TCIniFile ini(cDatabaseIni);
        ini.WriteString(u"Lagekarte"_s, u"SymbolType"_s, t.written ? QString::fromLatin1(t.written) : QString());
        EXPECT_EQ(SymbolsSettings().SymbolType, t.read) << (t.written ? t.written : "none");
    }
    setting(u"SymbolPath"_s, u"  /daten/symbole  "_s);
    EXPECT_EQ(SymbolsSettings().SymbolPath, u"/daten/symbole"_s);
    QFile::remove(cDatabaseIni);
    EXPECT_EQ(SymbolsSettings().SymbolPath, cApplicationPath + u"/Bitmaps/"_s);
    EXPECT_EQ(GetImageTypeByFileExt(u".JPEG"_s), litJpg);
}

TEST_F(SymbolsTest, FolderScanKeepsItsRules)
{
    image(path(u"sym/b.bmp"_s));
    image(path(u"sym/A.png"_s));
    image(path(u"sym/Teil.jp"_s), Qt::green, "PNG");  // a partial extension passes the loose test
    image(path(u"sym/____Vorlage.png"_s));
    image(path(u"sym/Symbol.PNG"_s));
    image(path(u"sym/Symbol.gif"_s), Qt::red, "PNG");
    image(path(u"sym/ohneEndung"_s), Qt::red, "PNG");
    image(path(u"sym/Fahrzeuge/LF.png"_s));
    image(path(u"sym/Fahrzeuge/elw.png"_s));
    image(path(u"sym/Fahrzeuge/Tief/X.png"_s)); // two levels down
    image(path(u"sym/.versteckt/Y.png"_s));

    TItemSymbolManager symbols;
    TSymbolsPackIconManager().Load(&symbols, stUserdefined);
    EXPECT_EQ(ids(symbols), (QStringList{ u"A.png"_s, u"b.bmp"_s, u"Teil.jp"_s, u"Fahrzeuge/elw.png"_s, u"Fahrzeuge/LF.png"_s }));
    const struct {
        int index;
        QString name, category;
        TSymbolsImageFormat format;
    } expected[] = {
        { 0, u"A"_s, QString(), sifUnknown },
        { 1, u"b"_s, QString(), sifBmp },
        { 4, u"LF"_s, u"Fahrzeuge"_s, sifUnknown },
    };
    for (const auto &e : expected) {
        auto *item = dynamic_cast<TItemSymbolFromFile *>(symbols.Item(e.index));
        ASSERT_NE(item, nullptr);
        EXPECT_EQ(item->Texts.Item(0).GetName(), e.name);
        EXPECT_EQ(item->Texts.Item(0).GetCategory(), e.category);
        EXPECT_EQ(item->GetImageFormat(), e.format);
        EXPECT_EQ(item->FileName, path(u"sym/"_s) + item->Guid);
        EXPECT_EQ(item->Graphic()->Image().pixelColor(0, 0), QColor(Qt::red));
    }

    // Written without a closing separator, the folder's own name is the category of its files.
    setting(u"SymbolPath"_s, path(u"sym"_s));
    TItemSymbolManager named;
    TSymbolsPackIconManager().Load(&named, stUserdefined);
    EXPECT_EQ(named.Item(0)->Texts.Item(0).GetCategory(), u"sym"_s);
    EXPECT_EQ(named.Item(4)->Texts.Item(0).GetCategory(), u"Fahrzeuge"_s);

    // A picture that does not decode stops the scan with its error.
    kxtest::writeFile(path(u"sym/kaputt.png"_s), "kein Bild");
    TItemSymbolManager failed;
    EXPECT_TRUE(kxtest::raised([&] { TSymbolsPackIconManager().Load(&failed, stUserdefined); }).contains(u"kaputt.png"_s));
}

TEST_F(SymbolsTest, PackSearchAndLoadErrors)
{
    image(path(u"sym/Eigen.png"_s));
    const struct {
        const char *name;
        QStringList packs; // where packs are, each with one symbol named after its place
        TSymbolsSymbolType type;
        QStringList ids;
    } cases[] = {
        { "application folder first", { u"app"_s, u"sym"_s, u"app/Bitmaps"_s }, stSystem, { u"app"_s } },
        { "then the symbol folder", { u"sym"_s, u"app/Bitmaps"_s }, stSystem, { u"sym"_s } },
        { "then the application's Bitmaps", { u"app/Bitmaps"_s }, stSystem, { u"app/Bitmaps"_s } },
        { "folder symbols first, then the pack", { u"sym"_s }, stAll, { u"Eigen.png"_s, u"sym"_s } },
        { "no pack: the folder symbols stay", {}, stAll, { u"Eigen.png"_s } },
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        for (const QString &place : { u"app"_s, u"sym"_s, u"app/Bitmaps"_s })
            QFile::remove(path(place + u"/symbols.pak"_s));
        for (const QString &place : c.packs)
            pack(path(place + u"/symbols.pak"_s), { { place, u"System"_s } });
        TItemSymbolManager symbols;
        TSymbolsPackIconManager().Load(&symbols, c.type);
        EXPECT_EQ(ids(symbols), c.ids);
        if (c.type == stSystem) {
            EXPECT_NE(dynamic_cast<TItemSymbol *>(symbols.Item(0)), nullptr);
        }
    }

    // No pack anywhere: the system symbols are asked for, so the error names the first candidate.
    TItemSymbolManager symbols;
    const QString candidate = cApplicationPath + u"/symbols.pak"_s;
    const QString reason = kxtest::raised([&] { TItemSymbolManager().LoadFromFile(candidate); });
    EXPECT_EQ(kxtest::raised([&] { TSymbolsPackIconManager().Load(&symbols, stSystem); }),
              u"Fehler beim Öffnen der Datei!\r\n"_s + candidate + u"\r\n\r\nFehlermeldung:\r\n"_s + reason);
}

// Any items, texts in any languages: what is written is read back as it was, and writing what was
// read gives the same bytes.
TEST_F(SymbolsTest, PackRoundTripIsByteExact)
{
    const auto letter = rc::gen::inRange<char16_t>(1, 0xD800);
    const auto text = rc::gen::map(rc::gen::container<std::u16string>(letter),
                                   [](const std::u16string &t) { return QString::fromStdU16String(t); });
    const QString first = path(u"eins.pak"_s), second = path(u"zwei.pak"_s);
    EXPECT_TRUE(kxtest::propertyHolds("a pack written, read and written again", 100, [&] {
        TItemSymbolManager written;
        const int count = *rc::gen::inRange(0, 5);
        for (int i = 0; i < count; ++i) {
            auto *item = written.CreateItem();
            item->Guid = *text;
            item->ImageType = *rc::gen::inRange(0, 8);
            item->SetData(QByteArray::fromStdString(*rc::gen::arbitrary<std::string>()));
            for (int t = *rc::gen::inRange(0, 3); t > 0; --t) {
                // the format keeps a language code in at most 255 bytes
                TTexts texts(QString::fromStdU16String(*rc::gen::container<std::u16string>(*rc::gen::inRange(0, 9), letter)));
                texts.SetName(*text);
                texts.SetCategory(*text);
                item->Texts.Add(texts);
            }
            written.AddItem(item);
        }
        written.SaveToFile(first);
        TItemSymbolManager read;
        read.LoadFromFile(first);
        RC_ASSERT(read.Count() == count);
        for (int i = 0; i < count; ++i) {
            const auto *w = static_cast<TItemSymbol *>(written.Item(i)), *r = static_cast<TItemSymbol *>(read.Item(i));
            RC_ASSERT(r->Guid == w->Guid);
            RC_ASSERT(r->ImageType == w->ImageType);
            RC_ASSERT(r->Data() == w->Data());
            RC_ASSERT(r->Texts.Count() == w->Texts.Count());
            for (int t = 0; t < w->Texts.Count(); ++t) {
                RC_ASSERT(r->Texts.Item(t).GetLanguageCode() == w->Texts.Item(t).GetLanguageCode());
                RC_ASSERT(r->Texts.Item(t).GetName() == w->Texts.Item(t).GetName());
                RC_ASSERT(r->Texts.Item(t).GetCategory() == w->Texts.Item(t).GetCategory());
            }
        }
        read.SaveToFile(second);
        RC_ASSERT(kxtest::readFile(first) == kxtest::readFile(second));
    }));
}

// A read item shows its picture, knows its format, is found by its identifier and saves its data.
TEST_F(SymbolsTest, ReadItemsShowAndSaveTheirPictures)
{
    TItemSymbolManager written;
    const QByteArray jpeg = image(path(u"x.jpg"_s), Qt::yellow);
    for (const auto &[id, type, data] : { std::tuple{ u"{a1}"_s, litJpg, jpeg },
                                          std::tuple{ u"Löschfahrzeug ß"_s, litEmf, QByteArray("\x01\x00\x00\x00 emf", 9) } }) {
        auto *item = written.CreateItem();
        item->Guid = id;
        item->ImageType = type;
        item->SetData(data);
        written.AddItem(item);
    }
    written.SaveToFile(path(u"eins.pak"_s));
    TItemSymbolManager read;
    read.LoadFromFile(path(u"eins.pak"_s));
    EXPECT_EQ(read.Item(0)->Graphic()->Image().pixelColor(1, 1).red(), 255);
    EXPECT_EQ(static_cast<TItemSymbol *>(read.Item(1))->GetImageFormat(), sifEmf);
    EXPECT_EQ(read.ItemByGuid(u"Löschfahrzeug ß"_s), read.Item(1));
    auto *symbol = static_cast<TItemSymbol *>(read.Item(0));
    symbol->SaveDataToFile(path(u"raus.jpg"_s));
    EXPECT_EQ(symbol->SavedFileName(), path(u"raus.jpg"_s));
    EXPECT_EQ(kxtest::readFile(path(u"raus.jpg"_s)), jpeg);
}

TEST_F(SymbolsTest, DamagedPacksAreRefusedWithTheirReason)
{
    const QString good = path(u"gut.pak"_s);
    pack(good, { { u"{eins}"_s, u"Fahrzeuge"_s }, { u"{zwei}"_s, u"Gefahren"_s } });
    const QByteArray bytes = kxtest::readFile(good);
    const QString bad = path(u"schlecht.pak"_s);
    const auto refusal = [&](const QByteArray &content) {
        kxtest::writeFile(bad, content);
        TItemSymbolManager symbols;
        const QString message = kxtest::raised([&] { symbols.LoadFromFile(bad); });
        EXPECT_EQ(symbols.Count(), 0);
        return message;
    };

    for (qsizetype length = 0; length < bytes.size(); ++length)
        ASSERT_FALSE(refusal(bytes.left(length)).isEmpty()) << "truncated to " << length << " bytes";
    EXPECT_EQ(refusal({}), u"Die Datei %1 ist keine Symboldatei."_s.arg(bad));

    QByteArray patched = bytes;
    qToLittleEndian<quint32>(0xFFFFFFFF, patched.data() + 12); // item count
    EXPECT_TRUE(refusal(patched).contains(u"4294967295 Einträge"_s)) << refusal(patched).toStdString();
    patched = bytes;
    qToLittleEndian<quint32>(0x7FFFFFFF, patched.data() + 16); // index size
    EXPECT_TRUE(refusal(patched).contains(u"Verzeichnis"_s));
    patched = bytes;
    // The first entry's data length sits after its identifier ("{eins}", 6 bytes), type and offset.
    qToLittleEndian<quint32>(0xFFFFFFF0, patched.data() + 20 + 2 + 6 + 2 + 8);
    EXPECT_EQ(refusal(patched), u"Die Symboldatei %1 ist beschädigt: die Bilddaten von Eintrag 1 liegen außerhalb der Datei."_s.arg(bad));
    patched = bytes;
    qToLittleEndian<quint16>(2, patched.data() + 8);
    EXPECT_TRUE(refusal(patched).contains(u"Version 2"_s));

    // Well-formed packs whose entries would take far more memory than their size lets expect:
    // 80,000 empty entries in 1.4 MB, or 2,000 entries of 255 empty texts each in 2.6 MB.
    for (const auto &[entries, texts] : { std::pair{ 80000, 0 }, std::pair{ 2000, 255 } }) {
        const qint64 entrySize = 17 + 5 * texts;
        QByteArray crafted("KXSYMPAK");
        char number[8];
        const auto put = [&](auto value) {
            qToLittleEndian(value, number);
            crafted.append(number, sizeof value);
        };
        put(quint16(1)), put(quint16(0)), put(quint32(entries)), put(quint32(entries * entrySize));
        for (int e = 0; e < entries; ++e) {
            put(quint16(0)), put(quint16(0)), put(quint64(20 + entries * entrySize)), put(quint32(0)), put(quint8(texts));
            crafted.append(QByteArray(5 * texts, '\0'));
        }
        EXPECT_TRUE(refusal(crafted).contains(u"MB Speicher"_s)) << refusal(crafted).toStdString();
    }
}

} // namespace
