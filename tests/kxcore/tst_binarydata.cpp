// SPDX-License-Identifier: LGPL-2.1-or-later
// File contents in the database on each product: a file larger than PostgreSQL's one-statement
// limit (32 MiB) in and out byte for byte, streamed (no statement text carries the bytes),
// replaced, small, empty, and missing.
#include "binarydata.h"
#include "sqlconnection.h"
#include "systables.h"
#include "scratchfiles.h"
#include "testdatabase.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {

class BinaryDataTest : public kxtest::DatabaseTest
{
protected:
    void prepare() override
    {
        alterOrCreateTable(systables::BinaryData(), compSqlConnection);
        QDir(m_scratch.path()).mkpath(u"raus"_s);
    }
    QByteArray write(const QString &name, qsizetype size)
    {
        QByteArray bytes(size, Qt::Uninitialized);
        QRandomGenerator random(11);
        random.fillRange(reinterpret_cast<quint32 *>(bytes.data()), size / 4);
        kxtest::writeFile(m_scratch.filePath(name), bytes);
        return bytes;
    }
};

TEST_F(BinaryDataTest, ThirtyThreeMegabytesInAndOutByteForByte)
{
    const QByteArray bytes = write(u"Einsatzbericht.pdf"_s, (33 << 20) + 4);
    kx::SqlTraceCapture trace;
    EXPECT_EQ(SaveBinaryData(u"D1"_s, u"Fahrzeug_Dokumente"_s, u"Dokument"_s, m_scratch.filePath(u"Einsatzbericht.pdf"_s)),
              u"Einsatzbericht.pdf"_s);
    const QString out = m_scratch.filePath(u"raus"_s);
    EXPECT_EQ(ExtractBinaryData(u"D1"_s, u"Fahrzeug_Dokumente"_s, u"Dokument"_s, out), out + u"/Einsatzbericht.pdf"_s);
    EXPECT_TRUE(kxtest::readFile(out + u"/Einsatzbericht.pdf"_s) == bytes) << "the extracted file differs";
    for (const QString &statement : trace.statements())
        EXPECT_LT(statement.size(), 1000) << "the content went into a statement's text";
    EXPECT_EQ(kxtest::rows(u"select DATAMD5, TABLEPARENT, DATAFILTER from BinaryData"_s),
              QStringList{ QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex())
                           + u"|FAHRZEUG_DOKUMENTE|DOKUMENT"_s });
}

TEST_F(BinaryDataTest, ReplacedEmptyAndMissing)
{
    const QByteArray first = write(u"a.jpg"_s, 1000);
    write(u"leer.txt"_s, 0);
    const QString out = m_scratch.filePath(u"raus"_s);
    SaveBinaryData(u"D2"_s, u"Mat_Dokumente"_s, u"DOKUMENT"_s, m_scratch.filePath(u"a.jpg"_s));
    SaveBinaryData(u"D2"_s, u"Mat_Dokumente"_s, u"DOKUMENT"_s, m_scratch.filePath(u"leer.txt"_s)); // replaces
    EXPECT_EQ(kxtest::rows(u"select DATAFILENAME from BinaryData"_s), QStringList{ u"leer.txt"_s });
    const QString empty = ExtractBinaryData(u"D2"_s, u"MAT_DOKUMENTE"_s, u"Dokument"_s, out);
    EXPECT_EQ(empty, out + u"/leer.txt"_s);
    EXPECT_TRUE(QFile::exists(empty) && kxtest::readFile(empty).isEmpty());

    EXPECT_EQ(ExtractBinaryData(u"D3"_s, u"Mat_Dokumente"_s, u"DOKUMENT"_s, out), QString());
    for (const QString &unreadable : { m_scratch.filePath(u"fehlt.pdf"_s), out }) // missing, a folder
        EXPECT_THROW(SaveBinaryData(u"D3"_s, u"Mat_Dokumente"_s, u"DOKUMENT"_s, unreadable), kx::Error);
    EXPECT_EQ(QDir(out).entryList(QDir::Files), QStringList{ u"leer.txt"_s });
}

} // namespace
