// SPDX-License-Identifier: LGPL-2.1-or-later
#include "sqlconnection.h"
#include "sqldriver.h"

#include "globals.h"
#include "kxerror.h"
#include "sqldialect.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <cstring>

using namespace Qt::StringLiterals;

namespace {
TCSqlConnection &applicationConnection()
{
    static TCSqlConnection connection;
    return connection;
}
} // namespace

TCSqlConnection *compSqlConnection = &applicationConnection();

TCSqlConnection::TCSqlConnection(QObject *parent)
    : QObject(parent)
{
}

TCSqlConnection::~TCSqlConnection() = default;

namespace {

// The text with each %XX replaced by its byte, read as UTF-8; a "%" without two hex digits stays.
QString percentDecoded(const QString &text)
{
    return QString::fromUtf8(QByteArray::fromPercentEncoding(text.toUtf8()));
}

[[noreturn]] void incomplete(const QString &product, const QString &what)
{
    throw kx::DatabaseError(u"Die Verbindungsangabe ist unvollständig oder falsch (%1); erwartet: "
                            u"%2://benutzer:kennwort@rechner:port/datenbank"_s.arg(what, product));
}

} // namespace

kx::ConnectionParameters TCSqlConnection::parseConnectionString(const QString &connectionString)
{
    kx::ConnectionParameters p;
    if (connectionString.startsWith(u"sqlite:"_s)) {
        p.product = u"sqlite"_s;
        p.database = connectionString.mid(7);
        if (p.database.isEmpty())
            throw kx::DatabaseError(u"Die Verbindungsangabe \"sqlite:\" nennt keine Datenbankdatei."_s);
        return p;
    }
    const qsizetype schemeEnd = connectionString.indexOf(u"://"_s);
    const QString product = schemeEnd > 0 ? connectionString.left(schemeEnd) : connectionString.section(u':', 0, 0);
    if (product != u"postgres"_s && product != u"firebird"_s)
        throw kx::DatabaseError(
            u"Unbekanntes Datenbanksystem \"%1\" in der Verbindungsangabe; erlaubt sind sqlite:, postgres:// und firebird://."_s
                .arg(product));
    if (schemeEnd < 0)
        incomplete(product, u"kein \"://\""_s);
    p.product = product;
    const QString rest = connectionString.mid(schemeEnd + 3);
    // The user part holds no "/" (it is written %2F), so the first "/" begins the database; the
    // last "@" before it ends the user part, so an "@" of a password may even stand unencoded.
    const qsizetype slash = rest.indexOf(u'/');
    if (slash < 0)
        incomplete(product, u"keine Datenbank"_s);
    const QString authority = rest.left(slash);
    QString path = rest.mid(slash + 1);
    if (const qsizetype query = path.indexOf(u'?'); query >= 0) {
        for (const QString &option : path.mid(query + 1).split(u'&', Qt::SkipEmptyParts)) {
            const qsizetype equals = option.indexOf(u'=');
            if (equals <= 0)
                incomplete(product, u"Option \"%1\" ohne Wert"_s.arg(option));
            p.options.append({ percentDecoded(option.left(equals)), percentDecoded(option.mid(equals + 1)) });
        }
        path.truncate(query);
    }
    p.database = percentDecoded(path);
    const qsizetype at = authority.lastIndexOf(u'@');
    if (at >= 0) {
        const QString user = authority.left(at);
        const qsizetype colon = user.indexOf(u':');
        p.user = percentDecoded(colon < 0 ? user : user.left(colon));
        p.password = colon < 0 ? QString() : percentDecoded(user.mid(colon + 1));
    }
    QString hostPort = authority.mid(at + 1);
    QString port;
    if (hostPort.startsWith(u'[')) {
        const qsizetype close = hostPort.indexOf(u']');
        if (close < 0)
            incomplete(product, u"IPv6-Adresse ohne \"]\""_s);
        p.host = hostPort.mid(1, close - 1);
        const QString after = hostPort.mid(close + 1);
        if (!after.isEmpty() && !after.startsWith(u':'))
            incomplete(product, u"nach der IPv6-Adresse"_s);
        port = after.mid(1);
    } else {
        const qsizetype colon = hostPort.lastIndexOf(u':');
        p.host = percentDecoded(colon < 0 ? hostPort : hostPort.left(colon));
        port = colon < 0 ? QString() : hostPort.mid(colon + 1);
    }
    if (p.host.isEmpty() || p.database.isEmpty())
        incomplete(product, p.host.isEmpty() ? u"kein Rechner"_s : u"keine Datenbank"_s);
    if (!port.isEmpty()) {
        bool ok = false;
        p.port = port.toInt(&ok);
        if (!ok || p.port < 1 || p.port > 65535)
            incomplete(product, u"Port \"%1\""_s.arg(port));
    }
    return p;
}

void TCSqlConnection::Open(const QString &connectionString)
{
    const kx::ConnectionParameters parameters = parseConnectionString(connectionString);
    Close();
    if (parameters.product == u"sqlite"_s)
        m_driver = kx::openSqliteDriver(parameters);
    else if (parameters.product == u"postgres"_s)
        m_driver = kx::openPostgresDriver(parameters);
    else
        m_driver = kx::openFirebirdDriver(parameters);
    m_connectionString = connectionString;
    if (this == compSqlConnection) {
        cDBSystem = m_driver->dialect().dbSystem();
        // Client libraries must be let go of while the application object still lives.
        static bool closeRegistered = false;
        if (!closeRegistered && QCoreApplication::instance()) {
            qAddPostRoutine([] { compSqlConnection->Close(); });
            closeRegistered = true;
        }
    }
}

void TCSqlConnection::Close()
{
    if (m_driver) {
        if (m_transactionDepth > 0)
            m_driver->rollbackTransaction();
        m_transactionDepth = 0;
        m_transactionLocks.clear();
        if (m_lockDepth > 0)
            m_driver->releaseLock();
        m_lockDepth = 0;
        m_driver->close();
        m_driver.reset();
    }
    m_connectionString.clear();
}

const kx::SqlDialect &TCSqlConnection::dialect() const
{
    if (!m_driver)
        throw kx::DatabaseError(u"Keine Datenbankverbindung geöffnet."_s);
    return m_driver->dialect();
}

kx::SqlResult TCSqlConnection::execute(const QString &sql)
{
    trace(sql);
    if (!m_driver)
        throw kx::DatabaseError(u"Keine Datenbankverbindung geöffnet.\n%1"_s.arg(sql), sql);
    const QString text = textToSend(sql);
    // Every statement is committed when it returns, so an explicit "Commit" has nothing left to do.
    if (text.compare(u"commit"_s, Qt::CaseInsensitive) == 0)
        return {};
    if (m_deferral) {
        if (kx::DeferredWrites::deferrable(text)) {
            m_deferral->m_waiting << text;
            return {};
        }
        sendWaiting();
    }
    return m_driver->execute(text);
}

bool TCSqlConnection::sendsAhead() const
{
    return m_driver && m_driver->canSendAhead();
}

void TCSqlConnection::sendAhead(const QStringList &statements)
{
    if (!sendsAhead() || m_transactionDepth == 0 || m_deferral)
        throw kx::DatabaseError(u"Anweisungen lassen sich hier nicht vorausschicken."_s);
    QStringList texts;
    for (const QString &sql : statements) {
        trace(sql);
        texts << textToSend(sql);
    }
    m_driver->sendAhead(texts);
}

std::vector<kx::SqlResult> TCSqlConnection::collectAhead()
{
    if (!m_driver)
        throw kx::DatabaseError(u"Keine Datenbankverbindung geöffnet."_s);
    return m_driver->collectAhead();
}

QString TCSqlConnection::textToSend(const QString &sql) const
{
    const kx::SqlDialect &d = dialect();
    const QString statement = kx::singleStatement(sql, d.lexis());
    return d.nullsSortHigh() ? kx::withNullsLowest(statement, d.lexis()) : statement;
}

void TCSqlConnection::executeTrigger(const QString &sql)
{
    trace(sql);
    if (!m_driver)
        throw kx::DatabaseError(u"Keine Datenbankverbindung geöffnet.\n%1"_s.arg(sql), sql);
    if (!sql.startsWith(u"CREATE TRIGGER "_s))
        throw kx::DatabaseError(u"Nur CREATE TRIGGER wird ohne die Prüfung auf eine zweite Anweisung ausgeführt.\n%1"_s.arg(sql), sql);
    sendWaiting();
    m_driver->execute(sql);
}

QString kx::BlobLocation::where() const
{
    return keyColumn + u"='"_s + QString(key).replace(u'\'', u"''"_s) + u'\'';
}

void TCSqlConnection::writeBlob(const kx::BlobLocation &at, QIODevice &source)
{
    trace(u"update %1 set %2=<Binärdaten> where %3"_s.arg(at.table, at.column, at.where()));
    if (!m_driver)
        throw kx::DatabaseError(u"Keine Datenbankverbindung geöffnet."_s);
    sendWaiting();
    m_driver->writeBlob(at, source);
}

bool TCSqlConnection::readBlob(const kx::BlobLocation &at, QIODevice &target)
{
    trace(u"select %1 from %2 where %3"_s.arg(at.column, at.table, at.where()));
    if (!m_driver)
        throw kx::DatabaseError(u"Keine Datenbankverbindung geöffnet."_s);
    sendWaiting();
    return m_driver->readBlob(at, target);
}

bool TCSqlConnection::lock(const QString &name)
{
    if (!m_driver)
        throw kx::DatabaseError(u"Keine Datenbankverbindung geöffnet."_s);
    sendWaiting();
    if (m_transactionDepth > 0) {
        if (!m_transactionLocks.contains(name)) {
            m_driver->acquireTransactionLock(name);
            m_transactionLocks << name;
        }
        return false;
    }
    if (m_lockDepth == 0)
        m_driver->acquireLock(name);
    ++m_lockDepth;
    return true;
}

void TCSqlConnection::unlock()
{
    if (m_lockDepth > 0 && --m_lockDepth == 0 && m_driver)
        m_driver->releaseLock();
}

QString TCSqlConnection::savepointName() const
{
    return u"KX_SAVEPOINT_"_s + QString::number(m_transactionDepth);
}

void TCSqlConnection::beginTransaction()
{
    if (!m_driver)
        throw kx::DatabaseError(u"Keine Datenbankverbindung geöffnet."_s);
    sendWaiting();
    if (m_transactionDepth == 0) {
        // SQLite's lock is itself a transaction; a transaction inside it could not be told apart.
        if (m_lockDepth > 0)
            throw kx::DatabaseError(u"Eine Transaktion kann nicht innerhalb einer Sperre beginnen; die Sperre "
                                    u"gehört in die Transaktion."_s);
        m_driver->beginTransaction();
    } else {
        m_driver->setSavepoint(savepointName());
    }
    ++m_transactionDepth;
}

void TCSqlConnection::commitTransaction()
{
    if (m_transactionDepth == 0 || !m_driver)
        throw kx::DatabaseError(u"Es ist keine Transaktion offen, die bestätigt werden könnte."_s);
    sendWaiting();
    if (m_transactionDepth > 1) {
        --m_transactionDepth;
        m_driver->releaseSavepoint(savepointName());
        return;
    }
    m_transactionDepth = 0;
    m_transactionLocks.clear();
    m_driver->commitTransaction();
}

void TCSqlConnection::rollbackTransaction() noexcept
{
    if (m_transactionDepth == 0 || !m_driver)
        return;
    // Writes still waiting came after the innermost savepoint or begin (which sends what waits),
    // so they belong to what is undone.
    // They never reach the database, so the trace (whose tail they are) does not show them.
    if (m_deferral) {
        m_deferral->m_held.resize(m_deferral->m_held.size() - m_deferral->m_waiting.size());
        m_deferral->m_waiting.clear();
    }
    if (--m_transactionDepth > 0) {
        try {
            m_driver->rollbackToSavepoint(savepointName());
            return;
        } catch (const std::exception &) {
            // Deliberate: a savepoint that cannot be rolled back to (a lost connection) takes the
            // whole transaction with it, so nothing of it is committed later.
            m_transactionDepth = 0;
        }
    }
    m_transactionLocks.clear();
    m_driver->rollbackTransaction();
}

QStringList TCSqlConnection::firstColumn(const QString &sql)
{
    QStringList names;
    for (const QVector<QVariant> &row : execute(sql).rows)
        names << row.value(0).toString().trimmed();
    return names;
}

QStringList TCSqlConnection::GetTableNames()
{
    return firstColumn(dialect().tableNamesSql());
}

QStringList TCSqlConnection::GetFieldNames(const QString &table)
{
    return firstColumn(dialect().fieldNamesSql(table));
}

QStringList TCSqlConnection::GetIndexNames(const QString &table)
{
    return firstColumn(dialect().indexNamesSql(table));
}

QList<std::pair<QString, QString>> TCSqlConnection::GetFieldTypes(const QString &table)
{
    QList<std::pair<QString, QString>> fields;
    for (const QVector<QVariant> &row : execute(dialect().fieldTypesSql(table)).rows)
        fields.append({ row.value(0).toString().trimmed(), dialect().definitionType(row) });
    return fields;
}

bool TCSqlConnection::tableExists(const QString &table)
{
    return GetTableNames().contains(table, Qt::CaseInsensitive);
}

namespace kx {

qint64 lockKey(const QString &name)
{
    const QByteArray hash = QCryptographicHash::hash(name.toUtf8(), QCryptographicHash::Md5);
    qint64 key = 0;
    std::memcpy(&key, hash.constData(), sizeof key);
    return key;
}

SqlLock::SqlLock(const QString &name, TCSqlConnection *connection)
    : m_connection(connection)
    , m_owed(connection->lock(name))
{
}

SqlLock::~SqlLock()
{
    if (!m_owed)
        return;
    try {
        m_connection->unlock();
    } catch (const std::exception &) {
        // Deliberate: a failed release must not end the program from a destructor; the server
        // frees the lock when the connection ends.
    }
}

SqlTransaction::SqlTransaction(TCSqlConnection *connection, Outside outside)
    : m_connection(connection)
{
    if (outside == Outside::Begin || m_connection->inTransaction()) {
        m_connection->beginTransaction();
        m_open = true;
    }
}

SqlTransaction::~SqlTransaction()
{
    rollback();
}

void SqlTransaction::commit()
{
    if (!m_open)
        return;
    m_open = false;
    m_connection->commitTransaction();
}

void SqlTransaction::rollback() noexcept
{
    if (!m_open)
        return;
    m_open = false;
    m_connection->rollbackTransaction();
}

SqlTraceCapture::SqlTraceCapture(TCSqlConnection *connection)
{
    m_connection = QObject::connect(connection, &TCSqlConnection::statementExecuted,
                                    [this](const QString &sql) { m_statements << sql; });
}

SqlTraceCapture::~SqlTraceCapture()
{
    QObject::disconnect(m_connection);
}

StatementGuard::StatementGuard(TCSqlConnection *connection)
{
    // Deferred writes fail as a unit that takes effect whole or not at all; a savepoint would
    // only send them early.
    if (connection->inTransaction() && !connection->deferring() && connection->dialect().failedStatementEndsTransaction())
        m_savepoint.emplace(connection);
}

void StatementGuard::commit()
{
    if (m_savepoint)
        m_savepoint->commit();
}

} // namespace kx
