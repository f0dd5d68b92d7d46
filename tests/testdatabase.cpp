// SPDX-License-Identifier: LGPL-2.1-or-later
#include "testdatabase.h"

#include "globals.h"
#include "sqldialect.h"
#include "sqlquery.h"

using namespace Qt::StringLiterals;

namespace kxtest {

QString product()
{
    return qEnvironmentVariable("KX_TEST_DB", u"sqlite"_s);
}

QString connectionString(QTemporaryDir &scratch)
{
    const QString name = product();
    if (name == u"sqlite"_s)
        return u"sqlite:"_s + scratch.filePath(u"test.db"_s);
    if (name == u"postgres"_s)
        return qEnvironmentVariable("KX_TEST_POSTGRES");
    if (name == u"firebird"_s)
        return qEnvironmentVariable("KX_TEST_FIREBIRD");
    return {};
}

void DatabaseTest::SetUp()
{
    cWorkPath = m_scratch.path(); // log files of the test go with its scratch folder
    m_connectionString = connectionString(m_scratch);
    const bool ci = qEnvironmentVariable("CI") == u"true"_s;
    if (m_connectionString.isEmpty()) {
        const QString reason = u"database %1 not configured (KX_TEST_%2 unset)"_s.arg(product(), product().toUpper());
        if (ci)
            FAIL() << reason.toStdString() << " - in CI every database must run";
        GTEST_SKIP() << reason.toStdString();
    }
    try {
        compSqlConnection->Open(m_connectionString);
        emptyDatabase(*compSqlConnection);
    } catch (const kx::Error &e) {
        const std::string reason = product().toStdString() + " not reachable: " + e.message().toStdString();
        if (ci)
            FAIL() << reason;
        GTEST_SKIP() << reason;
    }
    prepare();
}

void DatabaseTest::TearDown()
{
    compSqlConnection->Close();
    // The shared settings a test may have changed, back to a fresh program's.
    cWorkPath.clear();
    cSearchPathList.clear();
    cDatabaseIni.clear();
    cEnableBinarySave = false;
    User = TCUser{};
}

kx::SqlResult exec(const QString &sql)
{
    try {
        return compSqlConnection->execute(sql);
    } catch (const kx::DatabaseError &e) {
        ADD_FAILURE() << product().toStdString() << ": " << e.nativeText().toStdString() << "\n  in: " << sql.toStdString();
        return {};
    }
}

QStringList rows(const QString &sql)
{
    TCSqlQuery query;
    query.Connection = compSqlConnection;
    query.SQL.Add(sql);
    QStringList result;
    try {
        query.Open();
    } catch (const kx::DatabaseError &e) {
        ADD_FAILURE() << product().toStdString() << ": " << e.nativeText().toStdString() << "\n  in: " << sql.toStdString();
        return result;
    }
    for (; !query.Eof(); query.Next()) {
        QStringList values;
        for (int i = 0; i < query.FieldCount(); ++i)
            values << query.Fields(i).AsString();
        result << values.join(u'|');
    }
    return result;
}

} // namespace kxtest
