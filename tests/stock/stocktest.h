// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "lagercommon.h"
#include "stockdata.h"
#include "testdatabase.h"

#include <QDate>

namespace kxtest {

// An empty database with the system tables and the stock modules' tables.
class StockTest : public DatabaseTest
{
protected:
    void prepare() override;
};

// What a posting sets on the action object before Execute or ExecuteOrder.
struct Posting
{
    TCLagerActionType action = latAdd;
    TCLagerModeType mode = lmtIn;
    QString document;
    QDate bookingDate;           // not set: today
    QString table;               // empty: the stock line table
    bool useCharge = false;
    bool multiStorage = false;
    QString belegnummer;
};

void post(const Posting &posting);
void postOrder(const Posting &posting);

// A one-line document of that article and quantity; returns the document key.
QString oneLineDocument(qint64 idnummer, double quantity, double netto = 0);
// The article's counts as "COUNTLAGER|COUNTBESTAND|COUNTCHARGE|BESTAND" in the format settings.
QString counts(qint64 idnummer);

} // namespace kxtest
