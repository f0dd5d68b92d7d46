// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include "sqlresult.h"

#include <QDate>
#include <QObject>
#include <QStringList>
#include <QVariant>
#include <functional>
#include <utility>

class TCSqlConnection;

// The SQL text of a query, line by line.
class KXCOMMON_CORE_EXPORT TCStrings
{
public:
    void Clear() { m_lines.clear(); }
    void Add(const QString &line) { m_lines << line; }
    // Replaces all lines by these.
    void Assign(const QStringList &lines) { m_lines = lines; }
    int Count() const { return int(m_lines.size()); }
    // The lines joined with line feeds, as the statement reaches the database.
    QString Text() const { return m_lines.join(u'\n'); }
    const QStringList &lines() const { return m_lines; }

private:
    QStringList m_lines;
};

// One value of the current row, read in the type the caller asks for.
class KXCOMMON_CORE_EXPORT TCQueryField
{
public:
    TCQueryField() = default;
    TCQueryField(QString name, QVariant value)
        : m_name(std::move(name))
        , m_value(std::move(value))
    {
    }
    const QString &FieldName() const { return m_name; }
    bool IsNull() const { return m_value.isNull() || !m_value.isValid(); }
    const QVariant &Value() const { return m_value; }
    // Numbers and dates in the user's format settings; null is the empty text.
    QString AsString() const;
    double AsFloat() const;
    // A 32-bit integer; kx::RangeError for a value outside that range.
    int AsInteger() const;
    // The integer of a Numeric(10,0) or wider column, a generator or a count.
    qint64 AsLargeInt() const;
    QDate AsDate() const;

private:
    QString m_name;
    QVariant m_value;
};

// A parameter ":NAME" of a query's text; its value is written into the text as a literal.
class KXCOMMON_CORE_EXPORT TCParam
{
public:
    void setAsString(const QString &value) { m_value = value; }
    void setAsInteger(qint64 value) { m_value = value; }
    void setAsFloat(double value) { m_value = value; }
    void setAsDate(const QDate &value) { m_value = value; }
    void Clear() { m_value = QVariant(); m_set = true; }
    const QVariant &Value() const { return m_value; }
    bool IsSet() const { return m_set || m_value.isValid(); }

private:
    QVariant m_value;
    bool m_set = false;
};

// A query on a connection: set SQL, then Open (rows) or ExecSQL (no rows).
class KXCOMMON_CORE_EXPORT TCSqlQuery : public QObject
{
    Q_OBJECT

public:
    explicit TCSqlQuery(QObject *owner = nullptr);

    TCStrings SQL;
    TCSqlConnection *Connection = nullptr;

    void Open();
    void Close();
    // The argument is kept for the callers' sake: every statement commits on its own.
    void ExecSQL(bool = false);
    // Nothing here replicates statements, so this runs exactly like ExecSQL.
    void ExecSQLNoReplicate(bool = false);

    bool Active() const { return m_active; }
    bool Eof() const { return !m_active || m_row >= m_result.rows.size(); }
    bool IsEmpty() const { return !m_active || m_result.rows.empty(); }
    int RecordCount() const { return m_active ? int(m_result.rows.size()) : 0; }
    void Next();
    void First() { m_row = 0; }

    int FieldCount() const { return int(m_result.columns.size()); }
    // Case-insensitive; throws kx::DatabaseError for a name the result does not have.
    TCQueryField FieldByName(const QString &name) const;
    TCQueryField Fields(int index) const;

    // The parameter of that name (case-insensitive), made on first use.
    TCParam &ParamByName(const QString &name);

private:
    TCSqlConnection &connection() const;

    QString statementText() const;
    const TCParam *findParam(const QString &name) const;

    QList<std::pair<QString, TCParam>> m_params;
    kx::SqlResult m_result;
    size_t m_row = 0;
    bool m_active = false;
};

namespace kx {
// The text with every ":NAME" outside literals and quoted names replaced by the
// value's SQL literal (texts quoted with quotes doubled, NULL for a cleared value); "::" is
// left alone. Throws DatabaseError for a parameter without a value.
KXCOMMON_CORE_EXPORT QString bindParameters(const QString &sql, const std::function<const TCParam *(const QString &)> &lookup);
} // namespace kx
