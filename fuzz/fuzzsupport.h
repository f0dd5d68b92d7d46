// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// What the fuzz targets share: the input as a scratch file or as text, and a check that stops
// the run (libFuzzer reports it as a crash) where a property of the parser does not hold.
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QTemporaryDir>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace kxfuzz {

// The input written to a file of this process's scratch folder; its path.
inline QString asFile(const uint8_t *data, size_t size, const char *name = "input")
{
    static QTemporaryDir scratch;
    const QString path = scratch.filePath(QString::fromLatin1(name));
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(reinterpret_cast<const char *>(data), qint64(size));
    return path;
}

inline QByteArray asBytes(const uint8_t *data, size_t size)
{
    return QByteArray(reinterpret_cast<const char *>(data), qsizetype(size));
}

// The input as text: UTF-8 where it is, any byte sequence else (invalid bytes become U+FFFD).
inline QString asText(const uint8_t *data, size_t size)
{
    return QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size));
}

#define KXFUZZ_CHECK(condition)                                                                            \
    do {                                                                                                   \
        if (!(condition)) {                                                                                \
            std::fprintf(stderr, "property broken: %s (%s:%d)\n", #condition, __FILE__, __LINE__);          \
            std::abort();                                                                                  \
        }                                                                                                  \
    } while (false)

} // namespace kxfuzz
