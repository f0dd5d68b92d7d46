// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>

namespace kx {

// A Numeric(p,s) column of a table and its scale s.
struct ScaledColumn
{
    QString name;
    int scale;
};

// How a product reads quotes and comments beyond the standard '...', "...", -- and /* */.
// The one-statement check must read a text exactly as the product will, or a quote form the
// product knows and the check does not could hide a second statement.
struct SqlLexis
{
    bool dollarQuotes = false;   // $$...$$ and $tag$...$tag$
    bool escapeStrings = false;  // E'...' with backslash escapes
    bool nestedComments = false; // /* /* */ */ is one comment
    bool qLiterals = false;      // q'{...}', q'[...]', q'(...)', q'<...>', q'x...x'
    bool bracketNames = false;   // [name] and `name`
};

// Everything that differs between the database products, one hook per concern.
// The base class holds the common SQL; each product overrides only where it differs.
class SqlDialect
{
public:
    virtual ~SqlDialect() = default;

    virtual QString productName() const = 0; // "sqlite", "postgres", "firebird"
    // The value of cDBSystem for this product.
    virtual int dbSystem() const = 0;
    virtual int maxIdentifierLength() const { return 31; }
    // Whether every SET assignment of an UPDATE reads the row as it was before the statement
    // (so "set a=a+1, b=a" leaves b at the old a). All three products here do; a product that
    // reads the assignments in order would return false.
    virtual bool updateReadsOldRow() const { return true; }
    virtual SqlLexis lexis() const { return {}; }
    // Whether binary columns are created after all others. SQLite builds a row's whole record to
    // write it, and expands a zero-filled value to its full size unless it is the record's last
    // column: a 100 MB document stored by streaming then took 200 MB of memory.
    virtual bool blobColumnsLast() const { return false; }
    // Whether the product sorts null above every value (first in a descending order). The
    // connection then states the null order of each ORDER BY item, so that null is the lowest
    // value on every product, as SQLite and Firebird have it.
    virtual bool nullsSortHigh() const { return false; }
    // Whether a failed statement leaves the open transaction unusable until it is rolled back
    // (PostgreSQL). SQLite and Firebird undo the failed statement alone and go on, so a statement
    // there needs no savepoint of its own to fail without taking its transaction along.
    virtual bool failedStatementEndsTransaction() const { return false; }

    // The product's column type for a type text of a table definition ("Varchar(43)", "Date", ...).
    QString columnType(const QString &definitionType) const;

    // How the catalog spells an unquoted identifier (upper, lower or as written).
    virtual QString catalogName(const QString &name) const = 0;
    virtual QString tableNamesSql() const = 0;
    virtual QString fieldNamesSql(const QString &table) const = 0;
    virtual QString indexNamesSql(const QString &table) const = 0;
    // Rows of (column name, type facts) of a table, in column order, and the type text in the
    // language of table definitions that one row gives: "VarChar(n)", "Numeric(p,s)", "Date",
    // "BLOB SUB_TYPE TEXT", ... (a time stamp reads as "Date", whole and floating-point numbers
    // as "Numeric": the definitions know no other number or date kinds).
    virtual QString fieldTypesSql(const QString &table) const = 0;
    virtual QString definitionType(const QVector<QVariant> &row) const = 0;

    virtual QString createTableSql(const QString &table, const QStringList &columnDefinitions) const;
    virtual QString addColumnSql(const QString &table, const QString &columnDefinition) const;
    virtual QString createIndexSql(const QString &name, const QString &table, const QStringList &fields,
                                   bool unique) const;

    // Generators (sequences): ensure, next value, set the current value.
    virtual QStringList createGeneratorSql(const QString &name) const = 0;
    // Empty where creating is idempotent and needs no check first.
    virtual QString generatorExistsSql(const QString &name) const = 0;
    virtual QString nextGeneratorValueSql(const QString &name) const = 0;
    virtual QString setGeneratorSql(const QString &name, qint64 value) const = 0;

    // What keeps the decimal columns of a table at their scale where the product does not: each
    // trigger as (name, CREATE statement), and the statement that brings rows written before it
    // to scale. Empty where the product stores Numeric(p,s) with scale s itself.
    using ScaledColumn = kx::ScaledColumn;
    struct ScaleTriggers
    {
        QList<std::pair<QString, QString>> triggers;
        QString roundExisting;
    };
    virtual ScaleTriggers scaleTriggers(const QString &table, const QList<ScaledColumn> &columns) const;
    // The names of the triggers of a table that scaleTriggers made, in any version of them.
    virtual QString scaleTriggerNamesSql(const QString &table) const { return {}; }

    // A name for an index or generator that fits the product's identifier limit.
    QString shortName(const QString &name) const;

protected:
    struct TypeRule
    {
        const char16_t *definitionKeyword; // upper-case type keyword of the definition text
        const char16_t *productType;       // empty: keep the definition text as it stands
    };
    virtual QList<TypeRule> typeRules() const = 0;
};

// The statement with "NULLS FIRST" after each ascending and "NULLS LAST" after each descending
// ORDER BY item that does not name its null order.
QString withNullsLowest(const QString &sql, const SqlLexis &lexis);

const SqlDialect &sqliteDialect();
const SqlDialect &postgresDialect();
const SqlDialect &firebirdDialect();

} // namespace kx
