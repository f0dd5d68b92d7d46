// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "emptydatabase.h"
#include "kxerror.h"
#include "sqlconnection.h"

#include <QString>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>

// The database a test program runs on: KX_TEST_DB names the product ("sqlite" when unset);
// KX_TEST_POSTGRES and KX_TEST_FIREBIRD hold the servers' connection strings.
namespace kxtest {

QString product();
// The connection string for the product, or empty when its server is not configured.
QString connectionString(QTemporaryDir &scratch);

// Opens compSqlConnection on an empty database of the chosen product, then calls prepare() for
// the fixture's own tables and rows; afterwards closes it and resets the shared settings. A product whose server is not there is a named skip locally
// and a failure in CI; neither prepare() nor the test body runs then.
class DatabaseTest : public ::testing::Test
{
protected:
    void SetUp() override;
    void TearDown() override;
    virtual void prepare() {}

    QString m_connectionString;
    QTemporaryDir m_scratch;
};

// Runs a statement and fails the test with the product and the native error text.
kx::SqlResult exec(const QString &sql);
// The rows of a query, each as its values' texts joined by "|".
QStringList rows(const QString &sql);
// The message of the E that Call raises; empty when it raises none.
template<class E = kx::Error, class Call> QString raised(Call &&call)
{
    try {
        call();
    } catch (const E &e) {
        return e.message();
    }
    return {};
}

} // namespace kxtest

// Prints QStrings in assertion messages.
inline void PrintTo(const QString &text, std::ostream *os)
{
    *os << '"' << text.toStdString() << '"';
}
