// SPDX-License-Identifier: LGPL-2.1-or-later
#include "benchsupport.h"

#include "sqlconnection.h"
#include "sqldialect.h"
#include "sqltool.h"

#include <QApplication>
#include <memory>

using namespace Qt::StringLiterals;

namespace kxbench {

QString connectionString(const QString &product, const QString &scratchFolder)
{
    if (product == u"sqlite"_s)
        return u"sqlite:"_s + scratchFolder + u"/kxcore.db"_s;
    if (product == u"postgres"_s)
        return qEnvironmentVariable("KX_TEST_POSTGRES");
    return qEnvironmentVariable("KX_TEST_FIREBIRD");
}

QString openProduct(const char *name, const QString &product, const QString &scratchFolder, QTextStream &out)
{
    const QString connection = connectionString(product, scratchFolder);
    if (connection.isEmpty()) {
        out << "BENCH " << name << ' ' << product << " skipped: no server configured\n";
        out.flush();
        return connection;
    }
    compSqlConnection->Open(connection);
    return connection;
}

QStringList products(const QStringList &arguments)
{
    return arguments.isEmpty() ? QStringList{ u"sqlite"_s, u"postgres"_s, u"firebird"_s } : arguments;
}

void refreshStatistics(const QStringList &tables)
{
    const QString product = compSqlConnection->dialect().productName();
    if (product != u"postgres"_s && product != u"sqlite"_s)
        return;
    for (const QString &table : tables)
        SqlExec(u"ANALYZE "_s + table);
}

int runEachProduct(int argc, char *argv[], const std::function<void(const QString &product, QTextStream &out)> &run,
                   Application application)
{
    std::unique_ptr<QCoreApplication> app;
    if (application == Application::Widgets) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        app = std::make_unique<QApplication>(argc, argv);
    } else {
        app = std::make_unique<QCoreApplication>(argc, argv);
    }
    QTextStream out(stdout);
    for (const QString &product : products(app->arguments().mid(1)))
        run(product, out);
    return 0;
}

} // namespace kxbench
