// SPDX-License-Identifier: LGPL-2.1-or-later
#include "formatsettings.h"

#include <QSettings>

using namespace Qt::StringLiterals;

TCFormatSettings TCFormatSettings::german()
{
    // Deliberate: a four-digit year; Qt's own German short format has two.
    return { u"dd.MM.yyyy"_s, u"hh:mm:ss"_s, u',', u'.' };
}

TCFormatSettings TCFormatSettings::english()
{
    return { u"MM/dd/yyyy"_s, u"hh:mm:ss"_s, u'.', u',' };
}

TCFormatSettings &FormatSettings()
{
    static TCFormatSettings settings = TCFormatSettings::german();
    return settings;
}

void loadFormatSettings(QSettings &settings)
{
    TCFormatSettings &f = FormatSettings();
    settings.beginGroup(u"Format"_s);
    f.ShortDateFormat = settings.value(u"ShortDateFormat"_s, f.ShortDateFormat).toString();
    f.LongTimeFormat = settings.value(u"LongTimeFormat"_s, f.LongTimeFormat).toString();
    const QString decimal = settings.value(u"DecimalSeparator"_s).toString();
    if (!decimal.isEmpty())
        f.DecimalSeparator = decimal.at(0);
    const QString thousand = settings.value(u"ThousandSeparator"_s).toString();
    if (!thousand.isEmpty())
        f.ThousandSeparator = thousand.at(0);
    settings.endGroup();
}

namespace kx {

ShortDateLayout shortDateLayout()
{
    ShortDateLayout layout;
    for (const QChar c : FormatSettings().ShortDateFormat) {
        if (c == u'd' || c == u'M' || c == u'y') {
            if (!layout.order.contains(c))
                layout.order += c;
        } else {
            layout.separators += c;
        }
    }
    return layout;
}

QDate dateFromFields(const QString &order, const QStringList &numbers, int year)
{
    if (numbers.size() != order.size())
        return {};
    int day = 0, month = 0;
    for (qsizetype i = 0; i < order.size(); ++i) {
        bool ok = false;
        const int number = numbers.at(i).toInt(&ok);
        if (!ok || numbers.at(i).isEmpty())
            return {};
        if (order.at(i) == u'd')
            day = number;
        else if (order.at(i) == u'M')
            month = number;
        else // two-digit years fall into the window 1950-2049
            year = numbers.at(i).size() <= 2 ? number + (number < 50 ? 2000 : 1900) : number;
    }
    // A date of the databases has a year of four digits: "20234-11-01" is no date to any of them.
    if (year < 1 || year > 9999)
        return {};
    return QDate(year, month, day);
}

QDate strToDate(const QString &text, const QDate &today)
{
    ShortDateLayout layout = shortDateLayout();
    if (layout.order.size() != 3)
        return {};

    QStringList numbers;
    bool separated = true;
    for (qsizetype i = 0; i < text.size();) {
        const QChar c = text.at(i);
        if (c.isDigit()) {
            if (!separated)
                return {};
            qsizetype j = i;
            while (j < text.size() && text.at(j).isDigit())
                ++j;
            numbers << text.mid(i, j - i).left(9); // nine digits always fit into an int
            separated = false;
            i = j;
        } else if (layout.separators.contains(c)) {
            separated = true;
            ++i;
        } else if (c.isSpace()) {
            ++i; // blanks around numbers and separators are read over
        } else {
            return {};
        }
    }
    if (numbers.size() == 2)
        layout.order.remove(u'y');
    return dateFromFields(layout.order, numbers, today.year());
}

} // namespace kx
