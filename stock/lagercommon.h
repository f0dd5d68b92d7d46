// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include "holder.h"

#include <QDateTime>
#include <QObject>
#include <QPointer>
#include <QString>

class TCSqlQuery;
namespace kx {
class SqlValueList;
}

namespace LagerCommon {
Q_NAMESPACE_EXPORT(KXCOMMON_CORE_EXPORT)

// Direction of a booking.
enum TCLagerActionType { latAdd, latSub, latResetAdd, latResetSub };
Q_ENUM_NS(TCLagerActionType)

// Kind of the document that is posted.
enum TCLagerModeType { lmtIn, lmtOut, lmtCorrection, lmtStocktaking };
Q_ENUM_NS(TCLagerModeType)

} // namespace LagerCommon

using LagerCommon::TCLagerActionType;
using LagerCommon::TCLagerModeType;
using enum LagerCommon::TCLagerActionType;
using enum LagerCommon::TCLagerModeType;

// Posts stock and order documents: the caller sets the properties that describe the document
// and calls Execute or ExecuteOrder. Every statement commits on its own unless the caller has
// opened a transaction; nothing is caught. Lager_PostDocument and Lager_PostOrder post a
// document wholly or not at all, and once.
class KXCOMMON_CORE_EXPORT TCLagerAction : public QObject
{
    Q_OBJECT
    Q_PROPERTY(LagerCommon::TCLagerActionType Action MEMBER fAction)
    Q_PROPERTY(LagerCommon::TCLagerModeType Mode MEMBER fMode)
    Q_PROPERTY(QString Tablename MEMBER fTablename)
    Q_PROPERTY(QString Linkvalue MEMBER fLinkvalue)
    Q_PROPERTY(bool UseCharge MEMBER fUseCharge)
    Q_PROPERTY(QString Modulno MEMBER fModulNo)
    Q_PROPERTY(QString idBelegnummer MEMBER fidBelegnummer)
    Q_PROPERTY(QString idBestellung MEMBER fidBestellung)
    Q_PROPERTY(QString idWareneingang MEMBER fidWareneingang)
    Q_PROPERTY(QString idEingangsrechnung MEMBER fideingangsrechnung)
    Q_PROPERTY(QString idausgabe MEMBER fidAusgabe)
    Q_PROPERTY(QDateTime LogActionDate MEMBER fLogActionDate)
    Q_PROPERTY(bool EnableMultiStorage MEMBER fEnableMultiStorage)

public:
    TCLagerAction();
    ~TCLagerAction() override;

    TCSqlQuery *DataQuery;
    TCSqlQuery *LogQuery;
    TCSqlQuery *ModiQuery;

    TCLagerActionType fAction = latAdd;
    TCLagerModeType fMode = lmtIn;
    QString fTablename;
    QString fLinkvalue;
    bool fUseCharge = false;
    QString fModulNo;
    QString fidBelegnummer;
    QString fidBestellung;
    QString fidWareneingang;
    QString fideingangsrechnung;
    QString fidAusgabe;
    QDateTime fLogActionDate;
    bool fEnableMultiStorage = false;

    // The smallest date-time value: LogActionDate holding it means "book on today".
    static QDateTime notSet();

    static QString ModeAsString(TCLagerModeType aMode);
    // As above, with the sign of a correction: "Bestandskorrektur (+)" / "(-)".
    static QString ModeAsString(TCLagerModeType aMode, double aMenge);

    // The article's total stock, or -280772 for an unknown article, a null stock or an
    // article whose stock is ignored.
    double GetMaxAvail(const QString &IdArtikel);
    // Deliberate: the storage key is not used; the result is the article's total as above.
    double GetMaxAvail(const QString &IdArtikel, const QString &IdLager);
    // Deliberately empty: posting never recomputes a sales price.
    void UpdateVK(const QString &IdArtikel);

    // Posts the stock document Linkvalue of Tablename: only what is not yet booked.
    void Execute();
    // Posts the order document Linkvalue of Tablename on the articles' quantities on order.
    void ExecuteOrder();
    // How many lines the last Execute or ExecuteOrder found to book.
    int LinesPosted() const { return m_linesPosted; }

    // Writes the stock-log rows of one booking and brings the month's balance up to date.
    void LogAction(const QString &Text, const QString &Art, double Count, double OldCount, double NewCount,
                   const QString &ArtikelID, double preis, const QString &SourceID);

    // Books the current line of DataQuery on the article (or its storage location) and logs it.
    void CalcLagerCount(const QString &LineId, const QString &LagerId);
    // Books the current batch line of DataQuery on the article's batch count.
    void CalcLagerCountBasedOnCharge(const QString &LineId);

private:
    void openLines();
    void runModi(const QStringList &lines);
    void logIssueRows(kx::SqlValueList &row, const QString &ArtikelID, double count, double &runningStock, const QDate &bookingDate);
    void updateMonthBalance(const QString &ArtikelID, double oldCount, double newCount);

    int m_linesPosted = 0;
};

// The lock name of a document: postings and line edits of one document wait for each other.
KXCOMMON_CORE_EXPORT QString Lager_DocumentLock(const QString &table, const QString &document);

// Posts the stock document (Execute) or the order document (ExecuteOrder) that the action
// describes in one transaction under the document's lock held until the commit: the document is
// booked completely or not at all, whatever fails (a refused statement, a lost connection, a
// killed program), and two programs posting it at once book it once (the second waits, then
// finds nothing left to book). Inside a transaction of the caller it is a savepoint of that one.
// Returns the number of lines booked; throws kx::DatabaseError saying that nothing was booked.
KXCOMMON_CORE_EXPORT int Lager_PostDocument(TCLagerAction &action);
KXCOMMON_CORE_EXPORT int Lager_PostOrder(TCLagerAction &action);

// Holder of stock keeping for the suite's modules; the package's own postings run on the
// queries of TCLagerAction.
class KXCOMMON_CORE_EXPORT TLagerCommonForm : public THolderForm
{
    Q_OBJECT

public:
    explicit TLagerCommonForm(QObject *owner);

    TCSqlQuery *DataQuery;
    TCSqlQuery *ModiQuery;
};

extern KXCOMMON_CORE_EXPORT QPointer<TLagerCommonForm> LagerCommonForm;
