// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include "holder.h"

#include <QPointer>
#include <QString>
#include <cstdint>

class TCSqlQuery;

// One result of the fee calculation: a number with the caption and cost column it stands for.
// Never set, it reads as 0.
class KXCOMMON_CORE_EXPORT TGSResult
{
public:
    TGSResult(QString caption, QString dataField)
        : Caption(std::move(caption))
        , DataField(std::move(dataField))
    {
    }
    double AsFloat() const { return m_value; }
    void setAsFloat(double value) { m_value = value; }

    const QString Caption;
    const QString DataField;

private:
    double m_value = 0;
};

// Holder of the fee calculation: the queries over the fee schedule and the five results.
class KXCOMMON_CORE_EXPORT TGSCommonForm : public THolderForm
{
    Q_OBJECT

public:
    explicit TGSCommonForm(QObject *owner);

    TCSqlQuery *GSQuery;
    TCSqlQuery *GSFKZQuery;
    TCSqlQuery *GSVKNQuery;
    TCSqlQuery *GSVKZQuery;
    TGSResult s1{ QStringLiteral("FWA --> FW"), QStringLiteral("VK_FWA_FW") };
    TGSResult s2{ QStringLiteral("FW --> SV/GV"), QStringLiteral("VK_FW_SVGV") };
    TGSResult s3{ QStringLiteral("SV/GV --> KT"), QStringLiteral("VK_SVGV_KT") };
    TGSResult s4{ QStringLiteral(" KM FW --> SV/GV"), QStringLiteral("VK_FW_SVGV") };
    TGSResult s5{ QStringLiteral("KM SV/GV --> KT"), QStringLiteral("VK_SVGV_KT") };

    // Computes the three legs and the two kilometre amounts into s1..s5. Throws
    // kx::OverflowError when the billed minutes leave the 32-bit range.
    void CalcGebuhren(QString ScheduleId, QString Event, int32_t Days, int32_t Hours, int32_t Minutes, double Quantity,
                      double Kilometres);

private:
    void FormCreate();
};

extern KXCOMMON_CORE_EXPORT QPointer<TGSCommonForm> GSCommonForm;

// The legs "FWA --> FW", "FW --> SV/GV", "SV/GV --> KT" of an operation, without kilometres.
KXCOMMON_CORE_EXPORT bool CalcGebuhren(QString ScheduleId, QString Event, int32_t Days, int32_t Hours, int32_t Minutes, double Quantity,
                  double &CostFwaFw, double &CostFwSvgv, double &CostSvgvKt);
// As above, the second and third leg with their kilometre amounts.
KXCOMMON_CORE_EXPORT bool CalcGebuhren(QString ScheduleId, QString Event, int32_t Days, int32_t Hours, int32_t Minutes, double Quantity,
                  double Kilometres, double &CostFwaFw, double &CostFwSvgv, double &CostSvgvKt);
