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
