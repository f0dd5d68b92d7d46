// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <QTextStream>
#include <algorithm>
#include <chrono>
#include <functional>
#include <vector>

namespace kxbench {

// Seconds one call of work takes.
inline double seconds(const std::function<void()> &work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

inline double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// The connection string of a product for the run, or empty when its server is not there.
QString connectionString(const QString &product, const QString &scratchFolder);

// Opens compSqlConnection on the product's database for the benchmark Name (SQLite: a new file in
// ScratchFolder) and returns its connection string; when the product's server is not configured,
// prints the benchmark's skip line and returns the empty text.
QString openProduct(const char *name, const QString &product, const QString &scratchFolder, QTextStream &out);

// The products named on the command line, or all three.
QStringList products(const QStringList &arguments);

// Fresh planner statistics for the tables after a bulk load, as a maintained database has them
// (Firebird keeps its index statistics itself).
void refreshStatistics(const QStringList &tables);

// The benchmark's main: an application object (of the widgets kind, on the offscreen platform,
// for benchmarks that drive widgets), then Run for each product named on the command line (or
// all three), its lines on standard output.
enum class Application { Core, Widgets };
int runEachProduct(int argc, char *argv[], const std::function<void(const QString &product, QTextStream &out)> &run,
                   Application application = Application::Core);

} // namespace kxbench
