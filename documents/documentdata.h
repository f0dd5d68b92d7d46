// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include "dataaccess.h"

// The document table of a record kind ("Fahrzeug_Dokumente", "Mat_Dokumente", ...): a row per
// document of a record, hanging on the record by IDPARENT. DOKUMENT holds the file's path, or
// its content when the documents are stored in the database.
KXCOMMON_CORE_EXPORT TCTableDef documentTableDef(const QString &tableName);
KXCOMMON_CORE_EXPORT void documents_CreateTable(const QString &tableName);

// Adds a document row naming a file; returns its ID.
KXCOMMON_CORE_EXPORT QString documents_Add(const QString &tableName, const QString &parentId, const QString &bezeichnung,
                      const QString &dokument);
