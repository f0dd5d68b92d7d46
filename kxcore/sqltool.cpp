// SPDX-License-Identifier: LGPL-2.1-or-later
#include "sqltool.h"

#include "formatsettings.h"
#include "globals.h"
#include "kxerror.h"
#include "sqlconnection.h"
#include "sqldialect.h"
#include "sqlquery.h"

#include <QRegularExpression>
#include <QUuid>
#include <algorithm>
#include <cmath>
#include <charconv>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

QString shortestFixed(double value, QChar decimalSeparator)
{
    if (!std::isfinite(value))
        throw kx::ConvertError(u"Der Wert ist keine endliche Zahl."_s);
    if (value == 0.0)
        value = 0.0; // folds -0 into 0
    char buffer[400];
    const auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed);
    QString text = QString::fromLatin1(buffer, end - buffer);
    if (decimalSeparator != u'.')
        text.replace(u'.', decimalSeparator);
    return text;
}

TCQueryField firstValue(const QString &sql)
{
    const kx::SqlResult result = compSqlConnection->execute(sql);
    if (result.rows.empty() || result.columns.isEmpty())
        return {};
    return TCQueryField(result.columns.first(), result.rows.front().first());
}

} // namespace

void SqlExec(const QString &sql)
{
    compSqlConnection->execute(sql);
}

QString sqlGetValue(const QString &sql)
{
    return firstValue(sql).AsString();
}

qint64 sqlGetValueInt(const QString &sql)
{
    const TCQueryField field = firstValue(sql);
    if (field.IsNull() || field.AsString().trimmed().isEmpty())
        return 0;
    return field.AsLargeInt();
}

QString sqlGenIdValue()
{
    return QUuid::createUuid().toString(QUuid::Id128).toUpper();
}

QString sqlConvertFloat(double value)
{
    return shortestFixed(value, u'.');
}

QString sqlConvertFloat(const QString &text)
{
    return sqlConvertFloat(kx::parseFloat(text));
}

QString sqlConvertDate(const QDate &date)
{
    return date.toString(u"yyyy-MM-dd"_s);
}

QString sqlConvertDate(const QDateTime &dateTime)
{
    return sqlConvertDate(dateTime.date());
}

QString sqlConvertDate(const QString &text)
{
    // A time part after the date is ignored.
    const QString datePart = text.trimmed().section(u' ', 0, 0);
    if (datePart.isEmpty())
        return {};
    const QDate iso = QDate::fromString(datePart, Qt::ISODate);
    if (iso.isValid() && datePart.size() == 10)
        return sqlConvertDate(iso);

    // Read day, month and year in the order and with the (first) separator of the short date format.
    const kx::ShortDateLayout layout = kx::shortDateLayout();
    const QStringList parts = datePart.split(layout.separators.isEmpty() ? QChar() : layout.separators.at(0));
    if (parts.size() != 3 || layout.order.size() != 3)
        return {};
    const QDate date = kx::dateFromFields(layout.order, parts, 0);
    return date.isValid() ? sqlConvertDate(date) : QString();
}

QString sqlConvertString(const QString &text)
{
    QString result = text;
    return result.replace(u'\'', u"''"_s);
}

QString SqlBuildInsertSql(const QString &table, const QStringList &pairs)
{
    QStringList names;
    QStringList values;
    for (const QString &pair : pairs) {
        const qsizetype eq = pair.indexOf(u'=');
        names << pair.left(eq);
        values << (eq < 0 ? QString() : pair.mid(eq + 1));
    }
    return u"Insert into "_s + table + u" ("_s + names.join(u',') + u") values ("_s + values.join(u',') + u')';
}

QString SqlBuildUpdateSql(const QString &table, const QStringList &pairs, const QString &where)
{
    QStringList assignments;
    for (const QString &pair : pairs) {
        const qsizetype eq = pair.indexOf(u'=');
        // A row's key never changes under an update: child rows and links point at it.
        if (pair.left(eq).compare(u"ID"_s, Qt::CaseInsensitive) == 0)
            continue;
        assignments << (eq < 0 ? pair + u"=NULL"_s : pair);
    }
    return u"Update "_s + table + u" set "_s + assignments.join(u',') + u' ' + where;
}

qint64 SqlGetNextValue(const QString &table, const QString &field, qint64 minValue)
{
    const kx::SqlDialect &dialect = compSqlConnection->dialect();
    const QString name = kx::generatorName(dialect, table, field);
    kx::ensureGenerator(*compSqlConnection, name);
    qint64 value = sqlGetValueInt(dialect.nextGeneratorValueSql(name));
    if (value < minValue) {
        SqlExec(dialect.setGeneratorSql(name, minValue));
        value = minValue;
    }
    return value;
}

void SqlAlterGen(const QString &table, const QString &field, qint64 value)
{
    const kx::SqlDialect &dialect = compSqlConnection->dialect();
    const QString name = kx::generatorName(dialect, table, field);
    kx::ensureGenerator(*compSqlConnection, name);
    SqlExec(dialect.setGeneratorSql(name, value));
}

QString sqlConvertFormatStringToSQL(const QString &, const QString &field, const QString &, const QString &value,
                                    bool)
{
    if (value.isEmpty())
        return {};
    const QString literal = sqlConvertString(value);
    if (literal.contains(u'*') || literal.contains(u'?')) {
        QString pattern = literal;
        pattern.replace(u'*', u'%').replace(u'?', u'_');
        return field + u" like '"_s + pattern + u'\'';
    }
    return field + u"='"_s + literal + u'\'';
}

QString SqlGetSelectFieldValue(const QString &text)
{
    QString s = text.toUpper();
    s.replace(u"Ä"_s, u"AE"_s).replace(u"Ö"_s, u"OE"_s).replace(u"Ü"_s, u"UE"_s);
    s.replace(u"ß"_s, u"SS"_s).replace(u"ẞ"_s, u"SS"_s);
    // "Straße", "Strasse" and "Str." at the end of a word are one form; inside a word
    // ("Straßenbahnweg") they stay, so no other name is folded onto a street.
    static const QRegularExpression street(u"STRASSE(?![A-Z])|STR\\."_s);
    s.replace(street, u"STR"_s);
    // Blanks, dots, hyphens and apostrophes do not tell names apart; the search form never holds
    // a quote, so it stands safely in a literal.
    static const QRegularExpression separators(u"[\\s.\\-'`´’]"_s);
    s.remove(separators);
    return s;
}

QStringList GetTablenamesMSSql()
{
    QStringList names;
    const kx::SqlResult result = compSqlConnection->execute(
        u"select TABLE_NAME from INFORMATION_SCHEMA.TABLES where TABLE_TYPE='BASE TABLE'"
        u" and TABLE_SCHEMA not in ('pg_catalog','information_schema') order by TABLE_NAME"_s);
    for (const auto &row : result.rows)
        names << row.value(0).toString();
    return names;
}

QStringList GetFieldnamesMSSql(const QString &table)
{
    QStringList names;
    const kx::SqlResult result = compSqlConnection->execute(
        u"select COLUMN_NAME from INFORMATION_SCHEMA.COLUMNS where upper(TABLE_NAME)=upper('"_s
        + sqlConvertString(table) + u"') order by ORDINAL_POSITION"_s);
    for (const auto &row : result.rows)
        names << row.value(0).toString();
    return names;
}

namespace kx {

QList<std::pair<QString, QString>> changeStamp()
{
    const QDateTime now = QDateTime::currentDateTime();
    return { { u"LDATE"_s, sqlConvertDate(now.date()) },
             { u"LTIME"_s, now.time().toString(FormatSettings().LongTimeFormat) },
             { u"LUSER"_s, User.Name } };
}

QString sqlQuoted(const QString &text)
{
    return u'\'' + sqlConvertString(text) + u'\'';
}

QString sqlWholeNumber(const QString &text, const QString &what)
{
    static const QRegularExpression digits(u"^-?[0-9]+$"_s);
    bool inRange = false;
    text.toLongLong(&inRange);
    if (!digits.match(text).hasMatch() || !inRange)
        throw ConvertError(u"%1 \"%2\" ist keine ganze Zahl im 64-Bit-Bereich."_s.arg(what, text));
    return text;
}

SqlValueList &SqlValueList::set(const QString &name, const QString &sqlValue)
{
    for (QString &pair : m_pairs) {
        if (pair.section(u'=', 0, 0).compare(name, Qt::CaseInsensitive) == 0) {
            pair = pair.section(u'=', 0, 0) + u'=' + sqlValue;
            return *this;
        }
    }
    return add(name, sqlValue);
}

SqlValueList &SqlValueList::addText(const QString &name, const QString &text)
{
    return add(name, sqlQuoted(text));
}

QString formatFloat(double value)
{
    return shortestFixed(value, FormatSettings().DecimalSeparator);
}

QString formatAmount(double value)
{
    const QChar decimal = FormatSettings().DecimalSeparator;
    // Millionths are exact far beyond any amount; half a cent is rounded away from zero.
    if (!std::isfinite(value) || std::abs(value) >= 1e12)
        return QString::number(value, 'f', 2).replace(u'.', decimal);
    const qint64 millionths = std::llround(value * 1e6);
    const qint64 cents = (std::abs(millionths) + 5000) / 10000;
    const QString digits = QString::number(cents).rightJustified(3, u'0');
    return (millionths < 0 && cents != 0 ? u"-"_s : QString()) + digits.left(digits.size() - 2) + decimal
        + digits.right(2);
}

double parseFloat(const QString &text)
{
    const TCFormatSettings &f = FormatSettings();
    QString s = text.trimmed();
    const QString decimal = QRegularExpression::escape(QString(f.DecimalSeparator));
    const QString thousand = QRegularExpression::escape(QString(f.ThousandSeparator));
    // Either plain digits, or digits grouped by threes with the thousands separator.
    const QRegularExpression pattern(u"^[+-]?(\\d+|\\d{1,3}("_s + thousand + u"\\d{3})+)?("_s + decimal
                                     + u"\\d*)?([eE][+-]?\\d+)?$"_s);
    if (!pattern.match(s).hasMatch() || !std::any_of(s.cbegin(), s.cend(), [](QChar c) { return c.isDigit(); }))
        throw ConvertError(u"\"%1\" ist kein gültiger Gleitkommawert."_s.arg(text));
    s.remove(f.ThousandSeparator);
    s.replace(f.DecimalSeparator, u'.');
    bool ok = false;
    const double value = s.toDouble(&ok);
    if (!ok)
        throw ConvertError(u"\"%1\" ist kein gültiger Gleitkommawert."_s.arg(text));
    return value;
}

QString generatorName(const SqlDialect &dialect, const QString &table, const QString &field)
{
    return dialect.shortName(u"GEN_"_s + table + u'_' + field);
}

void ensureGenerator(TCSqlConnection &connection, const QString &name)
{
    const SqlDialect &dialect = connection.dialect();
    const QString existsSql = dialect.generatorExistsSql(name);
    if (!existsSql.isEmpty()) {
        const SqlResult result = connection.execute(existsSql);
        if (!result.rows.empty() && result.rows.front().value(0).toLongLong() > 0)
            return;
    }
    for (const QString &sql : dialect.createGeneratorSql(name))
        connection.execute(sql);
}

} // namespace kx
