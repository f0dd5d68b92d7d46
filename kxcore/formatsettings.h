// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include <QDate>
#include <QString>
#include <QStringList>

class QSettings;

// The one set of format settings for user-facing dates and numbers (never for SQL literals).
struct KXCOMMON_CORE_EXPORT TCFormatSettings
{
    QString ShortDateFormat;  // Qt pattern, e.g. "dd.MM.yyyy"
    QString LongTimeFormat;   // e.g. "hh:mm:ss"
    QChar DecimalSeparator;
    QChar ThousandSeparator;

    static TCFormatSettings german();
    static TCFormatSettings english();
};

KXCOMMON_CORE_EXPORT TCFormatSettings &FormatSettings();
// Reads overrides from the section [Format] (keys ShortDateFormat, LongTimeFormat,
// DecimalSeparator, ThousandSeparator); missing keys keep their values.
KXCOMMON_CORE_EXPORT void loadFormatSettings(QSettings &settings);

namespace kx {

// The short date format's day, month and year letters in their order ("dMy") and its other
// characters in theirs (".." for "dd.MM.yyyy").
struct KXCOMMON_CORE_EXPORT ShortDateLayout
{
    QString order;
    QString separators;
};
KXCOMMON_CORE_EXPORT ShortDateLayout shortDateLayout();
// The date of the number texts, one per letter of Order; a year that Order lacks is Year.
// Two-digit years fall into the window 1950-2049. Invalid when a text is not a number.
KXCOMMON_CORE_EXPORT QDate dateFromFields(const QString &order, const QStringList &numbers, int year);

// A date text read as the short date format gives it: day, month and year in the format's order,
// separated by the format's separators (blanks are read over); a missing year is today's year.
// Anything else, a time part too, gives an invalid date.
KXCOMMON_CORE_EXPORT QDate strToDate(const QString &text, const QDate &today = QDate::currentDate());

} // namespace kx
