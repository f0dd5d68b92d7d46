// SPDX-License-Identifier: LGPL-2.1-or-later
#include "dataaccess.h"

#include "kxerror.h"
#include "sqlconnection.h"
#include "sqldialect.h"
#include "sqltool.h"

#include <QRegularExpression>
#include <algorithm>

using namespace Qt::StringLiterals;

void alterOrCreateTable(const TCTableDef &table, TCSqlConnection *connection)
{
    TCDataAccess definition(table, nullptr);
    definition.Connection = connection;
    definition.AlterOrCreateTable(true);
}

const QList<TCRight> &standardRights()
{
    static const QList<TCRight> rights{
        { 20, u"Lesen"_s },          { 30, u"Anlegen"_s },       { 40, u"Ändern"_s },
        { 50, u"Löschen"_s },        { 60, u"Sammellöschen"_s }, { 70, u"Drucken"_s },
        { 80, u"Kopieren"_s },       { 90, u"Exportieren"_s },   { 100, u"Änderungsprotokoll"_s },
        { 110, u"Masken Administration"_s }, { 75, u"Direktdruck"_s }, { 45, u"Benutzermenüs bearbeiten"_s },
    };
    return rights;
}

TCFieldDef &TCFieldDefs::GetItem(int index)
{
    if (index < 0 || index >= m_items.size())
        throw kx::RangeError(u"Feldindex %1 außerhalb des gültigen Bereichs."_s.arg(index));
    return m_items[index];
}

const TCFieldDef &TCFieldDefs::GetItem(int index) const
{
    if (index < 0 || index >= m_items.size())
        throw kx::RangeError(u"Feldindex %1 außerhalb des gültigen Bereichs."_s.arg(index));
    return m_items[index];
}

TCFieldDef *TCFieldDefs::GetItemFromFieldname(const QString &name)
{
    for (TCFieldDef &field : m_items) {
        if (field.Fieldname.compare(name, Qt::CaseInsensitive) == 0)
            return &field;
    }
    return nullptr;
}

const TCDataAccessChild &TCDataAccessChilds::GetItem(int index) const
{
    if (index < 0 || index >= m_items.size())
        throw kx::RangeError(u"Index %1 außerhalb des gültigen Bereichs."_s.arg(index));
    return m_items[index];
}

TCDataAccess::TCDataAccess(QObject *owner)
    : QObject(owner)
{
}

TCDataAccess::TCDataAccess(const TCTableDef &definition, QObject *owner)
    : QObject(owner)
    , Tablename(definition.Tablename)
    , Indexes(definition.Indexes)
    , Rights(definition.Rights)
{
    for (const TCFieldDef &field : definition.Fields)
        Fields.Add(field);
}

QString TCDataAccess::columnDefinition(const kx::SqlDialect &dialect, const TCFieldDef &field) const
{
    return field.Fieldname + u' ' + dialect.columnType(field.SQLType) + (field.NotNull ? u" NOT NULL"_s : QString());
}

QList<TCDataAccess::PlannedIndex> TCDataAccess::plannedIndexes(const kx::SqlDialect &dialect) const
{
    QList<PlannedIndex> planned;
    for (const TCFieldDef &field : Fields.items()) {
        const bool unique = field.UniqueIndex || field.Unique;
        if (field.Index || unique)
            planned << PlannedIndex{ dialect.shortName((unique ? u"UX_"_s : u"IX_"_s) + Tablename + u'_' + field.Fieldname),
                                     { field.Fieldname },
                                     unique };
    }
    for (const TCIndexDef &index : Indexes) {
        QStringList fields;
        for (const QString &f : index.IndexFields.split(u',', Qt::SkipEmptyParts))
            fields << f.trimmed();
        planned << PlannedIndex{ dialect.shortName(index.IndexName), fields, index.IndexUnique };
    }
    return planned;
}

QStringList TCDataAccess::creationColumns(const kx::SqlDialect &dialect) const
{
    QStringList columns, binary;
    for (const TCFieldDef &field : Fields.items()) {
        const bool isBinary = dialect.blobColumnsLast() && field.SQLType.trimmed().startsWith(u"BLOB"_s, Qt::CaseInsensitive)
            && !field.SQLType.contains(u"TEXT"_s, Qt::CaseInsensitive);
        (isBinary ? binary : columns) << columnDefinition(dialect, field);
    }
    return columns + binary;
}

QStringList TCDataAccess::createStatements(const kx::SqlDialect &dialect) const
{
    const QStringList columns = creationColumns(dialect);
    QStringList statements{ dialect.createTableSql(Tablename, columns) };
    for (const PlannedIndex &index : plannedIndexes(dialect))
        statements << dialect.createIndexSql(index.name, Tablename, index.fields, index.unique);
    return statements;
}

bool TCDataAccess::AlterOrCreateTable(bool)
{
    if (!Connection)
        throw kx::DatabaseError(u"Der Tabellendefinition %1 ist keine Datenbankverbindung zugewiesen."_s.arg(Tablename));
    TCSqlConnection &connection = *Connection;
    const kx::SqlDialect &dialect = connection.dialect();

    if (!connection.tableExists(Tablename)) {
        connection.execute(dialect.createTableSql(Tablename, creationColumns(dialect)));
    } else {
        const QStringList existing = connection.GetFieldNames(Tablename);
        for (const TCFieldDef &field : Fields.items()) {
            // Deliberate: NOT NULL is left out when adding to a table that may already hold rows.
            if (!existing.contains(field.Fieldname, Qt::CaseInsensitive))
                connection.execute(dialect.addColumnSql(Tablename, field.Fieldname + u' ' + dialect.columnType(field.SQLType)));
        }
    }

    const QStringList existingIndexes = connection.GetIndexNames(Tablename);
    for (const PlannedIndex &index : plannedIndexes(dialect)) {
        if (!existingIndexes.contains(index.name, Qt::CaseInsensitive))
            connection.execute(dialect.createIndexSql(index.name, Tablename, index.fields, index.unique));
    }

    for (const TCFieldDef &field : Fields.items()) {
        if (field.Generator)
            kx::ensureGenerator(connection, kx::generatorName(dialect, Tablename, field.Fieldname));
    }
    ensureScale(connection);
    return true;
}

QList<kx::SqlDialect::ScaledColumn> TCDataAccess::scaledColumns() const
{
    static const QRegularExpression decimal(uR"(^\s*(?:numeric|decimal)\s*\(\s*\d+\s*,\s*(\d+)\s*\))"_s,
                                            QRegularExpression::CaseInsensitiveOption);
    QList<kx::SqlDialect::ScaledColumn> columns;
    for (const TCFieldDef &field : Fields.items()) {
        const QRegularExpressionMatch m = decimal.match(field.SQLType);
        if (m.hasMatch() && m.captured(1).toInt() > 0)
            columns << kx::SqlDialect::ScaledColumn{ field.Fieldname, m.captured(1).toInt() };
    }
    return columns;
}

void TCDataAccess::ensureScale(TCSqlConnection &connection) const
{
    const kx::SqlDialect &dialect = connection.dialect();
    const QList<kx::SqlDialect::ScaledColumn> columns = scaledColumns();
    const kx::SqlDialect::ScaleTriggers wanted = dialect.scaleTriggers(Tablename, columns);
    if (wanted.triggers.isEmpty())
        return;
    QStringList existing;
    for (const QVector<QVariant> &row : connection.execute(dialect.scaleTriggerNamesSql(Tablename)).rows)
        existing << row.value(0).toString();
    QStringList names;
    for (const auto &[name, sql] : wanted.triggers)
        names << name;
    if (std::all_of(names.cbegin(), names.cend(), [&](const QString &n) { return existing.contains(n, Qt::CaseInsensitive); }))
        return;
    for (const QString &name : existing)
        connection.execute(u"DROP TRIGGER "_s + name);
    for (const auto &[name, sql] : wanted.triggers)
        connection.executeTrigger(sql);
    connection.execute(wanted.roundExisting);
}
