#include "inifile.h"
#include "kxerror.h"
#include "testdatabase.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString writeIni(const QTemporaryDir &dir, const QByteArray &content)
{
    const QString path = dir.filePath(u"kxdb.ini"_s);
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write(content);
    return path;
}

QString readAll(const QString &path)
{
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    return QString::fromUtf8(file.readAll());
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
    EXPECT_EQ(readAll(dir.filePath(u"neu.ini"_s)), u"[A]\nB=1\n"_s);
    TCIniFile unwritable(dir.filePath(u"fehlt/ordner/x.ini"_s));
    EXPECT_THROW(unwritable.WriteString(u"A"_s, u"B"_s, u"C"_s), kx::Error);
}

} // namespace
