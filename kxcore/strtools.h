// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include <QString>
#include <QStringList>

// "1", "-1", "T", "TRUE", "J", "JA", "Y", "YES", "WAHR" (any case) read as true; all else false.
KXCOMMON_CORE_EXPORT bool hStrToBool(const QString &text);
// The integer of the text, or Default when it does not read as one.
KXCOMMON_CORE_EXPORT int hStrToInt(const QString &text, int defaultValue = 0);
// The number of a text in the user's format settings, or Default when it does not read as one
// (the empty text included).
KXCOMMON_CORE_EXPORT double StrToFloatDef(const QString &text, double defaultValue);
// The N-th (1-based) part of Text between Separators; empty beyond the last part.
KXCOMMON_CORE_EXPORT QString GetNthString(const QString &text, int n, QChar separator = u';');
// The full path of a file found in cSearchPathList (in order), or the name itself when it is
// an existing path; empty when it is found nowhere.
KXCOMMON_CORE_EXPORT QString GetFileFromSearchPath(const QString &fileName);

namespace kx {
// The Position-th character (1-based) of Text; kx::RangeError when the text is shorter.
KXCOMMON_CORE_EXPORT QChar charAt(const QString &text, int position);
// The whole number of a decimal text (blanks around it and a sign allowed), in 32 bits;
// kx::ConvertError otherwise.
KXCOMMON_CORE_EXPORT int strToInt(const QString &text);
// As strToInt, in 64 bits: document and module numbers (Numeric(10,0) and wider).
KXCOMMON_CORE_EXPORT qint64 strToInt64(const QString &text);
} // namespace kx

namespace kx {

// "NAME=value" lines as a string list's Values keeps them: a value is found by its name
// (compared without regard to case), the first "=" separates name and value.
class KXCOMMON_CORE_EXPORT NameValues
{
public:
    NameValues() = default;
    explicit NameValues(QStringList lines)
        : m_lines(std::move(lines))
    {
    }
    int Count() const { return int(m_lines.size()); }
    QString Name(int index) const { return m_lines.at(index).section(u'=', 0, 0); }
    QString ValueAt(int index) const { return m_lines.at(index).section(u'=', 1); }
    // The value of the name; empty when there is none.
    QString Value(const QString &name) const;
    bool Contains(const QString &name) const { return indexOf(name) >= 0; }
    // Replaces the value where the name stands, or adds the line at the end.
    void SetValue(const QString &name, const QString &value);
    void Delete(int index) { m_lines.removeAt(index); }
    const QStringList &Lines() const { return m_lines; }

private:
    int indexOf(const QString &name) const;
    QStringList m_lines;
};

} // namespace kx

