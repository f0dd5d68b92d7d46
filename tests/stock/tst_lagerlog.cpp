// SPDX-License-Identifier: LGPL-2.1-or-later
// The stock log: receipts, issues drawn first-in-first-out, corrections, monthly balances.
#include "log.h"
#include "sqltool.h"
#include "stocktest.h"
#include "strtools.h"

#include <QFile>
#include <cmath>

using namespace Qt::StringLiterals;
using kxtest::exec;
using kxtest::post;
using kxtest::rows;

namespace {

class LagerLogTest : public kxtest::StockTest
{
};

const QDate today = QDate::currentDate();

struct Receipt
{
    double quantity;
    double price;
    int daysAgo;
};
struct IssueRow
{
    double anzahl;
    int receipt; // index into the receipts, -1 for none
};

// The log rows other than the known ones, by time stamp.
QList<StockLogRow> newRows(const QList<StockLogRow> &log, const QStringList &known)
{
    QList<StockLogRow> rows;
    for (const StockLogRow &row : log)
        if (!known.contains(row.id))
            rows << row;
    return rows;
}

// Books each receipt as its own goods-receipt document on its date; returns their log keys.
QStringList bookReceipts(int idnummer, const QList<Receipt> &receipts)
{
    QStringList keys;
    for (const Receipt &r : receipts) {
        const QString document = kxtest::oneLineDocument(idnummer, r.quantity, r.price);
        post({ latAdd, lmtIn, document, today.addDays(-r.daysAgo), {}, false, false, u"17"_s });
        keys << newRows(stock_ReadLog(stock_ArticleId(idnummer)), keys).first().id;
    }
    return keys;
}

double available(const QString &logId)
{
    return StrToFloatDef(sqlGetValue(u"select INCOUNTAVAIL from LagerLog where ID='"_s + logId + u"'"_s), -1);
}

TEST_F(LagerLogTest, IssuesDrawOnReceiptsFirstInFirstOut)
{
    const struct
    {
        const char *name;
        QList<Receipt> receipts;
        double issue;
        int issueDaysAgo;
        QList<IssueRow> expectedRows;
        QList<double> left;
    } cases[] = {
        { "covered by one receipt", { { 10, 2.5, 2 } }, 4, 0, { { 4, 0 } }, { 6 } },
        { "uses a receipt up exactly", { { 10, 2.5, 2 } }, 10, 0, { { 10, 0 } }, { 0 } },
        { "spans two receipts", { { 10, 2.5, 2 }, { 5, 3, 1 } }, 12, 0, { { 10, 0 }, { 2, 1 } }, { 0, 3 } },
        { "oldest receipt first", { { 5, 3, 1 }, { 10, 2.5, 3 } }, 7, 0, { { 7, 1 } }, { 5, 3 } },
        // Deliberate stop rule: a remainder equal to the part just taken ends the loop.
        { "remainder equal to the part taken", { { 4, 1, 2 }, { 10, 2, 1 } }, 8, 0, { { 4, 0 } }, { 0, 10 } },
        { "no receipt", {}, 3, 0, { { 3, -1 } }, {} },
        // The uncovered rest is logged without a receipt, with the quantity the row last held.
        { "more than all receipts", { { 10, 2.5, 2 } }, 12, 0, { { 10, 0 }, { 10, -1 } }, { 0 } },
        { "receipt after the booking date", { { 5, 1, 1 } }, 2, 3, { { 2, -1 } }, { 5 } },
        { "fractions", { { 0.3, 1, 2 }, { 0.2, 1, 1 } }, 0.4, 0, { { 0.3, 0 }, { 0.1, 1 } }, { 0, 0.1 } },
    };
    if (!ready())
        return;
    int idnummer = 500;
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        const QString articleId = stock_AddArticle(++idnummer, u"Schlauch B"_s);
        const QStringList receipts = bookReceipts(idnummer, c.receipts);
        double stock = 0;
        for (const Receipt &r : c.receipts)
            stock += r.quantity;

        const QString issue = kxtest::oneLineDocument(idnummer, c.issue, 99);
        post({ latSub, lmtOut, issue, c.issueDaysAgo ? today.addDays(-c.issueDaysAgo) : QDate(), {}, false, false,
               u"18"_s });

        const QList<StockLogRow> log = newRows(stock_ReadLog(articleId), receipts);
        ASSERT_EQ(log.size(), c.expectedRows.size());
        double running = stock;
        for (qsizetype i = 0; i < log.size(); ++i) {
            const IssueRow &expected = c.expectedRows[i];
            EXPECT_DOUBLE_EQ(log[i].anzahl, expected.anzahl) << i;
            EXPECT_EQ(log[i].llmode, 1);
            EXPECT_EQ(log[i].sourcemode, 1);
            EXPECT_EQ(log[i].art, u"Lager Ausgang"_s);
            EXPECT_DOUBLE_EQ(log[i].inCountAvail, 0);
            const double taken = expected.receipt < 0 ? 0 : expected.anzahl;
            EXPECT_DOUBLE_EQ(log[i].oldCount, running);
            EXPECT_DOUBLE_EQ(log[i].newCount, running - taken);
            running -= taken;
            if (expected.receipt < 0) {
                EXPECT_EQ(log[i].outIdIn, QString());
                EXPECT_DOUBLE_EQ(log[i].preis, 0);
            } else {
                EXPECT_EQ(log[i].outIdIn, receipts[expected.receipt]);
                EXPECT_DOUBLE_EQ(log[i].preis, c.receipts[expected.receipt].price); // valued at the receipt's price
                EXPECT_EQ(rows(u"select OUT_IDBELEGNUMMERIN from LagerLog where ID='"_s + log[i].id + u"'"_s),
                          QStringList{ u"17"_s });
            }
        }
        for (qsizetype i = 0; i < receipts.size(); ++i)
            EXPECT_DOUBLE_EQ(available(receipts[i]), c.left[i]) << "receipt " << i;
    }
}

TEST_F(LagerLogTest, CorrectionsAndStocktakings)
{
    const struct
    {
        TCLagerModeType mode;
        double amount;
        QString art;
        int rowsWritten;
        int llmode;
        double avail;       // of the new row
        double receiptLeft; // of a receipt of 10 booked before
    } cases[] = {
        { lmtCorrection, 3, u"Bestandskorrektur (+)"_s, 1, 0, 3, 10 },
        { lmtCorrection, -3, u"Bestandskorrektur (-)"_s, 1, 1, 0, 7 },
        { lmtCorrection, 0, {}, 0, 0, 0, 10 },
        { lmtStocktaking, 2, u"Inventur"_s, 1, 0, 2, 10 },
        { lmtStocktaking, -4, u"Inventur"_s, 1, 1, 0, 6 },
        { lmtStocktaking, 0, {}, 0, 0, 0, 10 },
    };
    if (!ready())
        return;
    int idnummer = 600;
    for (const auto &c : cases) {
        SCOPED_TRACE(c.amount);
        const QString articleId = stock_AddArticle(++idnummer, u"Leine"_s);
        const QString receipt = bookReceipts(idnummer, { { 10, 1, 1 } }).first();
        const QString document = kxtest::oneLineDocument(idnummer, c.amount);
        post({ latAdd, c.mode, document });
        const QList<StockLogRow> log = stock_ReadLog(articleId);
        ASSERT_EQ(log.size(), 1 + c.rowsWritten);
        EXPECT_DOUBLE_EQ(stock_ReadArticle(idnummer).bestand, 10 + c.amount);
        if (c.rowsWritten) {
            EXPECT_EQ(log.last().art, c.art);
            EXPECT_EQ(log.last().llmode, c.llmode);
            EXPECT_EQ(log.last().sourcemode, int(c.mode));
            EXPECT_DOUBLE_EQ(log.last().inCountAvail, c.avail);
            EXPECT_DOUBLE_EQ(log.last().anzahl, std::abs(c.amount));
        }
        EXPECT_DOUBLE_EQ(available(receipt), c.receiptLeft);
        EXPECT_EQ(stock_ReadMonths(articleId).size(), 1) << "the balance is kept also when no row is written";
        EXPECT_DOUBLE_EQ(stock_ReadMonths(articleId).first().endbestand, 10 + c.amount);
    }

    // A positive correction is a receipt that later issues draw on.
    stock_AddArticle(690, u"Kupplung"_s);
    post({ latAdd, lmtCorrection, kxtest::oneLineDocument(690, 4, 0) });
    post({ latSub, lmtOut, kxtest::oneLineDocument(690, 3) });
    const QList<StockLogRow> log = stock_ReadLog(stock_ArticleId(690));
    ASSERT_EQ(log.size(), 2);
    EXPECT_EQ(log[1].outIdIn, log[0].id);
    EXPECT_DOUBLE_EQ(available(log[0].id), 1);
}

TEST_F(LagerLogTest, RowTextsDatesAndDocumentKeys)
{
    if (!ready())
        return;
    const QString articleId = stock_AddArticle(700, u"Funkgerät"_s);
    const QString document = kxtest::oneLineDocument(700, 2, 12.5);
    const QDate earlier = today.addDays(-40);
    TCLagerAction action;
    action.setProperty("Tablename", u"lagerbeleg_pos"_s);
    action.setProperty("Linkvalue", document);
    action.setProperty("Modulno", u"0002"_s);
    action.setProperty("idBelegnummer", u"4711"_s);
    action.setProperty("idWareneingang", u"WE-1"_s);
    action.setProperty("idausgabe", u"AUS-9"_s);
    action.setProperty("LogActionDate", QDateTime(earlier, QTime(10, 0)));
    const QString before = QDateTime::currentDateTime().toString(u"HHmmss"_s);
    action.Execute();

    EXPECT_EQ(rows(u"select DATUM, BENUTZER, TABELLE, ART, MODULNR, IDBELEGNUMMER, IDWARENEINGANG, IDAUSGABE, "
                   u"IDBESTELLUNG, IDEINGANGSRECHNUNG, OUT_IDIN, PREIS from LagerLog"_s),
              QStringList{ earlier.toString(u"dd.MM.yyyy"_s)
                           + u"|Prüfer|LAGERBELEG_POS|Lager Eingang|0002|4711|WE-1|AUS-9|||"_s + u"|12,5"_s });
    const StockLogRow row = stock_ReadLog(articleId).first();
    // The stamp is the booking date followed by the time of writing, to the millisecond.
    EXPECT_EQ(row.tstamp.size(), 17);
    EXPECT_TRUE(row.tstamp.startsWith(earlier.toString(u"yyyyMMdd"_s)));
    EXPECT_GE(row.tstamp.mid(8, 6), before);
    EXPECT_EQ(row.uhrzeit.size(), 8); // hh:mm:ss

    // The balance is always the current month's, whatever the booking date.
    const QList<StockMonthRow> months = stock_ReadMonths(articleId);
    ASSERT_EQ(months.size(), 1);
    EXPECT_EQ(months[0].jahr, today.year());
    EXPECT_EQ(months[0].monat, today.month());
    EXPECT_EQ(months[0].anfangsdate, today);
}

TEST_F(LagerLogTest, MonthlyBalanceKeepsTheFirstOpening)
{
    if (!ready())
        return;
    const QString articleId = stock_AddArticle(800, u"Hohlstrahlrohr"_s, 5);
    post({ latAdd, lmtIn, kxtest::oneLineDocument(800, 10, 1) });
    const QString monthId = sqlGetValue(u"select ID from LagerLogMonth"_s);
    post({ latSub, lmtOut, kxtest::oneLineDocument(800, 4) });
    post({ latAdd, lmtIn, kxtest::oneLineDocument(800, 1, 1) });

    const QList<StockMonthRow> months = stock_ReadMonths(articleId);
    ASSERT_EQ(months.size(), 1);
    EXPECT_DOUBLE_EQ(months[0].anfangsbestand, 5); // before the month's first booking
    EXPECT_DOUBLE_EQ(months[0].endbestand, 12);    // after the latest
    EXPECT_EQ(months[0].enddate, today);
    EXPECT_EQ(sqlGetValue(u"select ID from LagerLogMonth"_s), monthId) << "updating keeps the row's key";

    // Another month's row of the article is left alone.
    exec(u"insert into LagerLogMonth (ID,IDARTIKEL,MONAT,JAHR,ANFANGSBESTAND,ENDBESTAND) values ('alt','"_s + articleId
         + u"',1,1999,7,8)"_s);
    post({ latAdd, lmtIn, kxtest::oneLineDocument(800, 1, 1) });
    EXPECT_EQ(rows(u"select ANFANGSBESTAND, ENDBESTAND from LagerLogMonth where ID='alt'"_s), QStringList{ u"7|8"_s });
}

TEST_F(LagerLogTest, FailingBalanceIsSwallowedOtherFailuresAreNot)
{
    if (!ready())
        return;
    const QString articleId = stock_AddArticle(810, u"Verteiler"_s);
    exec(u"drop table LagerLogMonth"_s);
    EXPECT_NO_THROW(post({ latAdd, lmtIn, kxtest::oneLineDocument(810, 3, 1) }));
    EXPECT_EQ(stock_ReadLog(articleId).size(), 1);
    EXPECT_EQ(kxtest::counts(810), u"3|0|0|3"_s);
    QFile errors(errorLogFilePath());
    ASSERT_TRUE(errors.open(QIODevice::ReadOnly)) << "the swallowed failure leaves a line in the error log";
    EXPECT_TRUE(QString::fromUtf8(errors.readAll()).contains(u"Monatsbestand nicht fortgeschrieben"_s));

    exec(u"drop table LagerLog"_s);
    EXPECT_THROW(post({ latAdd, lmtIn, kxtest::oneLineDocument(810, 3, 1) }), kx::DatabaseError);
}

} // namespace
