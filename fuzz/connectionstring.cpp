// SPDX-License-Identifier: LGPL-2.1-or-later
// The connection string: any text is read as its parts or refused with a kx::DatabaseError.
#include "fuzzsupport.h"
#include "kxerror.h"
#include "sqlconnection.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    try {
        const kx::ConnectionParameters p = TCSqlConnection::parseConnectionString(kxfuzz::asText(data, size));
        KXFUZZ_CHECK(!p.product.isEmpty() && !p.database.isEmpty());
        KXFUZZ_CHECK(p.port >= 0 && p.port <= 65535);
    } catch (const kx::DatabaseError &) {
    }
    return 0;
}
