// SPDX-License-Identifier: LGPL-2.1-or-later
// Splitting an import line into its fields, and a type's length.
#include "fuzzsupport.h"
#include "importcommon.h"
#include "kxerror.h"
#include "strtools.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString line = kxfuzz::asText(data, size);
    const int fields = int(line.count(u';')) + 2;
    for (int n = -1; n <= fields; ++n) {
        const QString field = GetImportField(line, n);
        KXFUZZ_CHECK(!field.contains(u'"') && field == field.trimmed());
        KXFUZZ_CHECK(!GetNthString(line, n).contains(u';'));
    }
    try {
        GetFieldLength(line);
    } catch (const kx::ConvertError &) {
    }
    return 0;
}
