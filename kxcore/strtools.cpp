// SPDX-License-Identifier: LGPL-2.1-or-later
#include "strtools.h"

#include "globals.h"
#include "kxerror.h"
#include "sqltool.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

bool hStrToBool(const QString &text)
{
    static const QStringList yes{ u"1"_s, u"-1"_s, u"T"_s, u"TRUE"_s, u"J"_s, u"JA"_s, u"Y"_s, u"YES"_s, u"WAHR"_s };
    return yes.contains(text.trimmed().toUpper());
}

int hStrToInt(const QString &text, int defaultValue)
{
    bool ok = false;
    const int value = text.trimmed().toInt(&ok);
    return ok ? value : defaultValue;
}

double StrToFloatDef(const QString &text, double defaultValue)
{
    try {
        return kx::parseFloat(text);
    } catch (const kx::ConvertError &) {
        return defaultValue;
    }
}

QString GetNthString(const QString &text, int n, QChar separator)
{
    if (n < 1)
        return {};
    qsizetype start = 0;
    for (int part = 1; part < n; ++part) {
        const qsizetype next = text.indexOf(separator, start);
        if (next < 0)
            return {};
        start = next + 1;
    }
    const qsizetype end = text.indexOf(separator, start);
    return text.mid(start, end < 0 ? -1 : end - start);
}

QString GetFileFromSearchPath(const QString &fileName)
{
    if (fileName.isEmpty())
        return {};
    const QFileInfo direct(fileName);
    if (direct.isAbsolute())
        return direct.isFile() ? direct.absoluteFilePath() : QString();
    for (const QString &folder : cSearchPathList) {
        if (folder.isEmpty())
            continue;
        // A relative name stays below its search folder: "../../etc/passwd" finds nothing.
        const QString base = QDir::cleanPath(QDir(folder).absolutePath());
        const QString path = QDir::cleanPath(base + u'/' + fileName);
        if (!path.startsWith(base + u'/'))
            continue;
        const QFileInfo candidate(path);
        if (candidate.isFile())
            return candidate.absoluteFilePath();
    }
    return {};
}

namespace kx {

QChar charAt(const QString &text, int position)
{
    if (position < 1 || position > text.size())
        throw RangeError(u"Bereichsüberschreitung: Zeichen %1 von \"%2\" (Länge %3) gibt es nicht."_s
                             .arg(position)
                             .arg(text)
                             .arg(text.size()));
    return text.at(position - 1);
}

qint64 strToInt64(const QString &text)
{
    bool ok = false;
    const qint64 value = text.trimmed().toLongLong(&ok, 10);
    return ok ? value : throw ConvertError(u"'%1' ist kein gültiger ganzzahliger Wert im 64-Bit-Bereich."_s.arg(text));
}

int strToInt(const QString &text)
{
    bool ok = false;
    const int value = text.trimmed().toInt(&ok, 10);
    return ok ? value : throw ConvertError(u"'%1' ist kein gültiger Integerwert."_s.arg(text));
}

} // namespace kx

int kx::NameValues::indexOf(const QString &name) const
{
    for (int i = 0; i < m_lines.size(); ++i)
        if (Name(i).compare(name, Qt::CaseInsensitive) == 0)
            return i;
    return -1;
}

QString kx::NameValues::Value(const QString &name) const
{
    const int index = indexOf(name);
    return index < 0 ? QString() : ValueAt(index);
}

void kx::NameValues::SetValue(const QString &name, const QString &value)
{
    const int index = indexOf(name);
    if (index < 0)
        m_lines << name + u'=' + value;
    else
        m_lines[index] = name + u'=' + value;
}

