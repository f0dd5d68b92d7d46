// SPDX-License-Identifier: LGPL-2.1-or-later
// The import run on each product: the statements it sends, the rows that result, the questions
// and messages in their order, and where the run goes on or ends.
#include "dataaccess.h"
#include "importcommon.h"
#include "kxerror.h"
#include "log.h"
#include "property.h"
#include "scriptedmessages.h"
#include "scratchfiles.h"
#include "sqltool.h"
#include "goldentrace.h"
#include "testdatabase.h"

#include <QProcess>
#include <QRegularExpression>
#include <QThread>
#include <random>

using namespace Qt::StringLiterals;
using kxtest::rows;
using kxtest::ScriptedMessages;

namespace {

const QString ask1 = u"Daten wirklich importieren?"_s;
const QString ask2 = u"Wollen Sie die bisherigen Daten leeren?"_s;
const QString ask3 = u"Sind Sie sich wirklich sicher?"_s;
const QString done = u"Daten wurden importiert."_s;

class ImportRunTest : public kxtest::DatabaseTest
{
protected:
    void prepare() override
    {
        TCFieldDef counter(u"LFD"_s, u"Numeric(10,0)"_s, fGenerator);
        counter.GeneratorMin = 100;
        main = new TCDataAccess({ u"IMP_MAIN"_s,
                                  { { u"ID"_s, u"Varchar(43)"_s, fUniqueIndex },
                                    { u"NR"_s, u"VarChar(10)"_s, fIndex },
                                    { u"NAME"_s, u"VarChar(5)"_s, 0, u"Name"_s },
                                    { u"BETRAG"_s, u"Numeric(15,2)"_s },
                                    { u"DATUM"_s, u"Date"_s },
                                    { u"MANDANTID"_s, u"VarChar(43)"_s },
                                    { u"EINHEIT"_s, u"VarChar(50)"_s },
                                    counter,
                                    { u"NOTIZ"_s, u"BLOB SUB_TYPE TEXT"_s } } },
                                nullptr);
        child = new TCDataAccess({ u"IMP_POS"_s,
                                   { { u"ID"_s, u"Varchar(43)"_s, fUniqueIndex },
                                     { u"IDPARENT"_s, u"Varchar(43)"_s, fIndex },
                                     { u"TEXT"_s, u"VarChar(20)"_s } } },
                                 main);
        main->DataAccessChilds.Add(child);
        // Without a generator or a child table: where the product's client can, its lines are
        // sent ahead in groups.
        plain = new TCDataAccess({ u"IMP_PLAIN"_s,
                                   { { u"ID"_s, u"Varchar(43)"_s, fUniqueIndex },
                                     { u"NR"_s, u"VarChar(10)"_s, fIndex },
                                     { u"NAME"_s, u"VarChar(5)"_s, 0, u"Name"_s },
                                     { u"BETRAG"_s, u"Numeric(15,2)"_s },
                                     { u"DATUM"_s, u"Date"_s },
                                     { u"NOTIZ"_s, u"BLOB SUB_TYPE TEXT"_s } } },
                                 nullptr);
        for (TCDataAccess *access : { main, child, plain }) {
            access->Connection = compSqlConnection;
            access->AlterOrCreateTable();
        }
    }
    void TearDown() override
    {
        delete main;
        delete plain;
        kxtest::DatabaseTest::TearDown();
    }

    QString writeFile(const QByteArray &bytes)
    {
        return kxtest::writeFile(m_scratch.filePath(u"daten%1.csv"_s.arg(++m_files)), bytes);
    }

    // A run over the file with these pairs (caption, column) and key.
    TImportRun run(const QString &file, QList<std::pair<QString, QString>> pairs, const QString &key1 = {},
                   const QString &key2 = {}, TCDataAccess *source = nullptr, int tag = 0)
    {
        pairs.append({ u"_Key1_"_s, key1 });
        pairs.append({ u"_Key2_"_s, key2 });
        return importRunFor(source ? source : main, tag, TImportDefinition{ pairs }, file);
    }

    static QList<ScriptedMessages::Step> questions(int clear, QList<ScriptedMessages::Step> then)
    {
        return QList<ScriptedMessages::Step>{ { ask1, mrYes }, { ask2, clear }, { ask3, mrYes } } + then;
    }
    // Runs the import with the three questions answered (emptying the tables as Clear says), then
    // the messages Then.
    static void execute(TImportRun &r, const QList<ScriptedMessages::Step> &then = { { done } }, int clear = mrNo)
    {
        ScriptedMessages user(questions(clear, then));
        r.Execute();
    }

    TCDataAccess *main = nullptr;
    TCDataAccess *child = nullptr;
    TCDataAccess *plain = nullptr;
    int m_files = 0;
};

const QList<std::pair<QString, QString>> allPairs{ { u"NR.IMP_MAIN"_s, u"1"_s },     { u"Name.IMP_MAIN"_s, u"2"_s },
                                                   { u"BETRAG.IMP_MAIN"_s, u"3"_s }, { u"DATUM.IMP_MAIN"_s, u"4"_s },
                                                   { u"TEXT.IMP_POS"_s, u"5"_s } };

TEST_F(ImportRunTest, GoldenEachValueIsOneUpdateAndTheChildRowComesWithTheFirstValue)
{
    const QString file = writeFile("N1;\"a\"\"b\";12,5;31.12.2026;Teil eins\r\n");
    TImportRun r = run(file, allPairs, u"NR.IMP_MAIN"_s, u"Spalte 1"_s);
    QStringList ids;
    r.OnAfterUpdateRecord = [&ids](QObject *, const QString &id) { ids << id; };
    kx::SqlTraceCapture trace;
    execute(r);
    kxtest::expectGoldenTrace(u"import-one-line"_s, trace.statements());
    EXPECT_EQ(rows(u"select NR, NAME, BETRAG, LFD from IMP_MAIN"_s), QStringList{ u"N1|ab|12,5|100"_s });
    EXPECT_EQ(rows(u"select p.TEXT from IMP_POS p join IMP_MAIN m on m.ID=p.IDPARENT"_s), QStringList{ u"Teil eins"_s });
    ASSERT_EQ(ids.size(), 2);
    EXPECT_EQ(r.summary().RowsInserted, 2);
    EXPECT_EQ(r.summary().LinesRead, 1);
}

TEST_F(ImportRunTest, ValuesAsTheyComeFromOtherPrograms)
{
    kxtest::exec(u"insert into IMP_MAIN (ID, NR, BETRAG) values ('VORHANDEN', 'N1', 7)"_s);
    const QByteArray longField(10000, 'x');
    const QString file = writeFile(QByteArray("N1;neu\n"                         // key found: that row; no NULL
                                              "N2;zulang-abgeschnitten;;kein Datum;\n" // cut, unreadable date
                                              ";\n"                                // only ";": a new empty row
                                              "N3;O'Br\r\n"                        // a quote in a text lands intact
                                              "N'4;x\n"                            // a quote in the key: new row
                                              "N5;a")
                                   + '\0' + "b;;2026-02-03\n" // NUL dropped, ISO date
                                   + "N6;" + longField + "\n");
    TImportRun r = run(file, allPairs, u"NR.IMP_MAIN"_s, u"Spalte 1"_s);
    QStringList ids;
    r.OnAfterUpdateRecord = [&ids](QObject *, const QString &id) { ids << id; };
    execute(r);
    QStringList written = rows(u"select NR, NAME, BETRAG, DATUM from IMP_MAIN"_s);
    written.sort();
    EXPECT_EQ(written,
              (QStringList{ u"N'4|x||"_s, u"N1|neu|7|"_s, u"N2|zulan||"_s, u"N3|O'Br||"_s, u"N5|ab||03.02.2026"_s,
                            u"N6|xxxxx||"_s, u"|||"_s }));
    EXPECT_EQ(rows(u"select ID from IMP_MAIN where NR='N1'"_s), QStringList{ u"VORHANDEN"_s });
    EXPECT_EQ(rows(u"select count(*) from IMP_POS"_s), QStringList{ u"0"_s });
    EXPECT_EQ(ids.count(u"-99"_s), 7); // every line: the child had nothing to write
    EXPECT_EQ(r.summary().RowsUpdated, 1);
    EXPECT_EQ(r.summary().RowsInserted, 6);
}

// Random files against a model of the run: a line whose key is in the table (also from an earlier
// line) writes that row, any other line adds one; an empty value writes nothing, a text is cut to
// its column with its quotes kept, an amount lands to the cent.
TEST_F(ImportRunTest, RandomFilesLandAsTheModelSays)
{
    const int cases = kxtest::product() == u"firebird"_s ? 15 : 40;
    EXPECT_TRUE(kxtest::propertyHolds("random files against the run's model", cases, [&] {
        TCDataAccess *access = *rc::gen::elementOf(std::vector{ main, plain });
        const QString &table = access->Tablename;
        const QList<std::pair<QString, QString>> pairs{ { u"NR."_s + table, u"1"_s }, { u"Name."_s + table, u"2"_s },
                                                        { u"BETRAG."_s + table, u"3"_s } };
        kxtest::exec(u"delete from "_s + table);
        std::map<QString, std::pair<QString, qint64>> model; // key: name, cents (-1: none)
        QByteArray file;
        for (int line = *rc::gen::inRange(1, 12); line > 0; --line) {
            const QString key = u"K"_s + QString::number(*rc::gen::inRange(0, 5));
            const QString name = QString::fromStdString(*rc::gen::container<std::string>(rc::gen::elementOf(std::string("ab'xy"))));
            const qint64 cents = *rc::gen::arbitrary<bool>() ? *rc::gen::inRange(0, 10000000) : -1;
            const QString amount = cents < 0 ? QString() : u"%1,%2"_s.arg(cents / 100).arg(cents % 100, 2, 10, QChar(u'0'));
            file += (key + u';' + name + u';' + amount + u'\n').toUtf8();
            auto row = model.try_emplace(key, QString(), -1).first;
            if (!name.isEmpty())
                row->second.first = name.left(5);
            if (cents >= 0)
                row->second.second = cents;
        }
        TImportRun r = run(writeFile(file), pairs, u"NR."_s + table, u"Spalte 1"_s, access);
        r.Batch.Lines = *rc::gen::inRange(0, 6); // 0: statement by statement
        execute(r);
        QStringList expected, written;
        for (const auto &[key, row] : model)
            expected << key + u'|' + row.first + u'|' + QString::number(row.second);
        for (const auto &row : kxtest::exec(u"select NR, NAME, BETRAG from "_s + table + u" order by NR"_s).rows)
            written << row.value(0).toString() + u'|' + row.value(1).toString() + u'|'
                    + QString::number(row.value(2).isNull() ? -1 : qRound64(row.value(2).toDouble() * 100));
        RC_ASSERT(written == expected);
    }));
}

TEST_F(ImportRunTest, KeysDecideBetweenNewAndExistingRows)
{
    const QString file = writeFile("K1;eins\nK2;zwei\n");
    const QList<std::pair<QString, QString>> pairs{ { u"NR.IMP_MAIN"_s, u"1"_s }, { u"Name.IMP_MAIN"_s, u"2"_s } };
    for (int i = 0; i < 2; ++i) {
        TImportRun r = run(file, pairs);
        execute(r);
    }
    EXPECT_EQ(rows(u"select count(*) from IMP_MAIN"_s), QStringList{ u"4"_s }) << "without a key every line is new";

    kxtest::exec(u"delete from IMP_MAIN"_s);
    kxtest::exec(u"insert into IMP_MAIN (ID, NR) values ('A', 'K1')"_s);
    kxtest::exec(u"insert into IMP_MAIN (ID, NR) values ('B', 'K1')"_s);
    const QString first = rows(u"Select id from IMP_MAIN\nWhere NR = 'K1'"_s).value(0);
    TImportRun keyed = run(file, pairs, u"NR.IMP_MAIN"_s, u"Spalte 1"_s);
    execute(keyed);
    const QStringList expected = first == u"A"_s ? QStringList{ u"A|eins"_s, u"B|"_s } : QStringList{ u"A|"_s, u"B|eins"_s };
    EXPECT_EQ(rows(u"select ID, NAME from IMP_MAIN where NR='K1' order by ID"_s), expected);
    EXPECT_EQ(rows(u"select count(*) from IMP_MAIN"_s), QStringList{ u"3"_s });
}

TEST_F(ImportRunTest, GoldenQuestionsInTheirOrderAndWhereTheyStop)
{
    kxtest::exec(u"insert into IMP_MAIN (ID, NR) values ('ALT', 'A')"_s);
    kxtest::exec(u"insert into IMP_POS (ID, IDPARENT, TEXT) values ('ALTPOS', 'ALT', 'a')"_s);
    const QString file = writeFile("N1;x\n");
    const QList<std::pair<QString, QString>> pairs{ { u"NR.IMP_MAIN"_s, u"1"_s } };
    const struct {
        QList<ScriptedMessages::Step> steps;
        QString fileName;
        QList<std::pair<QString, QString>> pairs;
    } cases[] = {
        { { { ask1, mrNo } }, file, pairs },
        { { { ask1, mrYes }, { ask2, mrCancel } }, file, pairs },
        { { { ask1, mrYes }, { ask2, mrNo }, { ask3, mrNo } }, file, pairs },
        { { { u"Es wurde noch keine Datei für den Import festgelegt. \r\n Bitte wählen Sie zunächst eine entsprechende "
              u"Datei aus."_s } },
          u"  "_s, pairs },
        { { { u"Die Datei: "_s + m_scratch.filePath(u"fehlt.csv"_s)
              + u"\r\n existiert nicht.\r\n Der Import kann daher nicht durchgeführt werden"_s } },
          m_scratch.filePath(u"fehlt.csv"_s), pairs },
        { { { u"Es wurden noch keine Spalten zugeordnet. \r\n Bitte ordnen Sie mindestens eine Spalte für den Import "
              u"zu."_s } },
          file, {} },
        { questions(mrYes, { { done } }), file, pairs }, // the only one that writes: emptied first
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.steps.last().text.toStdString());
        TImportRun r = run(c.fileName, c.pairs);
        kx::SqlTraceCapture trace;
        {
            ScriptedMessages user(c.steps);
            r.Execute();
        }
        if (&c == std::end(cases) - 1)
            kxtest::expectGoldenTrace(u"import-emptying-first"_s, trace.statements());
        else
            EXPECT_EQ(trace.statements(), QStringList());
    }
    EXPECT_EQ(rows(u"select NR from IMP_MAIN"_s), QStringList{ u"N1"_s });
    EXPECT_EQ(rows(u"select count(*) from IMP_POS"_s), QStringList{ u"0"_s });
}

// A value that does not convert is reported and skipped, the rest of the line lands. A text with
// a quote is cut to its column's length first and stored as it is: the cut never splits the
// doubled quote.
TEST_F(ImportRunTest, AValueThatFailsIsReportedAndTheLineGoesOn)
{
    const QString file = writeFile("N1;abcd'e;x;01.01.2026\n");
    TImportRun r = run(file, allPairs);
    {
        ScriptedMessages user(questions(mrNo, { { u"Beim Import der Zeile: N1;abcd'e;x;01.01.2026;\r\ntrat folgender "
                                                  u"Fehler auf: *"_s },
                                                { done } }));
        r.Execute();
        ASSERT_EQ(user.shown.size(), 5);
        EXPECT_TRUE(user.shown[3].endsWith(u"\r\nKlicken Sie auf OK um den Import fortzuführen."_s));
    }
    EXPECT_EQ(rows(u"select NR, NAME, BETRAG, DATUM from IMP_MAIN"_s), QStringList{ u"N1|abcd'||01.01.2026"_s });
    ASSERT_EQ(r.summary().ColumnErrors.size(), 1);
    EXPECT_EQ(r.summary().ColumnErrors[0].Caption, u"BETRAG.IMP_MAIN"_s);
    EXPECT_EQ(r.summary().ColumnErrors[0].Line, 1);
    const QString text = QString::fromUtf8(kxtest::readFile(logFilePath()));
    EXPECT_EQ(text.count(u"ERROR: TImportCommonForm.StartImportButtonClick.ExecSql for: "_s), 1) << text.toStdString();
}

// A value the database refuses in the middle of a batch (a duplicate in a unique column) is
// reported and undone alone: the rest of its line and the lines after it land.
TEST_F(ImportRunTest, AValueTheDatabaseRefusesFailsAloneInItsBatch)
{
    for (TCDataAccess *access : { main, plain }) {
        const QString &table = access->Tablename;
        SCOPED_TRACE(table.toStdString());
        kxtest::exec(u"create unique index "_s + table + u"_NAME_U on "_s + table + u" (NAME)"_s);
        const QString file = writeFile("N1;a;1,5\nN2;a;2,5\nN3;b;3,5\n");
        TImportRun r = run(file, { { u"NR."_s + table, u"1"_s }, { u"Name."_s + table, u"2"_s }, { u"BETRAG."_s + table, u"3"_s } },
                           u"NR."_s + table, u"Spalte 1"_s, access);
        execute(r, { { u"Beim Import der Zeile: N2;a;2,5;\r\ntrat folgender Fehler auf: *"_s }, { done } });
        EXPECT_EQ(rows(u"select NR, NAME, BETRAG from "_s + table + u" order by NR"_s),
                  (QStringList{ u"N1|a|1,5"_s, u"N2||2,5"_s, u"N3|b|3,5"_s }));
        ASSERT_EQ(r.summary().ColumnErrors.size(), 1);
        EXPECT_EQ(r.summary().ColumnErrors[0].Line, 2);
        EXPECT_EQ(r.summary().RowsInserted, 3);
    }
}

// Each line is written whole or not at all: an error that ends the run keeps the lines before
// it and undoes its own line; the message names the field.
TEST_F(ImportRunTest, AnErrorThatEndsTheRunKeepsWholeLinesOnly)
{
    for (TCDataAccess *access : { main, plain }) {
        const QString &table = access->Tablename;
        const QString file = writeFile("N1;\nN2;Notiz\nN3;\n");
        TImportRun r = run(file, { { u"NR."_s + table, u"1"_s }, { u"NOTIZ."_s + table, u"2"_s } }, {}, {}, access);
        {
            ScriptedMessages user(questions(mrNo, {}));
            EXPECT_TRUE(kxtest::raised<kx::ConvertError>([&] { r.Execute(); }).contains(u"\"NOTIZ."_s + table + u'"'))
                << "a text field without a length ends the run, naming it";
        }
        EXPECT_EQ(rows(u"select NR from "_s + table), QStringList{ u"N1"_s });
        EXPECT_FALSE(r.summary().Finished);
    }
}

// The headless import killed at random moments leaves whole lines only; the same import again
// (keyed) completes the table.
TEST_F(ImportRunTest, AKilledRunLeavesWholeLinesOnly)
{
    std::mt19937 random(7);
    // Lines sent ahead go fast: more of them, so that the kills fall inside the run.
    for (const auto &[table, count] : { std::pair{ u"IMP_MAIN"_s, 3000 }, { u"IMP_PLAIN"_s, 20000 } }) {
        SCOPED_TRACE(table.toStdString());
        QByteArray lines;
        for (int i = 1; i <= count; ++i)
            lines += u"N%1;n%1;%1,5;01.02.2026\n"_s.arg(i).toUtf8();
        const QString file = writeFile(lines);
        const QString definition = kxtest::writeFile(
            m_scratch.filePath(u"def.iDef"_s),
            u"NR.%1=1\r\nName.%1=2\r\nBETRAG.%1=3\r\nDATUM.%1=4\r\n_Key1_=NR.%1\r\n_Key2_=Spalte 1\r\n"_s.arg(table).toUtf8());
        const QStringList call{ u"--db"_s, m_connectionString, u"import"_s, table, file, u"--def"_s, definition, u"--yes"_s };
        const QString halfLines = u"select count(*) from "_s + table + u" where NAME is null or BETRAG is null or DATUM is null"_s;
        for (int attempt = 0; attempt < 3; ++attempt) {
            QProcess program;
            program.start(QString::fromUtf8(KX_CLI_PROGRAM), call);
            ASSERT_TRUE(program.waitForStarted());
            QThread::msleep(std::uniform_int_distribution<int>(50, 1500)(random));
            program.kill();
            program.waitForFinished();
            SCOPED_TRACE("attempt " + std::to_string(attempt) + ", rows " + rows(u"select count(*) from "_s + table).value(0).toStdString());
            EXPECT_EQ(rows(halfLines), QStringList{ u"0"_s });
        }
        QProcess program;
        program.start(QString::fromUtf8(KX_CLI_PROGRAM), call);
        ASSERT_TRUE(program.waitForFinished(300000));
        EXPECT_EQ(program.exitCode(), 0) << program.readAllStandardError().toStdString();
        EXPECT_EQ(rows(u"select count(*), count(distinct NR) from "_s + table), QStringList{ u"%1|%1"_s.arg(count) });
        EXPECT_EQ(rows(halfLines), QStringList{ u"0"_s });
    }
}

// A key field written from another column than the key's: a later line looks for the row as the
// earlier lines left it, also where they go to the database together with it.
TEST_F(ImportRunTest, KeysAsTheLinesBeforeLeftThem)
{
    const QString file = writeFile("K1;K2;eins\nK1;;zwei\nK2;;drei\n");
    const QList<std::pair<QString, QString>> pairs{ { u"NR.IMP_PLAIN"_s, u"2"_s }, { u"Name.IMP_PLAIN"_s, u"3"_s } };
    QStringList traces[2];
    for (const int lines : { 0, 1000 }) { // statement by statement, then in a batch
        kxtest::exec(u"delete from IMP_PLAIN"_s);
        kxtest::exec(u"insert into IMP_PLAIN (ID, NR) values ('A', 'K1')"_s);
        TImportRun r = run(file, pairs, u"NR.IMP_PLAIN"_s, u"Spalte 1"_s, plain);
        r.Batch.Lines = lines;
        kx::SqlTraceCapture trace;
        execute(r);
        EXPECT_EQ(rows(u"select NR, NAME from IMP_PLAIN order by NAME"_s), (QStringList{ u"K2|drei"_s, u"|zwei"_s }));
        EXPECT_EQ(rows(u"select NAME from IMP_PLAIN where ID='A'"_s), QStringList{ u"drei"_s });
        EXPECT_EQ(r.summary().RowsUpdated, 2);
        EXPECT_EQ(r.summary().RowsInserted, 1);
        for (QString sql : trace.statements())
            traces[lines ? 1 : 0] << sql.replace(QRegularExpression(u"[0-9A-F]{32}"_s), u"<key>"_s);
        traces[lines ? 1 : 0].sort();
    }
    EXPECT_EQ(traces[1], traces[0]) << "the same statements, whichever way they go";
}

// A definition that names what the table or the file does not have would add rows where it
// should update them: it is refused before anything is written, naming what it names.
TEST_F(ImportRunTest, DefinitionsThatDoNotFitAreRefused)
{
    const QString file = writeFile("N1;Name\n");
    const struct {
        QList<std::pair<QString, QString>> pairs;
        QString key1, key2, named;
    } cases[] = {
        { { { u"NUMMER.IMP_MAIN"_s, u"1"_s } }, {}, {}, u"\"NUMMER.IMP_MAIN\""_s },
        { { { u"NR.IMP_MAIN"_s, u"erste"_s } }, {}, {}, u"\"erste\""_s },
        { { { u"NR.IMP_MAIN"_s, u"1"_s } }, u"NUMMER.IMP_MAIN"_s, u"Spalte 1"_s, u"\"NUMMER.IMP_MAIN\" (_Key1_)"_s },
        { { { u"NR.IMP_MAIN"_s, u"1"_s } }, u"NR.IMP_MAIN"_s, u"Spalte 3"_s, u"\"Spalte 3\" (_Key2_)"_s },
    };
    for (const auto &c : cases)
        EXPECT_TRUE(kxtest::raised([&] { run(file, c.pairs, c.key1, c.key2); }).contains(c.named)) << c.named.toStdString();
    EXPECT_EQ(rows(u"select count(*) from IMP_MAIN"_s), QStringList{ u"0"_s });
}

TEST_F(ImportRunTest, EventsSeeEveryInsertAndEveryWrittenRow)
{
    const QString file = writeFile("N1;;;;Pos\n");
    TImportRun r = run(file, allPairs);
    QStringList tables;
    r.OnBeforeInsert = [&tables](QObject *, QStringList &fields, QStringList &values) {
        tables << fields.join(u',');
        if (fields.contains(u"LFD"_s)) { // the main table's insert
            fields << u"MANDANTID"_s;
            values << u"'7'"_s;
        }
    };
    execute(r);
    EXPECT_EQ(tables, (QStringList{ u"ID,LFD"_s, u"ID,IDParent"_s }));
    EXPECT_EQ(rows(u"select MANDANTID from IMP_MAIN"_s), QStringList{ u"7"_s });
    EXPECT_EQ(rows(u"select p.TEXT from IMP_POS p join IMP_MAIN m on m.ID=p.IDPARENT"_s), QStringList{ u"Pos"_s });
}

// A hook that reads the row it is given (as the street directory's does) sees the line's values
// and may write to the row; a value refused on such a line is still reported alone.
TEST_F(ImportRunTest, AHookThatReadsItsRowSeesTheLine)
{
    kxtest::exec(u"create unique index IMP_MAIN_NAME_U on IMP_MAIN (NAME)"_s);
    const QString file = writeFile("N1;a\nN2;a\nN3;b\nN4;c\n");
    TImportRun r = run(file, { { u"NR.IMP_MAIN"_s, u"1"_s }, { u"Name.IMP_MAIN"_s, u"2"_s } });
    QStringList seen;
    r.OnAfterUpdateRecord = [&seen](QObject *, const QString &id) {
        seen << compSqlConnection->execute(u"select NR from IMP_MAIN where ID="_s + kx::sqlQuoted(id)).rows.at(0).value(0).toString();
        compSqlConnection->execute(u"update IMP_MAIN set EINHEIT=NR where ID="_s + kx::sqlQuoted(id));
    };
    execute(r, { { u"Beim Import der Zeile: N2;a;\r\ntrat folgender Fehler auf: *"_s }, { done } });
    EXPECT_EQ(rows(u"select NR, NAME, EINHEIT from IMP_MAIN order by NR"_s),
              (QStringList{ u"N1|a|N1"_s, u"N2||N2"_s, u"N3|b|N3"_s, u"N4|c|N4"_s }));
    seen.removeDuplicates();
    EXPECT_EQ(seen, (QStringList{ u"N1"_s, u"N2"_s, u"N3"_s, u"N4"_s }));
}

TEST_F(ImportRunTest, GoldenUnitRecordsGetTheirDisplayNameUnlessTheFileGaveIt)
{
    TCDataAccess units({ u"IMP_UNIT"_s,
                         { { u"ID"_s, u"Varchar(43)"_s }, { u"TYP"_s, u"VarChar(10)"_s }, { u"FUNKRUFNAME"_s, u"VarChar(20)"_s },
                           { u"BUNDESLAND"_s, u"VarChar(5)"_s }, { u"KREIS"_s, u"VarChar(5)"_s },
                           { u"OPTA_KENNZEICHNUNG"_s, u"VarChar(5)"_s }, { u"OPTA_FUNKTIONSZUORDN"_s, u"VarChar(10)"_s },
                           { u"OPTA_FUNKRUFNAME"_s, u"VarChar(20)"_s }, { u"OPTA_BUNDESLAND"_s, u"VarChar(5)"_s },
                           { u"EINHEIT"_s, u"VarChar(50)"_s } } },
                       nullptr);
    units.Connection = compSqlConnection;
    units.AlterOrCreateTable();
    QList<std::pair<QString, QString>> pairs;
    const QStringList names{ u"TYP"_s, u"FUNKRUFNAME"_s, u"BUNDESLAND"_s, u"KREIS"_s, u"OPTA_KENNZEICHNUNG"_s,
                             u"OPTA_FUNKTIONSZUORDN"_s, u"OPTA_FUNKRUFNAME"_s, u"OPTA_BUNDESLAND"_s };
    for (qsizetype i = 0; i < names.size(); ++i)
        pairs.append({ names[i] + u".IMP_UNIT"_s, QString::number(i + 1) });
    const QString file = writeFile("LF;Florian 1;HE;DA\nx;y;z;w;K;ELW;Florian 2;BY\n");
    TImportRun r = run(file, pairs, {}, {}, &units, -99);
    {
        kx::SqlTraceCapture trace;
        execute(r);
        kxtest::expectGoldenTrace(u"import-unit-pass"_s, trace.statements());
    }
    EXPECT_EQ(rows(u"select EINHEIT from IMP_UNIT order by TYP"_s),
              (QStringList{ u"LF Florian 1 (HE-DA)"_s, u"ELW Florian 2 (BY)"_s }));

    pairs.append({ u"EINHEIT.IMP_UNIT"_s, u"9"_s });
    const QString given = writeFile("TLF;Florian 3;HE;GG;;;;;Eigener Name\n");
    TImportRun second = run(given, pairs, {}, {}, &units, -99);
    kx::SqlTraceCapture trace;
    execute(second, { { done } }, mrYes);
    EXPECT_EQ(rows(u"select EINHEIT from IMP_UNIT"_s), QStringList{ u"Eigener Name"_s });
    EXPECT_FALSE(trace.statements().join(u'\n').contains(u"Update IMP_UNIT set \n"_s));
}

// A table the package does not define is read from the catalog, its columns with their types, so
// that numbers and dates convert as they do for the package's own tables.
TEST_F(ImportRunTest, TablesFromTheCatalog)
{
    kxtest::exec(u"create table CATTEST (ID varchar(43), ANZAHL integer, PREIS numeric(10,2), NAME varchar(20), "
                 u"DATUM date)"_s);
    const std::unique_ptr<TCDataAccess> catalog(importTableDefinition(u"CATTEST"_s, nullptr));
    const QString file = writeFile("3;2,50;Äpfel;01.02.2026\n");
    TImportRun r = run(file,
                       { { u"ANZAHL.CATTEST"_s, u"1"_s }, { u"PREIS.CATTEST"_s, u"2"_s }, { u"NAME.CATTEST"_s, u"3"_s },
                         { u"DATUM.CATTEST"_s, u"4"_s } },
                       {}, {}, catalog.get());
    execute(r);
    EXPECT_EQ(rows(u"select ANZAHL, PREIS, NAME, DATUM from CATTEST"_s), QStringList{ u"3|2,5|Äpfel|01.02.2026"_s });
}

} // namespace
