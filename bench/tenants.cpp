// SPDX-License-Identifier: LGPL-2.1-or-later
// Cost per collected tenant of the tenant fragment: a tree of 1,000 tenants against a tree of 100,
// both in the same tables, the user's group linked to every other tenant.
#include "benchsupport.h"
#include "emptydatabase.h"

#include "globals.h"
#include "mandantcommon.h"
#include "sqlconnection.h"
#include "tenantdata.h"

#include <QTemporaryDir>
#include <QTextStream>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

// A tree of Size tenants with keys from First on, nine sub-tenants per tenant; the group "G"
// sees every other one. Returns the root's code.
QString addTree(int first, int size)
{
    for (int i = 0; i < size; ++i) {
        const int id = first + i;
        tenants_AddMandant(id, u"T%1"_s.arg(id), u"Mandant %1"_s.arg(id));
        if (i > 0)
            tenants_AddSub(first + (i - 1) / 9, id, u"T%1"_s.arg(id));
        if (i % 2 == 0)
            tenants_LinkGroup(u"G"_s, id);
    }
    return u"T%1"_s.arg(first);
}

// Median seconds per collected tenant over the rounds; checks the fragment's size each time.
double perTenant(const QString &root, int size, int rounds, QTextStream &out, const QString &product)
{
    std::vector<double> times;
    for (int r = 0; r < rounds; ++r) {
        QString fragment;
        times.push_back(kxbench::seconds([&] { fragment = MandantenBuildSubSelect(u"Fahrzeug"_s, root); }) / size);
        if (fragment.count(u"\r\n"_s) != size / 2 + 2) {
            out << "BENCH tenants " << product << " invalid: " << fragment.count(u"\r\n"_s) << " lines for " << size
                << " tenants\n";
            std::exit(1);
        }
    }
    return kxbench::median(times);
}

void runProduct(const QString &product, QTextStream &out)
{
    QTemporaryDir scratch;
    if (kxbench::openProduct("tenants", product, scratch.path(), out).isEmpty())
        return;
    kxtest::emptyDatabase(*compSqlConnection);
    tenants_CreateTables();
    const QString small = addTree(1, 100);
    const QString large = addTree(1001, 1000);
    tenants_AddToGroup(u"bench"_s, u"G"_s);
    kxbench::refreshStatistics({ u"Mandanten"_s, u"Mandanten_sub"_s, u"User_GruppenMandantLink"_s, u"User_GruppenLink"_s });
    User.Id = u"bench"_s;
    User.NoMandantRestriction = false;

    const int rounds = product == u"firebird"_s ? 5 : 15;
    perTenant(small, 100, 2, out, product); // warm-up
    const double smallCost = perTenant(small, 100, rounds, out, product);
    const double largeCost = perTenant(large, 1000, rounds, out, product);
    out << "BENCH tenants " << product << " ratio=" << QString::number(largeCost / smallCost, 'f', 3)
        << " cost per collected tenant of the fragment, 1000 tenants over 100 (user sees half): "
        << QString::number(largeCost * 1e6, 'f', 1) << " us vs " << QString::number(smallCost * 1e6, 'f', 1)
        << " us per tenant; whole fragment " << QString::number(largeCost * 1000 * 1e3, 'f', 1) << " ms vs "
        << QString::number(smallCost * 100 * 1e3, 'f', 1) << " ms (median of " << rounds << ")\n";
    out.flush();
    compSqlConnection->Close();
}

} // namespace

int main(int argc, char *argv[])
{
    return kxbench::runEachProduct(argc, argv, runProduct);
}
