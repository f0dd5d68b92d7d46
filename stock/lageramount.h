#pragma once

#include "sqltool.h"

#include <QString>

namespace kx::stock {

// An amount written after a minus sign of an assignment. Deliberate: a negative amount goes in
// parentheses, because "COUNT--3" would begin a comment and the booking would silently vanish.
inline QString afterMinus(double amount)
{
    const QString literal = sqlConvertFloat(amount);
    return amount < 0 ? u'(' + literal + u')' : literal;
}

} // namespace kx::stock
