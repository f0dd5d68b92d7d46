// SPDX-License-Identifier: LGPL-2.1-or-later
// The import of a file with 6 assigned columns and a key column into a table whose key field is
// indexed: (a) the run against sending the same statement texts straight through the connection
// in transactions of the same size, (b) the cost per line at 100,000 lines against 1,000 lines
// and (c) the peak memory of the headless import (the kxcommon program) at 100,000 lines against
// 1,000 lines; then the batched run against the statement-by-statement run on 100,000 lines
// (import-batch) and against the product's own bulk load of the same file (import-floor).
#include "benchsupport.h"
#include "emptydatabase.h"

#include "dataaccess.h"
#include "importcommon.h"
#include "msgdlg.h"
#include "sqlconnection.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

extern char **environ;

using namespace Qt::StringLiterals;

namespace {

const QString table = u"BENCH_IMP"_s;
const QStringList fieldNames{ u"KEYNR"_s, u"NAME"_s, u"BETRAG"_s, u"DATUM"_s, u"ORT"_s, u"STRASSE"_s };

TCTableDef definition()
{
    return { table,
             { { u"ID"_s, u"Varchar(43)"_s, fUniqueIndex },
               { u"KEYNR"_s, u"VarChar(20)"_s, fIndex },
               { u"NAME"_s, u"VarChar(40)"_s },
               { u"BETRAG"_s, u"Numeric(15,2)"_s },
               { u"DATUM"_s, u"Date"_s },
               { u"ORT"_s, u"VarChar(40)"_s },
               { u"STRASSE"_s, u"VarChar(60)"_s } } };
}

QString writeData(const QString &folder, int lines)
{
    const QString name = folder + u"/daten%1.csv"_s.arg(lines);
    QFile file(name);
    file.open(QIODevice::WriteOnly);
    for (int i = 0; i < lines; ++i)
        file.write(u"K%1;Name %1;%2,50;%3.%4.2026;Ort %5;Straße %1\r\n"_s.arg(i)
                       .arg(i % 1000)
                       .arg(i % 28 + 1, 2, 10, QChar(u'0'))
                       .arg(i % 12 + 1, 2, 10, QChar(u'0'))
                       .arg(i % 97)
                       .toUtf8());
    return name;
}

// Each field paired with its column, the first as the key.
TImportDefinition benchDefinition()
{
    TImportDefinition definition;
    for (qsizetype i = 0; i < fieldNames.size(); ++i)
        definition.Values.append({ fieldNames[i] + u'.' + table, QString::number(i + 1) });
    definition.Values.append({ u"_Key1_"_s, u"KEYNR."_s + table });
    definition.Values.append({ u"_Key2_"_s, u"Spalte 1"_s });
    return definition;
}

QString writeDefinition(const QString &folder)
{
    const QString name = folder + u"/bench.iDef"_s;
    QFile file(name);
    file.open(QIODevice::WriteOnly);
    for (const auto &[key, value] : benchDefinition().Values)
        file.write((key + u'=' + value + u"\r\n"_s).toUtf8());
    return name;
}

void runInProcess(TCDataAccess *access, const QString &file, TImportBatch batch = {})
{
    TImportRun run = importRunFor(access, 0, benchDefinition(), file);
    run.Batch = batch;
    run.Execute();
    if (!run.summary().Finished || !run.summary().ColumnErrors.isEmpty()) {
        QTextStream(stderr) << "BENCH import: the run did not finish cleanly\n";
        std::exit(1);
    }
}

struct ChildRun
{
    double seconds = 0;
    long peakKiB = 0;
};

// The headless import as its users start it: its wall time and its peak resident memory.
ChildRun runProgram(const QString &connection, const QString &file, const QString &definitionFile)
{
    const QList<QByteArray> args{ KX_CLI_PROGRAM, "--db", connection.toUtf8(), "import", table.toUtf8(),
                                  file.toUtf8(), "--def", definitionFile.toUtf8(), "--yes" };
    std::vector<char *> argv;
    for (const QByteArray &arg : args)
        argv.push_back(const_cast<char *>(arg.constData()));
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    ChildRun result;
    pid_t pid = 0;
    int status = 0;
    rusage usage{};
    result.seconds = kxbench::seconds([&] {
        posix_spawn(&pid, KX_CLI_PROGRAM, &actions, nullptr, argv.data(), environ);
        wait4(pid, &status, 0, &usage);
    });
    posix_spawn_file_actions_destroy(&actions);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        QTextStream(stderr) << "BENCH import: kxcommon import failed for " << file << '\n';
        std::exit(1);
    }
    result.peakKiB = usage.ru_maxrss;
    return result;
}

void emptyTable()
{
    compSqlConnection->execute(u"delete from "_s + table);
}

void runTool(const QString &program, const QStringList &arguments, const QByteArray &input = {})
{
    QProcess tool;
    tool.start(program, arguments);
    tool.write(input);
    tool.closeWriteChannel();
    if (!tool.waitForFinished(-1) || tool.exitCode() != 0 || tool.exitStatus() != QProcess::NormalExit) {
        QTextStream(stderr) << "BENCH import-floor: " << program << " failed: " << tool.readAllStandardError() << '\n';
        std::exit(1);
    }
}

// The file loaded by the product's own bulk path into a table of six text columns, in one
// transaction: sqlite3's .import, psql's \copy, and for Firebird an isql script of inserts.
// Returns the seconds the tool ran; the script for Firebird is written before the clock starts.
double bulkLoad(const QString &product, const QString &connection, const QString &file, const QString &folder)
{
    QStringList columns;
    for (int i = 1; i <= 6; ++i)
        columns << u"C%1 Varchar(60)"_s.arg(i);
    compSqlConnection->execute(u"create table BENCH_FLOOR ("_s + columns.join(u", "_s) + u')');
    if (product == u"sqlite"_s) {
        compSqlConnection->Close(); // the tool writes the file alone
        const QByteArray commands = ".mode csv\n.separator ;\n.import '" + file.toUtf8() + "' BENCH_FLOOR\n";
        const double seconds = kxbench::seconds([&] { runTool(u"sqlite3"_s, { connection.mid(7) }, commands); });
        compSqlConnection->Open(connection);
        return seconds;
    }
    const kx::ConnectionParameters p = TCSqlConnection::parseConnectionString(connection);
    if (product == u"postgres"_s) {
        const QString target = u"host=%1 port=%2 user=%3 dbname=%4"_s.arg(p.host).arg(p.port).arg(p.user, p.database);
        return kxbench::seconds([&] {
            runTool(u"psql"_s, { u"-q"_s, target, u"-c"_s,
                                 u"\\copy bench_floor from '%1' with (format csv, delimiter ';')"_s.arg(file) });
        });
    }
    const QString script = folder + u"/floor.sql"_s;
    {
        QFile in(file), out(script);
        in.open(QIODevice::ReadOnly);
        out.open(QIODevice::WriteOnly);
        out.write("SET AUTODDL OFF;\n");
        while (!in.atEnd()) {
            const QList<QByteArray> values = in.readLine().trimmed().split(';');
            QByteArray row = "INSERT INTO BENCH_FLOOR VALUES (";
            for (qsizetype i = 0; i < values.size(); ++i)
                row += (i ? ",'" : "'") + QByteArray(values[i]).replace('\'', "''") + '\'';
            out.write(row + ");\n");
        }
        out.write("COMMIT;\n");
    }
    const QString target = u"%1/%2:%3"_s.arg(p.host).arg(p.port).arg(p.database);
    return kxbench::seconds([&] {
        runTool(u"isql-fb"_s, { u"-q"_s, u"-u"_s, p.user, u"-p"_s, p.password, u"-i"_s, script, target });
    });
}

void runProduct(const QString &product, QTextStream &out)
{
    QTemporaryDir scratch;
    const QString connection = kxbench::openProduct("import", product, scratch.path(), out);
    if (connection.isEmpty())
        return;
    kxtest::emptyDatabase(*compSqlConnection);
    TCDataAccess access(definition(), nullptr);
    access.Connection = compSqlConnection;
    access.AlterOrCreateTable();
    const MsgDlgHandler previous = setMsgDlgHandler([](const QString &text, TMsgDlgType, unsigned, int) {
        return text == u"Wollen Sie die bisherigen Daten leeren?"_s ? int(mrNo) : int(mrYes);
    });

    // (a) The run and the same statements sent directly in transactions of the run's batch size
    // (eight statements a line), on a table filled to the same size.
    const int sizeA = 10000;
    const QString fileA = writeData(scratch.path(), sizeA);
    QStringList statements;
    {
        kx::SqlTraceCapture trace;
        runInProcess(&access, fileA);
        statements = trace.statements();
    }
    kxbench::refreshStatistics({ table });
    emptyTable();
    const double run = kxbench::seconds([&] { runInProcess(&access, fileA); });
    emptyTable();
    const double direct = kxbench::seconds([&] {
        const qsizetype perBatch = 8 * TImportBatch{}.Lines;
        for (qsizetype from = 0; from < statements.size(); from += perBatch) {
            kx::SqlTransaction batch;
            for (qsizetype i = from; i < std::min(from + perBatch, statements.size()); ++i)
                compSqlConnection->execute(statements[i]);
            batch.commit();
        }
    });
    out << "BENCH import " << product << " ratio=" << QString::number(run / direct, 'f', 3)
        << " import run over the same " << statements.size() << " statements sent directly in batches (" << sizeA
        << " lines x 6 columns, key look-up on an indexed field): " << QString::number(run, 'f', 2) << " s vs "
        << QString::number(direct, 'f', 2) << " s, " << QString::number(sizeA / run, 'f', 0) << " lines/s\n";
    out.flush();

    // (b) and (c) The headless import in a process of its own, on an empty table each time. The
    // short runs take the best of three: a 1,000-line import lasts about as long as a process
    // start, whose jitter would otherwise decide the ratio.
    const QString definitionFile = writeDefinition(scratch.path());
    QMap<int, ChildRun> runs;
    for (int lines : { 1, 1000, 100000 }) {
        const QString file = writeData(scratch.path(), lines);
        for (int round = 0; round < (lines < 100000 ? 3 : 1); ++round) {
            emptyTable();
            const ChildRun run = runProgram(connection, file, definitionFile);
            if (round == 0 || run.seconds < runs[lines].seconds)
                runs[lines] = run;
        }
    }
    const double start = runs[1].seconds;
    const double small = (runs[1000].seconds - start) / 999;
    const double large = (runs[100000].seconds - start) / 99999;
    out << "BENCH import " << product << " ratio=" << QString::number(large / small, 'f', 3)
        << " cost per line of the headless import, 100000 over 1000 lines (start-up of a 1-line import, "
        << QString::number(start, 'f', 2) << " s, subtracted): " << QString::number(large * 1e6, 'f', 0) << " us vs "
        << QString::number(small * 1e6, 'f', 0) << " us per line, " << QString::number(1 / large, 'f', 0)
        << " lines/s\n";
    out << "BENCH import " << product << " ratio="
        << QString::number(double(runs[100000].peakKiB) / double(runs[1000].peakKiB), 'f', 3)
        << " peak memory of the headless import, 100000 over 1000 lines: " << runs[100000].peakKiB / 1024 << " MiB vs "
        << runs[1000].peakKiB / 1024 << " MiB\n";
    out.flush();

    // import-batch and import-floor, on the 100,000-line file.
    const int sizeBatch = 100000;
    const QString fileBatch = scratch.path() + u"/daten%1.csv"_s.arg(sizeBatch);
    emptyTable();
    const double batched = kxbench::seconds([&] { runInProcess(&access, fileBatch); });
    emptyTable();
    const double single = kxbench::seconds([&] { runInProcess(&access, fileBatch, { 0, 0 }); });
    out << "BENCH import-batch " << product << " ratio=" << QString::number(batched / single, 'f', 3)
        << " batched run over the statement-by-statement run, " << sizeBatch << " lines x 6 columns, key look-up on an "
        << "indexed field: " << QString::number(batched, 'f', 2) << " s vs " << QString::number(single, 'f', 2) << " s, "
        << QString::number(sizeBatch / batched, 'f', 0) << " vs " << QString::number(sizeBatch / single, 'f', 0)
        << " lines/s\n";
    out.flush();
    const double bulk = bulkLoad(product, connection, fileBatch, scratch.path());
    out << "BENCH import-floor " << product << " ratio=" << QString::number(batched / bulk, 'f', 3)
        << " batched run over the product's bulk load of the same file into six text columns: "
        << QString::number(batched, 'f', 2) << " s vs " << QString::number(bulk, 'f', 2) << " s\n";
    out.flush();
    setMsgDlgHandler(previous);
    compSqlConnection->Close();
}

} // namespace

int main(int argc, char *argv[])
{
    return kxbench::runEachProduct(argc, argv, runProduct);
}
