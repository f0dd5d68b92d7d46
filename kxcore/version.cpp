// SPDX-License-Identifier: LGPL-2.1-or-later
#include <kxcommon/version.h>

namespace kx {

const char *libraryVersion()
{
    return KXCOMMON_VERSION_STRING;
}

} // namespace kx
