// SPDX-License-Identifier: LGPL-2.1-or-later
// Cost of posting one issue line with 10^5 rows already in the stock log, over the same with
// 10^3 rows; the cost of posting a document whole (one transaction under the document's lock)
// over posting it statement by statement; and posting throughput in document lines per second. The log rows are spread over
// 100 articles in the shape a running store leaves: receipts used up, issues drawn on them.
#include "benchsupport.h"
#include "emptydatabase.h"

#include "globals.h"
#include "lagercommon.h"
#include "sqlconnection.h"
#include "sqldialect.h"
#include "sqltool.h"
#include "stockdata.h"
#include "syscommon.h"

#include <QTemporaryDir>
#include <QTextStream>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

const QString lines = QString::fromUtf16(StockLineTable);
constexpr int articles = 100;
constexpr int baseRows = 1000;

// 1000 log rows over the articles: receipts used up, and issues. Their keys begin with "X",
// which no generated (hexadecimal) key does, so copying them never copies a posted row.
void insertBaseRows(const QStringList &articleIds)
{
    const QDate start = QDate::currentDate().addDays(-365);
    {
        for (int i = 0; i < baseRows; ++i) {
            const bool receipt = i % 2 == 0;
            kx::SqlValueList row;
            row.add(u"ID"_s, u"'X%1'"_s.arg(i, 6, 10, QChar(u'0')))
                .add(u"DATUM"_s, u"'"_s + sqlConvertDate(start.addDays(i % 365)) + u"'"_s)
                .add(u"UHRZEIT"_s, u"'10:00:00'"_s)
                .add(u"ART"_s, receipt ? u"'Lager Eingang'"_s : u"'Lager Ausgang'"_s)
                .add(u"ANZAHL"_s, u"5"_s)
                .add(u"IDARTIKEL"_s, u"'"_s + articleIds[i % articles] + u"'"_s)
                .add(u"PREIS"_s, u"2.5"_s)
                .add(u"LLMODE"_s, receipt ? u"0"_s : u"1"_s)
                .add(u"SOURCEMODE"_s, receipt ? u"0"_s : u"1"_s)
                .add(u"TSTAMP"_s, u"'"_s + start.addDays(i % 365).toString(u"yyyyMMdd"_s) + u"100000000'"_s)
                .add(u"INCOUNTAVAIL"_s, u"0"_s);
            SqlExec(SqlBuildInsertSql(u"LagerLog"_s, row.pairs()));
        }
    }
}

// Copies of the base rows under other keys, until the base rows and their copies number logRows.
void addCopies(int logRows)
{
    const QString columns = u"DATUM,UHRZEIT,ART,ANZAHL,IDARTIKEL,PREIS,LLMODE,SOURCEMODE,TSTAMP,INCOUNTAVAIL"_s;
    for (int copy = 1; copy < logRows / baseRows; ++copy)
        SqlExec(u"Insert into LagerLog (ID,"_s + columns + u") select 'Y"_s + QString::number(copy) + u"' || ID,"_s
                + columns + u" from LagerLog where ID like 'X%'"_s);
    kxbench::refreshStatistics({ u"LagerLog"_s });
}

// Whole: in one transaction under the document's lock; otherwise statement by statement.
void post(TCLagerActionType action, TCLagerModeType mode, const QString &document, bool whole = false)
{
    TCLagerAction lager;
    lager.setProperty("Tablename", lines);
    lager.setProperty("Linkvalue", document);
    lager.setProperty("Action", QVariant::fromValue(action));
    lager.setProperty("Mode", QVariant::fromValue(mode));
    lager.setProperty("Modulno", u"0002"_s);
    if (whole)
        Lager_PostDocument(lager);
    else
        lager.Execute();
}

// Median seconds of posting one single-line issue of the first article.
double issueLine(int postings, bool whole = false)
{
    std::vector<double> times;
    for (int i = 0; i < postings; ++i) {
        const QString document = sqlGenIdValue();
        stock_SetLine({ lines, document, 1, 1 });
        times.push_back(kxbench::seconds([&] { post(latSub, lmtOut, document, whole); }));
    }
    return kxbench::median(times);
}

// Seconds of posting documents of PerDocument issue lines, each line on another article.
double postDocuments(int documents, int perDocument, bool whole)
{
    QStringList keys;
    for (int d = 0; d < documents; ++d) {
        keys << sqlGenIdValue();
        for (int l = 0; l < perDocument; ++l)
            stock_SetLine({ lines, keys.last(), 1 + (d * perDocument + l) % articles, 2 });
    }
    return kxbench::seconds([&] {
        for (const QString &key : keys)
            post(latSub, lmtOut, key, whole);
    });
}

void runProduct(const QString &product, QTextStream &out)
{
    QTemporaryDir scratch;
    const QString connection = kxbench::openProduct("stock", product, scratch.path(), out);
    if (connection.isEmpty())
        return;
    kxtest::emptyDatabase(*compSqlConnection);
    Sys_CreateData();
    stock_CreateModuleTables();
    User.Name = u"Bench"_s;
    QStringList articleIds;
    for (int i = 1; i <= articles; ++i)
        articleIds << stock_AddArticle(i, u"Artikel %1"_s.arg(i));
    // One open receipt per article that every measured issue draws on.
    const QString receipts = sqlGenIdValue();
    for (int i = 1; i <= articles; ++i)
        stock_SetLine({ lines, receipts, i, 1000000, 2.5 });
    post(latAdd, lmtIn, receipts);

    const int postings = product == u"firebird"_s ? 40 : 100;
    insertBaseRows(articleIds);
    issueLine(5); // warm-up
    const double small = issueLine(postings);
    addCopies(100000);
    issueLine(5);
    const double large = issueLine(postings);
    const double largeWhole = issueLine(postings, true);
    const QString logRows = sqlGetValue(u"select count(*) from LagerLog"_s);

    // Throughput: documents of 20 issue lines over 20 articles on the large log, both ways.
    const int documents = 10, perDocument = 20;
    const double total = postDocuments(documents, perDocument, false);
    const double totalWhole = postDocuments(documents, perDocument, true);
    const double linesPerSecond = documents * perDocument / total;

    // The postings must have booked what they were given, or the figures mean nothing.
    const StockArticle first = stock_ReadArticle(1);
    const double expected = 1000000 - 3 * postings - 10 - 2 * 2.0 * documents * perDocument / articles;
    if (first.countLager != expected || first.bestand != first.countLager) {
        out << "BENCH stock " << product << " invalid: article 1 holds " << first.countLager << ", expected " << expected
            << "\n";
        std::exit(1);
    }

    out << "BENCH stock " << product << " ratio=" << QString::number(large / small, 'f', 3)
        << " one posted issue line with 10^5 rows in LagerLog over 10^3 rows; median of " << postings
        << " postings: " << QString::number(large * 1e3, 'f', 2) << " ms vs " << QString::number(small * 1e3, 'f', 2)
        << " ms (log rows at the end: " << logRows << ")\n";
    out << "BENCH stock-whole " << product << " ratio=" << QString::number(largeWhole / large, 'f', 3)
        << " one issue line posted whole (one transaction under the document's lock) over statement by statement, "
           "10^5 log rows: "
        << QString::number(largeWhole * 1e3, 'f', 2) << " ms vs " << QString::number(large * 1e3, 'f', 2) << " ms\n";
    out << "  detail: stock-whole " << product << " documents of " << perDocument << " lines: "
        << QString::number(totalWhole / (documents * perDocument) * 1e3, 'f', 2) << " ms per line whole vs "
        << QString::number(total / (documents * perDocument) * 1e3, 'f', 2) << " ms statement by statement\n";
    out << "  detail: stock " << product << " throughput " << QString::number(linesPerSecond, 'f', 0)
        << " document lines/s (" << documents << " issue documents of " << perDocument << " lines, "
        << QString::number(total, 'f', 2) << " s; each line writes one log row and waits 1 ms for the next time stamp)\n";
    out.flush();
    compSqlConnection->Close();
}

} // namespace

int main(int argc, char *argv[])
{
    return kxbench::runEachProduct(argc, argv, runProduct);
}
