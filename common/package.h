// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>
#include <QStringList>

// The package's unit table: the units in the order their initialisation runs.
namespace kxpackage {

const QStringList &unitTable();
// The packages that must be loaded before this one.
const QStringList &requiredPackages();
// How often a unit's initialisation has run without its finalisation; -1 for an unknown unit.
int unitInitCount(const QString &unit);

// Runs every unit's initialisation in table order: each only counts itself as initialised.
void initializeUnits();
// Runs the finalisations in reverse table order: each only counts down.
void finalizeUnits();

} // namespace kxpackage
