// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include <QString>

// Nodes of the shared category tree "KATS" (for the command line, the demo, the window host
// and the tests; the suite's own category editor writes them otherwise).

// Adds a node under ParentId (empty: under the root "Kats-Plan").
KXCOMMON_CORE_EXPORT void Kats_AddNode(const QString &treeId, const QString &parentId, const QString &keyText, const QString &caption);
// The sample tree of the project's own making: vehicles, equipment and kinds of operation.
KXCOMMON_CORE_EXPORT void Kats_AddSampleTree();
