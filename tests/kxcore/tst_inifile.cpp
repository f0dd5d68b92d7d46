// SPDX-License-Identifier: LGPL-2.1-or-later
#include "inifile.h"
#include "kxerror.h"
#include "scratchfiles.h"
#include "testdatabase.h"

#include <QStringEncoder>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString writeIni(const QTemporaryDir &dir, const QByteArray &content)
{
    return kxtest::writeFile(dir.filePath(u"kxdb.ini"_s), content);
}

QString readAll(const QString &path)
{
    return QString::fromUtf8(kxtest::readFile(path));
}

TEST(IniFile, ReadsWithoutRegardToCase)
{
    QTemporaryDir dir;
    const QString path = writeIni(dir, "; Arbeitsplatz\r\n[Scanner]\r\nQuelle = Flachbett \r\nDPI=300\r\n\r\n"
                                       "[Symbole]\r\nPfad=C:\\Lage\\Symbole\r\nAktiv=ja\r\n");
    const TCIniFile ini(path);
    const struct {
        QString section, key, expected;
    } cases[] = {
        { u"Scanner"_s, u"Quelle"_s, u"Flachbett"_s }, { u"SCANNER"_s, u"quelle"_s, u"Flachbett"_s },
        { u"symbole"_s, u"PFAD"_s, u"C:\\Lage\\Symbole"_s }, { u"Symbole"_s, u"DPI"_s, u"?"_s },
        { u"Fehlt"_s, u"Quelle"_s, u"?"_s },
    };
    for (const auto &c : cases)
        EXPECT_EQ(ini.ReadString(c.section, c.key, u"?"_s), c.expected) << c.section.toStdString() << '/' << c.key.toStdString();
    EXPECT_EQ(ini.ReadInteger(u"scanner"_s, u"dpi"_s), 300);
    EXPECT_TRUE(ini.ReadBool(u"Symbole"_s, u"Aktiv"_s));
    EXPECT_TRUE(ini.ReadBool(u"Symbole"_s, u"Fehlt"_s, true));
    EXPECT_EQ(ini.ReadSection(u"SCANNER"_s), (QStringList{ u"Quelle"_s, u"DPI"_s }));
}

TEST(IniFile, WritesKeepCommentsOrderAndSpelling)
{
    QTemporaryDir dir;
    const QString path = writeIni(dir, "; Kommentar\n[Scanner]\nQuelle=Flachbett\n\n[Symbole]\nPfad=/lage\n");
    TCIniFile ini(path);
    ini.WriteString(u"SCANNER"_s, u"QUELLE"_s, u"Einzug"_s);
    ini.WriteInteger(u"scanner"_s, u"DPI"_s, 600);
    ini.WriteString(u"Neu"_s, u"Straße"_s, u"Ölweg 1"_s);
    EXPECT_EQ(readAll(path), u"; Kommentar\n[Scanner]\nQuelle=Einzug\nDPI=600\n\n[Symbole]\nPfad=/lage\n\n[Neu]\nStraße=Ölweg 1\n"_s);
    EXPECT_EQ(TCIniFile(path).ReadString(u"neu"_s, u"STRASSE"_s, u"-"_s), u"-"_s); // ß is no SS in keys
    EXPECT_EQ(TCIniFile(path).ReadString(u"neu"_s, u"STRAßE"_s), u"Ölweg 1"_s);
}

TEST(IniFile, MissingFileGivesDefaultsAndIsCreatedOnWrite)
{
    QTemporaryDir dir;
    TCIniFile ini(dir.filePath(u"neu.ini"_s));
    EXPECT_FALSE(ini.SectionExists(u"A"_s));
    EXPECT_EQ(ini.ReadInteger(u"A"_s, u"B"_s, 7), 7);
    ini.WriteBool(u"A"_s, u"B"_s, true);
    EXPECT_EQ(readAll(dir.filePath(u"neu.ini"_s)), u"[A]\r\nB=1\r\n"_s); // as the suite's workstations write
    TCIniFile unwritable(dir.filePath(u"fehlt/ordner/x.ini"_s));
    EXPECT_THROW(unwritable.WriteString(u"A"_s, u"B"_s, u"C"_s), kx::Error);
}

// A write changes the one line it writes: every other byte of the file stays, whatever the
// encoding and line ends other programs gave it; the written line takes the file's encoding.
TEST(IniFile, WritesKeepTheFilesEncodingAndLineEnds)
{
    QTemporaryDir dir;
    const auto utf16 = [](const QString &text, QStringConverter::Encoding e) { return QByteArray(QStringEncoder(e).encode(text)); };
    const struct {
        const char *name;
        QByteArray before, after;
    } cases[] = {
        { "Windows-1252, CRLF", "[Lage]\r\nPfad=C:\\K\xE4rten\r\nDPI=1\r\n", "[Lage]\r\nPfad=C:\\K\xE4rten\r\nDPI=M\xFChle\r\n" },
        { "UTF-8 with mark, LF, no last line end", "\xEF\xBB\xBF[Lage]\nPfad=K\xC3\xA4rten\nDPI=1",
          "\xEF\xBB\xBF[Lage]\nPfad=K\xC3\xA4rten\nDPI=M\xC3\xBChle" },
        { "one Windows-1252 line among UTF-8 lines, CR", "[Lage]\rPfad=K\xC3\xA4rten\rAlt=B\xFCro\rDPI=1\r",
          "[Lage]\rPfad=K\xC3\xA4rten\rAlt=B\xFCro\rDPI=M\xFChle\r" },
        { "UTF-16 LE with mark, CRLF", "\xFF\xFE" + utf16(u"[Lage]\r\nPfad=Kärten\r\nDPI=1\r\n"_s, QStringConverter::Utf16LE),
          "\xFF\xFE" + utf16(u"[Lage]\r\nPfad=Kärten\r\nDPI=Mühle\r\n"_s, QStringConverter::Utf16LE) },
    };
    for (const auto &c : cases) {
        const QString path = writeIni(dir, c.before);
        TCIniFile ini(path);
        EXPECT_EQ(ini.ReadString(u"lage"_s, u"pfad"_s).right(6), u"Kärten"_s) << c.name;
        ini.WriteString(u"Lage"_s, u"DPI"_s, u"Mühle"_s);
        EXPECT_EQ(kxtest::readFile(path).toHex().toStdString(), c.after.toHex().toStdString()) << c.name;
    }
}

} // namespace
