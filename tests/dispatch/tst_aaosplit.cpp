// SPDX-License-Identifier: LGPL-2.1-or-later
// Street and object-name splitting, and the search form of addresses: no database.
#include "aaocommon.h"
#include "property.h"
#include "sqltool.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// A street of words, a house number, a suffix of ASCII letters and an addition after a slash, with
// blanks around them: split, each comes back as it was written.
TEST(AaoSplitStrasse, PartsComeBackAsWritten)
{
    const auto from = [](const char *chars) { return rc::gen::elementOf(std::u16string(u"") + QString::fromUtf8(chars).toStdU16String()); };
    const auto word = rc::gen::nonEmpty(rc::gen::container<std::u16string>(from("abcdefghijklmnopqrstuvwxyzäöüßABCÄÖÜ.-")));
    const auto blanks = rc::gen::container<std::u16string>(rc::gen::just(u' '));
    EXPECT_TRUE(kxtest::propertyHolds("street parts split", 300, [&] {
        std::u16string street;
        for (const auto &w : *rc::gen::nonEmpty(rc::gen::container<std::vector<std::u16string>>(word)))
            street += (street.empty() ? u"" : u" ") + w;
        const auto number = *rc::gen::nonEmpty(rc::gen::container<std::u16string>(from("0123456789")));
        const auto suffix = *rc::gen::container<std::u16string>(*rc::gen::inRange(0, 3), from("abcxyzABZ"));
        const auto addition = *rc::gen::container<std::u16string>(from("abc 12-.ä"));
        const bool slash = *rc::gen::arbitrary<bool>();
        const auto text = *blanks + street + u' ' + *blanks + number + suffix + *blanks + (slash ? u"/" + addition : u"");
        const TAaoStrasseParts p = AaoSplitStrasse(QString::fromStdU16String(text));
        RC_ASSERT(p.Strasse == QString::fromStdU16String(street));
        RC_ASSERT(p.Hausnummer == QString::fromStdU16String(number));
        RC_ASSERT(p.HausnummerZusatz == QString::fromStdU16String(suffix));
        RC_ASSERT(p.Zusatz == QString::fromStdU16String(slash ? addition : u"").trimmed());
    }));
}

// Where the rules say otherwise.
TEST(AaoSplitStrasse, Examples)
{
    const struct {
        QString text, strasse, nummer, zusatzNummer, zusatz;
    } cases[] = {
        { u"Hauptstr.12"_s, u"Hauptstr"_s, u"12"_s, u"."_s, {} },
        { u"Am Markt 3/5/7"_s, u"Am Markt"_s, u"3"_s, {}, u"5/7"_s },
        { u"Hauptstraße 12 b"_s, u"Hauptstraße 12 b"_s, {}, {}, {} }, // the blank ends the scan before a digit
        { u"12"_s, u"12"_s, {}, {}, {} },
        { u"12a"_s, u"12a"_s, {}, {}, {} },
        { u"  Straße des 17. Juni 112  "_s, u"Straße des 17. Juni"_s, u"112"_s, {}, {} },
        { u"Nieder-Ramstädter Str. 7-9"_s, u"Nieder-Ramstädter Str. 7"_s, u"9"_s, u"-"_s, {} },
        { u"Mühlweg 3ä"_s, u"Mühlweg 3ä"_s, {}, {}, {} }, // only ASCII letters form a suffix
        { u"Weg\n7"_s, u"Weg"_s, {}, {}, u"7"_s },        // a line break in the text cuts too
        { u"   "_s, {}, {}, {}, {} },
        { QString(), {}, {}, {}, {} },
        { u"/"_s, {}, {}, {}, {} },
        { u"///"_s, {}, {}, {}, u"//"_s },
        { u"-12"_s, {}, u"12"_s, u"-"_s, {} },
        { u"Weg\t\u0001 5"_s, u"Weg\t\u0001"_s, u"5"_s, {}, {} },
    };
    for (const auto &c : cases) {
        const TAaoStrasseParts p = AaoSplitStrasse(c.text);
        EXPECT_EQ(p.Strasse, c.strasse) << c.text.toStdString();
        EXPECT_EQ(p.Hausnummer, c.nummer) << c.text.toStdString();
        EXPECT_EQ(p.HausnummerZusatz, c.zusatzNummer) << c.text.toStdString();
        EXPECT_EQ(p.Zusatz, c.zusatz) << c.text.toStdString();
        EXPECT_EQ(p.CompleteHausnummer(), c.nummer + c.zusatzNummer);
    }
}

// A prefix and a name around "- ": each comes back trimmed; a text without "- " is the name as given.
TEST(AaoSplitObjektName, PartsComeBackTrimmed)
{
    const auto part = rc::gen::container<std::u16string>(rc::gen::elementOf(std::u16string(u"ab -Rö")));
    EXPECT_TRUE(kxtest::propertyHolds("object name parts split", 300, [&] {
        const QString prefix = QString::fromStdU16String(*part), name = QString::fromStdU16String(*part);
        RC_PRE(!QString(prefix + u' ').contains(u"- "_s)); // the first "- " is the one written between
        const TAaoObjektNameParts p = AaoSplitObjektName(prefix + u" - "_s + name);
        RC_ASSERT(p.Prefix == prefix.trimmed());
        RC_ASSERT(p.Name == name.trimmed());
        const QString whole = prefix + name;
        if (!whole.contains(u"- "_s) && !whole.trimmed().isEmpty())
            RC_ASSERT(AaoSplitObjektName(whole).Name == whole);
    }));
}

// Where the rules say otherwise.
TEST(AaoSplitObjektName, Examples)
{
    const struct {
        QString text, prefix, name;
    } cases[] = {
        { u"A - B - C"_s, u"A"_s, u"B - C"_s },
        { u"Süd- Straßenmeisterei"_s, u"Süd"_s, u"Straßenmeisterei"_s },
        { u"- "_s, {}, {} },
        { u"  "_s, {}, {} },
        { QString(), {}, {} },
    };
    for (const auto &c : cases) {
        const TAaoObjektNameParts p = AaoSplitObjektName(c.text);
        EXPECT_EQ(p.Prefix, c.prefix) << c.text.toStdString();
        EXPECT_EQ(p.Name, c.name) << c.text.toStdString();
    }
}

TEST(AaoSplit, LongAndOddTextsNeverBreak)
{
    const QString digits = QString(100000, u'7');
    const QString letters = QString(100000, u'ß');
    const TAaoStrasseParts longNumber = AaoSplitStrasse(u"Weg "_s + digits);
    EXPECT_EQ(longNumber.Strasse, u"Weg"_s);
    EXPECT_EQ(longNumber.Hausnummer.size(), 100000);
    EXPECT_EQ(AaoSplitStrasse(letters).Strasse, letters);
    EXPECT_EQ(AaoSplitStrasse(QString(100000, u'/')).Zusatz.size(), 99999);
    EXPECT_EQ(AaoSplitObjektName(QString(50000, u'-') + u"- x"_s).Name, u"x"_s);
    QString controls;
    for (char16_t c = 0; c < 32; ++c)
        controls += QChar(c);
    // A line break among the control characters ends the first line: no house number there.
    const TAaoStrasseParts odd = AaoSplitStrasse(controls + u" 12"_s);
    EXPECT_EQ(odd.Hausnummer + odd.HausnummerZusatz, QString());
    EXPECT_EQ(AaoSplitStrasse(u"Weg 12"_s + controls.mid(14)).Hausnummer, QString());
    // The character before the number moves into the suffix, a control character too.
    EXPECT_EQ(AaoSplitStrasse(u"Weg"_s + controls.mid(14) + u"12a"_s).CompleteHausnummer(), u"12"_s + QChar(0x1f) + u"a"_s);
    EXPECT_EQ(AaoSplitObjektName(u"Ort - "_s + controls).Name, controls);
}

TEST(SqlGetSelectFieldValue, GermanAddresses)
{
    const struct {
        QString text, expected;
    } cases[] = {
        { u"Hauptstraße"_s, u"HAUPTSTR"_s },
        { u"Hauptstr."_s, u"HAUPTSTR"_s },
        { u"Hauptstrasse"_s, u"HAUPTSTR"_s },
        { u"Haupt-Str."_s, u"HAUPTSTR"_s },
        { u"Hauptstraße12"_s, u"HAUPTSTR12"_s },
        { u"Straße des 17. Juni"_s, u"STRDES17JUNI"_s },
        { u"Str. des 17. Juni"_s, u"STRDES17JUNI"_s },
        { u"Nieder-Ramstädter Str."_s, u"NIEDERRAMSTAEDTERSTR"_s },
        { u"Nieder-Ramstädter Straße"_s, u"NIEDERRAMSTAEDTERSTR"_s },
        { u"Straßenbahnweg"_s, u"STRASSENBAHNWEG"_s }, // inside a word the street word stays
        { u"Große Bleiche"_s, u"GROSSEBLEICHE"_s },
        { u"Auf'm Hügel"_s, u"AUFMHUEGEL"_s },
        { u"Öhringer Weg"_s, u"OEHRINGERWEG"_s },
        { u"Übersee"_s, u"UEBERSEE"_s },
        { u"Bad Homburg v. d. Höhe"_s, u"BADHOMBURGVDHOEHE"_s },
        { u"64285"_s, u"64285"_s },
        { QString(), QString() },
    };
    for (const auto &c : cases)
        EXPECT_EQ(SqlGetSelectFieldValue(c.text), c.expected) << c.text.toStdString();
}

} // namespace
