// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "sqlconnection.h"
#include "sqlresult.h"

#include <QString>
#include <QStringList>
#include <memory>
#include <vector>

class QIODevice;

namespace kx {


class SqlDialect;

// What one product's client must do; everything above it is product-neutral.
class SqlDriver
{
public:
    virtual ~SqlDriver() = default;

    // Runs exactly one statement and commits it, or runs it inside the caller transaction while
    // one is open; throws DatabaseError with the native text.
    virtual SqlResult execute(const QString &sql) = 0;
    virtual void close() = 0;
    virtual const SqlDialect &dialect() const = 0;

    // Takes the named lock of the database: another connection asking for the same name waits
    // until it is released. One lock at a time per connection; throws DatabaseError when the
    // lock cannot be had after a bounded number of tries.
    virtual void acquireLock(const QString &name) = 0;
    virtual void releaseLock() = 0;

    // The caller transaction: from begin to commit or rollback every statement runs in one
    // transaction (read committed), and savepoints may be set inside it with execute. A commit
    // that fails leaves nothing of the transaction in effect. Rolling back never throws.
    virtual void beginTransaction() = 0;
    virtual void commitTransaction() = 0;
    virtual void rollbackTransaction() noexcept = 0;
    // Takes the named lock for the rest of the open transaction: it goes with the commit or the
    // rollback, and another connection asking for it waits until then. Several may be held.
    virtual void acquireTransactionLock(const QString &name) = 0;
    // Savepoints inside the caller transaction. A driver may send the setting and the release
    // with the next statement instead of on their own, as long as the order stays.
    virtual void setSavepoint(const QString &name) { execute(QStringLiteral("SAVEPOINT ") + name); }
    virtual void releaseSavepoint(const QString &name) { execute(QStringLiteral("RELEASE SAVEPOINT ") + name); }
    virtual void rollbackToSavepoint(const QString &name)
    {
        execute(QStringLiteral("ROLLBACK TO SAVEPOINT ") + name);
        execute(QStringLiteral("RELEASE SAVEPOINT ") + name);
    }

    // Runs statements that give no result as one unit in one round trip: all of them take effect
    // or, when one fails, none (the error is thrown), inside the caller transaction or in one of
    // its own. Returns false, having sent nothing, where the driver cannot send them so; the
    // connection then runs them one by one under a savepoint.
    virtual bool executeGroup(const QStringList &statements)
    {
        Q_UNUSED(statements);
        return false;
    }

    // Statements sent ahead: sendAhead() sends them as one message inside the caller transaction
    // and returns without waiting, so that the caller prepares its next statements while the
    // server works; collectAhead() waits for them and gives each statement's result in order.
    // A failure throws from collectAhead() after the message is done with; the transaction is
    // then to be rolled back. Only where canSendAhead() says so, and inside a transaction.
    virtual bool canSendAhead() const { return false; }
    virtual void sendAhead(const QStringList &statements) { Q_UNUSED(statements); }
    virtual std::vector<SqlResult> collectAhead() { return {}; }

    // Streams Source, from its position to its end, into the location in pieces, in one
    // transaction (the caller's while one is open), never through a statement's text; the row
    // must exist. Throws DatabaseError.
    virtual void writeBlob(const BlobLocation &at, QIODevice &source) = 0;
    // Streams the location's value into Target in pieces; false when there is no such row or the
    // value is null.
    virtual bool readBlob(const BlobLocation &at, QIODevice &target) = 0;
};

// The size of the pieces a blob is streamed in.
inline constexpr qint64 blobChunk = 1 << 20;

// A 64-bit key for a lock name, the same in every process.
qint64 lockKey(const QString &name);


std::unique_ptr<SqlDriver> openSqliteDriver(const ConnectionParameters &parameters);
std::unique_ptr<SqlDriver> openPostgresDriver(const ConnectionParameters &parameters);
std::unique_ptr<SqlDriver> openFirebirdDriver(const ConnectionParameters &parameters);

} // namespace kx
