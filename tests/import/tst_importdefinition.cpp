// SPDX-License-Identifier: LGPL-2.1-or-later
// The import's field list, the definition file and reading files as they come from Windows.
#include "dataaccess.h"
#include "importcommon.h"
#include "kxerror.h"
#include "scratchfiles.h"
#include "textfile.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(ImportDefinition, FieldListOffersWhatTheUserMayPair)
{
    TCFieldDef counter(u"LFD"_s, u"Numeric(10,0)"_s, fGenerator);
    counter.GeneratorMin = 100;
    TCDataAccess main({ u"Einheiten"_s,
                        { { u"ID"_s, u"Varchar(43)"_s }, { u"Mandantid"_s, u"Varchar(43)"_s },
                          { u"FUNKRUFNAME"_s, u"VarChar(30)"_s, 0, u"Funkrufname"_s }, { u"Einheit"_s, u"VarChar(50)"_s },
                          counter } },
                      nullptr);
    TCDataAccess child({ u"Einheiten_Pos"_s, { { u"ID"_s, u"Varchar(43)"_s }, { u"IDParent"_s, u"Varchar(43)"_s },
                                               { u"Text"_s, u"VarChar(20)"_s } } },
                       nullptr);
    main.DataAccessChilds.Add(nullptr); // an entry without a definition is left out
    main.DataAccessChilds.Add(&child);

    const TImportSetup plain = importSetup(&main, 0);
    QStringList captions;
    for (const TImportField &field : plain.Fields)
        captions << field.Caption;
    EXPECT_EQ(captions, (QStringList{ u"Funkrufname.Einheiten"_s, u"LFD.Einheiten"_s, u"Text.Einheiten_Pos"_s }));
    QStringList mainCaptions; // the key-field choices of the form
    for (const TImportField &field : plain.Fields)
        if (field.SubItems[TImportField::Main] == u"1"_s)
            mainCaptions << field.Caption;
    EXPECT_EQ(mainCaptions, (QStringList{ u"Funkrufname.Einheiten"_s, u"LFD.Einheiten"_s }));
    EXPECT_EQ(plain.TableList, (QList<std::pair<QString, QString>>{ { u"Einheiten"_s, u"TRUE"_s },
                                                                    { u"Einheiten_Pos"_s, u"FALSE"_s } }));
    EXPECT_EQ(importSetup(&main, -99).Fields[1].Caption, u"Einheit.Einheiten"_s);
}

TEST(ImportDefinition, WrittenInListOrderReservedNamesLastEmptyValuesLeaveNoLine)
{
    QTemporaryDir dir;
    QList<TImportField> fields{ { u"Straße.ORTE"_s, { u"3"_s, u"ORTE"_s } },
                                { u"PLZ.ORTE"_s, { QString(), u"ORTE"_s } },
                                { u"ORT.ORTE"_s, { u"1"_s, u"ORTE"_s } } };
    const QString name = dir.filePath(u"orte.iDef"_s);
    importWriteDefinition(name, fields, u"/daten/orte.csv"_s, u"ORT.ORTE"_s, QString());
    EXPECT_EQ(kxtest::readFile(name), QByteArray("Straße.ORTE=3\r\nORT.ORTE=1\r\n_File_=/daten/orte.csv\r\n_Key1_=ORT.ORTE\r\n"));

    const TImportDefinition read = importReadDefinition(name);
    EXPECT_EQ(read.value(u"_file_"_s), u"/daten/orte.csv"_s);
    EXPECT_EQ(read.value(u"_Key2_"_s), QString());
    for (TImportField &field : fields)
        field.SubItems[TImportField::Column] = u"9"_s;
    importApplyDefinition(fields, read);
    EXPECT_EQ(fields[0].SubItems[0], u"3"_s);
    EXPECT_EQ(fields[1].SubItems[0], QString());

    importWriteDefinition(name, {}, {}, {}, {});
    EXPECT_TRUE(importReadDefinition(name).Values.isEmpty());
    EXPECT_THROW(importReadDefinition(dir.filePath(u"fehlt.iDef"_s)), kx::Error);
    EXPECT_THROW(importReadDefinition(dir.path()), kx::Error);
    EXPECT_THROW(importWriteDefinition(dir.path(), {}, u"x"_s, {}, {}), kx::Error);
}

TEST(ImportDefinition, ColumnsAndLinesOfFilesFromWindows)
{
    QTemporaryDir dir;
    const struct {
        QByteArray bytes;
        QStringList columns;
        qint64 lines;
    } cases[] = {
        { "PLZ;\"Ort\";Stra\xDF" "e\r\n1;2;3\r\n", { u"PLZ"_s, u"\"Ort\""_s, u"Straße"_s }, 2 }, // Windows-1252
        { "\xEF\xBB\xBFPLZ;Stra\xC3\x9F" "e\n1;2", { u"PLZ"_s, u"Straße"_s }, 2 },                // UTF-8 with mark
        { "a;b;\n", { u"a"_s, u"b"_s, QString() }, 1 },   // a ";" at the end gives one more, empty column
        { "", { QString() }, 0 },                         // an empty file: one empty column
        { QByteArray("a\0b;c", 5), { u"ab"_s, u"c"_s }, 1 }, // NUL dropped
        { "\xC3\x28;x\n", { u"\u00C3("_s, u"x"_s }, 1 },     // invalid UTF-8: Windows-1252
        { "Stra\xC3\x9F" "e;1\rB\xFC" "ro;2\r\r", { u"Straße"_s, u"1"_s }, 3 }, // CR only; each line its own encoding
        { QByteArray("\xFF\xFE" "6\0" "4\0;\0\xFC\0\r\0\n\0" "1\0", 16), { u"64"_s, u"ü"_s }, 2 }, // UTF-16 LE
        { QByteArray("\xFE\xFF\0" "6\0;\0\xDF\0\r", 10), { u"6"_s, u"ß"_s }, 1 }, // UTF-16 BE, CR only
    };
    for (const auto &c : cases) {
        const QString name = kxtest::writeFile(dir.filePath(u"t.csv"_s), c.bytes);
        EXPECT_EQ(importFileColumns(name), c.columns) << c.bytes.toStdString();
        EXPECT_EQ(kx::TextLineReader::scan(name).lines, c.lines) << c.bytes.toStdString();
    }
    EXPECT_EQ(GetImportField(u"a;  \"x\"\"y\" ;c;"_s, 2), u"xy"_s);
    EXPECT_EQ(GetImportField(u"a;"_s, 4), QString());
    EXPECT_EQ(GetFieldLength(u"VarChar(43)"_s), 43);
    EXPECT_THROW(GetFieldLength(u"BLOB SUB_TYPE 0"_s), kx::ConvertError);
    EXPECT_FALSE(importFileExists(dir.path()));
    EXPECT_EQ(importMissingFileMessage(u"/x.csv"_s),
              u"Die Datei: /x.csv\r\naus der gewählten Importdefinitionsdatei existiert nicht.\r\nDer Import für diese "
              u"Datei kann daher nicht durchgeführt werden.\r\nDie Spaltenzuordnung wurde trotzdem geladen und kann "
              u"verwendet werden."_s);
}

} // namespace
