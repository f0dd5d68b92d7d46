// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

class TCSqlConnection;
namespace kx {
class SqlDialect;
struct ScaledColumn;
} // namespace kx

enum TCFieldFlag : unsigned {
    fIndex = 1,       // a single-column index
    fUniqueIndex = 2, // a unique single-column index
    fUnique = 4,      // values are unique (kept by the unique index)
    fNotNull = 8,
    fGenerator = 16,  // counted by a generator (see SqlGetNextValue)
    fNotEditable = 32, // shown, but the masks bound to it do not let the user change it
};

// One column of a table definition.
struct KXCOMMON_CORE_EXPORT TCFieldDef
{
    TCFieldDef() = default;
    TCFieldDef(QString fieldname, QString sqlType, unsigned flags = 0, QString caption = {})
        : Fieldname(std::move(fieldname))
        , Caption(std::move(caption))
        , SQLType(std::move(sqlType))
        , Index(flags & fIndex)
        , UniqueIndex(flags & fUniqueIndex)
        , Unique(flags & fUnique)
        , NotNull(flags & fNotNull)
        , Generator(flags & fGenerator)
        , Enabled(!(flags & fNotEditable))
    {
    }
    TCFieldDef &link(QString table, QString field)
    {
        LinkTable = std::move(table);
        LinkField = std::move(field);
        return *this;
    }

    QString Fieldname;
    QString Caption;
    QString SQLType; // the definition's type text, e.g. "Varchar(43)"
    bool Index = false;
    bool UniqueIndex = false;
    bool Unique = false;
    bool NotNull = false;
    bool Generator = false;
    int GeneratorMin = 0;
    QString LinkTable;
    QString LinkField;
    // What the masks bound to the field read: the value a new record starts with, whether the
    // field must be filled, whether the user may change it.
    QString DefaultValue;
    bool Required = false;
    bool Enabled = true;
    // The field's value is saved as binary content (the file it names goes into the database).
    bool SaveBinary = false;
};

// A named index over one or more columns ("Dialog,Control").
struct KXCOMMON_CORE_EXPORT TCIndexDef
{
    QString IndexName;
    bool IndexUnique = false;
    QString IndexFields;
};

// A numbered access right of a table.
struct KXCOMMON_CORE_EXPORT TCRight
{
    int Number = 0;
    QString Caption;
};

// A table definition as plain data, declared in the unit that owns the table.
struct KXCOMMON_CORE_EXPORT TCTableDef
{
    QString Tablename;
    QList<TCFieldDef> Fields;
    QList<TCIndexDef> Indexes;
    QList<TCRight> Rights;
};

// Creates or alters a table of the platform's own from its definition (AlterOrCreateTable).
KXCOMMON_CORE_EXPORT void alterOrCreateTable(const TCTableDef &table, TCSqlConnection *connection);

// The suite's standard rights list (in its order).
KXCOMMON_CORE_EXPORT const QList<TCRight> &standardRights();

class TCDataAccess;

class KXCOMMON_CORE_EXPORT TCFieldDefs
{
public:
    int Count() const { return int(m_items.size()); }
    TCFieldDef &GetItem(int index);
    const TCFieldDef &GetItem(int index) const;
    // Case-insensitive; nullptr when the definition has no such column.
    TCFieldDef *GetItemFromFieldname(const QString &name);
    void Add(const TCFieldDef &field) { m_items << field; }
    const QList<TCFieldDef> &items() const { return m_items; }

private:
    QList<TCFieldDef> m_items;
};

// An item of the child collection; it may hold no definition.
struct KXCOMMON_CORE_EXPORT TCDataAccessChild
{
    TCDataAccess *DataAccess = nullptr;
};

class KXCOMMON_CORE_EXPORT TCDataAccessChilds
{
public:
    int Count() const { return int(m_items.size()); }
    const TCDataAccessChild &GetItem(int index) const;
    void Add(TCDataAccess *child) { m_items << TCDataAccessChild{ child }; }

private:
    QList<TCDataAccessChild> m_items;
};

// A table definition of a holder: its schema, children and rights; creates or alters its table.
class KXCOMMON_CORE_EXPORT TCDataAccess : public QObject
{
    Q_OBJECT

public:
    explicit TCDataAccess(QObject *owner = nullptr);
    TCDataAccess(const TCTableDef &definition, QObject *owner);

    QString Tablename;
    TCFieldDefs Fields;
    TCDataAccessChilds DataAccessChilds;
    QList<TCIndexDef> Indexes;
    QList<TCRight> Rights;
    TCSqlConnection *Connection = nullptr;

    TCFieldDef *GetFieldFromName(const QString &name) { return Fields.GetItemFromFieldname(name); }

    // Creates the table with its columns in definition order, or adds the columns it lacks;
    // then creates the missing indexes and generators. Running it again changes nothing.
    // Throws kx::DatabaseError on failure; returns true otherwise.
    bool AlterOrCreateTable(bool = true);

    // The statements that create this table from nothing on the given product (for review).
    QStringList createStatements(const kx::SqlDialect &dialect) const;

private:
    QString columnDefinition(const kx::SqlDialect &dialect, const TCFieldDef &field) const;
    // The column definitions in creation order: the definition's, binary columns last where the
    // product needs them there.
    QStringList creationColumns(const kx::SqlDialect &dialect) const;
    QList<kx::ScaledColumn> scaledColumns() const;
    // Where the product does not hold decimal columns at their scale itself, the triggers that do.
    void ensureScale(TCSqlConnection &connection) const;
    struct PlannedIndex
    {
        QString name;
        QStringList fields;
        bool unique;
    };
    QList<PlannedIndex> plannedIndexes(const kx::SqlDialect &dialect) const;
};
