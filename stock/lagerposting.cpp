// SPDX-License-Identifier: LGPL-2.1-or-later
// Posting of whole stock and order documents: only the part of each line not yet booked.
#include "lagercommon.h"

#include "lageramount.h"
#include "kxerror.h"
#include "sqlconnection.h"
#include "sqlquery.h"
#include "sqltool.h"
#include "strtools.h"

using namespace Qt::StringLiterals;
using kx::stock::bookingAssignment;

namespace {

// The conditions shared by both postings: the document's lines, without the lines already
// booked (except for resets, which take every line), never article 999999 or no article.
void addLineConditions(TCStrings &sql, const QString &linkvalue, TCLagerActionType action, const QString &bookedColumn)
{
    sql.Add(u"WHERE IDPARENT='"_s + sqlConvertString(linkvalue) + u"'"_s);
    if (action == latAdd || action == latSub)
        sql.Add(u"AND ANZAHL<>"_s + bookedColumn);
    sql.Add(u"AND IDNUMMER<>999999"_s);
    sql.Add(u"AND (NOT (IDNUMMER IS NULL))"_s);
}

QString articleLock(const QString &idnummer)
{
    return u"LAGER_"_s + idnummer;
}

// Inside a transaction every lock lasts until its end, so all the document's articles are locked
// before the first line is booked, in one order for every posting: two postings that share
// articles then never wait for each other in a circle.
void lockArticles(TCSqlQuery &lines)
{
    if (!compSqlConnection->inTransaction())
        return;
    QStringList names;
    for (lines.First(); !lines.Eof(); lines.Next())
        names << articleLock(lines.FieldByName(u"IDNUMMER"_s).AsString());
    lines.First();
    names.sort();
    names.removeDuplicates();
    for (const QString &name : names)
        kx::SqlLock lock(name);
}

template<class Posting>
int postWhole(TCLagerAction &action, Posting posting)
{
    const QString document = action.fLinkvalue;
    const QString table = action.fTablename.toUpper();
    try {
        kx::SqlTransaction transaction;
        const kx::SqlLock documentLock(Lager_DocumentLock(table, document));
        posting();
        transaction.commit();
        return action.LinesPosted();
    } catch (const kx::DatabaseError &error) {
        throw kx::DatabaseError(u"Beleg %1 in %2 wurde nicht gebucht, auch nicht teilweise.\n%3"_s
                                    .arg(document, table, error.message()),
                                error.statement(), error.nativeText());
    }
}

} // namespace

QString Lager_DocumentLock(const QString &table, const QString &document)
{
    return u"BELEG_"_s + table.toUpper() + u'_' + document;
}

int Lager_PostDocument(TCLagerAction &action)
{
    return postWhole(action, [&action] { action.Execute(); });
}

int Lager_PostOrder(TCLagerAction &action)
{
    return postWhole(action, [&action] { action.ExecuteOrder(); });
}

void TCLagerAction::openLines()
{
    DataQuery->Open();
    m_linesPosted = DataQuery->RecordCount();
    lockArticles(*DataQuery);
}

void TCLagerAction::Execute()
{
    fTablename = fTablename.toUpper();
    DataQuery->SQL.Clear();
    if (fEnableMultiStorage) {
        fUseCharge = false; // batches and storage locations are never combined
        DataQuery->SQL.Add(u"SELECT IDNUMMER,ANZAHL,COUNTLAGER,id,LagerID FROM "_s + fTablename);
    } else if (fUseCharge) {
        DataQuery->SQL.Add(u"SELECT IDNUMMER,ANZAHL,COUNTLAGER,HASCHARGE,CHARGEID,id FROM "_s + fTablename);
    } else {
        DataQuery->SQL.Add(u"SELECT IDNUMMER,ANZAHL,COUNTLAGER,id FROM "_s + fTablename);
    }
    addLineConditions(DataQuery->SQL, fLinkvalue, fAction, u"COUNTLAGER"_s);
    openLines();

    while (!DataQuery->Eof()) {
        const QString lineId = DataQuery->FieldByName(u"id"_s).AsString();
        // One line's counts and log rows are read and written back under the article's lock, so
        // that two workstations booking the same article never draw on one receipt twice.
        const kx::SqlLock lock(articleLock(DataQuery->FieldByName(u"IDNUMMER"_s).AsString()));
        if (!fUseCharge) {
            CalcLagerCount(lineId, fEnableMultiStorage ? DataQuery->FieldByName(u"LagerID"_s).AsString() : QString());
        } else {
            const QString chargeId = DataQuery->FieldByName(u"CHARGEID"_s).AsString();
            if (!hStrToBool(DataQuery->FieldByName(u"HASCHARGE"_s).AsString()) || chargeId.isEmpty()) {
                CalcLagerCount(lineId, QString());
            } else {
                const double A = DataQuery->FieldByName(u"ANZAHL"_s).AsFloat();
                const double C = DataQuery->FieldByName(u"COUNTLAGER"_s).AsFloat();
                runModi({ u"UPDATE ARTIKEL_CHARGE SET"_s,
                          bookingAssignment(u"ANZAHLAUSGEGEBEN"_s, fAction, A, C, true) + u',',
                          bookingAssignment(u"ANZAHLVERFUEGBAR"_s, fAction, A, C),
                          u"WHERE ID='"_s + sqlConvertString(chargeId) + u"'"_s });
                CalcLagerCountBasedOnCharge(lineId);
            }
        }
        DataQuery->Next();
    }
    DataQuery->Close();

    // Deliberate: resets mark their lines as booked too, although the stock went back.
    runModi({ u"UPDATE "_s + fTablename + u" SET COUNTLAGER=ANZAHL WHERE IDPARENT='"_s + sqlConvertString(fLinkvalue) + u"'"_s });
}

void TCLagerAction::ExecuteOrder()
{
    fTablename = fTablename.toUpper();
    DataQuery->SQL.Clear();
    DataQuery->SQL.Add(u"SELECT IDNUMMER,ANZAHL,COUNTBESTELLT FROM "_s + fTablename);
    addLineConditions(DataQuery->SQL, fLinkvalue, fAction, u"COUNTBESTELLT"_s);
    openLines();

    while (!DataQuery->Eof()) {
        const double A = DataQuery->FieldByName(u"ANZAHL"_s).AsFloat();
        const double B = DataQuery->FieldByName(u"COUNTBESTELLT"_s).AsFloat();
        const QString assignment =
            u"UPDATE ARTIKEL SET "_s + bookingAssignment(u"COUNTBESTELLT"_s, fAction, A, B);
        runModi({ assignment, u"WHERE IDNUMMER="_s + DataQuery->FieldByName(u"IDNUMMER"_s).AsString() });
        DataQuery->Next();
    }
    DataQuery->Close();

    // Over all articles, not only this document's: nothing may show a negative quantity on order.
    runModi({ u"UPDATE ARTIKEL SET COUNTBESTELLT=0 WHERE COUNTBESTELLT<0"_s });
    runModi({ u"UPDATE "_s + fTablename + u" SET COUNTBESTELLT=ANZAHL WHERE IDPARENT='"_s + sqlConvertString(fLinkvalue) + u"'"_s });
}
