// SPDX-License-Identifier: LGPL-2.1-or-later
#include "inifile.h"

#include "kxerror.h"
#include "strtools.h"
#include "textfile.h"

#include <QFile>
#include <QSaveFile>
#include <QStringDecoder>
#include <QStringEncoder>

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

// The lines of a text or byte buffer without their line ends (CRLF, LF or CR); the first line
// end met, and whether the buffer ends in one.
template<class Buffer>
QList<Buffer> splitLines(const Buffer &buffer, QByteArray &lineEnd, bool &endsInLineEnd)
{
    QList<Buffer> lines;
    bool found = false;
    qsizetype start = 0;
    for (qsizetype i = 0; i < buffer.size(); ++i) {
        const auto c = buffer.at(i);
        if (c != u'\n' && c != u'\r')
            continue;
        const bool crlf = c == u'\r' && i + 1 < buffer.size() && buffer.at(i + 1) == u'\n';
        if (!found) {
            lineEnd = crlf ? "\r\n" : c == u'\r' ? "\r" : "\n";
            found = true;
        }
        lines << buffer.mid(start, i - start);
        i += crlf ? 1 : 0;
        start = i + 1;
    }
    endsInLineEnd = start == buffer.size();
    if (!endsInLineEnd)
        lines << buffer.mid(start);
    return lines;
}

} // namespace

TCIniFile::TCIniFile(const QString &fileName)
    : m_fileName(fileName)
{
    QFile file(fileName);
    // No file configured reads as an empty one, like a file that is not there.
    if (fileName.isEmpty() || !file.open(QIODevice::ReadOnly))
        return;
    QByteArray bytes = file.readAll();
    if (bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF")) {
        m_encoding = bytes.startsWith("\xFF\xFE") ? Encoding::Utf16LE : Encoding::Utf16BE;
        QStringDecoder decoder(m_encoding == Encoding::Utf16LE ? QStringConverter::Utf16LE : QStringConverter::Utf16BE);
        m_lines = splitLines(QString(decoder.decode(bytes.mid(2))), m_lineEnd, m_endsInLineEnd);
        m_bytes.resize(m_lines.size());
        return;
    }
    if (bytes.startsWith("\xEF\xBB\xBF")) {
        m_encoding = Encoding::Utf8Mark;
        bytes.remove(0, 3);
    }
    for (const QByteArray &line : splitLines(bytes, m_lineEnd, m_endsInLineEnd)) {
        const bool utf8 = kx::isValidUtf8(line);
        if (!utf8 && m_encoding == Encoding::Utf8)
            m_encoding = Encoding::Windows1252;
        m_lines << (utf8 ? QString::fromUtf8(line) : kx::fromWindows1252(line));
        m_bytes << line;
    }
}

void TCIniFile::setLine(qsizetype index, const QString &line)
{
    m_lines[index] = line;
    m_bytes[index].reset();
}

void TCIniFile::insertLine(qsizetype index, const QString &line)
{
    m_lines.insert(index, line);
    m_bytes.insert(index, std::nullopt);
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
            insertLine(m_lines.size(), QString());
        insertLine(m_lines.size(), u'[' + section + u']');
        sectionLine = m_lines.size() - 1;
    }
    const qsizetype keyLine = findKey(sectionLine, key);
    if (keyLine >= 0) {
        // The key keeps the spelling it has in the file.
        const QString &line = m_lines[keyLine];
        setLine(keyLine, line.left(line.indexOf(u'=')).trimmed() + u'=' + value);
    } else {
        qsizetype insertAt = sectionEnd(sectionLine);
        while (insertAt > sectionLine + 1 && m_lines[insertAt - 1].trimmed().isEmpty())
            --insertAt; // before the blank lines that separate sections
        insertLine(insertAt, key + u'=' + value);
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
    const auto encode = [this](const QString &text) -> QByteArray {
        switch (m_encoding) {
        case Encoding::Utf16LE:
            return QStringEncoder(QStringConverter::Utf16LE).encode(text);
        case Encoding::Utf16BE:
            return QStringEncoder(QStringConverter::Utf16BE).encode(text);
        case Encoding::Windows1252:
            return kx::toWindows1252(text);
        default:
            return text.toUtf8();
        }
    };
    QByteArray bytes = m_encoding == Encoding::Utf8Mark ? QByteArray("\xEF\xBB\xBF")
        : m_encoding == Encoding::Utf16LE             ? QByteArray("\xFF\xFE")
        : m_encoding == Encoding::Utf16BE             ? QByteArray("\xFE\xFF")
                                                      : QByteArray();
    const QByteArray lineEnd = encode(QString::fromLatin1(m_lineEnd));
    for (qsizetype i = 0; i < m_lines.size(); ++i) {
        bytes += m_bytes[i] ? *m_bytes[i] : encode(m_lines[i]);
        if (i + 1 < m_lines.size() || m_endsInLineEnd)
            bytes += lineEnd;
    }
    QSaveFile file(m_fileName);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        throw kx::Error(u"Die Einstellungsdatei \"%1\" lässt sich nicht schreiben: %2"_s.arg(m_fileName, file.errorString()));
}
