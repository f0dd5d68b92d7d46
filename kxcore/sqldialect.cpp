// SPDX-License-Identifier: LGPL-2.1-or-later
#include "sqldialect.h"

#include <QCryptographicHash>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace kx {

namespace {
// A table or generator name inside a catalog query's string literal.
QString literal(const QString &name)
{
    return QString(name).replace(u'\'', u"''"_s);
}
} // namespace

QString SqlDialect::columnType(const QString &definitionType) const
{
    const QString text = definitionType.simplified();
    const QString upper = text.toUpper();
    for (const TypeRule &rule : typeRules()) {
        const QString keyword = QString::fromUtf16(rule.definitionKeyword);
        if (upper == keyword || upper.startsWith(keyword + u'(') || upper.startsWith(keyword + u' ')) {
            const QString productType = QString::fromUtf16(rule.productType);
            return productType.isEmpty() ? text : productType;
        }
    }
    return text;
}

QString SqlDialect::createTableSql(const QString &table, const QStringList &columnDefinitions) const
{
    return u"CREATE TABLE "_s + table + u" ("_s + columnDefinitions.join(u", "_s) + u')';
}

QString SqlDialect::addColumnSql(const QString &table, const QString &columnDefinition) const
{
    return u"ALTER TABLE "_s + table + u" ADD "_s + columnDefinition;
}

QString SqlDialect::createIndexSql(const QString &name, const QString &table, const QStringList &fields,
                                   bool unique) const
{
    return (unique ? u"CREATE UNIQUE INDEX "_s : u"CREATE INDEX "_s) + name + u" ON "_s + table + u" ("_s
        + fields.join(u',') + u')';
}

SqlDialect::ScaleTriggers SqlDialect::scaleTriggers(const QString &, const QList<ScaledColumn> &) const
{
    return {};
}

QString SqlDialect::shortName(const QString &name) const
{
    const QString upper = name.toUpper();
    if (upper.size() <= maxIdentifierLength())
        return upper;
    // Deliberate: a stable hash suffix keeps long names unique within the 31-character limit.
    const QByteArray hash = QCryptographicHash::hash(upper.toUtf8(), QCryptographicHash::Md5).toHex().left(8);
    return upper.left(maxIdentifierLength() - 9) + u'_' + QString::fromLatin1(hash).toUpper();
}

namespace {

class SqliteDialect final : public SqlDialect
{
public:
    QString productName() const override { return u"sqlite"_s; }
    int dbSystem() const override { return 2; }
    SqlLexis lexis() const override { return { .bracketNames = true }; }
    bool blobColumnsLast() const override { return true; }
    QString catalogName(const QString &name) const override { return name; }
    QString tableNamesSql() const override
    {
        return u"select name from sqlite_master where type='table' and name not like 'sqlite_%' order by name"_s;
    }
    QString fieldNamesSql(const QString &table) const override
    {
        return u"select name from pragma_table_info('"_s + literal(table) + u"') order by cid"_s;
    }
    QString fieldTypesSql(const QString &table) const override
    {
        return u"select name, type from pragma_table_info('"_s + literal(table) + u"') order by cid"_s;
    }
    // The declared type is the definition's own text here.
    QString definitionType(const QVector<QVariant> &row) const override
    {
        const QString declared = row.value(1).toString();
        const QString upper = declared.toUpper();
        if (upper.contains(u"INT"_s) || upper.contains(u"REAL"_s) || upper.contains(u"DOUBLE"_s)
            || upper.contains(u"FLOAT"_s))
            return u"Numeric(18,4)"_s;
        if (upper.startsWith(u"TIMESTAMP"_s) || upper.startsWith(u"DATETIME"_s))
            return u"Date"_s;
        if (upper == u"TEXT"_s || upper.isEmpty())
            return u"BLOB SUB_TYPE TEXT"_s;
        return declared;
    }
    QString indexNamesSql(const QString &table) const override
    {
        return u"select name from sqlite_master where type='index' and lower(tbl_name)=lower('"_s + literal(table)
            + u"')"_s;
    }
    // SQLite stores binary doubles: 0.3 - 0.1 stays 0.19999999999999998 and a receipt that is used
    // up keeps 3e-17. PostgreSQL and Firebird store such a value with the column's scale, so the
    // rows are brought to scale after every insert and update, inside the database, where the
    // comparisons of later statements see them. The trigger names carry the column list, so a
    // table that gains a decimal column gets new triggers.
    ScaleTriggers scaleTriggers(const QString &table, const QList<ScaledColumn> &columns) const override
    {
        if (columns.isEmpty())
            return {};
        QStringList names, assignments, unscaled;
        for (const ScaledColumn &c : columns) {
            const QString rounded = u"round("_s + c.name + u',' + QString::number(c.scale) + u')';
            names << c.name;
            assignments << c.name + u'=' + rounded;
            unscaled << c.name + u"<>"_s + rounded;
        }
        const QString set = u" SET "_s + assignments.join(u',') + u" WHERE "_s;
        const QString condition = u'(' + unscaled.join(u" OR "_s) + u')';
        const QString suffix = QString::fromLatin1(
            QCryptographicHash::hash(names.join(u',').toUpper().toUtf8(), QCryptographicHash::Md5).toHex().left(8).toUpper());
        const QString name = u"KX_SCALE_"_s + table.toUpper() + u'_';
        const QString body = u" BEGIN UPDATE "_s + table + set + u"rowid=NEW.rowid AND "_s + condition + u"; END"_s;
        return { { { name + u"I_"_s + suffix, u"CREATE TRIGGER "_s + name + u"I_"_s + suffix + u" AFTER INSERT ON "_s + table + body },
                   { name + u"U_"_s + suffix, u"CREATE TRIGGER "_s + name + u"U_"_s + suffix + u" AFTER UPDATE OF "_s
                                                  + names.join(u',') + u" ON "_s + table + body } },
                 u"UPDATE "_s + table + set + condition };
    }
    QString scaleTriggerNamesSql(const QString &table) const override
    {
        return u"select name from sqlite_master where type='trigger' and name like 'KX_SCALE_%' and lower(tbl_name)=lower('"_s
            + literal(table) + u"')"_s;
    }
    QStringList createGeneratorSql(const QString &name) const override
    {
        return { u"CREATE TABLE IF NOT EXISTS KX_GENERATORS (NAME VARCHAR(63) PRIMARY KEY, GENVALUE BIGINT)"_s,
                 u"INSERT OR IGNORE INTO KX_GENERATORS (NAME, GENVALUE) VALUES ('"_s + name + u"', 0)"_s };
    }
    // Creating is idempotent here, so no existence check is needed.
    QString generatorExistsSql(const QString &) const override { return {}; }
    QString nextGeneratorValueSql(const QString &name) const override
    {
        return u"UPDATE KX_GENERATORS SET GENVALUE=GENVALUE+1 WHERE NAME='"_s + name + u"' RETURNING GENVALUE"_s;
    }
    QString setGeneratorSql(const QString &name, qint64 value) const override
    {
        return u"UPDATE KX_GENERATORS SET GENVALUE="_s + QString::number(value) + u" WHERE NAME='"_s + name + u'\'';
    }

protected:
    QList<TypeRule> typeRules() const override
    {
        return { { u"BLOB SUB_TYPE TEXT", u"TEXT" }, { u"BLOB SUB_TYPE 1", u"TEXT" },
                 { u"BLOB SUB_TYPE 0", u"BLOB" },    { u"BLOB", u"BLOB" } };
    }
};

class PostgresDialect final : public SqlDialect
{
public:
    QString productName() const override { return u"postgres"_s; }
    int dbSystem() const override { return 2; }
    SqlLexis lexis() const override
    {
        return { .dollarQuotes = true, .escapeStrings = true, .nestedComments = true };
    }
    bool nullsSortHigh() const override { return true; }
    bool failedStatementEndsTransaction() const override { return true; }
    int maxIdentifierLength() const override { return 63; }
    QString catalogName(const QString &name) const override { return name.toLower(); }
    QString tableNamesSql() const override
    {
        return u"select tablename from pg_tables where schemaname=current_schema() order by tablename"_s;
    }
    QString fieldNamesSql(const QString &table) const override
    {
        return u"select column_name from information_schema.columns where table_schema=current_schema()"_s
               u" and table_name='"_s + literal(catalogName(table)) + u"' order by ordinal_position"_s;
    }
    QString fieldTypesSql(const QString &table) const override
    {
        return u"select column_name, data_type, character_maximum_length, numeric_precision, numeric_scale"_s
               u" from information_schema.columns where table_schema=current_schema() and table_name='"_s
            + literal(catalogName(table)) + u"' order by ordinal_position"_s;
    }
    QString definitionType(const QVector<QVariant> &row) const override
    {
        const QString type = row.value(1).toString().toLower();
        if (type == u"character varying"_s || type == u"character"_s)
            return row.value(2).isNull() ? u"BLOB SUB_TYPE TEXT"_s : u"VarChar(%1)"_s.arg(row.value(2).toInt());
        if (type == u"numeric"_s && !row.value(3).isNull())
            return u"Numeric(%1,%2)"_s.arg(row.value(3).toInt()).arg(row.value(4).toInt());
        if (type == u"numeric"_s || type == u"real"_s || type == u"double precision"_s)
            return u"Numeric(18,4)"_s;
        if (type == u"smallint"_s || type == u"integer"_s || type == u"bigint"_s)
            return u"Numeric(%1,0)"_s.arg(row.value(3).toInt());
        if (type == u"date"_s || type.startsWith(u"timestamp"_s))
            return u"Date"_s;
        if (type == u"text"_s)
            return u"BLOB SUB_TYPE TEXT"_s;
        if (type == u"bytea"_s)
            return u"BLOB SUB_TYPE 0"_s;
        if (type.startsWith(u"time"_s))
            return u"VarChar(8)"_s;
        return u"VarChar(255)"_s; // boolean, uuid and the like: written as quoted text
    }
    QString indexNamesSql(const QString &table) const override
    {
        return u"select indexname from pg_indexes where schemaname=current_schema() and tablename='"_s
            + literal(catalogName(table)) + u'\'';
    }
    QStringList createGeneratorSql(const QString &name) const override
    {
        return { u"CREATE SEQUENCE IF NOT EXISTS "_s + name + u" MINVALUE 0 START 1"_s };
    }
    // Creating is idempotent here, so no existence check is needed.
    QString generatorExistsSql(const QString &) const override { return {}; }
    QString nextGeneratorValueSql(const QString &name) const override
    {
        return u"select nextval('"_s + name + u"')"_s;
    }
    QString setGeneratorSql(const QString &name, qint64 value) const override
    {
        return u"select setval('"_s + name + u"', "_s + QString::number(value) + u')';
    }

protected:
    QList<TypeRule> typeRules() const override
    {
        return { { u"BLOB SUB_TYPE TEXT", u"TEXT" }, { u"BLOB SUB_TYPE 1", u"TEXT" },
                 { u"BLOB SUB_TYPE 0", u"BYTEA" },   { u"BLOB", u"BYTEA" },
                 { u"DOUBLE PRECISION", u"" },       { u"FLOAT", u"DOUBLE PRECISION" } };
    }
};

class FirebirdDialect final : public SqlDialect
{
public:
    QString productName() const override { return u"firebird"_s; }
    int dbSystem() const override { return 0; }
    SqlLexis lexis() const override { return { .qLiterals = true }; }
    QString catalogName(const QString &name) const override { return name.toUpper(); }
    QString tableNamesSql() const override
    {
        return u"select trim(rdb$relation_name) from rdb$relations where coalesce(rdb$system_flag,0)=0"_s
               u" and rdb$view_blr is null order by 1"_s;
    }
    QString fieldNamesSql(const QString &table) const override
    {
        return u"select trim(rdb$field_name) from rdb$relation_fields where rdb$relation_name='"_s
            + literal(catalogName(table)) + u"' order by rdb$field_position"_s;
    }
    QString fieldTypesSql(const QString &table) const override
    {
        return u"select trim(r.rdb$field_name), f.rdb$field_type, f.rdb$character_length, f.rdb$field_precision,"_s
               u" f.rdb$field_scale, f.rdb$field_sub_type from rdb$relation_fields r join rdb$fields f"_s
               u" on f.rdb$field_name=r.rdb$field_source where r.rdb$relation_name='"_s
            + literal(catalogName(table)) + u"' order by r.rdb$field_position"_s;
    }
    QString definitionType(const QVector<QVariant> &row) const override
    {
        const int type = row.value(1).toInt();
        const int scale = -row.value(4).toInt();
        switch (type) {
        case 14: // CHAR
        case 37: // VARCHAR
            return u"VarChar(%1)"_s.arg(row.value(2).toInt());
        case 7: // SMALLINT, INTEGER, BIGINT, or NUMERIC/DECIMAL stored in them
        case 8:
        case 16:
            return u"Numeric(%1,%2)"_s.arg(row.value(3).toInt() > 0 ? row.value(3).toInt() : 18).arg(scale);
        case 10: // FLOAT, DOUBLE PRECISION
        case 27:
            return u"Numeric(18,4)"_s;
        case 12: // DATE, TIMESTAMP
        case 35:
            return u"Date"_s;
        case 261:
            return row.value(5).toInt() == 1 ? u"BLOB SUB_TYPE TEXT"_s : u"BLOB SUB_TYPE 0"_s;
        case 13: // TIME
            return u"VarChar(8)"_s;
        default: // BOOLEAN and the like: written as quoted text
            return u"VarChar(255)"_s;
        }
    }
    QString indexNamesSql(const QString &table) const override
    {
        return u"select trim(rdb$index_name) from rdb$indices where rdb$relation_name='"_s + literal(catalogName(table))
            + u'\'';
    }
    QStringList createGeneratorSql(const QString &name) const override
    {
        return { u"CREATE SEQUENCE "_s + name };
    }
    QString generatorExistsSql(const QString &name) const override
    {
        return u"select count(*) from rdb$generators where rdb$generator_name='"_s + literal(catalogName(name)) + u'\'';
    }
    QString nextGeneratorValueSql(const QString &name) const override
    {
        return u"select gen_id("_s + name + u", 1) from rdb$database"_s;
    }
    QString setGeneratorSql(const QString &name, qint64 value) const override
    {
        return u"ALTER SEQUENCE "_s + name + u" RESTART WITH "_s + QString::number(value);
    }

protected:
    QList<TypeRule> typeRules() const override
    {
        return { { u"TEXT", u"BLOB SUB_TYPE TEXT" } };
    }
};

} // namespace

const SqlDialect &sqliteDialect()
{
    static const SqliteDialect dialect;
    return dialect;
}

const SqlDialect &postgresDialect()
{
    static const PostgresDialect dialect;
    return dialect;
}

const SqlDialect &firebirdDialect()
{
    static const FirebirdDialect dialect;
    return dialect;
}

} // namespace kx
