// SPDX-License-Identifier: LGPL-2.1-or-later
// The names under which the status monitor and the situation map keep their settings.
#include "aaocommon.h"

#include "sqltool.h"

#include <QSysInfo>

using namespace Qt::StringLiterals;

namespace {

bool settingsExist(const QString &name)
{
    return sqlGetValueInt(u"Select count (p1) from sysparam where p1 = '"_s + sqlConvertString(name) + u"'"_s) >= 1;
}

} // namespace

QString GetComputerName()
{
    return QSysInfo::machineHostName();
}

QString GetFMSMonitorGlobalParamValue()
{
    return u"FMSMonitor"_s;
}

QString GetFMSMonitorLocalParamValue()
{
    return u"FMSMonitor_"_s + GetComputerName();
}

QString GetLumironGlobalParamValue()
{
    return u"Lumiron"_s;
}

QString GetLumironLocalParamValue()
{
    return u"Lumiron_"_s + GetComputerName();
}

bool IsDefaultSettingsAlreadyCopiedForLocalMachine()
{
    return settingsExist(GetFMSMonitorLocalParamValue());
}

bool IsLumironDefaultSettingsAlreadyCopiedForLocalMachine()
{
    return settingsExist(GetLumironLocalParamValue());
}

QString GetFMSMonitorParamValue()
{
    return IsDefaultSettingsAlreadyCopiedForLocalMachine() ? GetFMSMonitorLocalParamValue()
                                                           : GetFMSMonitorGlobalParamValue();
}

QString GetLumironParamValue()
{
    // Deliberate: the situation map follows the status monitor's per-machine settings.
    return IsDefaultSettingsAlreadyCopiedForLocalMachine() ? GetLumironLocalParamValue()
                                                           : GetLumironGlobalParamValue();
}
