// SPDX-License-Identifier: LGPL-2.1-or-later
#include "textfile.h"

#include "kxerror.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kx {

namespace {

// 0x80-0x9F of Windows-1252; the five places the code page leaves open keep their Latin-1 value.
constexpr char16_t windows1252High[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

constexpr qint64 chunkSize = 1 << 16;

// Takes the next line out of Buffer from Position on, without its line end (CRLF, LF or CR);
// Searched keeps how far the search got, so a long line is searched once. Without a line end the
// rest is a line only at the end of the file. A CR that ends the buffer waits for more: an LF may
// follow.
template<class Buffer>
bool takeLine(const Buffer &buffer, qsizetype &position, qsizetype &searched, bool atEnd, Buffer &line)
{
    for (qsizetype i = std::max(position, searched); i < buffer.size(); ++i) {
        const auto c = buffer.at(i);
        if (c != u'\n' && c != u'\r')
            continue;
        if (c == u'\r' && i + 1 == buffer.size() && !atEnd) {
            searched = i;
            return false;
        }
        line = buffer.mid(position, i - position);
        position = i + (c == u'\r' && i + 1 < buffer.size() && buffer.at(i + 1) == u'\n' ? 2 : 1);
        searched = position;
        return true;
    }
    searched = buffer.size();
    if (!atEnd || position >= buffer.size())
        return false;
    line = buffer.mid(position);
    position = searched = buffer.size();
    return true;
}

// Drops what was taken from the front of Buffer once it is the larger part.
template<class Buffer>
void compact(Buffer &buffer, qsizetype &position, qsizetype &searched)
{
    if (position > 0 && position * 2 >= buffer.size()) {
        buffer.remove(0, position);
        searched -= position;
        position = 0;
    }
}

} // namespace

bool isValidUtf8(const QByteArray &bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringConverter::Flag::Stateless);
    const QString text = decoder.decode(bytes); // the view converts only when read
    Q_UNUSED(text);
    return !decoder.hasError();
}

QByteArray toWindows1252(const QString &text)
{
    QByteArray bytes(text.size(), Qt::Uninitialized);
    char *out = bytes.data();
    for (const QChar c : text) {
        const char16_t u = c.unicode();
        char byte = '?';
        if (u < 0x80 || (u >= 0xA0 && u <= 0xFF)) {
            byte = char(u);
        } else {
            for (int i = 0; i < 32; ++i)
                if (windows1252High[i] == u)
                    byte = char(0x80 + i);
        }
        *out++ = byte;
    }
    return bytes;
}

QString fromWindows1252(const QByteArray &bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    QChar *out = text.data();
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        *out++ = QChar(byte >= 0x80 && byte < 0xA0 ? windows1252High[byte - 0x80] : char16_t(byte));
    }
    return text;
}

TextLineReader::TextLineReader(const QString &fileName)
{
    if (QFileInfo(fileName).isDir())
        throw Error(u"\"%1\" ist ein Ordner, keine Datei."_s.arg(fileName));
    m_file.setFileName(fileName);
    if (!m_file.open(QIODevice::ReadOnly))
        throw Error(u"Die Datei \"%1\" kann nicht gelesen werden: %2"_s.arg(fileName, m_file.errorString()));
    const QByteArray start = m_file.peek(3);
    if (start.startsWith("\xEF\xBB\xBF")) {
        m_file.skip(3);
    } else if (start.startsWith("\xFF\xFE") || start.startsWith("\xFE\xFF")) {
        m_form = Form::Utf16;
        m_decoder.emplace(start.startsWith("\xFF\xFE") ? QStringConverter::Utf16LE : QStringConverter::Utf16BE);
        m_file.skip(2);
    }
}

bool TextLineReader::fill()
{
    const QByteArray chunk = m_file.read(chunkSize);
    if (chunk.isEmpty()) {
        m_atEnd = true; // deliberate: an odd last byte of a UTF-16 file is no character and is dropped
        return false;
    }
    if (m_form == Form::Utf16)
        m_text += m_decoder->decode(chunk);
    else
        m_bytes += chunk;
    return true;
}

bool TextLineReader::next()
{
    for (;;) {
        const bool taken = m_form == Form::Utf16 ? takeLine(m_text, m_position, m_searched, m_atEnd, m_lineText)
                                                 : takeLine(m_bytes, m_position, m_searched, m_atEnd, m_lineBytes);
        if (taken) {
            if (m_form == Form::Utf16)
                compact(m_text, m_position, m_searched);
            else
                compact(m_bytes, m_position, m_searched);
            return true;
        }
        if (m_atEnd)
            return false;
        fill();
    }
}

bool TextLineReader::readLine(QString &line)
{
    if (!next())
        return false;
    if (m_form == Form::Utf16) {
        line = m_lineText;
        line.remove(QChar(u'\0'));
    } else {
        m_lineBytes.replace('\0', QByteArray());
        line = isValidUtf8(m_lineBytes) ? QString::fromUtf8(m_lineBytes) : fromWindows1252(m_lineBytes);
    }
    return true;
}

TextLineReader::Facts TextLineReader::scan(const QString &fileName)
{
    TextLineReader reader(fileName);
    Facts facts;
    while (reader.next())
        ++facts.lines;
    return facts;
}

} // namespace kx
