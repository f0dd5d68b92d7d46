// SPDX-License-Identifier: LGPL-2.1-or-later
// The symbol pack reader: any file is read or refused with a kx::Error, within its memory budget.
#include "fuzzsupport.h"
#include "kxerror.h"
#include "streamitem.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString path = kxfuzz::asFile(data, size, "symbols.pak");
    TStreamItemManager items;
    try {
        items.LoadFromFile(path);
        for (int i = 0; i < items.Count(); ++i)
            KXFUZZ_CHECK(items.Item(i)->Data().size() == items.Item(i)->DataSize());
    } catch (const kx::Error &) {
    }
    return 0;
}
