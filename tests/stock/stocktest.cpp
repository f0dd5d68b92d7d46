// SPDX-License-Identifier: LGPL-2.1-or-later
#include "stocktest.h"

#include "globals.h"
#include "sqltool.h"
#include "syscommon.h"

using namespace Qt::StringLiterals;

namespace kxtest {

void StockTest::prepare()
{
    Sys_CreateData();
    stock_CreateModuleTables();
    User.Name = u"Prüfer"_s;
}

namespace {

void configure(TCLagerAction &action, const Posting &posting)
{
    action.setProperty("Action", QVariant::fromValue(posting.action));
    action.setProperty("Mode", QVariant::fromValue(posting.mode));
    action.setProperty("Tablename", posting.table.isEmpty() ? QString::fromUtf16(StockLineTable) : posting.table);
    action.setProperty("Linkvalue", posting.document);
    action.setProperty("UseCharge", posting.useCharge);
    action.setProperty("EnableMultiStorage", posting.multiStorage);
    action.setProperty("Modulno", u"7010"_s);
    action.setProperty("idBelegnummer", posting.belegnummer);
    if (posting.bookingDate.isValid())
        action.setProperty("LogActionDate", QDateTime(posting.bookingDate, QTime(0, 0)));
}

} // namespace

void post(const Posting &posting)
{
    TCLagerAction action;
    configure(action, posting);
    action.Execute();
}

void postOrder(const Posting &posting)
{
    TCLagerAction action;
    configure(action, posting);
    action.ExecuteOrder();
}

QString oneLineDocument(qint64 idnummer, double quantity, double netto)
{
    const QString document = sqlGenIdValue();
    stock_SetLine({ QString::fromUtf16(StockLineTable), document, idnummer, quantity, netto });
    return document;
}

QString counts(qint64 idnummer)
{
    const StockArticle a = stock_ReadArticle(idnummer);
    return QStringList{ kx::formatFloat(a.countLager), kx::formatFloat(a.countBestand),
                        kx::formatFloat(a.countCharge), kx::formatFloat(a.bestand) }
        .join(u'|');
}

} // namespace kxtest
