// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// The products' own clients for the baselines: libpq, and Qt's Firebird driver on the
// product's client library. Each connection lives as long as its holder.
#include "sqlconnection.h"

#include <QSqlDatabase>
#include <libpq-fe.h>

namespace kxbench {

class PostgresClient
{
public:
    explicit PostgresClient(const kx::ConnectionParameters &p)
    {
        const QByteArray info = "host=" + p.host.toUtf8() + " port=" + QByteArray::number(p.port) + " dbname="
            + p.database.toUtf8() + " user=" + p.user.toUtf8() + " password=" + p.password.toUtf8();
        m_conn = PQconnectdb(info.constData());
    }
    ~PostgresClient() { PQfinish(m_conn); }
    PostgresClient(const PostgresClient &) = delete;
    PostgresClient &operator=(const PostgresClient &) = delete;
    PGconn *connection() const { return m_conn; }

private:
    PGconn *m_conn = nullptr;
};

// A Qt connection named "baseline" to the Firebird database, in UTF-8.
class FirebirdClient
{
public:
    explicit FirebirdClient(const kx::ConnectionParameters &p)
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QIBASE"), name());
        db.setHostName(p.host);
        db.setPort(p.port);
        db.setDatabaseName(p.database);
        db.setUserName(p.user);
        db.setPassword(p.password);
        db.setConnectOptions(QStringLiteral("ISC_DPB_LC_CTYPE=UTF8"));
        db.open();
    }
    ~FirebirdClient()
    {
        QSqlDatabase::database(name()).close();
        QSqlDatabase::removeDatabase(name());
    }
    FirebirdClient(const FirebirdClient &) = delete;
    FirebirdClient &operator=(const FirebirdClient &) = delete;
    QSqlDatabase database() const { return QSqlDatabase::database(name()); }

private:
    static QString name() { return QStringLiteral("baseline"); }
};

} // namespace kxbench
