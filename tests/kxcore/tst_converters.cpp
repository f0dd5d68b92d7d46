// SPDX-License-Identifier: LGPL-2.1-or-later
// The converters under German and English format settings.
#include "formatsettings.h"
#include "kxerror.h"
#include "property.h"
#include "sqlquery.h"
#include "sqltool.h"
#include "testdatabase.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct FormatScope
{
    explicit FormatScope(const TCFormatSettings &settings)
        : saved(FormatSettings())
    {
        FormatSettings() = settings;
    }
    ~FormatScope() { FormatSettings() = saved; }
    TCFormatSettings saved;
};

TEST(SqlConvertFloat, WritesPointAndShortestDigits)
{
    const struct {
        double value;
        QString expected;
    } cases[] = {
        { 2.5, u"2.5"_s },     { -0.0, u"0"_s },      { 0.1, u"0.1"_s },
        { 1234567.891, u"1234567.891"_s }, { 1e20, u"100000000000000000000"_s }, { -12.0, u"-12"_s },
    };
    for (const TCFormatSettings &settings : { TCFormatSettings::german(), TCFormatSettings::english() }) {
        FormatScope scope(settings);
        for (const auto &c : cases)
            EXPECT_EQ(sqlConvertFloat(c.value), c.expected) << c.value;
    }
    EXPECT_THROW(sqlConvertFloat(std::numeric_limits<double>::infinity()), kx::ConvertError);
}

// Any amount written as the format settings write it, with or without thousands separators, reads
// as the number itself; any date written in the short date format or as ISO reads as that date.
TEST(Converters, WhatTheFormatWritesReadsBack)
{
    EXPECT_TRUE(kxtest::propertyHolds("amounts and dates read back", 500, [] {
        const bool german = *rc::gen::arbitrary<bool>();
        FormatScope scope(german ? TCFormatSettings::german() : TCFormatSettings::english());
        const qint64 cents = *rc::gen::inRange<qint64>(-1000000000000, 1000000000000);
        QString whole = QString::number(std::abs(cents) / 100);
        if (*rc::gen::arbitrary<bool>())
            for (qsizetype i = whole.size() - 3; i > 0; i -= 3)
                whole.insert(i, german ? u'.' : u',');
        const QString text = (cents < 0 ? u"-"_s : QString()) + whole + (german ? u',' : u'.')
            + u"%1"_s.arg(std::abs(cents) % 100, 2, 10, QChar(u'0'));
        RC_ASSERT(sqlConvertFloat(text) == sqlConvertFloat(double(cents) / 100));
        const QDate date = QDate(1000, 1, 1).addDays(*rc::gen::inRange(0, 3280000));
        const QString iso = date.toString(Qt::ISODate);
        RC_ASSERT(sqlConvertDate(date.toString(german ? u"dd.MM.yyyy"_s : u"MM/dd/yyyy"_s)) == iso);
        RC_ASSERT(sqlConvertDate(date.toString(german ? u"d.M.yyyy"_s : u"M/d/yyyy"_s)) == iso);
        RC_ASSERT(sqlConvertDate(iso) == iso);
    }));
}

// Where reading refuses or reads otherwise.
TEST(SqlConvertFloat, ReadsTheLocalesNumberFormat)
{
    const struct {
        TCFormatSettings settings;
        QString text;
        QString expected; // empty: a conversion error
    } cases[] = {
        { TCFormatSettings::german(), u"1.234.567"_s, u"1234567"_s },
        { TCFormatSettings::german(), u" -3 "_s, u"-3"_s },
        { TCFormatSettings::german(), u"2.5"_s, {} },
        { TCFormatSettings::german(), u"abc"_s, {} },
        { TCFormatSettings::german(), u""_s, {} },
        { TCFormatSettings::german(), u"-"_s, {} },
        { TCFormatSettings::german(), u","_s, {} },
        { TCFormatSettings::english(), u"2,5"_s, {} },
    };
    for (const auto &c : cases) {
        FormatScope scope(c.settings);
        if (c.expected.isEmpty())
            EXPECT_THROW(sqlConvertFloat(c.text), kx::ConvertError) << c.text.toStdString();
        else
            EXPECT_EQ(sqlConvertFloat(c.text), c.expected) << c.text.toStdString();
    }
}

TEST(FormatAmount, RoundsHalfACentAwayFromZeroAsTheDecimalReads)
{
    const struct {
        double value;
        const char16_t *text;
    } cases[] = { { 136.975, u"136,98" }, { 2.675, u"2,68" },   { 1.005, u"1,01" },   { 0.125, u"0,13" },
                  { -136.975, u"-136,98" }, { -0.004, u"0,00" }, { 0, u"0,00" },     { 7, u"7,00" },
                  { 1234567.5, u"1234567,50" }, { 0.994999, u"0,99" } };
    for (const auto &c : cases)
        EXPECT_EQ(kx::formatAmount(c.value), QString::fromUtf16(c.text)) << c.value;
}

TEST(SqlConvertDate, ReadsTheShortDateFormatAndIso)
{
    const struct {
        TCFormatSettings settings;
        QString text, expected;
    } cases[] = {
        { TCFormatSettings::german(), u"22.11.26"_s, u"2026-11-22"_s },
        { TCFormatSettings::german(), u"22.11.75"_s, u"1975-11-22"_s },
        { TCFormatSettings::german(), u"22.11.2026 13:45:00"_s, u"2026-11-22"_s },
        { TCFormatSettings::german(), u"31.02.2026"_s, u""_s },
        { TCFormatSettings::german(), u"11/22/2026"_s, u""_s },
        { TCFormatSettings::german(), u"abc"_s, u""_s },
        // Found by fuzzing: a five-digit year made "20234-11-01", which no product reads as a date.
        { TCFormatSettings::german(), u"1.11.20234"_s, u""_s },
        { TCFormatSettings::german(), u"1.11.0"_s, u"2000-11-01"_s },
        { TCFormatSettings::german(), u"1.11.000"_s, u""_s },
        { TCFormatSettings::german(), u""_s, u""_s },
        { TCFormatSettings::english(), u"22.11.2026"_s, u""_s },
    };
    for (const auto &c : cases) {
        FormatScope scope(c.settings);
        EXPECT_EQ(sqlConvertDate(c.text), c.expected) << c.text.toStdString();
    }
    EXPECT_EQ(sqlConvertDate(QDate(2024, 2, 29)), u"2024-02-29"_s);
    EXPECT_EQ(sqlConvertDate(QDateTime(QDate(2026, 1, 5), QTime(23, 59))), u"2026-01-05"_s);
}

TEST(StrToDate, ReadsOnlyWhatTheShortDateFormatGives)
{
    const TCFormatSettings blanks{ u"d. M. yyyy"_s, u"hh:mm:ss"_s, u',', u'.' };
    const QDate today(2026, 11, 22);
    const struct {
        TCFormatSettings settings;
        QString text;
        QDate expected;
    } cases[] = {
        { TCFormatSettings::german(), u"25.11.2026"_s, QDate(2026, 11, 25) },
        { TCFormatSettings::german(), u" 5.1.26 "_s, QDate(2026, 1, 5) },
        { TCFormatSettings::german(), u"25.11"_s, QDate(2026, 11, 25) }, // the year is completed
        { TCFormatSettings::german(), u"25.11.2026 10:00"_s, {} },
        { TCFormatSettings::german(), u"25.11.2026 xyz"_s, {} },
        { TCFormatSettings::german(), u"2026-11-25"_s, {} },
        { TCFormatSettings::german(), u"25 11 2026"_s, {} },
        { TCFormatSettings::german(), u"31.02.2026"_s, {} },
        { TCFormatSettings::german(), u"25"_s, {} },
        { TCFormatSettings::german(), u""_s, {} },
        { TCFormatSettings::english(), u"11/25/2026"_s, QDate(2026, 11, 25) },
        { blanks, u"25. 11. 2026"_s, QDate(2026, 11, 25) },
        { blanks, u"25.11.2026"_s, QDate(2026, 11, 25) },
        { blanks, u"25 11 2026"_s, QDate(2026, 11, 25) },
    };
    for (const auto &c : cases) {
        FormatScope scope(c.settings);
        EXPECT_EQ(kx::strToDate(c.text, today), c.expected) << c.text.toStdString();
    }
}

TEST(SqlConvertString, DoublesQuotesOnly)
{
    EXPECT_EQ(sqlConvertString(u"O'Brien"_s), u"O''Brien"_s);
    EXPECT_EQ(sqlConvertString(u"''"_s), u"''''"_s);
    EXPECT_EQ(sqlConvertString(u"Straße; \"x\""_s), u"Straße; \"x\""_s);
    EXPECT_EQ(sqlConvertString(QString()), QString());
}

TEST(SqlConvertFormatStringToSQL, BuildsAConditionOrNothing)
{
    const struct {
        QString value, expected;
    } cases[] = {
        { u""_s, u""_s },
        { u"Köln"_s, u"ORT='Köln'"_s },
        { u"O'Hara"_s, u"ORT='O''Hara'"_s },
        { u"Kö*"_s, u"ORT like 'Kö%'"_s },
        { u"M?nchen"_s, u"ORT like 'M_nchen'"_s },
    };
    for (const auto &c : cases)
        EXPECT_EQ(sqlConvertFormatStringToSQL(QString(), u"ORT"_s, u"Varchar"_s, c.value, false), c.expected);
}

TEST(QueryField, ReadsValuesInTheFormatSettings)
{
    const TCQueryField real(u"F"_s, QVariant(2.5));
    const TCQueryField whole(u"F"_s, QVariant(qlonglong(7010)));
    const TCQueryField date(u"F"_s, QVariant(QDate(2026, 11, 22)));
    const TCQueryField text(u"F"_s, QVariant(u"12,75"_s));
    const TCQueryField null(u"F"_s, QVariant());
    {
        FormatScope scope(TCFormatSettings::german());
        EXPECT_EQ(real.AsString(), u"2,5"_s);
        EXPECT_EQ(date.AsString(), u"22.11.2026"_s);
        EXPECT_DOUBLE_EQ(text.AsFloat(), 12.75);
    }
    {
        FormatScope scope(TCFormatSettings::english());
        EXPECT_EQ(real.AsString(), u"2.5"_s);
        EXPECT_EQ(date.AsString(), u"11/22/2026"_s);
        EXPECT_THROW(text.AsFloat(), kx::ConvertError);
    }
    EXPECT_EQ(whole.AsString(), u"7010"_s);
    EXPECT_EQ(whole.AsInteger(), 7010);
    EXPECT_EQ(real.AsInteger(), 3); // rounds half away from zero
    EXPECT_EQ(null.AsString(), QString());
    EXPECT_EQ(null.AsInteger(), 0);
    EXPECT_THROW(TCQueryField(u"F"_s, QVariant(qlonglong(1) << 40)).AsInteger(), kx::RangeError);
    EXPECT_THROW(TCQueryField(u"F"_s, QVariant(u"zwölf"_s)).AsInteger(), kx::ConvertError);
}

} // namespace
