// Workstations issuing the same article at the same moment, as separate programs on one database:
// every quantity drawn from a receipt is an issued one, no receipt goes below 0, and the
// article's counts agree with the log.
#include "sqltool.h"
#include "stocktest.h"
#include "strtools.h"

#include <QProcess>

using namespace Qt::StringLiterals;
using kxtest::rows;

namespace {

class ConcurrentIssueTest : public kxtest::StockTest
{
};

double number(const QString &sql)
{
    return StrToFloatDef(sqlGetValue(sql), 0);
}

TEST_F(ConcurrentIssueTest, ParallelIssuesDrawEachReceiptOnce)
{
    if (!ready())
        return;
    const QString table = QString::fromUtf16(StockLineTable);
    const int documentsPerWorker = 3;
    const double quantity = 1.5;
    for (const int workers : { 2, 4, 8 }) {
        SCOPED_TRACE(std::to_string(workers) + " workers");
        const int idnummer = 900 + workers;
        const QString articleId = stock_AddArticle(idnummer, u"Atemschutzfilter"_s, 0);
        for (int r = 0; r < 4; ++r)
            kxtest::post({ latAdd, lmtIn, kxtest::oneLineDocument(idnummer, 10, 5) });

        std::vector<std::unique_ptr<QProcess>> processes;
        for (int w = 0; w < workers; ++w) {
            QStringList documents;
            for (int d = 0; d < documentsPerWorker; ++d)
                documents << kxtest::oneLineDocument(idnummer, quantity);
            auto process = std::make_unique<QProcess>();
            process->setProcessChannelMode(QProcess::MergedChannels);
            process->start(u"/bin/sh"_s,
                           { u"-c"_s,
                             u"set -e; for d in "_s + documents.join(u' ')
                                 + u"; do \"$0\" --db \"$1\" stock post \"$2\" \"$d\" --action sub --mode out >/dev/null; done"_s,
                             QString::fromUtf8(KX_CLI_PROGRAM), m_connectionString, table });
            processes.push_back(std::move(process));
        }
        for (auto &process : processes) {
            ASSERT_TRUE(process->waitForFinished(120000));
            EXPECT_EQ(process->exitCode(), 0) << process->readAll().toStdString();
        }

        const QString ofArticle = u" from LagerLog where idArtikel='"_s + articleId + u"'"_s;
        const double issued = workers * documentsPerWorker * quantity;
        EXPECT_EQ(number(u"select sum(Anzahl)"_s + ofArticle + u" and llmode=1"_s), issued);
        EXPECT_EQ(40 - number(u"select sum(INCOUNTAVAIL)"_s + ofArticle + u" and llmode=0"_s), issued);
        EXPECT_EQ(rows(u"select count(*)"_s + ofArticle + u" and INCOUNTAVAIL<0"_s), QStringList{ u"0"_s });
        EXPECT_EQ(number(u"select COUNTLAGER from Artikel where IDNUMMER="_s + QString::number(idnummer)), 40 - issued);
        // The log's running stock ends where the article stands.
        EXPECT_EQ(number(u"select min(COUNTBESTAND)"_s + ofArticle + u" and llmode=1"_s), 40 - issued);
    }
}

} // namespace
