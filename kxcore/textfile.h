// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include <QFile>
#include <QString>
#include <QStringDecoder>
#include <optional>

namespace kx {

// Reads a text file line by line, as files from other programs come. A byte-order mark says
// UTF-8, UTF-16 LE or UTF-16 BE; without one the file is bytes, and each line is read as UTF-8
// when it is valid UTF-8 and as Windows-1252 otherwise, so one line saved in another encoding
// among UTF-8 lines is read right. Lines end in CRLF, LF or CR alone. NUL characters are dropped,
// since no database here stores them alike. Only a line and a piece of the file are held at a
// time, so memory does not grow with the file.
class KXCOMMON_CORE_EXPORT TextLineReader
{
public:
    // Opens the file; throws kx::Error with a German message when it cannot be read (missing,
    // a folder, no permission).
    explicit TextLineReader(const QString &fileName);

    // The next line without its line end; false at the end of the file.
    bool readLine(QString &line);

    // What one pass over the file tells: the number of lines as readLine counts them.
    struct Facts
    {
        qint64 lines = 0;
    };
    static Facts scan(const QString &fileName);

private:
    enum class Form { Bytes, Utf16 };
    // Moves to the next line; false at the end of the file.
    bool next();
    bool fill();

    QFile m_file;
    Form m_form = Form::Bytes;
    std::optional<QStringDecoder> m_decoder; // the UTF-16 forms
    QByteArray m_bytes;                      // read and not yet taken (bytes form)
    QString m_text;                          // decoded and not yet taken (UTF-16 forms)
    qsizetype m_position = 0;                // where the next line begins in the buffer
    qsizetype m_searched = 0;                // how far the buffer was searched for a line end
    bool m_atEnd = false;                    // the file is read to its end
    QByteArray m_lineBytes;                  // the current line (bytes form)
    QString m_lineText;                      // the current line (UTF-16 forms)
};

// The text of bytes in Windows-1252 (0x80-0x9F are the code page's letters and signs, not
// control characters as in Latin-1).
KXCOMMON_CORE_EXPORT QString fromWindows1252(const QByteArray &bytes);
// The text in Windows-1252; a character the code page does not have becomes "?".
KXCOMMON_CORE_EXPORT QByteArray toWindows1252(const QString &text);
KXCOMMON_CORE_EXPORT bool isValidUtf8(const QByteArray &bytes);

} // namespace kx
