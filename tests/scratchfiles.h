// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Files in a scratch folder, for the tests and the benchmarks.
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>

namespace kxtest {

// Writes the bytes to the file, making its folder first; returns the path, or the empty text
// when the file could not be written.
inline QString writeFile(const QString &path, const QByteArray &bytes = {})
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(bytes) != bytes.size())
        return QString();
    return path;
}

// The file's bytes; empty when it cannot be read.
inline QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace kxtest
