#include "textfile.h"

#include "kxerror.h"

#include <QFileInfo>
#include <QStringDecoder>


using namespace Qt::StringLiterals;

namespace kx {

namespace {

// 0x80-0x9F of Windows-1252; the five places the code page leaves open keep their Latin-1 value.
constexpr char16_t windows1252High[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

const QByteArray byteOrderMark("\xEF\xBB\xBF");

// The line's bytes without line end and NUL bytes.
QByteArray trimmedLine(QByteArray bytes)
{
    if (bytes.endsWith('\n'))
        bytes.chop(1);
    if (bytes.endsWith('\r'))
        bytes.chop(1);
    bytes.replace('\0', QByteArray());
    return bytes;
}

bool isUtf8(const QByteArray &bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringConverter::Flag::Stateless);
    const QString text = decoder.decode(bytes); // the view converts only when read
    Q_UNUSED(text);
    return !decoder.hasError();
}

} // namespace

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
    : TextLineReader(fileName, scan(fileName).encoding)
{
}

TextLineReader::TextLineReader(const QString &fileName, Encoding encoding)
    : m_encoding(encoding)
{
    open(fileName);
}

void TextLineReader::open(const QString &fileName)
{
    if (QFileInfo(fileName).isDir())
        throw Error(u"\"%1\" ist ein Ordner, keine Datei."_s.arg(fileName));
    m_file.setFileName(fileName);
    if (!m_file.open(QIODevice::ReadOnly))
        throw Error(u"Die Datei \"%1\" kann nicht gelesen werden: %2"_s.arg(fileName, m_file.errorString()));
}

bool TextLineReader::readLine(QString &line)
{
    if (m_file.atEnd())
        return false;
    QByteArray bytes = trimmedLine(m_file.readLine());
    if (m_atStart) {
        m_atStart = false;
        if (bytes.startsWith(byteOrderMark))
            bytes.remove(0, byteOrderMark.size());
    }
    line = m_encoding == Encoding::Utf8 ? QString::fromUtf8(bytes) : fromWindows1252(bytes);
    return true;
}

TextLineReader::Facts TextLineReader::scan(const QString &fileName)
{
    TextLineReader reader(fileName, Encoding::Utf8);
    Facts facts;
    // A line ends at a LF byte, which never occurs inside a UTF-8 sequence, so each line can be
    // checked on its own.
    while (!reader.m_file.atEnd()) {
        const QByteArray line = reader.m_file.readLine();
        ++facts.lines;
        if (facts.encoding == Encoding::Utf8 && !isUtf8(line))
            facts.encoding = Encoding::Windows1252;
    }
    return facts;
}

} // namespace kx
