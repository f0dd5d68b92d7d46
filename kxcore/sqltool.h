// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QStringList>

class TCSqlConnection;

// SQL helpers on the application's connection (compSqlConnection).

// Runs one statement; throws kx::DatabaseError on failure.
KXCOMMON_CORE_EXPORT void SqlExec(const QString &sql);
// The first column of the first row as text; empty when there is no row or the value is null.
KXCOMMON_CORE_EXPORT QString sqlGetValue(const QString &sql);
// As sqlGetValue, converted to a 64-bit integer (counts, generators, Numeric(10,0) columns); an
// empty result is 0.
KXCOMMON_CORE_EXPORT qint64 sqlGetValueInt(const QString &sql);
// A new unique row key of 32 characters.
KXCOMMON_CORE_EXPORT QString sqlGenIdValue();

// The number as an SQL literal: "." as decimal separator, no quotes.
KXCOMMON_CORE_EXPORT QString sqlConvertFloat(double value);
// A number text in the user's format settings, as an SQL literal; throws kx::ConvertError.
KXCOMMON_CORE_EXPORT QString sqlConvertFloat(const QString &text);
// The date as ISO text yyyy-mm-dd, without quotes.
KXCOMMON_CORE_EXPORT QString sqlConvertDate(const QDate &date);
KXCOMMON_CORE_EXPORT QString sqlConvertDate(const QDateTime &dateTime);
// A date text in the user's short date format (or ISO); the empty text for what does not read.
KXCOMMON_CORE_EXPORT QString sqlConvertDate(const QString &text);
// The text with each single quote doubled, without enclosing quotes.
KXCOMMON_CORE_EXPORT QString sqlConvertString(const QString &text);

// "NAME=value" pairs with values already converted (quoted where they are texts).
KXCOMMON_CORE_EXPORT QString SqlBuildInsertSql(const QString &table, const QStringList &pairs);
// The update leaves out the pair named ID: it sets every other column of the list.
KXCOMMON_CORE_EXPORT QString SqlBuildUpdateSql(const QString &table, const QStringList &pairs, const QString &where);

// The next value of the generator of Table.Field, at least MinValue.
KXCOMMON_CORE_EXPORT qint64 SqlGetNextValue(const QString &table, const QString &field, qint64 minValue);
// Sets the generator of Table.Field to Value; the next SqlGetNextValue returns Value + 1.
KXCOMMON_CORE_EXPORT void SqlAlterGen(const QString &table, const QString &field, qint64 value);

// A condition on Field that matches Value ("*" is a wildcard); empty for an empty Value.
KXCOMMON_CORE_EXPORT QString sqlConvertFormatStringToSQL(const QString &format, const QString &field, const QString &fieldType,
                                    const QString &value, bool flag);
// The search form of a postcode, town or street, used both to fill the SELECTPLZ, SELECTORT and
// SELECTSTRASSE columns and to query them: upper case; Ä Ö Ü as AE OE UE, ß and ẞ as SS;
// "STRASSE" at the end of a word and "STR." as "STR"; blanks, dots, hyphens and apostrophes
// removed. "Hauptstraße", "Hauptstr." and "Haupt-Str." all give "HAUPTSTR"; "Straße des 17. Juni"
// gives "STRDES17JUNI"; "Nieder-Ramstädter Str." gives "NIEDERRAMSTAEDTERSTR".
KXCOMMON_CORE_EXPORT QString SqlGetSelectFieldValue(const QString &text);

// Table and column listings through INFORMATION_SCHEMA (servers that have it).
KXCOMMON_CORE_EXPORT QStringList GetTablenamesMSSql();
KXCOMMON_CORE_EXPORT QStringList GetFieldnamesMSSql(const QString &table);

namespace kx {

// The change stamp of a row written now, as raw values in this order: LDATE (today, as an ISO
// date), LTIME (the time in the long time format), LUSER (the signed-in user's name).
KXCOMMON_CORE_EXPORT QList<std::pair<QString, QString>> changeStamp();

// The text as a quoted SQL literal, quotes inside doubled.
KXCOMMON_CORE_EXPORT QString sqlQuoted(const QString &text);
// A whole number placed without quotes, exactly as written ("0002" stays "0002"): an optional
// minus and decimal digits within the 64-bit range; anything else throws kx::ConvertError naming
// What, before a statement could take it for SQL.
KXCOMMON_CORE_EXPORT QString sqlWholeNumber(const QString &text, const QString &what);

// Builds the "NAME=value" list of SqlBuildInsertSql and SqlBuildUpdateSql.
class KXCOMMON_CORE_EXPORT SqlValueList
{
public:
    SqlValueList &add(const QString &name, const QString &sqlValue)
    {
        m_pairs << name + u'=' + sqlValue;
        return *this;
    }
    // Replaces the value of the pair of that name (names compare without case) where it stands,
    // or adds the pair at the end.
    SqlValueList &set(const QString &name, const QString &sqlValue);
    // Removes every pair.
    void clear() { m_pairs.clear(); }
    // The value as a quoted text literal, quotes inside doubled.
    SqlValueList &addText(const QString &name, const QString &text);
    const QStringList &pairs() const { return m_pairs; }

private:
    QStringList m_pairs;
};

// The number in the user's format settings, as few digits as read back exactly.
KXCOMMON_CORE_EXPORT QString formatFloat(double value);
// An amount with two decimals in the user's format settings, rounded commercially as its decimal
// value reads (136.975 gives "136,98", though the double holds 136.97499...).
KXCOMMON_CORE_EXPORT QString formatAmount(double value);
// A number text in the user's format settings; throws kx::ConvertError.
KXCOMMON_CORE_EXPORT double parseFloat(const QString &text);
class SqlDialect;
// The name of the generator that counts Table.Field.
KXCOMMON_CORE_EXPORT QString generatorName(const SqlDialect &dialect, const QString &table, const QString &field);
// Creates the generator when it does not exist yet.
KXCOMMON_CORE_EXPORT void ensureGenerator(TCSqlConnection &connection, const QString &name);

} // namespace kx
