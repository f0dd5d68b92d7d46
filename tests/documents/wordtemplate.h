// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// A word-processor template for the merge tests, and reading a part of the documents made.
#include <QByteArray>
#include <QList>
#include <QString>
#include <gtest/gtest.h>
#include <quazip.h>
#include <quazipfile.h>

// A legacy text form field as a word processor saves it: begin, instruction, separator, the
// shown text (five spaces) and end, each in a run of its own; %1 is its name.
inline const QByteArray standardFormField =
    R"(<w:r><w:fldChar w:fldCharType="begin"><w:ffData><w:name w:val="%1"/><w:enabled/>)"
    R"(<w:textInput/></w:ffData></w:fldChar></w:r><w:r><w:instrText xml:space="preserve"> FORMTEXT )"
    R"(</w:instrText></w:r><w:r><w:fldChar w:fldCharType="separate"/></w:r><w:r><w:t>     </w:t></w:r>)"
    R"(<w:r><w:fldChar w:fldCharType="end"/></w:r>)";

// A zip archive of these entries.
inline void writeZip(const QString &path, const QList<std::pair<QString, QByteArray>> &entries)
{
    QuaZip zip(path);
    ASSERT_TRUE(zip.open(QuaZip::mdCreate));
    for (const auto &[name, data] : entries) {
        QuaZipFile entry(&zip);
        ASSERT_TRUE(entry.open(QIODevice::WriteOnly, QuaZipNewInfo(name)));
        entry.write(data);
        entry.close();
    }
}

// A word-processor template with two form fields, "Name1" and "Ort1", written as Field says.
inline void writeTemplate(const QString &path, const char *contentType, const QByteArray &field = standardFormField)
{
    const QByteArray document =
        R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)"
        R"(<w:document xmlns:w="http://schemas.openxmlformats.org/wordprocessingml/2006/main"><w:body>)"
        R"(<w:p><w:r><w:t xml:space="preserve">Sehr geehrte(r) </w:t></w:r>)"
        + QByteArray(field).replace("%1", "Name1") + R"(</w:p><w:p><w:r><w:t>Wohnort: </w:t></w:r>)"
        + QByteArray(field).replace("%1", "Ort1") + "</w:p></w:body></w:document>";
    writeZip(path, {
        { QStringLiteral("[Content_Types].xml"),
          R"(<?xml version="1.0" encoding="UTF-8"?><Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">)"
          R"(<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>)"
          R"(<Default Extension="xml" ContentType="application/xml"/><Override PartName="/word/document.xml" ContentType=")"
              + QByteArray(contentType) + R"("/></Types>)" },
        { QStringLiteral("_rels/.rels"),
          R"(<?xml version="1.0" encoding="UTF-8"?><Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">)"
          R"(<Relationship Id="rId1" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument" )"
          R"(Target="word/document.xml"/></Relationships>)" },
        { QStringLiteral("word/document.xml"), document },
    });
}

inline QByteArray zipEntry(const QString &path, const QString &name)
{
    QuaZip zip(path);
    zip.open(QuaZip::mdUnzip);
    zip.setCurrentFile(name);
    QuaZipFile entry(&zip);
    entry.open(QIODevice::ReadOnly);
    return entry.readAll();
}

