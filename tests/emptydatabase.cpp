// SPDX-License-Identifier: LGPL-2.1-or-later
#include "emptydatabase.h"

#include "sqlconnection.h"
#include "sqldialect.h"

using namespace Qt::StringLiterals;

namespace kxtest {

void emptyDatabase(TCSqlConnection &connection)
{
    const QString name = connection.dialect().productName();
    for (const QString &table : connection.GetTableNames())
        connection.execute(u"DROP TABLE "_s + table);
    if (name == u"postgres"_s) {
        for (const auto &row : connection.execute(u"select relname from pg_class where relkind='S'"_s).rows)
            connection.execute(u"DROP SEQUENCE "_s + row.value(0).toString());
    } else if (name == u"firebird"_s) {
        const auto generators = connection.execute(
            u"select trim(rdb$generator_name) from rdb$generators where coalesce(rdb$system_flag,0)=0"_s);
        for (const auto &row : generators.rows)
            connection.execute(u"DROP SEQUENCE "_s + row.value(0).toString());
    }
}

} // namespace kxtest
