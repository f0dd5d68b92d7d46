// SPDX-License-Identifier: LGPL-2.1-or-later
// The date and number converters: any text converts or is refused; a number written back in the
// format settings reads as the same number.
#include "formatsettings.h"
#include "fuzzsupport.h"
#include "kxerror.h"
#include "sqltool.h"
#include "strtools.h"

#include <cmath>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString text = kxfuzz::asText(data, size);
    const QString date = sqlConvertDate(text);
    KXFUZZ_CHECK(date.isEmpty() || QDate::fromString(date, Qt::ISODate).isValid());
    kx::strToDate(text);
    try {
        const double value = kx::parseFloat(text);
        if (std::isfinite(value)) {
            KXFUZZ_CHECK(kx::parseFloat(kx::formatFloat(value)) == value);
            KXFUZZ_CHECK(sqlConvertFloat(text).toDouble() == value);
        }
    } catch (const kx::ConvertError &) {
    }
    hStrToInt(text);
    try {
        kx::strToInt64(text);
        kx::sqlWholeNumber(text, QStringLiteral("Die Zahl"));
    } catch (const kx::ConvertError &) {
    }
    return 0;
}
