// Firebird through Qt's client driver for it, which speaks the product's native client library.
#include "kxerror.h"
#include "sqldialect.h"
#include "sqldriver.h"

#include <QAtomicInt>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

using namespace Qt::StringLiterals;

namespace kx {
namespace {

QString nativeText(const QSqlError &error)
{
    const QString text = error.databaseText().trimmed();
    return text.isEmpty() ? error.text().trimmed() : text;
}

bool isDefinition(const QString &sql)
{
    static const QString keywords[] = { u"CREATE"_s, u"ALTER"_s, u"DROP"_s, u"RECREATE"_s };
    const QString head = sql.trimmed().section(u' ', 0, 0);
    for (const QString &keyword : keywords) {
        if (head.compare(keyword, Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

class FirebirdDriver final : public SqlDriver
{
public:
    explicit FirebirdDriver(const ConnectionParameters &p)
    {
        static QAtomicInt counter;
        m_name = u"kxcore-firebird-%1"_s.arg(counter.fetchAndAddRelaxed(1));
        QSqlDatabase db = QSqlDatabase::addDatabase(u"QIBASE"_s, m_name);
        if (!db.isValid()) {
            QSqlDatabase::removeDatabase(m_name);
            throw DatabaseError(u"Der Firebird-Treiber ist nicht installiert (Qt-Treiber QIBASE)."_s);
        }
        db.setHostName(p.host);
        if (p.port > 0)
            db.setPort(p.port);
        db.setDatabaseName(p.database);
        db.setUserName(p.user);
        db.setPassword(p.password);
        db.setConnectOptions(u"ISC_DPB_LC_CTYPE=UTF8"_s);
        if (!db.open()) {
            const QString native = nativeText(db.lastError());
            db = QSqlDatabase();
            QSqlDatabase::removeDatabase(m_name);
            throw DatabaseError(u"Die Firebird-Datenbank \"%1\" auf %2 lässt sich nicht öffnen: %3"_s
                                    .arg(p.database, p.host, native),
                                {}, native);
        }
        m_open = true;
    }
    ~FirebirdDriver() override { close(); }

    SqlResult execute(const QString &sql) override
    {
        if (!m_open)
            throw DatabaseError(u"Keine Datenbankverbindung geöffnet."_s, sql);
        SqlResult result;
        {
            // The query runs in a transaction of its own that ends with the query object: autocommit.
            QSqlQuery query(QSqlDatabase::database(m_name, false));
            query.setForwardOnly(true);
            if (!query.exec(sql)) {
                const QString native = nativeText(query.lastError());
                throw DatabaseError(u"SQL-Fehler: %1\n%2"_s.arg(native, sql), sql, native);
            }
            const QSqlRecord record = query.record();
            const int columnCount = record.count();
            for (int c = 0; c < columnCount; ++c)
                result.columns << record.fieldName(c);
            while (query.next()) {
                QVector<QVariant> row(columnCount);
                for (int c = 0; c < columnCount; ++c)
                    row[c] = query.value(c);
                result.rows.push_back(std::move(row));
            }
            if (columnCount > 0)
                result.rowsAffected = qint64(result.rows.size());
            else if (!isDefinition(sql))
                result.rowsAffected = query.numRowsAffected(); // the driver has no count for DDL
        }
        return result;
    }

    void close() override
    {
        if (!m_open)
            return;
        m_open = false;
        {
            QSqlDatabase db = QSqlDatabase::database(m_name, false);
            db.close();
        }
        QSqlDatabase::removeDatabase(m_name);
    }

    const SqlDialect &dialect() const override { return firebirdDialect(); }

private:
    QString m_name;
    bool m_open = false;
};

} // namespace

std::unique_ptr<SqlDriver> openFirebirdDriver(const ConnectionParameters &parameters)
{
    return std::make_unique<FirebirdDriver>(parameters);
}

} // namespace kx
