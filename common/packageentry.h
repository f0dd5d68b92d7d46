// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

// The package's entry points, exported by name with C linkage for the host's loader.
extern "C" {

struct KXCOMMON_CORE_EXPORT KxPackageInfoTable
{
    int unitCount;
    const char *const *units;    // in initialisation order
    int requiresCount;
    const char *const *requiredPackages; // packages to load first
};

void Initialize();
void Finalize();
const KxPackageInfoTable *GetPackageInfoTable();
}
