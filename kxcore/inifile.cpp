#include "inifile.h"

#include "kxerror.h"
#include "strtools.h"

#include <QFile>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace {
bool isSectionHeader(const QString &line)
{
    const QString t = line.trimmed();
    return t.startsWith(u'[') && t.endsWith(u']');
}

QString sectionName(const QString &line)
{
    const QString t = line.trimmed();
    return t.mid(1, t.size() - 2).trimmed();
}

bool isComment(const QString &line)
{
    const QString t = line.trimmed();
    return t.isEmpty() || t.startsWith(u';') || t.startsWith(u'#');
}
} // namespace

TCIniFile::TCIniFile(const QString &fileName)
    : m_fileName(fileName)
{
    QFile file(fileName);
    // No file configured reads as an empty one, like a file that is not there.
    if (!fileName.isEmpty() && file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        QString text = QString::fromUtf8(file.readAll());
        if (text.startsWith(QChar(0xFEFF)))
            text.remove(0, 1);
        m_lines = text.split(u'\n');
        if (!m_lines.isEmpty() && m_lines.last().isEmpty())
            m_lines.removeLast();
        for (QString &line : m_lines) {
            if (line.endsWith(u'\r'))
                line.chop(1);
        }
    }
}

qsizetype TCIniFile::findSection(const QString &section) const
{
    for (qsizetype i = 0; i < m_lines.size(); ++i) {
        if (isSectionHeader(m_lines[i]) && sectionName(m_lines[i]).compare(section.trimmed(), Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

qsizetype TCIniFile::sectionEnd(qsizetype sectionLine) const
{
    qsizetype i = sectionLine + 1;
    while (i < m_lines.size() && !isSectionHeader(m_lines[i]))
        ++i;
    return i;
}

qsizetype TCIniFile::findKey(qsizetype sectionLine, const QString &key) const
{
    if (sectionLine < 0)
        return -1;
    const qsizetype end = sectionEnd(sectionLine);
    for (qsizetype i = sectionLine + 1; i < end; ++i) {
        const QString &line = m_lines[i];
        const qsizetype eq = line.indexOf(u'=');
        if (!isComment(line) && eq > 0 && line.left(eq).trimmed().compare(key.trimmed(), Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

QString TCIniFile::ReadString(const QString &section, const QString &key, const QString &defaultValue) const
{
    const qsizetype line = findKey(findSection(section), key);
    if (line < 0)
        return defaultValue;
    return m_lines[line].mid(m_lines[line].indexOf(u'=') + 1).trimmed();
}

int TCIniFile::ReadInteger(const QString &section, const QString &key, int defaultValue) const
{
    return hStrToInt(ReadString(section, key), defaultValue);
}

bool TCIniFile::ReadBool(const QString &section, const QString &key, bool defaultValue) const
{
    if (!ValueExists(section, key))
        return defaultValue;
    return hStrToBool(ReadString(section, key));
}

bool TCIniFile::SectionExists(const QString &section) const
{
    return findSection(section) >= 0;
}

bool TCIniFile::ValueExists(const QString &section, const QString &key) const
{
    return findKey(findSection(section), key) >= 0;
}

QStringList TCIniFile::ReadSection(const QString &section) const
{
    QStringList keys;
    const qsizetype start = findSection(section);
    if (start < 0)
        return keys;
    const qsizetype end = sectionEnd(start);
    for (qsizetype i = start + 1; i < end; ++i) {
        const qsizetype eq = m_lines[i].indexOf(u'=');
        if (!isComment(m_lines[i]) && eq > 0)
            keys << m_lines[i].left(eq).trimmed();
    }
    return keys;
}

void TCIniFile::WriteString(const QString &section, const QString &key, const QString &value)
{
    qsizetype sectionLine = findSection(section);
    if (sectionLine < 0) {
        if (!m_lines.isEmpty() && !m_lines.last().trimmed().isEmpty())
            m_lines << QString();
        m_lines << u'[' + section + u']';
        sectionLine = m_lines.size() - 1;
    }
    const qsizetype keyLine = findKey(sectionLine, key);
    if (keyLine >= 0) {
        // The key keeps the spelling it has in the file.
        const QString &line = m_lines[keyLine];
        m_lines[keyLine] = line.left(line.indexOf(u'=')).trimmed() + u'=' + value;
    } else {
        qsizetype insertAt = sectionEnd(sectionLine);
        while (insertAt > sectionLine + 1 && m_lines[insertAt - 1].trimmed().isEmpty())
            --insertAt; // before the blank lines that separate sections
        m_lines.insert(insertAt, key + u'=' + value);
    }
    save();
}

void TCIniFile::WriteInteger(const QString &section, const QString &key, int value)
{
    WriteString(section, key, QString::number(value));
}

void TCIniFile::WriteBool(const QString &section, const QString &key, bool value)
{
    WriteString(section, key, value ? u"1"_s : u"0"_s);
}

void TCIniFile::save() const
{
    QSaveFile file(m_fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        throw kx::Error(u"Die Einstellungsdatei \"%1\" lässt sich nicht schreiben: %2"_s.arg(m_fileName, file.errorString()));
    file.write((m_lines.join(u'\n') + u'\n').toUtf8());
    if (!file.commit())
        throw kx::Error(u"Die Einstellungsdatei \"%1\" lässt sich nicht schreiben: %2"_s.arg(m_fileName, file.errorString()));
}
