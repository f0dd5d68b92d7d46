#include "benchsupport.h"

using namespace Qt::StringLiterals;

namespace kxbench {

QString connectionString(const QString &product, const QString &scratchFolder)
{
    if (product == u"sqlite"_s)
        return u"sqlite:"_s + scratchFolder + u"/kxcore.db"_s;
    if (product == u"postgres"_s)
        return qEnvironmentVariable("KX_TEST_POSTGRES");
    return qEnvironmentVariable("KX_TEST_FIREBIRD");
}

} // namespace kxbench
