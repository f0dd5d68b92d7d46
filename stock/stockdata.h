// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include "dataaccess.h"

#include <QDate>
#include <QList>
#include <QString>
#include <optional>

// The tables of the suite's stock modules (articles, storage locations, batches, orders and a
// stock document's lines) in the columns the stock engine reads and writes, and the few reads
// and writes the command line and its scripts need around a posting. The engine itself lives
// in lagercommon.h.

// The document line table of stock documents made by the command line.
inline constexpr char16_t StockLineTable[] = u"LAGERBELEG_POS";
// The order line table; posted order lines are also what receipts look their order up in.
inline constexpr char16_t OrderLineTable[] = u"Bestellungen_artikel";

// Creates or alters "Artikel", "Artikel_Lager", "ARTIKEL_CHARGE", "Bestellungen",
// "Bestellungen_artikel" and the stock line table.
KXCOMMON_CORE_EXPORT void stock_CreateModuleTables();
// The definitions of the stock modules' tables.
KXCOMMON_CORE_EXPORT QList<TCTableDef> stock_Tables();

// Adds an article with all counts 0 except its base stock; returns its key.
KXCOMMON_CORE_EXPORT QString stock_AddArticle(qint64 idnummer, const QString &name, double baseStock = 0);
// Adds a batch of an article with its available quantity; returns its key.
KXCOMMON_CORE_EXPORT QString stock_AddCharge(const QString &articleId, const QString &name, double available);
// Adds an order head; returns its key.
KXCOMMON_CORE_EXPORT QString stock_AddOrder();
// Sets the quantity of a document line: the line of that article (and batch or storage
// location) is edited when the document has it, otherwise added unbooked. Returns the line key.
struct KXCOMMON_CORE_EXPORT StockLine
{
    QString table;
    QString document;
    qint64 idnummer = 0;
    double quantity = 0;
    std::optional<double> netto; // an edited line keeps its price when none is given
    QString chargeId;  // a batch line when set
    QString lagerId;   // the storage location of a multi-storage document
};
KXCOMMON_CORE_EXPORT QString stock_SetLine(const StockLine &line);

// The key of the article with that number; empty when there is none.
KXCOMMON_CORE_EXPORT QString stock_ArticleId(qint64 idnummer);

struct KXCOMMON_CORE_EXPORT StockArticle
{
    QString id;
    qint64 idnummer = 0;
    QString name;
    double countLager = 0, countBestand = 0, countCharge = 0, bestand = 0, countBestellt = 0;
};
// Throws kx::Error when the article does not exist.
KXCOMMON_CORE_EXPORT StockArticle stock_ReadArticle(qint64 idnummer);
// Every article, by number.
KXCOMMON_CORE_EXPORT QList<StockArticle> stock_ReadArticles();

// A document of a line table: its lines and their quantities, booked and ordered.
struct KXCOMMON_CORE_EXPORT StockDocument
{
    QString table, document;
    int lines = 0;
    double anzahl = 0, countLager = 0, countBestellt = 0;
};
// The documents of a line table (or the one document named), by key.
KXCOMMON_CORE_EXPORT QList<StockDocument> stock_ReadDocuments(const QString &table, const QString &document = QString());

struct KXCOMMON_CORE_EXPORT StockLogRow
{
    QString id;
    QDate datum;
    QString uhrzeit, art, tabelle, linkId, outIdIn, tstamp;
    int llmode = 0, sourcemode = 0;
    double anzahl = 0, oldCount = 0, newCount = 0, preis = 0, inCountAvail = 0;
};
// The article's log rows by time stamp (booking date, then time of writing).
KXCOMMON_CORE_EXPORT QList<StockLogRow> stock_ReadLog(const QString &articleId);

struct KXCOMMON_CORE_EXPORT StockMonthRow
{
    int jahr = 0, monat = 0;
    double anfangsbestand = 0, endbestand = 0;
    QDate anfangsdate, enddate;
};
KXCOMMON_CORE_EXPORT QList<StockMonthRow> stock_ReadMonths(const QString &articleId);
