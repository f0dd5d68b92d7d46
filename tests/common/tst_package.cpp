// SPDX-License-Identifier: LGPL-2.1-or-later
// The package frame: the entry points through dlopen, the unit table and the shared flags.
#include "commonconst.h"
#include "globals.h"
#include "package.h"
#include "packageentry.h"
#include "sqlconnection.h"
#include "testdatabase.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(Package, LoadsThroughItsExportedEntryPoints)
{
    void *library = dlopen(KX_PACKAGE_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library, nullptr) << dlerror();
    auto initialize = reinterpret_cast<void (*)()>(dlsym(library, "Initialize"));
    auto finalize = reinterpret_cast<void (*)()>(dlsym(library, "Finalize"));
    auto info = reinterpret_cast<const KxPackageInfoTable *(*)()>(dlsym(library, "GetPackageInfoTable"));
    ASSERT_TRUE(initialize && finalize && info);
    initialize();
    const KxPackageInfoTable *table = info();
    ASSERT_EQ(table->unitCount, 21);
    EXPECT_STREQ(table->units[0], "frmSelectIconCommon");
    EXPECT_STREQ(table->units[2], "SysInit");
    EXPECT_STREQ(table->units[9], "CommonConst");
    EXPECT_STREQ(table->units[20], "KatsCommon");
    ASSERT_EQ(table->requiresCount, 2);
    EXPECT_STREQ(table->requiredPackages[0], "kxCore");
    EXPECT_STREQ(table->requiredPackages[1], "kxUser");
    finalize();
    EXPECT_EQ(dlclose(library), 0);
}

TEST(Package, InitialisationOnlyCountsAndRunsNoSql)
{
    kx::SqlTraceCapture trace;
    const int objectsBefore = int(applicationOwner()->children().size());
    Initialize();
    for (const QString &unit : kxpackage::unitTable())
        EXPECT_EQ(kxpackage::unitInitCount(unit), 1) << unit.toStdString();
    Initialize(); // loaded twice: counted, nothing else
    EXPECT_EQ(kxpackage::unitInitCount(u"LagerCommon"_s), 2);
    Finalize();
    Finalize();
    Finalize(); // one more unload than loads does not go below zero
    EXPECT_EQ(kxpackage::unitInitCount(u"ModulCommon"_s), 0);
    EXPECT_EQ(kxpackage::unitInitCount(u"NoSuchUnit"_s), -1);
    EXPECT_TRUE(trace.statements().isEmpty());
    EXPECT_EQ(int(applicationOwner()->children().size()), objectsBefore);
}

} // namespace
