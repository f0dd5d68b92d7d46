// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include <QString>

// File contents stored in the database: the content of a binary field of a row lives in the
// system table "BinaryData" (IDPARENT = the row's ID, TABLEPARENT = its table, DATAFILTER = the
// field, DATAFILENAME = the file's name, DATAMD5, DATA), streamed in and out in pieces on every
// product, so that its size is not limited by a statement's text.

// Stores the file as the field's content, replacing an earlier one; returns the file's name.
// Raises kx::Error when the file cannot be read, kx::DatabaseError when the database refuses.
KXCOMMON_CORE_EXPORT QString SaveBinaryData(const QString &Id, const QString &TableName, const QString &FieldName, const QString &FilePath);

// Copies every stored content of row Id of the table to row NewId, inside the database (the
// bytes never pass through memory); returns how many were copied.
KXCOMMON_CORE_EXPORT int CopyBinaryData(const QString &Id, const QString &NewId, const QString &TableName);

// Writes the field's content of the row into Folder under its file's name and returns the
// file's path; empty when the row has no content stored (nothing is written then).
KXCOMMON_CORE_EXPORT QString ExtractBinaryData(const QString &Id, const QString &TableName, const QString &FieldName, const QString &Folder);
