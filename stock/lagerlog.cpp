// SPDX-License-Identifier: LGPL-2.1-or-later
// The stock log: one row per receipt, issues drawn first-in-first-out on the open receipts,
// and the article's balance of the current month.
#include "lagercommon.h"

#include "formatsettings.h"
#include "lageramount.h"
#include "globals.h"
#include "log.h"
#include "sqlconnection.h"
#include "sqlquery.h"
#include "sqltool.h"

#include <QThread>

using namespace Qt::StringLiterals;

namespace {

// A text value between quotes, its quotes doubled.
QString quoted(const QString &text)
{
    return kx::sqlQuoted(text);
}

} // namespace

void TCLagerAction::LogAction(const QString &Text, const QString &, double Count, double OldCount, double NewCount,
                              const QString &ArtikelID, double preis, const QString &SourceID)
{
    const QDateTime now = QDateTime::currentDateTime();
    QDate bookingDate = now.date();
    QString stamp = now.toString(u"yyyyMMddHHmmsszzz"_s);
    if (fLogActionDate != notSet() && fLogActionDate.date() != now.date()) {
        bookingDate = fLogActionDate.date();
        stamp = bookingDate.toString(u"yyyyMMdd"_s) + now.toString(u"HHmmsszzz"_s);
    }

    // Texts go in between quotes as they are; only the converters' values are converted.
    kx::SqlValueList row;
    row.add(u"id"_s, quoted(sqlGenIdValue()))
        .add(u"Datum"_s, quoted(sqlConvertDate(bookingDate)))
        .add(u"Uhrzeit"_s, quoted(now.time().toString(FormatSettings().LongTimeFormat)))
        .add(u"Benutzer"_s, quoted(User.Name))
        .add(u"TABELLE"_s, quoted(Text))
        .add(u"Art"_s, quoted(ModeAsString(fMode, Count)))
        .add(u"OLDCOUNTBESTAND"_s, sqlConvertFloat(OldCount))
        .add(u"COUNTBESTAND"_s, sqlConvertFloat(NewCount))
        .add(u"Anzahl"_s, sqlConvertFloat(Count))
        .add(u"idArtikel"_s, quoted(ArtikelID))
        .add(u"modulnr"_s, quoted(fModulNo))
        .add(u"llmode"_s, QString::number(int(fMode)))
        .add(u"sourcemode"_s, QString::number(int(fMode)))
        .add(u"TStamp"_s, quoted(stamp))
        .add(u"Preis"_s, sqlConvertFloat(kx::formatFloat(preis)))
        .add(u"linkid"_s, quoted(SourceID));
    const std::pair<const char16_t *, const QString *> documentKeys[] = {
        { u"idbelegnummer", &fidBelegnummer },   { u"idBestellung", &fidBestellung },
        { u"idWareneingang", &fidWareneingang }, { u"ideingangsrechnung", &fideingangsrechnung },
        { u"idAusgabe", &fidAusgabe },
    };
    for (const auto &[column, value] : documentKeys) {
        if (!value->isEmpty())
            row.add(QString::fromUtf16(column), quoted(*value));
    }
    row.add(u"OUT_IDIN"_s, u"''"_s);

    const bool countedMode = fMode == lmtCorrection || fMode == lmtStocktaking;
    double runningStock = OldCount;
    if ((countedMode && Count > 0) || fMode == lmtIn) {
        // A positive correction counts as a receipt that issues can draw on.
        row.set(u"llmode"_s, u"0"_s).add(u"INCOUNTAVAIL"_s, sqlConvertFloat(Count));
        SqlExec(SqlBuildInsertSql(u"LagerLog"_s, row.pairs()));
    } else if (fMode == lmtOut || (countedMode && Count < 0)) {
        row.set(u"llmode"_s, u"1"_s).add(u"INCOUNTAVAIL"_s, u"0"_s);
        logIssueRows(row, ArtikelID, Count, runningStock, bookingDate);
    }

    try {
        // Inside a caller transaction a savepoint keeps its failure from spoiling the booking.
        kx::SqlTransaction guard(kx::SqlTransaction::Outside::Nothing);
        updateMonthBalance(ArtikelID, runningStock, NewCount);
        guard.commit();
    } catch (const std::exception &error) {
        // The balance is a summary of the log: its failure must not undo or stop the booking.
        writeErrorLog(kxLogStock(), u"TCLagerAction.LogAction: Monatsbestand nicht fortgeschrieben: "_s
                      + QString::fromUtf8(error.what()));
    }
    UpdateVK(ArtikelID);
}

void TCLagerAction::logIssueRows(kx::SqlValueList &row, const QString &ArtikelID, double count, double &runningStock, const QDate &bookingDate)
{
    double R = kx::stock::logAmount(std::abs(count));
    bool found = false;
    double T = 0;
    do {
        T = 0;
        LogQuery->SQL.Clear();
        LogQuery->SQL.Add(u"Select * from LagerLog Where INCOUNTAVAIL>0 and idArtikel = '"_s
                          + sqlConvertString(ArtikelID) + u"' and datum<='"_s
                          + sqlConvertDate(bookingDate) + u"' order by datum,uhrzeit"_s);
        LogQuery->Open();
        found = !LogQuery->Eof();
        QString receiptId;
        double receiptPrice = 0;
        qint64 receiptNumber = 0; // Numeric(10,0): ten digits do not fit 32 bits
        if (found) {
            const double V = kx::stock::logAmount(LogQuery->FieldByName(u"INCOUNTAVAIL"_s).AsFloat());
            receiptId = LogQuery->FieldByName(u"id"_s).AsString();
            receiptPrice = LogQuery->FieldByName(u"Preis"_s).AsFloat();
            receiptNumber = LogQuery->FieldByName(u"idbelegnummer"_s).AsLargeInt();
            if (R < V) {
                T = R;
                SqlExec(u"Update Lagerlog set INCOUNTAVAIL="_s + sqlConvertFloat(kx::stock::logAmount(V - R)) + u" where id ='"_s + sqlConvertString(receiptId)
                        + u"'"_s);
            } else {
                T = V;
                SqlExec(u"Update Lagerlog set INCOUNTAVAIL=0 where id ='"_s + sqlConvertString(receiptId) + u"'"_s);
            }
        }
        LogQuery->Close();

        const QDateTime now = QDateTime::currentDateTime();
        row.set(u"id"_s, quoted(sqlGenIdValue()))
            .set(u"TStamp"_s, quoted(bookingDate.toString(u"yyyyMMdd"_s) + now.toString(u"HHmmsszzz"_s)))
            .set(u"OUT_IDIN"_s, quoted(receiptId))
            .set(u"OUT_IDBELEGNUMMERIN"_s, QString::number(receiptNumber))
            .set(u"Preis"_s, sqlConvertFloat(receiptPrice))
            .set(u"OLDCOUNTBESTAND"_s, sqlConvertFloat(runningStock))
            .set(u"COUNTBESTAND"_s, sqlConvertFloat(kx::stock::logAmount(runningStock - T)));
        runningStock = kx::stock::logAmount(runningStock - T);
        // Without a receipt the row keeps the quantity it holds: the passed count on the first
        // pass, the last part taken on a later one.
        if (found) {
            row.set(u"Anzahl"_s, sqlConvertFloat(T));
            if (T != R)
                R = kx::stock::logAmount(R - T);
        }
        SqlExec(SqlBuildInsertSql(u"LagerLog"_s, row.pairs()));
        QThread::msleep(1); // the next row's time stamp must differ
        // Deliberate: compared after R was reduced, so a remainder equal to the part just
        // taken ends the loop (8 against receipts of 4 and 10 logs one row of 4).
    } while (R != T && found);
}

void TCLagerAction::updateMonthBalance(const QString &ArtikelID, double oldCount, double newCount)
{
    const QDate today = QDate::currentDate();
    const QString month = today.toString(u"MM"_s);
    const QString year = today.toString(u"yyyy"_s);
    kx::SqlValueList balance;
    balance.add(u"id"_s, quoted(sqlGenIdValue()))
        .add(u"IDARTIKEL"_s, quoted(ArtikelID))
        .add(u"MONAT"_s, month)
        .add(u"JAHR"_s, year)
        .add(u"ANFANGSBESTAND"_s, sqlConvertFloat(oldCount))
        .add(u"ENDBESTAND"_s, sqlConvertFloat(newCount))
        .add(u"ANFANGSDATE"_s, quoted(sqlConvertDate(today)))
        .add(u"ENDDATE"_s, quoted(sqlConvertDate(today)));

    LogQuery->SQL.Clear();
    LogQuery->SQL.Add(u"Select id,ANFANGSBESTAND,ANFANGSDATE from LagerLogMonth"_s);
    LogQuery->SQL.Add(u"Where IdArtikel='"_s + sqlConvertString(ArtikelID) + u"'"_s);
    LogQuery->SQL.Add(u"and Monat="_s + month);
    LogQuery->SQL.Add(u"and Jahr="_s + year);
    LogQuery->Open();
    if (!LogQuery->Eof()) {
        // The month's opening stock and date stay those of its first booking.
        balance.set(u"ANFANGSBESTAND"_s, sqlConvertFloat(LogQuery->FieldByName(u"ANFANGSBESTAND"_s).AsString()))
            .set(u"ANFANGSDATE"_s, quoted(sqlConvertDate(LogQuery->FieldByName(u"ANFANGSDATE"_s).AsString())));
        const QString rowId = LogQuery->FieldByName(u"id"_s).AsString();
        LogQuery->Close();
        SqlExec(SqlBuildUpdateSql(u"LagerLogMonth"_s, balance.pairs(), u"Where id='"_s + sqlConvertString(rowId) + u"'"_s));
    } else {
        LogQuery->Close();
        SqlExec(SqlBuildInsertSql(u"LagerLogMonth"_s, balance.pairs()));
    }
}
