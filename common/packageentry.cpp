// SPDX-License-Identifier: LGPL-2.1-or-later
#include "packageentry.h"

#include "package.h"

#include <QByteArray>
#include <vector>

namespace {
struct InfoTable
{
    std::vector<QByteArray> unitNames;
    std::vector<QByteArray> requiredNames;
    std::vector<const char *> units;
    std::vector<const char *> requiredPackages;
    KxPackageInfoTable table{};

    InfoTable()
    {
        for (const QString &unit : kxpackage::unitTable())
            unitNames.push_back(unit.toLatin1());
        for (const QString &package : kxpackage::requiredPackages())
            requiredNames.push_back(package.toLatin1());
        for (const QByteArray &name : unitNames)
            units.push_back(name.constData());
        for (const QByteArray &name : requiredNames)
            requiredPackages.push_back(name.constData());
        table = { int(units.size()), units.data(), int(requiredPackages.size()), requiredPackages.data() };
    }
};
} // namespace

extern "C" {

__attribute__((visibility("default"))) void Initialize()
{
    kxpackage::initializeUnits();
}

__attribute__((visibility("default"))) void Finalize()
{
    kxpackage::finalizeUnits();
}

__attribute__((visibility("default"))) const KxPackageInfoTable *GetPackageInfoTable()
{
    static const InfoTable info;
    return &info.table;
}
}
