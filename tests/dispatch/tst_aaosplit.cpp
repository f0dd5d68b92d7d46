// SPDX-License-Identifier: LGPL-2.1-or-later
// Street and object-name splitting, and the search form of addresses: no database.
#include "aaocommon.h"
#include "sqltool.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(AaoSplitStrasse, Examples)
{
    const struct
    {
        QString text, strasse, nummer, zusatzNummer, zusatz;
    } cases[] = {
        { u"Hauptstraße 12a"_s, u"Hauptstraße"_s, u"12"_s, u"a"_s, {} },
        { u"Hauptstr.12"_s, u"Hauptstr"_s, u"12"_s, u"."_s, {} },
        { u"Am Markt 3/5"_s, u"Am Markt"_s, u"3"_s, {}, u"5"_s },
        { u"Am Markt 3/5/7"_s, u"Am Markt"_s, u"3"_s, {}, u"5/7"_s },
        { u"Am Markt 3 / Hinterhaus "_s, u"Am Markt"_s, u"3"_s, {}, u"Hinterhaus"_s },
        { u"Hauptstraße 12 b"_s, u"Hauptstraße 12 b"_s, {}, {}, {} }, // the blank ends the scan before a digit
        { u"Hauptstraße"_s, u"Hauptstraße"_s, {}, {}, {} },
        { u"12"_s, u"12"_s, {}, {}, {} },
        { u"12a"_s, u"12a"_s, {}, {}, {} },
        { u"  Straße des 17. Juni 112  "_s, u"Straße des 17. Juni"_s, u"112"_s, {}, {} },
        { u"Nieder-Ramstädter Str. 7-9"_s, u"Nieder-Ramstädter Str. 7"_s, u"9"_s, u"-"_s, {} },
        { u"Mühlweg 3ab"_s, u"Mühlweg"_s, u"3"_s, u"ab"_s, {} },
        { u"Am Anger 100"_s, u"Am Anger"_s, u"100"_s, {}, {} }, // a zero is a digit of the number
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

TEST(AaoSplitObjektName, Examples)
{
    const struct
    {
        QString text, prefix, name;
    } cases[] = {
        { u"Haus - Feuerwehrhaus"_s, u"Haus"_s, u"Feuerwehrhaus"_s },
        { u"Musterort - Rathaus"_s, u"Musterort"_s, u"Rathaus"_s },
        { u"Haus-Feuerwehrhaus"_s, {}, u"Haus-Feuerwehrhaus"_s },
        { u" Schule am Park "_s, {}, u" Schule am Park "_s }, // without "- " the text stays as given
        { u"A - B - C"_s, u"A"_s, u"B - C"_s },
        { u"- Rathaus"_s, {}, u"Rathaus"_s },
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
    const struct
    {
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
        { u"Bad Homburg v. d. Höhe"_s, u"BADHOMBURGVDHOEHE"_s },
        { u"64285"_s, u"64285"_s },
        { QString(), QString() },
    };
    for (const auto &c : cases)
        EXPECT_EQ(SqlGetSelectFieldValue(c.text), c.expected) << c.text.toStdString();
}

} // namespace
