#pragma once

#include <QString>
#include <QStringList>

// A local INI file (such as the one named by cDatabaseIni) with INI semantics: sections and
// keys compare without regard to case, values are trimmed, comments and order survive writes.
// Every write goes to the file at once.
class TCIniFile
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

    QString m_fileName;
    QStringList m_lines;
};
