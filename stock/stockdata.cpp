// SPDX-License-Identifier: LGPL-2.1-or-later
#include "stockdata.h"

#include "dataaccess.h"
#include "kxerror.h"
#include "sqlconnection.h"
#include "sqlquery.h"
#include "sqltool.h"

using namespace Qt::StringLiterals;

namespace {

const QString money = u"Numeric(15,2)"_s;
const QString key = u"Varchar(33)"_s;

QList<TCTableDef> moduleTables()
{
    // Counts are plain numbers; the engine adds to them, so rows are written with 0, never null.
    return {
        { u"Artikel"_s,
          { { u"ID"_s, key, fUniqueIndex }, { u"IDNUMMER"_s, u"Numeric(10,0)"_s, fUniqueIndex },
            { u"BEZEICHNUNG"_s, u"VarChar(80)"_s }, { u"COUNTLAGER"_s, money }, { u"COUNTBESTAND"_s, money },
            { u"COUNTCHARGE"_s, money }, { u"BESTAND"_s, money }, { u"COUNTBESTELLT"_s, money },
            { u"IGNOREBESTAND"_s, u"Numeric(10,0)"_s },
            // The article's group and default storage location; the total's second statement
            // of a multi-storage booking names them in its condition.
            { u"IDPARENT"_s, key }, { u"LAGERID"_s, key } },
          {}, standardRights() },
        { u"Artikel_Lager"_s,
          { { u"ID"_s, key, fUniqueIndex }, { u"IDPARENT"_s, key, fIndex }, { u"LAGERID"_s, key, fIndex },
            { u"COUNTLAGER"_s, money }, { u"COUNTBESTAND"_s, money }, { u"BESTAND"_s, money } },
          {}, standardRights() },
        { u"ARTIKEL_CHARGE"_s,
          { { u"ID"_s, key, fUniqueIndex }, { u"IDPARENT"_s, key, fIndex }, { u"CHARGE"_s, u"VarChar(50)"_s },
            { u"ANZAHLAUSGEGEBEN"_s, money }, { u"ANZAHLVERFUEGBAR"_s, money } },
          {}, standardRights() },
        { u"Bestellungen"_s, { { u"ID"_s, key, fUniqueIndex }, { u"DATUM"_s, u"Date"_s } }, {}, standardRights() },
        { QString::fromUtf16(OrderLineTable),
          { { u"ID"_s, key, fUniqueIndex }, { u"IDPARENT"_s, key, fIndex }, { u"IDNUMMER"_s, u"Numeric(10,0)"_s },
            { u"ANZAHL"_s, money }, { u"COUNTBESTELLT"_s, money }, { u"COUNTLAGER"_s, money }, { u"NETTO"_s, money } },
          {}, standardRights() },
        { QString::fromUtf16(StockLineTable),
          { { u"ID"_s, key, fUniqueIndex }, { u"IDPARENT"_s, key, fIndex }, { u"IDNUMMER"_s, u"Numeric(10,0)"_s },
            { u"ANZAHL"_s, money }, { u"COUNTLAGER"_s, money }, { u"COUNTBESTELLT"_s, money },
            { u"NETTO"_s, money }, { u"HASCHARGE"_s, u"Numeric(10,0)"_s }, { u"CHARGEID"_s, key },
            { u"LAGERID"_s, key } },
          {}, standardRights() },
    };
}

// Opens a query on the application's connection; the caller reads it.
void openQuery(TCSqlQuery &query, const QString &sql)
{
    query.Connection = compSqlConnection;
    query.SQL.Clear();
    query.SQL.Add(sql);
    query.Open();
}

} // namespace

QList<TCTableDef> stock_Tables()
{
    return moduleTables();
}

void stock_CreateModuleTables()
{
    for (const TCTableDef &table : moduleTables())
        alterOrCreateTable(table, compSqlConnection);
}

QString stock_AddArticle(qint64 idnummer, const QString &name, double baseStock)
{
    const QString id = sqlGenIdValue();
    kx::SqlValueList row;
    row.addText(u"ID"_s, id)
        .add(u"IDNUMMER"_s, QString::number(idnummer))
        .addText(u"BEZEICHNUNG"_s, name)
        .add(u"COUNTLAGER"_s, u"0"_s)
        .add(u"COUNTBESTAND"_s, sqlConvertFloat(baseStock))
        .add(u"COUNTCHARGE"_s, u"0"_s)
        .add(u"BESTAND"_s, sqlConvertFloat(baseStock))
        .add(u"COUNTBESTELLT"_s, u"0"_s)
        .add(u"IGNOREBESTAND"_s, u"0"_s);
    SqlExec(SqlBuildInsertSql(u"Artikel"_s, row.pairs()));
    return id;
}

QString stock_AddCharge(const QString &articleId, const QString &name, double available)
{
    const QString id = sqlGenIdValue();
    kx::SqlValueList row;
    row.addText(u"ID"_s, id)
        .addText(u"IDPARENT"_s, articleId)
        .addText(u"CHARGE"_s, name)
        .add(u"ANZAHLAUSGEGEBEN"_s, u"0"_s)
        .add(u"ANZAHLVERFUEGBAR"_s, sqlConvertFloat(available));
    SqlExec(SqlBuildInsertSql(u"ARTIKEL_CHARGE"_s, row.pairs()));
    return id;
}

QString stock_AddOrder()
{
    const QString id = sqlGenIdValue();
    SqlExec(u"Insert into Bestellungen (ID,DATUM) values ("_s + kx::sqlQuoted(id) + u",'"_s
            + sqlConvertDate(QDate::currentDate()) + u"')"_s);
    return id;
}

QString stock_SetLine(const StockLine &line)
{
    QString where = u" where IDPARENT="_s + kx::sqlQuoted(line.document) + u" and IDNUMMER="_s + QString::number(line.idnummer);
    if (!line.chargeId.isEmpty())
        where += u" and CHARGEID="_s + kx::sqlQuoted(line.chargeId);
    if (!line.lagerId.isEmpty())
        where += u" and LAGERID="_s + kx::sqlQuoted(line.lagerId);
    const bool orderLines = line.table.compare(QString::fromUtf16(OrderLineTable), Qt::CaseInsensitive) == 0;
    QString id = sqlGetValue(u"select ID from "_s + line.table + where);
    if (!id.isEmpty()) {
        SqlExec(u"update "_s + line.table + u" set ANZAHL="_s + sqlConvertFloat(line.quantity)
                + (line.netto ? u",NETTO="_s + sqlConvertFloat(*line.netto) : QString()) + u" where ID="_s
                + kx::sqlQuoted(id));
        return id;
    }
    id = sqlGenIdValue();
    kx::SqlValueList row;
    row.addText(u"ID"_s, id)
        .addText(u"IDPARENT"_s, line.document)
        .add(u"IDNUMMER"_s, QString::number(line.idnummer))
        .add(u"ANZAHL"_s, sqlConvertFloat(line.quantity))
        .add(u"COUNTLAGER"_s, u"0"_s)
        .add(u"COUNTBESTELLT"_s, u"0"_s)
        .add(u"NETTO"_s, sqlConvertFloat(line.netto.value_or(0)));
    if (!orderLines) {
        row.add(u"HASCHARGE"_s, line.chargeId.isEmpty() ? u"0"_s : u"1"_s);
        if (!line.chargeId.isEmpty())
            row.addText(u"CHARGEID"_s, line.chargeId);
        if (!line.lagerId.isEmpty())
            row.addText(u"LAGERID"_s, line.lagerId);
    }
    SqlExec(SqlBuildInsertSql(line.table, row.pairs()));
    return id;
}

QString stock_ArticleId(qint64 idnummer)
{
    return sqlGetValue(u"select ID from Artikel where IDNUMMER="_s + QString::number(idnummer));
}

namespace {

const QString articleColumns = u"select ID,IDNUMMER,BEZEICHNUNG,COUNTLAGER,COUNTBESTAND,COUNTCHARGE,BESTAND,COUNTBESTELLT "
                               u"from Artikel"_s;

StockArticle articleRow(const TCSqlQuery &query)
{
    StockArticle a;
    a.id = query.FieldByName(u"ID"_s).AsString();
    a.idnummer = query.FieldByName(u"IDNUMMER"_s).AsLargeInt();
    a.name = query.FieldByName(u"BEZEICHNUNG"_s).AsString();
    a.countLager = query.FieldByName(u"COUNTLAGER"_s).AsFloat();
    a.countBestand = query.FieldByName(u"COUNTBESTAND"_s).AsFloat();
    a.countCharge = query.FieldByName(u"COUNTCHARGE"_s).AsFloat();
    a.bestand = query.FieldByName(u"BESTAND"_s).AsFloat();
    a.countBestellt = query.FieldByName(u"COUNTBESTELLT"_s).AsFloat();
    return a;
}

} // namespace

StockArticle stock_ReadArticle(qint64 idnummer)
{
    TCSqlQuery query;
    openQuery(query, articleColumns + u" where IDNUMMER="_s + QString::number(idnummer));
    if (query.Eof())
        throw kx::Error(u"Artikel %1 ist nicht vorhanden."_s.arg(idnummer));
    return articleRow(query);
}

QList<StockArticle> stock_ReadArticles()
{
    TCSqlQuery query;
    openQuery(query, articleColumns + u" order by IDNUMMER"_s);
    QList<StockArticle> articles;
    for (; !query.Eof(); query.Next())
        articles << articleRow(query);
    return articles;
}

QList<StockDocument> stock_ReadDocuments(const QString &table, const QString &document)
{
    TCSqlQuery query;
    openQuery(query, u"select IDPARENT, count(*) as LINES, sum(ANZAHL) as ANZAHL, sum(COUNTLAGER) as GEBUCHT, "
                     u"sum(COUNTBESTELLT) as BESTELLT from "_s
                         + table + (document.isEmpty() ? QString() : u" where IDPARENT="_s + kx::sqlQuoted(document))
                         + u" group by IDPARENT order by IDPARENT"_s);
    QList<StockDocument> documents;
    for (; !query.Eof(); query.Next())
        documents << StockDocument{ table,
                                    query.FieldByName(u"IDPARENT"_s).AsString(),
                                    query.FieldByName(u"LINES"_s).AsInteger(),
                                    query.FieldByName(u"ANZAHL"_s).AsFloat(),
                                    query.FieldByName(u"GEBUCHT"_s).AsFloat(),
                                    query.FieldByName(u"BESTELLT"_s).AsFloat() };
    return documents;
}

QList<StockLogRow> stock_ReadLog(const QString &articleId)
{
    TCSqlQuery query;
    openQuery(query, u"select ID,DATUM,UHRZEIT,ART,TABELLE,LINKID,OUT_IDIN,TSTAMP,LLMODE,SOURCEMODE,ANZAHL,"
                     u"OLDCOUNTBESTAND,COUNTBESTAND,PREIS,INCOUNTAVAIL from LagerLog where IDARTIKEL="_s
                         + kx::sqlQuoted(articleId) + u" order by TSTAMP"_s);
    QList<StockLogRow> rows;
    for (; !query.Eof(); query.Next()) {
        StockLogRow r;
        r.id = query.FieldByName(u"ID"_s).AsString();
        r.datum = query.FieldByName(u"DATUM"_s).AsDate();
        r.uhrzeit = query.FieldByName(u"UHRZEIT"_s).AsString();
        r.art = query.FieldByName(u"ART"_s).AsString();
        r.tabelle = query.FieldByName(u"TABELLE"_s).AsString();
        r.linkId = query.FieldByName(u"LINKID"_s).AsString();
        r.outIdIn = query.FieldByName(u"OUT_IDIN"_s).AsString();
        r.tstamp = query.FieldByName(u"TSTAMP"_s).AsString();
        r.llmode = query.FieldByName(u"LLMODE"_s).AsInteger();
        r.sourcemode = query.FieldByName(u"SOURCEMODE"_s).AsInteger();
        r.anzahl = query.FieldByName(u"ANZAHL"_s).AsFloat();
        r.oldCount = query.FieldByName(u"OLDCOUNTBESTAND"_s).AsFloat();
        r.newCount = query.FieldByName(u"COUNTBESTAND"_s).AsFloat();
        r.preis = query.FieldByName(u"PREIS"_s).AsFloat();
        r.inCountAvail = query.FieldByName(u"INCOUNTAVAIL"_s).AsFloat();
        rows << r;
    }
    return rows;
}

QList<StockMonthRow> stock_ReadMonths(const QString &articleId)
{
    TCSqlQuery query;
    openQuery(query, u"select JAHR,MONAT,ANFANGSBESTAND,ENDBESTAND,ANFANGSDATE,ENDDATE from LagerLogMonth "
                     u"where IDARTIKEL="_s
                         + kx::sqlQuoted(articleId) + u" order by JAHR,MONAT"_s);
    QList<StockMonthRow> rows;
    for (; !query.Eof(); query.Next()) {
        StockMonthRow r;
        r.jahr = query.FieldByName(u"JAHR"_s).AsInteger();
        r.monat = query.FieldByName(u"MONAT"_s).AsInteger();
        r.anfangsbestand = query.FieldByName(u"ANFANGSBESTAND"_s).AsFloat();
        r.endbestand = query.FieldByName(u"ENDBESTAND"_s).AsFloat();
        r.anfangsdate = query.FieldByName(u"ANFANGSDATE"_s).AsDate();
        r.enddate = query.FieldByName(u"ENDDATE"_s).AsDate();
        rows << r;
    }
    return rows;
}
