#pragma once

#include <QString>

// "1", "-1", "T", "TRUE", "J", "JA", "Y", "YES", "WAHR" (any case) read as true; all else false.
bool hStrToBool(const QString &text);
// The integer of the text, or Default when it does not read as one.
int hStrToInt(const QString &text, int defaultValue = 0);
// The number of a text in the user's format settings, or Default when it does not read as one
// (the empty text included).
double StrToFloatDef(const QString &text, double defaultValue);
// The N-th (1-based) part of Text between Separators; empty beyond the last part.
QString GetNthString(const QString &text, int n, QChar separator = u';');
// The full path of a file found in cSearchPathList (in order), or the name itself when it is
// an existing path; empty when it is found nowhere.
QString GetFileFromSearchPath(const QString &fileName);

namespace kx {
// The Position-th character (1-based) of Text; kx::RangeError when the text is shorter.
QChar charAt(const QString &text, int position);
// The whole number of a decimal text (blanks around it and a sign allowed), in 32 bits;
// kx::ConvertError otherwise.
int strToInt(const QString &text);
} // namespace kx
