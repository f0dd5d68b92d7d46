// SPDX-License-Identifier: LGPL-2.1-or-later
// Filling the address frame's street pick list for a postcode and town: a street directory of
// 100,000 rows against one of 1,000 rows, each asked for a postcode with twelve streets.
#include "benchsupport.h"
#include "emptydatabase.h"

#include "frmplzortstrassecommon.h"
#include "sqlconnection.h"
#include "streetdirectory.h"
#include "tcedit.h"

#include <QTemporaryDir>
#include <QTextStream>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

struct Measured
{
    StreetDirectoryFacts facts;
    double seconds = 0;
};

// Median seconds of one fill over the rounds, on a directory of about Postcodes * 12.5 rows.
Measured fillStreets(int postcodes, int rounds, const QString &product, QTextStream &out)
{
    kxtest::emptyDatabase(*compSqlConnection);
    Measured m;
    m.facts = address_GenerateDirectory(postcodes);
    kxbench::refreshStatistics({ u"ORTE"_s });
    TfrmPlzOrtStrasse frame;
    frame.Loaded();
    frame.Plz->setText(m.facts.samplePlz);
    frame.Ort->setText(m.facts.sampleOrt);
    std::vector<double> times;
    for (int r = 0; r < rounds + 2; ++r) {
        const double t = kxbench::seconds([&] { frame.StrasseEnter(frame.Strasse); });
        if (r >= 2) // the first two warm the caches
            times.push_back(t);
        if (frame.Strasse->PickList().size() != 13) {
            out << "BENCH address " << product << " invalid: " << frame.Strasse->PickList().size()
                << " entries for postcode " << m.facts.samplePlz << "\n";
            std::exit(1);
        }
    }
    m.seconds = kxbench::median(times);
    return m;
}

void runProduct(const QString &product, QTextStream &out)
{
    QTemporaryDir scratch;
    if (kxbench::openProduct("address", product, scratch.path(), out).isEmpty())
        return;
    const int rounds = 51;
    const Measured small = fillStreets(80, rounds, product, out);
    const Measured large = fillStreets(8000, rounds, product, out);
    out << "BENCH address " << product << " ratio=" << QString::number(large.seconds / small.seconds, 'f', 3)
        << " street pick list for postcode and town (12 streets), " << large.facts.rows << " directory rows ("
        << large.facts.postcodes << " postcodes, " << large.facts.towns << " towns) over " << small.facts.rows
        << " rows: " << QString::number(large.seconds * 1e3, 'f', 3) << " ms vs "
        << QString::number(small.seconds * 1e3, 'f', 3) << " ms (median of " << rounds << ")\n";
    out.flush();
    compSqlConnection->Close();
}

} // namespace

int main(int argc, char *argv[])
{
    return kxbench::runEachProduct(argc, argv, runProduct, kxbench::Application::Widgets);
}
