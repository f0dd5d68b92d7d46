// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "lagercommon.h"
#include "sqltool.h"

#include <QString>
#include <cmath>

namespace kx::stock {

// An amount of the stock log (Numeric(15,2)) as the column holds it. The first-in-first-out loop
// compares and subtracts such amounts; in binary doubles 1.1 - 0.2 is 0.9000000000000001, which
// is more than a receipt of 0.9 and would send the loop round once more for a phantom 1e-16.
inline double logAmount(double amount)
{
    return std::round(amount * 100) / 100;
}

// An amount written after a minus sign of an assignment. Deliberate: a negative amount goes in
// parentheses, because "COUNT--3" would begin a comment and the booking would silently vanish.
inline QString afterMinus(double amount)
{
    const QString literal = sqlConvertFloat(amount);
    return amount < 0 ? u'(' + literal + u')' : literal;
}

// "Column=Column+amount" or "Column=Column-amount" for a booking: an addition adds the unbooked
// part A - C and a removal takes it away (signed: a reduced line goes back), a reset moves the
// whole line quantity A the other way. Reversed swaps the signs (a batch's issued quantity moves
// against its available one). Empty for an action outside the four.
inline QString bookingAssignment(const QString &column, TCLagerActionType action, double A, double C,
                                 bool reversed = false)
{
    double amount = 0;
    bool plus = true;
    switch (action) {
    case latAdd:
        amount = A - C;
        break;
    case latSub:
        amount = A - C;
        plus = false;
        break;
    case latResetAdd:
        amount = A;
        plus = false;
        break;
    case latResetSub:
        amount = A;
        break;
    default:
        return QString();
    }
    if (reversed)
        plus = !plus;
    return column + u'=' + column + (plus ? u'+' + sqlConvertFloat(amount) : u'-' + afterMinus(amount));
}

} // namespace kx::stock
