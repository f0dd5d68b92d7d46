// SPDX-License-Identifier: LGPL-2.1-or-later
// Index names shortened for Firebird's 31 characters; no server needed. (The creation statements
// themselves are in the golden traces of the system tables, on each product.)
#include "sqldialect.h"
#include "testdatabase.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(Ddl, ShortNamesFitAndStayDistinct)
{
    const kx::SqlDialect &firebird = kx::firebirdDialect();
    const QString a = firebird.shortName(u"IX_SYSDEF_REPLICATE3CLIENTS_IDPARENT"_s);
    const QString b = firebird.shortName(u"IX_SYSDEF_REPLICATE3CLIENTS_CLIENTID"_s);
    EXPECT_LE(a.size(), 31);
    EXPECT_LE(b.size(), 31);
    EXPECT_NE(a, b);
    EXPECT_EQ(a, firebird.shortName(u"ix_SysDef_Replicate3Clients_IDPARENT"_s)); // case does not matter
    EXPECT_EQ(firebird.shortName(u"IX_LAGERLOG_ID"_s), u"IX_LAGERLOG_ID"_s);
}

} // namespace
