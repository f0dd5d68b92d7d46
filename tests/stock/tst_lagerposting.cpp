// SPDX-License-Identifier: LGPL-2.1-or-later
// Count updates and the posting of stock and order documents, on each product.
#include "sqlconnection.h"
#include "sqltool.h"
#include "goldentrace.h"
#include "stocktest.h"

using namespace Qt::StringLiterals;
using kxtest::counts;
using kxtest::exec;
using kxtest::post;
using kxtest::Posting;
using kxtest::rows;

namespace {

const QString lines = QString::fromUtf16(StockLineTable);

class LagerPostingTest : public kxtest::StockTest
{
};

// Every kind of posting once, on fixed booking dates: receipts, an issue drawing on two of them
// first in, first out, a correction each way, a stocktaking, lines lowered after posting, the
// resets, batch lines by each action, a storage location, an order by each action, and the most
// that may be taken. (The figures that result are the ledger property's.)
TEST_F(LagerPostingTest, GoldenPostingOfEveryKind)
{
    const QDate day(2026, 3, 2);
    const QString articleId = stock_AddArticle(11, u"Schlauch C"_s, 1);
    const QString batchArticle = stock_AddArticle(12, u"Atemschutzmaske"_s);
    const QString storageArticle = stock_AddArticle(13, u"Druckschlauch B"_s);
    exec(u"insert into Artikel_Lager (ID,IDPARENT,LAGERID,COUNTLAGER,COUNTBESTAND,BESTAND) values ('L1','"_s
         + storageArticle + u"','HAUPT',0,0,0)"_s);
    const QString charge = stock_AddCharge(batchArticle, u"L-2026-03"_s, 20);
    const QString orderLines = QString::fromUtf16(OrderLineTable);
    const QString order = stock_AddOrder();
    stock_SetLine({ orderLines, order, 11, 8 });
    const QString documents[] = { u"WE-1"_s, u"WE-2"_s, u"AUS-1"_s, u"KORR-1"_s, u"KORR-2"_s, u"INV-1"_s };
    const double quantities[] = { 5, 4, 7, 1.5, -0.5, 2 };
    for (int i = 0; i < 6; ++i)
        stock_SetLine({ lines, documents[i], 11, quantities[i], 10.0 + i });
    stock_SetLine({ lines, u"CH-1"_s, 12, 3, 0, charge });
    stock_SetLine({ lines, u"ML-1"_s, 13, 6, 0, {}, u"HAUPT"_s });

    kx::SqlTraceCapture trace;
    post({ latAdd, lmtIn, u"WE-1"_s, day, {}, false, false, u"1"_s });
    post({ latAdd, lmtIn, u"WE-2"_s, day.addDays(1), {}, false, false, u"2"_s });
    post({ latSub, lmtOut, u"AUS-1"_s, day.addDays(2) });
    post({ latAdd, lmtCorrection, u"KORR-1"_s, day.addDays(3) });
    post({ latAdd, lmtCorrection, u"KORR-2"_s, day.addDays(3) });
    post({ latAdd, lmtStocktaking, u"INV-1"_s, day.addDays(4) });
    // A receipt and an issue lowered after posting, and a negative correction reset.
    stock_SetLine({ lines, u"WE-1"_s, 11, 3 });
    post({ latAdd, lmtIn, u"WE-1"_s, day.addDays(5) });
    stock_SetLine({ lines, u"AUS-1"_s, 11, 6 });
    post({ latSub, lmtOut, u"AUS-1"_s, day.addDays(5) });
    post({ latResetAdd, lmtCorrection, u"KORR-2"_s, day.addDays(5) });
    post({ latResetAdd, lmtIn, u"WE-2"_s, day.addDays(5) });
    post({ latResetSub, lmtOut, u"AUS-1"_s, day.addDays(5) });
    for (const TCLagerActionType action : { latAdd, latSub, latResetAdd, latResetSub })
        post({ action, lmtOut, u"CH-1"_s, day, {}, true });
    post({ latAdd, lmtIn, u"ML-1"_s, day, {}, false, true });
    for (const TCLagerActionType action : { latAdd, latSub, latResetAdd, latResetSub })
        kxtest::postOrder({ action, lmtIn, order, {}, orderLines });
    TCLagerAction action;
    action.GetMaxAvail(articleId);
    action.GetMaxAvail(storageArticle, u"HAUPT"_s);
    kxtest::expectGoldenTrace(u"stock-postings"_s, kxtest::withoutClock(trace.statements()));
}

TEST_F(LagerPostingTest, BatchLineByAction)
{
    const struct {
        TCLagerActionType action;
        double A, C;
        double countCharge, ausgegeben, verfuegbar; // from 0, 0, 20
    } cases[] = {
        { latAdd, 5, 2, 3, -3, 23 },       { latSub, 5, 2, -3, 3, 17 },
        { latSub, 2, 5, 3, -3, 23 }, // the signed difference gives batch stock back
        { latResetAdd, 4, 4, -4, 4, 16 }, { latResetSub, 4, 1, 4, -4, 24 },
    };
    int idnummer = 200;
    for (const auto &c : cases) {
        ++idnummer;
        SCOPED_TRACE(idnummer);
        const QString articleId = stock_AddArticle(idnummer, u"Atemschutzmaske"_s, 2);
        const QString charge = stock_AddCharge(articleId, u"L-2026-11"_s, 20);
        const QString document = sqlGenIdValue();
        stock_SetLine({ lines, document, idnummer, c.A, 0, charge });
        exec(u"update "_s + lines + u" set COUNTLAGER="_s + sqlConvertFloat(c.C) + u" where IDPARENT='"_s + document + u"'"_s);
        post({ c.action, lmtOut, document, {}, lines, true });

        const StockArticle a = stock_ReadArticle(idnummer);
        EXPECT_DOUBLE_EQ(a.countCharge, c.countCharge);
        EXPECT_DOUBLE_EQ(a.countLager, 0);
        EXPECT_DOUBLE_EQ(a.bestand, 2 + c.countCharge); // Bestand = CountBestand + CountLager + CountCharge
        EXPECT_EQ(rows(u"select ANZAHLAUSGEGEBEN, ANZAHLVERFUEGBAR from ARTIKEL_CHARGE where ID='"_s + charge + u"'"_s),
                  QStringList{ kx::formatFloat(c.ausgegeben) + u'|' + kx::formatFloat(c.verfuegbar) });
        EXPECT_TRUE(stock_ReadLog(articleId).isEmpty()) << "batch lines write no log";
    }
}

TEST_F(LagerPostingTest, WhichLinesArePosted)
{
    stock_AddArticle(1, u"Feuerwehrhelm"_s);
    stock_AddArticle(2, u"Handschuhe"_s);
    stock_AddArticle(999999, u"Freitext"_s);
    const QString document = sqlGenIdValue();
    stock_SetLine({ lines, document, 1, 4 });
    stock_SetLine({ lines, document, 2, 3 });
    stock_SetLine({ lines, document, 999999, 7 });
    exec(u"insert into "_s + lines + u" (ID,IDPARENT,ANZAHL,COUNTLAGER) values ('ohne','"_s + document + u"',5,0)"_s);
    exec(u"update "_s + lines + u" set COUNTLAGER=3 where IDNUMMER=2"_s); // already booked

    post({ latAdd, lmtIn, document, {}, lines.toLower() });
    EXPECT_EQ(counts(1), u"4|0|0|4"_s);
    EXPECT_EQ(counts(2), u"0|0|0|0"_s);
    EXPECT_EQ(counts(999999), u"0|0|0|0"_s);
    // Every line is marked booked, also those never posted.
    EXPECT_EQ(rows(u"select count(*) from "_s + lines + u" where COUNTLAGER=ANZAHL"_s), QStringList{ u"4"_s });

    // Posting again finds nothing left to book and still writes the mark.
    kx::SqlTraceCapture trace;
    post({ latAdd, lmtIn, document });
    EXPECT_EQ(trace.statements().size(), 2) << "the select and the mark";
    EXPECT_EQ(counts(1), u"4|0|0|4"_s);

    // A reset takes every line, booked or not.
    post({ latResetAdd, lmtIn, document });
    EXPECT_EQ(counts(1), u"0|0|0|0"_s);
    EXPECT_EQ(counts(2), u"-3|0|0|-3"_s);
}

TEST_F(LagerPostingTest, BatchDocumentWithoutChargeKeyBooksOrdinarily)
{
    stock_AddArticle(5, u"Atemluftflasche"_s);
    const QString document = sqlGenIdValue();
    stock_SetLine({ lines, document, 5, 2 });
    exec(u"update "_s + lines + u" set HASCHARGE=1, CHARGEID='' where IDPARENT='"_s + document + u"'"_s);
    post({ latAdd, lmtIn, document, {}, lines, true });
    EXPECT_EQ(counts(5), u"2|0|0|2"_s);
    EXPECT_EQ(stock_ReadLog(stock_ArticleId(5)).size(), 1);
}

TEST_F(LagerPostingTest, MultiStorageBooksTheStorageLocation)
{
    const QString articleId = stock_AddArticle(7, u"Druckschlauch B"_s, 1);
    exec(u"insert into Artikel_Lager (ID,IDPARENT,LAGERID,COUNTLAGER,COUNTBESTAND,BESTAND) values ('L1','"_s + articleId
         + u"','HAUPT',0,0,0)"_s);
    const QString document = sqlGenIdValue();
    stock_SetLine({ lines, document, 7, 6, 0, {}, u"HAUPT"_s });

    TCLagerAction action;
    action.setProperty("Tablename", lines);
    action.setProperty("Linkvalue", document);
    action.setProperty("UseCharge", true);
    action.setProperty("EnableMultiStorage", true);
    action.Execute();
    EXPECT_FALSE(action.property("UseCharge").toBool()) << "storage locations and batches are never combined";
    // The storage row's count is booked; its total, recomputed from the old row and not set
    // again (the second statement names ARTIKEL), shows the figure before this booking.
    EXPECT_EQ(rows(u"select COUNTLAGER, BESTAND from Artikel_Lager where ID='L1'"_s), QStringList{ u"6|0"_s });
    EXPECT_EQ(counts(7), u"0|1|0|1"_s);
    const QList<StockLogRow> log = stock_ReadLog(articleId);
    ASSERT_EQ(log.size(), 1);
    EXPECT_DOUBLE_EQ(log[0].oldCount, 0); // the storage location's stock
    EXPECT_DOUBLE_EQ(log[0].newCount, 1); // the article's total
}

TEST_F(LagerPostingTest, OrderDocumentByAction)
{
    const struct {
        TCLagerActionType action;
        double A, B;
        double onOrder; // from 10
    } cases[] = {
        { latAdd, 5, 2, 13 },     { latSub, 5, 2, 7 },      { latSub, 2, 5, 13 },
        { latResetAdd, 4, 4, 6 }, { latResetSub, 4, 0, 14 }, { latSub, 25, 0, 0 }, // never below 0
    };
    const QString orderLines = QString::fromUtf16(OrderLineTable);
    stock_AddArticle(900, u"Anderer Artikel"_s);
    int idnummer = 300;
    for (const auto &c : cases) {
        ++idnummer;
        SCOPED_TRACE(idnummer);
        stock_AddArticle(idnummer, u"Einsatzjacke"_s);
        exec(u"update Artikel set COUNTBESTELLT=10 where IDNUMMER="_s + QString::number(idnummer));
        exec(u"update Artikel set COUNTBESTELLT=-2 where IDNUMMER=900"_s);
        const QString order = stock_AddOrder();
        stock_SetLine({ orderLines, order, idnummer, c.A });
        exec(u"update "_s + orderLines + u" set COUNTBESTELLT="_s + sqlConvertFloat(c.B) + u" where IDPARENT='"_s + order + u"'"_s);
        kxtest::postOrder({ c.action, lmtIn, order, {}, orderLines });
        EXPECT_DOUBLE_EQ(stock_ReadArticle(idnummer).countBestellt, c.onOrder);
        EXPECT_DOUBLE_EQ(stock_ReadArticle(900).countBestellt, 0) << "every article is kept at 0 or above";
        EXPECT_DOUBLE_EQ(stock_ReadArticle(idnummer).countLager, 0) << "orders leave the stock alone";
    }
    EXPECT_EQ(rows(u"select count(*) from LagerLog"_s), QStringList{ u"0"_s });
}

// A document key is matched as the text it is: a key with an apostrophe books its own lines, and
// one built to widen the condition (or to add a statement) books nothing of another document;
// a receipt numbered with ten digits still lets later issues draw on it.
TEST_F(LagerPostingTest, KeysAndNumbersAreTakenAsTheyAre)
{
    stock_AddArticle(21, u"Feuerwehrleine"_s);
    stock_AddArticle(3000000022LL, u"Hohlstrahlrohr"_s);
    const QString other = kxtest::oneLineDocument(21, 7);
    const QString receiptKey = u"O'Brien-1"_s;
    stock_SetLine({ lines, receiptKey, 3000000022LL, 5, 2 });
    post({ latAdd, lmtIn, receiptKey, {}, {}, false, false, u"3000000000"_s });
    for (const QString &key : { u"x' or '1'='1"_s, u"x'; update Artikel set COUNTLAGER=99 --"_s }) {
        post({ latAdd, lmtIn, key });
        kxtest::postOrder({ latAdd, lmtIn, key, {}, lines });
    }
    stock_SetLine({ lines, u"Auf'm Kamp"_s, 3000000022LL, 2 });
    post({ latSub, lmtOut, u"Auf'm Kamp"_s });
    EXPECT_EQ(counts(21), u"0|0|0|0"_s);
    EXPECT_EQ(counts(3000000022LL), u"3|0|0|3"_s);
    EXPECT_EQ(rows(u"select COUNTLAGER, COUNTBESTELLT from "_s + lines + u" where IDPARENT='"_s + other + u"'"_s),
              QStringList{ u"0|0"_s });
    EXPECT_EQ(rows(u"select ANZAHL, OUT_IDBELEGNUMMERIN from LagerLog where LLMODE=1"_s), QStringList{ u"2|3000000000"_s });
}

TEST_F(LagerPostingTest, MissingTablesOfTheLineFailTheCall)
{
    stock_AddArticle(13, u"Axt"_s);
    const QString document = kxtest::oneLineDocument(13, 2);
    exec(u"drop table Bestellungen_artikel"_s);
    EXPECT_THROW(post({ latAdd, lmtIn, document }), kx::DatabaseError);
    EXPECT_EQ(counts(13), u"2|0|0|2"_s) << "the count update before the failing look-up stays";
}

TEST_F(LagerPostingTest, MaxAvailAndSalesPrice)
{
    const struct {
        QString ignore, bestand;
        double expected;
    } cases[] = {
        { u"1"_s, u"12.5"_s, -280772 }, { u"null"_s, u"12.5"_s, 12.5 }, { u"0"_s, u"3"_s, 3 },
        { u"0"_s, u"null"_s, -280772 }, { u"null"_s, u"-4.25"_s, -4.25 },
    };
    int idnummer = 400;
    TCLagerAction action;
    for (const auto &c : cases) {
        const QString id = stock_AddArticle(++idnummer, u"Kanister"_s);
        exec(u"update Artikel set IGNOREBESTAND="_s + c.ignore + u", BESTAND="_s + c.bestand + u" where ID='"_s + id + u"'"_s);
        EXPECT_DOUBLE_EQ(action.GetMaxAvail(id), c.expected) << c.ignore.toStdString() << " " << c.bestand.toStdString();
        EXPECT_DOUBLE_EQ(action.GetMaxAvail(id, u"irgendein Lager"_s), c.expected);
    }
    EXPECT_DOUBLE_EQ(action.GetMaxAvail(u"unbekannt"_s), -280772);

}

} // namespace
