// SPDX-License-Identifier: LGPL-2.1-or-later
// Writes that wait and go to the database as one unit, so that a run of small statements costs
// one round trip instead of one each.
#include "kxerror.h"
#include "sqlconnection.h"
#include "sqldriver.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace kx {

DeferredWrites::DeferredWrites(Units units, TCSqlConnection *connection)
    : m_connection(connection)
    , m_units(units)
{
    if (m_connection->m_deferral)
        throw Error(u"Zurückgestellte Anweisungen lassen sich nicht ineinander schachteln."_s);
    m_connection->m_deferral = this;
}

DeferredWrites::~DeferredWrites()
{
    if (m_connection->m_deferral == this)
        m_connection->m_deferral = nullptr;
}

void DeferredWrites::finish()
{
    m_connection->sendWaiting(true);
    m_connection->m_deferral = nullptr;
    for (const QString &sql : std::as_const(m_held))
        Q_EMIT m_connection->statementExecuted(sql);
    m_held.clear();
}

bool DeferredWrites::deferrable(const QString &statement)
{
    const QString text = statement.trimmed();
    const qsizetype end = std::find_if(text.cbegin(), text.cend(), [](QChar c) { return !c.isLetter(); }) - text.cbegin();
    const QStringView word = QStringView(text).left(end);
    return word.compare(u"insert", Qt::CaseInsensitive) == 0 || word.compare(u"update", Qt::CaseInsensitive) == 0
        || word.compare(u"delete", Qt::CaseInsensitive) == 0;
}

} // namespace kx

void TCSqlConnection::trace(const QString &sql)
{
    if (m_deferral)
        m_deferral->m_held << sql;
    else
        Q_EMIT statementExecuted(sql);
}

void TCSqlConnection::sendWaiting(bool atEnd)
{
    if (!m_deferral || m_deferral->m_waiting.isEmpty())
        return;
    if (!m_driver)
        throw kx::DatabaseError(u"Keine Datenbankverbindung geöffnet."_s);
    if (!atEnd && m_deferral->m_units == kx::DeferredWrites::Units::One)
        throw kx::DeferredWritesBroken();
    const QStringList statements = std::exchange(m_deferral->m_waiting, {});
    if (statements.size() == 1) {
        m_driver->execute(statements.front());
        return;
    }
    if (m_driver->executeGroup(statements))
        return;
    kx::SqlTransaction unit(this);
    for (const QString &statement : statements)
        m_driver->execute(statement);
    unit.commit();
}
