// SPDX-License-Identifier: LGPL-2.1-or-later
// Postings as separate programs on one database, the way workstations meet: several at once, one
// killed at a random moment, one whose statement the database refuses. Afterwards every article's
// counts equal what its documents hold, once, and the log agrees with the counts.
#include "sqltool.h"
#include "stocktest.h"
#include "strtools.h"

#include <QElapsedTimer>
#include <QProcess>
#include <random>

using namespace Qt::StringLiterals;
using kxtest::exec;
using kxtest::rows;

namespace {

class StockProgramsTest : public kxtest::StockTest
{
protected:
    // Starts one command-line program per argument list at once and waits for all of them.
    void runAtOnce(const QList<QStringList> &calls)
    {
        std::vector<std::unique_ptr<QProcess>> processes;
        for (const QStringList &call : calls)
            processes.push_back(start(call));
        for (auto &process : processes) {
            ASSERT_TRUE(process->waitForFinished(180000));
            EXPECT_EQ(process->exitCode(), 0) << process->readAll().toStdString();
        }
    }

    std::unique_ptr<QProcess> start(const QStringList &call)
    {
        auto process = std::make_unique<QProcess>();
        process->setProcessChannelMode(QProcess::MergedChannels);
        process->start(QString::fromUtf8(KX_CLI_PROGRAM), QStringList{ u"--db"_s, m_connectionString } + call);
        return process;
    }

    const QString table = QString::fromUtf16(StockLineTable);
};

double number(const QString &sql)
{
    return StrToFloatDef(sqlGetValue(sql), 0);
}

QString ofArticle(const QString &articleId)
{
    return u" from LagerLog where idArtikel='"_s + articleId + u"'"_s;
}

// A receipt document with one line for each article; returns its key.
QString receipt(const QList<int> &articles, double quantity)
{
    const QString document = sqlGenIdValue();
    for (int idnummer : articles)
        stock_SetLine({ QString::fromUtf16(StockLineTable), document, idnummer, quantity, 2 });
    return document;
}

// Every article holds the sum of its posted receipts, logged as one receipt row per line.
void expectBookedOnce(const QList<int> &articles, double expected, int receipts)
{
    for (int idnummer : articles) {
        SCOPED_TRACE("article " + std::to_string(idnummer));
        const QString id = stock_ArticleId(idnummer);
        EXPECT_EQ(number(u"select COUNTLAGER from Artikel where IDNUMMER="_s + QString::number(idnummer)), expected);
        EXPECT_EQ(number(u"select sum(Anzahl)"_s + ofArticle(id)), expected);
        EXPECT_EQ(rows(u"select count(*)"_s + ofArticle(id)), QStringList{ QString::number(receipts) });
    }
}

TEST_F(StockProgramsTest, SameDocumentPostedByManyProgramsIsBookedOnce)
{
    for (const int programs : { 2, 4, 8 }) {
        SCOPED_TRACE(std::to_string(programs) + " programs");
        const QList<int> articles{ 100 * programs + 1, 100 * programs + 2, 100 * programs + 3 };
        for (int idnummer : articles)
            stock_AddArticle(idnummer, u"Schlauch C"_s);
        const QString document = receipt(articles, 4);
        runAtOnce(QList<QStringList>(programs, { u"stock"_s, u"post"_s, table, document }));
        expectBookedOnce(articles, 4, 1);
        EXPECT_EQ(rows(u"select count(*) from "_s + table + u" where IDPARENT='"_s + document + u"' and COUNTLAGER<>ANZAHL"_s),
                  QStringList{ u"0"_s });
    }
}

TEST_F(StockProgramsTest, SameArticleIssuedFromManyDocumentsDrawsEachReceiptOnce)
{
    const int documentsPerProgram = 3;
    const double quantity = 1.5;
    for (const int programs : { 2, 4, 8 }) {
        SCOPED_TRACE(std::to_string(programs) + " programs");
        const int idnummer = 900 + programs;
        const QString articleId = stock_AddArticle(idnummer, u"Atemschutzfilter"_s, 0);
        for (int r = 0; r < 4; ++r)
            kxtest::post({ latAdd, lmtIn, kxtest::oneLineDocument(idnummer, 10, 5) });

        QList<QStringList> calls;
        for (int w = 0; w < programs * documentsPerProgram; ++w)
            calls << QStringList{ u"stock"_s, u"post"_s, table, kxtest::oneLineDocument(idnummer, quantity),
                                  u"--action"_s, u"sub"_s, u"--mode"_s, u"out"_s };
        runAtOnce(calls);

        const double issued = programs * documentsPerProgram * quantity;
        EXPECT_EQ(number(u"select sum(Anzahl)"_s + ofArticle(articleId) + u" and llmode=1"_s), issued);
        EXPECT_EQ(40 - number(u"select sum(INCOUNTAVAIL)"_s + ofArticle(articleId) + u" and llmode=0"_s), issued);
        EXPECT_EQ(rows(u"select count(*)"_s + ofArticle(articleId) + u" and INCOUNTAVAIL<0"_s), QStringList{ u"0"_s });
        EXPECT_EQ(number(u"select COUNTLAGER from Artikel where IDNUMMER="_s + QString::number(idnummer)), 40 - issued);
        // The log's running stock ends where the article stands.
        EXPECT_EQ(number(u"select min(COUNTBESTAND)"_s + ofArticle(articleId) + u" and llmode=1"_s), 40 - issued);
    }
}

TEST_F(StockProgramsTest, SameLineSetByManyProgramsIsOneLine)
{
    stock_AddArticle(4711, u"Kupplungsschlüssel"_s);
    const QString document = sqlGenIdValue();
    runAtOnce(QList<QStringList>(6, { u"stock"_s, u"line"_s, table, document, u"4711"_s, u"2"_s }));
    EXPECT_EQ(rows(u"select count(*) from "_s + table + u" where IDPARENT='"_s + document + u"'"_s), QStringList{ u"1"_s });
}

// A posting killed at a random moment leaves the document wholly booked or not at all; posting
// it again afterwards books what is left, once.
TEST_F(StockProgramsTest, KilledPostingIsBookedOnceWhenPostedAgain)
{
    QList<int> articles;
    for (int i = 1; i <= 50; ++i) {
        articles << 2000 + i;
        stock_AddArticle(2000 + i, u"Artikel %1"_s.arg(i));
    }
    // How long one posting takes as a program, start-up included: the kills fall within it.
    QElapsedTimer timer;
    timer.start();
    runAtOnce({ { u"stock"_s, u"post"_s, table, receipt(articles, 1) } });
    const int duration = int(timer.elapsed());

    std::mt19937 random(20261124);
    const int tries = 6;
    for (int t = 0; t < tries; ++t) {
        const QString document = receipt(articles, 1);
        const std::unique_ptr<QProcess> program = start({ u"stock"_s, u"post"_s, table, document });
        const int delay = std::uniform_int_distribution<int>(duration / 4, duration)(random);
        SCOPED_TRACE("try " + std::to_string(t) + ", killed after " + std::to_string(delay) + " ms");
        program->waitForFinished(delay);
        program->kill();
        program->waitForFinished();
        runAtOnce({ { u"stock"_s, u"post"_s, table, document } });
        expectBookedOnce(articles, t + 2, t + 2);
        if (HasFailure())
            return;
    }
}

// A statement refused in the middle of a line (here its log row): run statement by statement the
// posting stops with that line's count written and the document unmarked, so posting it again
// books the line twice; posted whole, nothing is booked, and once the cause is gone the document
// is booked once.
TEST_F(StockProgramsTest, RefusedStatementInTheMiddleOfALine)
{
    for (const bool whole : { true, false }) { // the doubly booked lines come last
        SCOPED_TRACE(whole ? "posted whole" : "statement by statement");
        exec(u"create unique index LagerLogLinkIDX on LagerLog (LINKID)"_s);
        const int base = whole ? 40 : 30;
        const QList<int> articles{ base + 1, base + 2, base + 3 };
        for (int idnummer : articles)
            stock_AddArticle(idnummer, u"Warnleuchte"_s);
        const QString document = receipt(articles, 5);
        const QString refusedLine = sqlGetValue(u"select ID from "_s + table + u" where IDNUMMER="_s + QString::number(base + 2));
        exec(u"insert into LagerLog (ID, LINKID, LLMODE, INCOUNTAVAIL) values ('BLOCK', '"_s + refusedLine + u"', 1, 0)"_s);
        const QStringList articlesBefore = rows(u"select * from Artikel order by ID"_s);

        TCLagerAction action;
        action.fTablename = table;
        action.fLinkvalue = document;
        EXPECT_THROW(whole ? void(Lager_PostDocument(action)) : action.Execute(), kx::DatabaseError);
        const QString unbooked = u"select count(*) from "_s + table + u" where IDPARENT='"_s + document + u"' and COUNTLAGER=0"_s;
        EXPECT_EQ(rows(unbooked), QStringList{ u"3"_s });
        if (whole) {
            EXPECT_EQ(rows(u"select * from Artikel order by ID"_s), articlesBefore);
        } else {
            EXPECT_EQ(number(u"select COUNTLAGER from Artikel where IDNUMMER="_s + QString::number(base + 2)), 5);
            EXPECT_EQ(rows(u"select count(*)"_s + ofArticle(stock_ArticleId(base + 2))), QStringList{ u"0"_s });
        }
        exec(u"delete from LagerLog where ID='BLOCK'"_s);
        exec(u"drop index LagerLogLinkIDX"_s); // a line booked twice logs its line key twice
        Lager_PostDocument(action);
        EXPECT_EQ(number(u"select COUNTLAGER from Artikel where IDNUMMER="_s + QString::number(base + 2)), whole ? 5 : 10);
        if (whole)
            expectBookedOnce(articles, 5, 1);
    }
}

} // namespace
