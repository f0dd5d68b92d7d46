// SPDX-License-Identifier: LGPL-2.1-or-later
// The one-statement check as each product reads quotes and comments, and the null order added to
// ORDER BY items on PostgreSQL: whatever the text, no crash; what passes holds no second
// statement that the same check would find in it again.
#include "fuzzsupport.h"
#include "kxerror.h"
#include "sqlconnection.h"
#include "sqldialect.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString sql = kxfuzz::asText(data, size);
    for (const kx::SqlDialect *dialect : { &kx::sqliteDialect(), &kx::postgresDialect(), &kx::firebirdDialect() }) {
        try {
            const QString one = kx::singleStatement(sql, dialect->lexis());
            KXFUZZ_CHECK(kx::singleStatement(one, dialect->lexis()) == one);
            kx::withNullsLowest(one, dialect->lexis());
        } catch (const kx::DatabaseError &) {
        }
    }
    return 0;
}
