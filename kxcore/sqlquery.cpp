// SPDX-License-Identifier: LGPL-2.1-or-later
#include "sqlquery.h"

#include "formatsettings.h"
#include "kxerror.h"
#include "sqlconnection.h"
#include "sqltool.h"

#include <QDateTime>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

QString TCQueryField::AsString() const
{
    if (IsNull())
        return {};
    switch (m_value.typeId()) {
    case QMetaType::Double:
    case QMetaType::Float:
        return kx::formatFloat(m_value.toDouble());
    case QMetaType::QDate:
        return m_value.toDate().toString(FormatSettings().ShortDateFormat);
    case QMetaType::QDateTime: {
        const QDateTime stamp = m_value.toDateTime();
        return stamp.toString(FormatSettings().ShortDateFormat + u' ' + FormatSettings().LongTimeFormat);
    }
    case QMetaType::QByteArray:
        return QString::fromUtf8(m_value.toByteArray());
    case QMetaType::Bool:
        return m_value.toBool() ? u"True"_s : u"False"_s;
    default:
        return m_value.toString();
    }
}

double TCQueryField::AsFloat() const
{
    if (IsNull())
        return 0.0;
    switch (m_value.typeId()) {
    case QMetaType::Double:
    case QMetaType::Float:
    case QMetaType::LongLong:
    case QMetaType::Int:
    case QMetaType::ULongLong:
    case QMetaType::UInt:
        return m_value.toDouble();
    default:
        return kx::parseFloat(AsString());
    }
}

qint64 TCQueryField::AsLargeInt() const
{
    if (IsNull())
        return 0;
    qint64 value = 0;
    switch (m_value.typeId()) {
    case QMetaType::Double:
    case QMetaType::Float: {
        const double d = std::round(m_value.toDouble());
        // 2^63 is the first double above the range; llround of it would be undefined.
        if (!(d >= -9223372036854775808.0 && d < 9223372036854775808.0))
            throw kx::RangeError(u"Der Wert %1 des Feldes %2 liegt außerhalb des 64-Bit-Bereichs."_s.arg(AsString(), m_name));
        value = qint64(d);
        break;
    }
    case QMetaType::LongLong:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::ULongLong:
        value = m_value.toLongLong();
        break;
    default: {
        bool ok = false;
        value = m_value.toString().trimmed().toLongLong(&ok);
        if (!ok)
            throw kx::ConvertError(u"\"%1\" ist kein gültiger ganzzahliger Wert im 64-Bit-Bereich (Feld %2)."_s.arg(AsString(), m_name));
    }
    }
    return value;
}

int TCQueryField::AsInteger() const
{
    const qint64 value = AsLargeInt();
    if (value < std::numeric_limits<int>::min() || value > std::numeric_limits<int>::max())
        throw kx::RangeError(u"Der Wert %1 des Feldes %2 liegt außerhalb des ganzzahligen Bereichs."_s
                                 .arg(value)
                                 .arg(m_name));
    return int(value);
}

QDate TCQueryField::AsDate() const
{
    if (IsNull())
        return {};
    if (m_value.typeId() == QMetaType::QDate)
        return m_value.toDate();
    if (m_value.typeId() == QMetaType::QDateTime)
        return m_value.toDateTime().date();
    return QDate::fromString(sqlConvertDate(m_value.toString()), Qt::ISODate);
}

TCSqlQuery::TCSqlQuery(QObject *owner)
    : QObject(owner)
{
}

TCSqlConnection &TCSqlQuery::connection() const
{
    if (!Connection)
        throw kx::DatabaseError(u"Der Abfrage %1 ist keine Datenbankverbindung zugewiesen."_s.arg(objectName()),
                                SQL.Text());
    return *Connection;
}

const TCParam *TCSqlQuery::findParam(const QString &name) const
{
    for (const auto &[paramName, param] : m_params) {
        if (paramName.compare(name, Qt::CaseInsensitive) == 0)
            return &param;
    }
    return nullptr;
}

TCParam &TCSqlQuery::ParamByName(const QString &name)
{
    if (const TCParam *found = findParam(name))
        return const_cast<TCParam &>(*found);
    m_params.append({ name, TCParam() });
    return m_params.last().second;
}

QString TCSqlQuery::statementText() const
{
    if (m_params.isEmpty())
        return SQL.Text();
    return kx::bindParameters(SQL.Text(), [this](const QString &name) { return findParam(name); });
}

void TCSqlQuery::Open()
{
    Close();
    m_result = connection().execute(statementText());
    m_row = 0;
    m_active = true;
}

void TCSqlQuery::Close()
{
    m_active = false;
    m_result = {};
    m_row = 0;
}

void TCSqlQuery::ExecSQL(bool)
{
    Close();
    connection().execute(statementText());
}

void TCSqlQuery::ExecSQLNoReplicate(bool)
{
    ExecSQL(false);
}

void TCSqlQuery::Next()
{
    if (!Eof())
        ++m_row;
}

TCQueryField TCSqlQuery::FieldByName(const QString &name) const
{
    for (int i = 0; i < m_result.columns.size(); ++i) {
        if (m_result.columns.at(i).compare(name, Qt::CaseInsensitive) == 0)
            return Fields(i);
    }
    throw kx::DatabaseError(u"%1: Feld '%2' nicht gefunden."_s.arg(objectName(), name), SQL.Text());
}

TCQueryField TCSqlQuery::Fields(int index) const
{
    if (index < 0 || index >= m_result.columns.size())
        throw kx::RangeError(u"Feldindex %1 außerhalb des gültigen Bereichs."_s.arg(index));
    if (!m_active || Eof())
        return TCQueryField(m_result.columns.at(index), QVariant());
    return TCQueryField(m_result.columns.at(index), m_result.rows[m_row].at(index));
}

namespace kx {

namespace {
QString literal(const QVariant &value)
{
    if (value.isNull() || !value.isValid())
        return u"NULL"_s;
    switch (value.typeId()) {
    case QMetaType::LongLong:
    case QMetaType::Int:
        return QString::number(value.toLongLong());
    case QMetaType::Double:
        return sqlConvertFloat(value.toDouble());
    case QMetaType::QDate:
        return u'\'' + sqlConvertDate(value.toDate()) + u'\'';
    default:
        return kx::sqlQuoted(value.toString());
    }
}

bool isNameChar(QChar c)
{
    return c.isLetterOrNumber() || c == u'_' || c == u'$';
}
} // namespace

QString bindParameters(const QString &sql, const std::function<const TCParam *(const QString &)> &lookup)
{
    QString out;
    out.reserve(sql.size() + 32);
    const qsizetype n = sql.size();
    for (qsizetype i = 0; i < n; ++i) {
        const QChar c = sql.at(i);
        if (c == u'\'' || c == u'"') {
            const qsizetype start = i;
            for (++i; i < n && sql.at(i) != c; ++i) {
            }
            out += QStringView(sql).mid(start, qMin(i, n - 1) - start + 1);
        } else if (c == u':' && i + 1 < n && sql.at(i + 1) == u':') {
            out += u"::"_s;
            ++i;
        } else if (c == u':' && i + 1 < n && (sql.at(i + 1).isLetter() || sql.at(i + 1) == u'_')) {
            qsizetype end = i + 1;
            while (end < n && isNameChar(sql.at(end)))
                ++end;
            const QString name = sql.mid(i + 1, end - i - 1);
            const TCParam *param = lookup(name);
            if (!param || !param->IsSet())
                throw DatabaseError(u"Der Parameter '%1' hat keinen Wert."_s.arg(name), sql);
            out += literal(param->Value());
            i = end - 1;
        } else {
            out += c;
        }
    }
    return out;
}

} // namespace kx
