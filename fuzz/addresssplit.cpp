// SPDX-License-Identifier: LGPL-2.1-or-later
// The street and object-name splitters and the search form of place names.
#include "aaocommon.h"
#include "fuzzsupport.h"
#include "sqltool.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString text = kxfuzz::asText(data, size);
    AaoSplitStrasse(text);
    AaoSplitObjektName(text);
    KXFUZZ_CHECK(!SqlGetSelectFieldValue(text).contains(u'\''));
    return 0;
}
