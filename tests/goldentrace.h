// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <utility>

namespace kxtest {

// Texts of a run that differ from run to run (today's date), each with the name that stands for
// it in a golden file.
using TraceNames = QList<std::pair<QString, QString>>;

// Compares the statements of a scenario, as compSqlConnection sends them to the product, with its
// golden file in tests/golden: SCENARIO.PRODUCT.sql where the product's connection changes a text
// (its catalog, its table creation, its null ordering), else SCENARIO.sql. Generated keys (32 hex
// digits) become <key1>, <key2>, ... in order of first appearance, so a key used again is seen
// to be the same. Each statement ends with a line holding only ";".
// With KX_GOLDEN_UPDATE=1 the trace is written instead (scripts/golden.sh): SQLite writes the
// shared file, another product its own file only where its trace differs from the shared one.
void expectGoldenTrace(const QString &scenario, const QStringList &statements, const TraceNames &names = {});

// The statements with what the clock gives as names: times (hh:mm:ss in quotes) as '<time>', a
// time stamp after its date (17 digits) as DATE<clock>, today's date as '<today>', and today's
// month and year as the monthly balance writes them.
QStringList withoutClock(QStringList statements);

} // namespace kxtest
