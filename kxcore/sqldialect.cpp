#include "sqldialect.h"

#include <QCryptographicHash>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace kx {

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
    QString catalogName(const QString &name) const override { return name; }
    QString tableNamesSql() const override
    {
        return u"select name from sqlite_master where type='table' and name not like 'sqlite_%' order by name"_s;
    }
    QString fieldNamesSql(const QString &table) const override
    {
        return u"select name from pragma_table_info('"_s + table + u"') order by cid"_s;
    }
    QString indexNamesSql(const QString &table) const override
    {
        return u"select name from sqlite_master where type='index' and lower(tbl_name)=lower('"_s + table
            + u"')"_s;
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
    int maxIdentifierLength() const override { return 63; }
    QString catalogName(const QString &name) const override { return name.toLower(); }
    QString tableNamesSql() const override
    {
        return u"select tablename from pg_tables where schemaname=current_schema() order by tablename"_s;
    }
    QString fieldNamesSql(const QString &table) const override
    {
        return u"select column_name from information_schema.columns where table_schema=current_schema()"_s
               u" and table_name='"_s + catalogName(table) + u"' order by ordinal_position"_s;
    }
    QString indexNamesSql(const QString &table) const override
    {
        return u"select indexname from pg_indexes where schemaname=current_schema() and tablename='"_s
            + catalogName(table) + u'\'';
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
            + catalogName(table) + u"' order by rdb$field_position"_s;
    }
    QString indexNamesSql(const QString &table) const override
    {
        return u"select trim(rdb$index_name) from rdb$indices where rdb$relation_name='"_s + catalogName(table)
            + u'\'';
    }
    QStringList createGeneratorSql(const QString &name) const override
    {
        return { u"CREATE SEQUENCE "_s + name };
    }
    QString generatorExistsSql(const QString &name) const override
    {
        return u"select count(*) from rdb$generators where rdb$generator_name='"_s + catalogName(name) + u'\'';
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
