#pragma once

#include <QFile>
#include <QString>

namespace kx {

// Reads a text file line by line, as files exported on Windows come: UTF-8 (with or without a
// byte-order mark) when the whole file is valid UTF-8, else Windows-1252; lines end in CRLF or
// LF. NUL characters are dropped, since no database here stores them alike. Only one line is
// held at a time, so memory does not grow with the file.
class TextLineReader
{
public:
    enum class Encoding { Utf8, Windows1252 };

    // Opens the file; throws kx::Error with a German message when it cannot be read (missing,
    // a folder, no permission). Without an encoding the file is scanned once to choose it.
    explicit TextLineReader(const QString &fileName);
    TextLineReader(const QString &fileName, Encoding encoding);

    // The next line without its line end; false at the end of the file.
    bool readLine(QString &line);

    Encoding encoding() const { return m_encoding; }

    // What one pass over the file tells: the number of lines as readLine counts them, and
    // whether the whole file is valid UTF-8 (a byte-order mark allowed). Throws like the reader.
    struct Facts
    {
        qint64 lines = 0;
        Encoding encoding = Encoding::Utf8;
    };
    static Facts scan(const QString &fileName);

private:
    void open(const QString &fileName);

    QFile m_file;
    Encoding m_encoding = Encoding::Utf8;
    bool m_atStart = true;
};

// The text of bytes in Windows-1252 (0x80-0x9F are the code page's letters and signs, not
// control characters as in Latin-1).
QString fromWindows1252(const QByteArray &bytes);

} // namespace kx
