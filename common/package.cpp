// SPDX-License-Identifier: LGPL-2.1-or-later
#include "package.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace kxpackage {

const QStringList &unitTable()
{
    static const QStringList units{
        u"frmSelectIconCommon"_s, u"SymbolsPackCommon"_s, u"SysInit"_s,          u"AAOCommon"_s,
        u"frmPlzOrtStrasseCommon"_s, u"DocSaveCommon"_s,  u"DocModiCommon"_s,    u"ToolsCommon"_s,
        u"DocOpenCommon"_s,       u"CommonConst"_s,       u"DocViewMatCommon"_s, u"DocViewCommon"_s,
        u"DataCommon"_s,          u"ModulCommon"_s,       u"GSCommon"_s,         u"frmMandantenCommon"_s,
        u"MandantCommon"_s,       u"ImportCommon"_s,      u"LagerCommon"_s,      u"SysCommon"_s,
        u"KatsCommon"_s,
    };
    return units;
}

const QStringList &requiredPackages()
{
    static const QStringList packages{ u"kxCore"_s, u"kxUser"_s };
    return packages;
}

namespace {
QHash<QString, int> &counters()
{
    static QHash<QString, int> counts;
    return counts;
}
} // namespace

int unitInitCount(const QString &unit)
{
    if (!unitTable().contains(unit))
        return -1;
    return counters().value(unit, 0);
}

void initializeUnits()
{
    for (const QString &unit : unitTable())
        ++counters()[unit];
}

void finalizeUnits()
{
    const QStringList &units = unitTable();
    for (auto it = units.crbegin(); it != units.crend(); ++it) {
        int &count = counters()[*it];
        if (count > 0)
            --count;
    }
}

} // namespace kxpackage
