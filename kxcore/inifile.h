// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include <QString>
#include <QStringList>
#include <optional>

// A local INI file (such as the one named by cDatabaseIni) with INI semantics: sections and
// keys compare without regard to case, values are trimmed, comments and order survive writes.
// Every write goes to the file at once. The file keeps what other programs gave it: its
// encoding (UTF-8 with or without mark, UTF-16 with mark, or Windows-1252 bytes, read line by
// line as the text reader does), its line ends and whether it ends in one; a line the write does
// not change goes back byte for byte.
class KXCOMMON_CORE_EXPORT TCIniFile
{
public:
    explicit TCIniFile(const QString &fileName);

    QString FileName() const { return m_fileName; }
    QString ReadString(const QString &section, const QString &key, const QString &defaultValue = {}) const;
    int ReadInteger(const QString &section, const QString &key, int defaultValue = 0) const;
    bool ReadBool(const QString &section, const QString &key, bool defaultValue = false) const;
    bool SectionExists(const QString &section) const;
    bool ValueExists(const QString &section, const QString &key) const;
    // The keys of a section, in file order.
    QStringList ReadSection(const QString &section) const;

    // Throws kx::Error when the file cannot be written.
    void WriteString(const QString &section, const QString &key, const QString &value);
    void WriteInteger(const QString &section, const QString &key, int value);
    void WriteBool(const QString &section, const QString &key, bool value);

private:
    // Index of the section's header line, -1 when missing.
    qsizetype findSection(const QString &section) const;
    // Index of the key's line within the section, -1 when missing.
    qsizetype findKey(qsizetype sectionLine, const QString &key) const;
    qsizetype sectionEnd(qsizetype sectionLine) const;
    void save() const;
    void setLine(qsizetype index, const QString &line);
    void insertLine(qsizetype index, const QString &line);

    QString m_fileName;
    QStringList m_lines;
    // Per line the bytes it was read from, empty once it changed; not kept for UTF-16 files.
    QList<std::optional<QByteArray>> m_bytes;
    enum class Encoding { Utf8, Utf8Mark, Utf16LE, Utf16BE, Windows1252 } m_encoding = Encoding::Utf8;
    QByteArray m_lineEnd = "\r\n"; // the file's first line end; CRLF for a new file, as the suite writes
    bool m_endsInLineEnd = true;
};
