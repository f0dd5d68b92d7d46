// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include <QString>

// A street directory "ORTE" of realistic size for the demo, the tests and the benchmark, made up
// by the project: German-sounding towns under Postcodes distinct five-digit postcodes, each
// postcode with between 5 and 20 streets of a list of common German street names, about 12.5
// streets per postcode on average. The same Seed gives the same directory on every product.
// Postcodes already in the directory are not chosen.
struct KXCOMMON_CORE_EXPORT StreetDirectoryFacts
{
    int postcodes = 0;
    int towns = 0;
    int rows = 0;
    // A postcode of the directory with its town and twelve streets, for look-ups that need one
    // (directories of different sizes then answer with lists of the same length).
    QString samplePlz, sampleOrt;
};

// Adds the rows to ORTE (created when missing) and returns what it wrote. The rows are copied
// inside the database from two small helper tables, so that 100 000 rows do not cost 100 000
// statements; the helper tables are dropped afterwards.
KXCOMMON_CORE_EXPORT StreetDirectoryFacts address_GenerateDirectory(int postcodes, unsigned seed = 1);
