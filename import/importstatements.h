// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// The run's look-up, insert and update texts, the same whichever way a line's statements are sent.
#include <QStringList>

QStringList importLookupLines(const QString &table, const QString &keyField, const QString &key);
QStringList importInsertLines(const QString &table, const QStringList &fields, const QStringList &values);
QStringList importUpdateLines(const QString &table, const QString &assignment, const QString &id);
