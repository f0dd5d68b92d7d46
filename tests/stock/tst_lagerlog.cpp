// SPDX-License-Identifier: LGPL-2.1-or-later
// The stock log beyond the ledger property: what a row records, the monthly balance's row, and
// which failures end a posting.
#include "log.h"
#include "scratchfiles.h"
#include "sqltool.h"
#include "stocktest.h"
#include "strtools.h"

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

// Every property a caller sets by name reaches the row (the others are set by name in every posting).
TEST_F(LagerLogTest, RowTextsDatesAndDocumentKeys)
{
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
    action.setProperty("idBestellung", u"B-3"_s); // each line's order replaces it: none here
    action.setProperty("idEingangsrechnung", u"ER-4"_s);
    action.setProperty("LogActionDate", QDateTime(earlier, QTime(10, 0)));
    const QString before = QDateTime::currentDateTime().toString(u"HHmmss"_s);
    action.Execute();

    EXPECT_EQ(rows(u"select DATUM, BENUTZER, TABELLE, ART, MODULNR, IDBELEGNUMMER, IDWARENEINGANG, IDAUSGABE, "
                   u"IDBESTELLUNG, IDEINGANGSRECHNUNG, OUT_IDIN, PREIS from LagerLog"_s),
              QStringList{ earlier.toString(u"dd.MM.yyyy"_s)
                           + u"|Prüfer|LAGERBELEG_POS|Lager Eingang|0002|4711|WE-1|AUS-9||ER-4||12,5"_s });
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

// The month's opening and closing are the ledger property's, its row kept under its key the golden
// posting's; another month's row of the article is left alone.
TEST_F(LagerLogTest, MonthlyBalanceLeavesOtherMonthsAlone)
{
    const QString articleId = stock_AddArticle(800, u"Hohlstrahlrohr"_s, 5);
    exec(u"insert into LagerLogMonth (ID,IDARTIKEL,MONAT,JAHR,ANFANGSBESTAND,ENDBESTAND) values ('alt','"_s + articleId
         + u"',1,1999,7,8)"_s);
    post({ latAdd, lmtIn, kxtest::oneLineDocument(800, 1, 1) });
    EXPECT_EQ(rows(u"select ANFANGSBESTAND, ENDBESTAND from LagerLogMonth where ID='alt'"_s), QStringList{ u"7|8"_s });
    EXPECT_EQ(stock_ReadMonths(articleId).size(), 2);
}

TEST_F(LagerLogTest, FailingBalanceIsSwallowedOtherFailuresAreNot)
{
    const QString articleId = stock_AddArticle(810, u"Verteiler"_s);
    exec(u"drop table LagerLogMonth"_s);
    EXPECT_NO_THROW(post({ latAdd, lmtIn, kxtest::oneLineDocument(810, 3, 1) }));
    EXPECT_EQ(stock_ReadLog(articleId).size(), 1);
    EXPECT_EQ(kxtest::counts(810), u"3|0|0|3"_s);
    // The swallowed failure leaves a line in the error log.
    EXPECT_TRUE(QString::fromUtf8(kxtest::readFile(errorLogFilePath())).contains(u"Monatsbestand nicht fortgeschrieben"_s));

    exec(u"drop table LagerLog"_s);
    EXPECT_THROW(post({ latAdd, lmtIn, kxtest::oneLineDocument(810, 3, 1) }), kx::DatabaseError);
}

} // namespace
