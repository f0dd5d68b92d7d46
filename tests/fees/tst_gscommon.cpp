// SPDX-License-Identifier: LGPL-2.1-or-later
// The fee calculation on a schedule of known rows, on each product.
#include "feedata.h"
#include "globals.h"
#include "gscommon.h"
#include "sqlconnection.h"
#include "goldentrace.h"
#include "testdatabase.h"

using namespace Qt::StringLiterals;

namespace {

class GSCommonTest : public kxtest::DatabaseTest
{
protected:
    void prepare() override
    {
        fee_CreateTables();
        fee_AddSchedule(u"Prüfsatzung"_s, u"S"_s);
        fee_AddRounding(u"S"_s, 30, 30, 0);
        fee_AddRounding(u"S"_s, 60, 0, 1);
        const QString brand = fee_AddEvent(u"S"_s, u"BRAND"_s);
        m_costId = fee_AddCosts(brand, { { u"FK_FWA_FW"_s, 10 }, { u"FK_FWA_FW_SZ"_s, 1 }, { u"VK_FWA_FW"_s, 60 },
                                         { u"VK_FW_SVGV"_s, 30 }, { u"VK_SVGV_KT_SZ"_s, 12 }, { u"KM_FW_SVGV"_s, 2 },
                                         { u"KM_SVGV_KT"_s, 0.5 } });
        fee_AddCosts(fee_AddEvent(u"S"_s, u"VORGABE"_s), { { u"VK_FWA_FW"_s, 6 } });
        const QString flat = QString::fromUtf16(FlatSurcharges);
        fee_AddSurcharge(flat, m_costId, 1, 60, { { u"FWA_FW"_s, 3 } });
        fee_AddSurcharge(flat, m_costId, 2, 120, { { u"FW_SVGV"_s, 4 } });
        fee_AddSurcharge(QString::fromUtf16(HourlyBeyond), m_costId, 2, 120, { { u"SVGV_KT"_s, 30 } });
        fee_AddSurcharge(QString::fromUtf16(RateSurcharges), m_costId, 0.5, 30, { { u"FWA_FW_SZ"_s, 1.5 } });
        fee_AddCosts(fee_AddEvent(u"S"_s, u"GENAU"_s), { { u"VK_SVGV_KT"_s, 0.01 } });
        fee_AddEvent(u"S"_s, u"OHNE"_s); // an event without a cost row
        // A schedule without events at all.
        fee_AddSchedule(u"Leer"_s, u"LEER"_s);
    }
    QString m_costId;
};

TEST_F(GSCommonTest, LegsOfAnOperation)
{
    const struct {
        const char *name;
        QString schedule, event;
        int days, hours, minutes;
        double quantity, a, b, c;
    } cases[] = {
        // 1 h 20 min rounds to 90 minutes; the rate of 60 an hour gives 90.
        { "rounded up to the half hour", u"S"_s, u"brand"_s, 0, 1, 20, 0, 11 + 3 + 90 + 1.5, 45, 18 },
        { "minutes on a rounding bound take that row", u"S"_s, u"BRAND"_s, 0, 1, 30, 0, 11 + 3 + 90 + 1.5, 45, 18 },
        { "45 minutes become one more hour", u"S"_s, u"BRAND"_s, 0, 0, 45, 0, 11 + 60 + 1.5, 30, 12 },
        // The VKNach row at 120 minutes adds 30 / 60 x (180 - 120) = 30 to 180 minutes.
        { "graded extra beyond 120 minutes", u"S"_s, u"Brand"_s, 0, 3, 0, 0, 11 + 3 + 180 + 1.5, 4 + 90, 36 + 30 },
        { "minutes beyond every rounding row stay", u"S"_s, u"BRAND"_s, 0, 0, 75, 0, 11 + 3 + 75 + 1.5, 37.5, 15 },
        { "a threshold equal to the billed value does not apply", u"S"_s, u"BRAND"_s, 0, 2, 0, 0, 11 + 3 + 120 + 1.5,
          60, 24 },
        { "days count 24 hours", u"S"_s, u"BRAND"_s, 1, 0, 0, 0, 11 + 3 + 1440 + 1.5, 4 + 720, 288 + 660 },
        // A quantity is billed hours: divisor 1, thresholds on Anzahl, no rounding.
        { "quantity of 2.5 hours", u"S"_s, u"brand"_s, 0, 1, 20, 2.5, 11 + 3 + 150 + 1.5, 4 + 75, 30 + 15 },
        { "unknown event takes VORGABE", u"S"_s, u"Übung"_s, 0, 1, 0, 0, 6, 0, 0 },
        { "an event without a cost row bills nothing", u"S"_s, u"ohne"_s, 0, 1, 0, 0, 0, 0, 0 },
        { "no event and no VORGABE", u"LEER"_s, u"BRAND"_s, 0, 1, 0, 0, 0, 0, 0 },
        { "no schedule", QString(), u"BRAND"_s, 0, 1, 0, 0, 0, 0, 0 },
        // Quotes are texts: a built event is no event (VORGABE), a built schedule no schedule.
        { "an event built to match every event", u"S"_s, u"X') or ('1'='1"_s, 0, 1, 0, 0, 6, 0, 0 },
        { "a schedule built to match every schedule", u"X' or '1'='1"_s, u"BRAND"_s, 0, 1, 0, 0, 0, 0, 0 },
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        double a = -1, b = -1, cc = -1;
        EXPECT_TRUE(CalcGebuhren(c.schedule, c.event, c.days, c.hours, c.minutes, c.quantity, a, b, cc));
        // Every amount here is exact in binary: the sums must match to the last bit.
        EXPECT_EQ(a, c.a);
        EXPECT_EQ(b, c.b);
        EXPECT_EQ(cc, c.c);
        // With kilometres the second and third legs carry their kilometre amounts (2 and 0.5 a km).
        const bool hasKm = c.schedule == u"S"_s && c.event.toUpper() == u"BRAND"_s;
        EXPECT_TRUE(CalcGebuhren(c.schedule, c.event, c.days, c.hours, c.minutes, c.quantity, 10, a, b, cc));
        EXPECT_EQ(a, c.a);
        EXPECT_EQ(b, c.b + (hasKm ? 20 : 0));
        EXPECT_EQ(cc, c.c + (hasKm ? 5 : 0));
    }
    EXPECT_TRUE(applicationOwner()->findChildren<TGSCommonForm *>().isEmpty()) << "every call frees its holder";
}

// By minutes, then by quantity with an unknown event (the default, and no rounding table), then
// without a schedule (nothing asked).
TEST_F(GSCommonTest, GoldenStatementTexts)
{
    double a = 0, b = 0, c = 0;
    kx::SqlTraceCapture trace;
    CalcGebuhren(u"S"_s, u"brand"_s, 0, 1, 20, 0, a, b, c);
    CalcGebuhren(u"S"_s, u"xy"_s, 0, 1, 20, 2.5, a, b, c);
    CalcGebuhren(QString(), u"BRAND"_s, 0, 1, 0, 0, a, b, c);
    kxtest::expectGoldenTrace(u"fees-calculation"_s, trace.statements(), { { m_costId, u"<cost row>"_s } });
}

// Each addition is made in extended precision and stored back as a double, in the schedule's
// order: the cost row's two columns, the flat surcharges from the highest threshold down, then
// the hourly rates. Amounts of very different size make any other order or rounding show.
TEST_F(GSCommonTest, SumsInTheScheduleOrder)
{
    // 0.01 an hour for 75 minutes: 0.01 / 60 x 75 is 0.012499999999999999 in double arithmetic and
    // 0.0125 when the term is formed in extended precision and stored back once.
    const double doubleOnly = 0.01 / 60 * 75;
    const double extended = double(0.01L / 60 * 75);
    ASSERT_NE(doubleOnly, extended);
    double a = 0, b = 0, c = 0;
    CalcGebuhren(u"S"_s, u"GENAU"_s, 0, 0, 75, 0, a, b, c);
    EXPECT_EQ(c, extended);

    // Two cents before an amount of 1.5e14 (a grid of 1/32) lift it by one step; after it they vanish.
    // Near 2^40 the grid changes, so the order of the flat surcharge rows shows in the last bits.
    const QString costs = fee_AddCosts(fee_AddEvent(u"S"_s, u"FOLGE"_s),
                                       { { u"FK_FWA_FW"_s, 0.01 }, { u"FK_FWA_FW_SZ"_s, 0.01 },
                                         { u"VK_FWA_FW"_s, 1000000000 }, { u"FK_SVGV_KT"_s, 1099511627775.93 } });
    const QString flat = QString::fromUtf16(FlatSurcharges);
    fee_AddSurcharge(flat, costs, 0, 10, { { u"SVGV_KT"_s, 0.25 } });
    fee_AddSurcharge(flat, costs, 0, 20, { { u"SVGV_KT"_s, 0.01 } });
    const auto stepwise = [](std::initializer_list<long double> terms) {
        double sum = 0;
        for (const long double term : terms)
            sum = double(static_cast<long double>(sum) + term);
        return sum;
    };
    const long double hourly = 1000000000.0L / 60 * 9000000;
    const double first = stepwise({ 0.01, 0.01, hourly });
    ASSERT_NE(first, stepwise({ hourly, 0.01, 0.01 }));
    const double third = stepwise({ 1099511627775.93, 0.01, 0.25 }); // the rows from the highest threshold down
    ASSERT_NE(third, stepwise({ 1099511627775.93, 0.25, 0.01 }));
    CalcGebuhren(u"S"_s, u"FOLGE"_s, 0, 150000, 0, 0, a, b, c);
    EXPECT_EQ(a, first);
    EXPECT_EQ(b, 0.0);
    EXPECT_EQ(c, third);
}

TEST_F(GSCommonTest, BilledMinutesOverflowIsAnError)
{
    // VORGABE bills 6 an hour: the largest durations that fit are billed to the cent.
    const struct {
        int days, hours, minutes;
        double billed; // negative: the minutes overflow
    } cases[] = {
        { 1491308, 0, 0, 214748352 }, // 2,147,483,520 minutes
        { 1491309, 0, 0, -1 },        { 0, 35791394, 0, 214748364 }, { 0, 35791395, 0, -1 },
        { 1491308, 2, 7, -1 }, // 7 minutes round up to 30: past the range
        { -1491309, 0, 0, -1 },
    };
    double a = 0, b = 0, c = 0;
    for (const auto &k : cases) {
        SCOPED_TRACE(std::to_string(k.days) + " " + std::to_string(k.hours));
        if (k.billed < 0) {
            EXPECT_THROW(CalcGebuhren(u"S"_s, u"VORGABE"_s, k.days, k.hours, k.minutes, 0, a, b, c), kx::OverflowError);
        } else {
            CalcGebuhren(u"S"_s, u"VORGABE"_s, k.days, k.hours, k.minutes, 0, a, b, c);
            EXPECT_EQ(a, k.billed);
        }
    }
    // The failed calls left their holders with the owner.
    const auto left = applicationOwner()->findChildren<TGSCommonForm *>();
    EXPECT_EQ(left.size(), 4);
    qDeleteAll(left);
}

} // namespace
