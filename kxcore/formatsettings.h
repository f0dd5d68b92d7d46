#pragma once

#include <QString>

class QSettings;

// The one set of format settings for user-facing dates and numbers (never for SQL literals).
struct TCFormatSettings
{
    QString ShortDateFormat;  // Qt pattern, e.g. "dd.MM.yyyy"
    QString LongTimeFormat;   // e.g. "hh:mm:ss"
    QChar DecimalSeparator;
    QChar ThousandSeparator;

    static TCFormatSettings german();
    static TCFormatSettings english();
};

TCFormatSettings &FormatSettings();
// Reads overrides from the section [Format] (keys ShortDateFormat, LongTimeFormat,
// DecimalSeparator, ThousandSeparator); missing keys keep their values.
void loadFormatSettings(QSettings &settings);
