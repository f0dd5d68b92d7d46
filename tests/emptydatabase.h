// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

class TCSqlConnection;

namespace kxtest {
// Drops every table and generator, so a test or a benchmark starts on an empty database.
void emptyDatabase(TCSqlConnection &connection);
} // namespace kxtest
