// SPDX-License-Identifier: LGPL-2.1-or-later
// Sub-commands of stock keeping: module tables, articles and document lines for scripts, the
// postings, the available stock and the stock log.
#include "command.h"

#include "kxerror.h"
#include "lagercommon.h"
#include "sqlconnection.h"
#include "strtools.h"
#include "sqltool.h"
#include "stockdata.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QMetaEnum>

using namespace Qt::StringLiterals;

namespace {

// A number in German ("2,5") or plain ("2.5") writing.
qint64 articleNumber(const QString &text)
{
    return cliLargeNumber(text, u"Die Artikelnummer"_s);
}

template<class Enum>
Enum enumValue(const QString &text, const QList<std::pair<QString, Enum>> &words, const QString &what)
{
    for (const auto &[word, value] : words)
        if (text == word)
            return value;
    bool ok = false;
    const int value = QMetaEnum::fromType<Enum>().keyToValue(text.toLatin1().constData(), &ok);
    if (!ok) {
        QStringList names;
        for (const auto &entry : words)
            names << entry.first;
        throw CliUsageError{ u"%1 \"%2\" gibt es nicht (%3)."_s.arg(what, text, names.join(u", "_s)) };
    }
    return Enum(value);
}

// The command line's words for the actions and modes, read in options and given back in JSON.
const QList<std::pair<QString, TCLagerActionType>> actionWords{
    { u"add"_s, latAdd }, { u"sub"_s, latSub }, { u"reset-add"_s, latResetAdd }, { u"reset-sub"_s, latResetSub }
};
const QList<std::pair<QString, TCLagerModeType>> modeWords{
    { u"in"_s, lmtIn }, { u"out"_s, lmtOut }, { u"correction"_s, lmtCorrection }, { u"stocktaking"_s, lmtStocktaking }
};

template<class Enum>
QString wordOf(Enum value, const QList<std::pair<QString, Enum>> &words)
{
    for (const auto &[word, entry] : words)
        if (entry == value)
            return word;
    return QString::fromLatin1(QMetaEnum::fromType<Enum>().valueToKey(value));
}

TCLagerActionType action(const QString &text)
{
    return enumValue<TCLagerActionType>(text, actionWords, u"Buchungsrichtung"_s);
}

TCLagerModeType mode(const QString &text)
{
    return enumValue<TCLagerModeType>(text, modeWords, u"Belegart"_s);
}

void requireArticle(qint64 idnummer)
{
    if (stock_ArticleId(idnummer).isEmpty())
        throw CliInputError{ u"Artikel %1 gibt es nicht (anlegen mit kxcommon stock article)."_s.arg(idnummer) };
}

CliOutput init(const CliContext &)
{
    stock_CreateModuleTables();
    return { QJsonObject{ { u"done"_s, true } },
             u"Lagertabellen der Module angelegt bzw. angepasst (Artikel, Artikel_Lager, ARTIKEL_CHARGE, "
             u"Bestellungen, Bestellungen_artikel, LAGERBELEG_POS).\n"_s };
}

CliOutput addArticle(const CliContext &context)
{
    const CliArguments args(context, { u"bestand"_s }, {});
    const QStringList &p = args.positional(2, u"ARTIKELNUMMER NAME"_s);
    const qint64 idnummer = articleNumber(p[0]);
    const double base = cliNumber(args.value(u"bestand"_s, u"0"_s), u"Der Grundbestand"_s);
    if (!stock_ArticleId(idnummer).isEmpty())
        throw CliInputError{ u"Artikel %1 existiert bereits."_s.arg(idnummer) };
    const QString id = stock_AddArticle(idnummer, p[1], base);
    return { QJsonObject{ { u"id"_s, id }, { u"idnummer"_s, idnummer }, { u"name"_s, p[1] }, { u"bestand"_s, base } },
             u"Artikel %1 \"%2\" angelegt (Grundbestand %3).\n"_s.arg(idnummer).arg(p[1], cliAmount(base)) };
}

CliOutput setLine(const CliContext &context)
{
    const CliArguments args(context, { u"preis"_s, u"charge"_s, u"lager"_s }, {});
    const QStringList &p = args.positional(4, u"TABELLE BELEG ARTIKELNUMMER MENGE"_s);
    StockLine line{ p[0], p[1], articleNumber(p[2]), cliNumber(p[3], u"Die Menge"_s), std::nullopt,
                    args.value(u"charge"_s), args.value(u"lager"_s) };
    if (args.has(u"preis"_s))
        line.netto = cliNumber(args.value(u"preis"_s), u"Der Preis"_s);
    requireArticle(line.idnummer);
    if (!compSqlConnection->tableExists(line.table))
        throw CliInputError{ u"Die Tabelle \"%1\" gibt es nicht."_s.arg(line.table) };
    // Under the document's lock, so that two programs setting the same article's line make one.
    kx::SqlTransaction transaction;
    const kx::SqlLock documentLock(Lager_DocumentLock(line.table, line.document));
    const QString id = stock_SetLine(line);
    transaction.commit();
    return { QJsonObject{ { u"id"_s, id }, { u"table"_s, line.table }, { u"document"_s, line.document },
                          { u"idnummer"_s, line.idnummer }, { u"anzahl"_s, line.quantity } },
             u"Beleg %1: Artikel %2 mit Menge %3.\n"_s.arg(line.document).arg(line.idnummer).arg(cliAmount(line.quantity)) };
}

// Sets the action object as the options say; both postings share it.
void configure(TCLagerAction &lager, const CliArguments &args, const QStringList &p)
{
    lager.setProperty("Tablename", p[0]);
    lager.setProperty("Linkvalue", p[1]);
    lager.setProperty("Action", QVariant::fromValue(action(args.value(u"action"_s, u"add"_s))));
    lager.setProperty("Mode", QVariant::fromValue(mode(args.value(u"mode"_s, u"in"_s))));
    lager.setProperty("UseCharge", args.has(u"charge"_s));
    lager.setProperty("EnableMultiStorage", args.has(u"multi-storage"_s));
    lager.setProperty("Modulno", args.value(u"modul"_s));
    lager.setProperty("idBelegnummer", args.value(u"belegnummer"_s));
    lager.setProperty("idBestellung", args.value(u"bestellung"_s));
    lager.setProperty("idWareneingang", args.value(u"wareneingang"_s));
    lager.setProperty("idEingangsrechnung", args.value(u"eingangsrechnung"_s));
    lager.setProperty("idausgabe", args.value(u"ausgabe"_s));
    if (args.has(u"date"_s)) {
        const QString iso = sqlConvertDate(args.value(u"date"_s));
        if (iso.isEmpty())
            throw CliUsageError{ u"Das Buchungsdatum \"%1\" ist kein Datum."_s.arg(args.value(u"date"_s)) };
        lager.setProperty("LogActionDate", QDateTime(QDate::fromString(iso, Qt::ISODate), QTime(0, 0)));
    }
}

CliOutput postDocument(const CliContext &context, bool order)
{
    const CliArguments args(context,
                            { u"action"_s, u"mode"_s, u"modul"_s, u"belegnummer"_s, u"bestellung"_s,
                              u"wareneingang"_s, u"eingangsrechnung"_s, u"ausgabe"_s, u"date"_s },
                            { u"charge"_s, u"multi-storage"_s });
    const QStringList &p = args.positional(2, u"TABELLE BELEG"_s);
    TCLagerAction lager;
    configure(lager, args, p);
    if (!compSqlConnection->tableExists(p[0]))
        throw CliInputError{ u"Die Tabelle \"%1\" gibt es nicht."_s.arg(p[0]) };
    if (stock_ReadDocuments(p[0], p[1]).isEmpty())
        throw CliInputError{ u"Beleg \"%1\" hat in %2 keine Zeilen (Zeilen anlegen mit kxcommon stock line)."_s.arg(p[1], p[0]) };
    kx::SqlTraceCapture trace;
    const int booked = order ? Lager_PostOrder(lager) : Lager_PostDocument(lager);
    const QString actionName = wordOf(lager.fAction, actionWords);
    const QString what = order ? u"Bestellung"_s : u"Beleg"_s;
    const QString text =
        booked == 0 ? u"%1 %2 in %3: nichts mehr zu buchen, alle Zeilen sind schon gebucht.\n"_s.arg(what, lager.fLinkvalue, lager.fTablename)
                    : u"%1 %2 in %3 gebucht (%4, %5): %6; %7.\n"_s.arg(
                          what, lager.fLinkvalue, lager.fTablename, actionName,
                          order ? u"Bestellmengen"_s : TCLagerAction::ModeAsString(lager.fMode),
                          cliCount(booked, u"Zeile"_s, u"Zeilen"_s),
                          cliCount(trace.statements().size(), u"SQL-Anweisung"_s, u"SQL-Anweisungen"_s));
    return { QJsonObject{ { u"table"_s, lager.fTablename },
                          { u"document"_s, lager.fLinkvalue },
                          { u"action"_s, actionName },
                          { u"mode"_s, wordOf(lager.fMode, modeWords) },
                          { u"linesBooked"_s, booked },
                          { u"statements"_s, int(trace.statements().size()) } },
             text };
}

CliOutput avail(const CliContext &context)
{
    const CliArguments args(context, { u"lager"_s }, {});
    const qint64 idnummer = articleNumber(args.positional(1, u"ARTIKELNUMMER"_s)[0]);
    TCLagerAction lager;
    const QString id = stock_ArticleId(idnummer);
    const double value = args.has(u"lager"_s) ? lager.GetMaxAvail(id, args.value(u"lager"_s)) : lager.GetMaxAvail(id);
    return { QJsonObject{ { u"idnummer"_s, idnummer }, { u"maxAvail"_s, value } },
             value == -280772 ? u"Artikel %1: kein Bestand verfügbar (-280772: unbekannt, ohne Bestand oder "
                                u"Bestand wird ignoriert).\n"_s.arg(idnummer)
                              : u"Artikel %1: höchstens %2 entnehmbar.\n"_s.arg(idnummer).arg(cliAmount(value)) };
}

CliOutput showLog(const CliContext &context)
{
    const CliArguments args(context, {}, {});
    const StockArticle a = stock_ReadArticle(articleNumber(args.positional(1, u"ARTIKELNUMMER"_s)[0]));
    const QList<StockLogRow> log = stock_ReadLog(a.id);
    const QList<StockMonthRow> months = stock_ReadMonths(a.id);

    QString text = u"Artikel %1 \"%2\": Bestand %3 (gebucht %4, Grundbestand %5, Chargen %6), bestellt %7\n"_s
                       .arg(a.idnummer)
                       .arg(a.name, cliAmount(a.bestand), cliAmount(a.countLager), cliAmount(a.countBestand),
                            cliAmount(a.countCharge), cliAmount(a.countBestellt));
    text += u"Lagerprotokoll:\n  %1 %2 %3 %4 %5 %6 %7 %8 %9 aus Zugang\n"_s.arg(u"Nr"_s, 3)
                .arg(u"Datum"_s, -10)
                .arg(u"Uhrzeit"_s, -8)
                .arg(u"Art"_s, -22)
                .arg(u"Menge"_s, 7)
                .arg(u"Alt"_s, 7)
                .arg(u"Neu"_s, 7)
                .arg(u"Preis"_s, 7)
                .arg(u"Rest"_s, 7);
    QJsonArray logJson;
    for (qsizetype i = 0; i < log.size(); ++i) {
        const StockLogRow &r = log[i];
        QString from;
        if (r.llmode == 1) {
            from = u"ohne Zugang"_s;
            for (qsizetype j = 0; j < log.size(); ++j)
                if (!r.outIdIn.isEmpty() && log[j].id == r.outIdIn)
                    from = u"Nr. %1"_s.arg(j + 1);
        }
        text += u"  %1 %2 %3 %4 %5 %6 %7 %8 %9 %10\n"_s.arg(i + 1, 3)
                    .arg(r.datum.toString(u"dd.MM.yyyy"_s), -10)
                    .arg(r.uhrzeit, -8)
                    .arg(r.art, -22)
                    .arg(cliAmount(r.anzahl), 7)
                    .arg(cliAmount(r.oldCount), 7)
                    .arg(cliAmount(r.newCount), 7)
                    .arg(cliAmount(r.preis), 7)
                    .arg(r.llmode == 0 ? cliAmount(r.inCountAvail) : QString(), 7)
                    .arg(from);
        logJson.append(QJsonObject{ { u"id"_s, r.id },
                                    { u"datum"_s, r.datum.toString(Qt::ISODate) },
                                    { u"uhrzeit"_s, r.uhrzeit },
                                    { u"art"_s, r.art },
                                    { u"llmode"_s, r.llmode },
                                    { u"sourcemode"_s, r.sourcemode },
                                    { u"anzahl"_s, r.anzahl },
                                    { u"oldcountbestand"_s, r.oldCount },
                                    { u"countbestand"_s, r.newCount },
                                    { u"preis"_s, r.preis },
                                    { u"incountavail"_s, r.inCountAvail },
                                    { u"out_idin"_s, cliTextOrNull(r.outIdIn) },
                                    { u"linkid"_s, cliTextOrNull(r.linkId) },
                                    { u"tstamp"_s, r.tstamp } });
    }
    if (log.isEmpty())
        text += u"  (keine Buchungen)\n"_s;
    text += u"Monatsbestände:\n"_s;
    QJsonArray monthJson;
    for (const StockMonthRow &m : months) {
        text += u"  %1/%2  Anfang %3 (%4)  Ende %5 (%6)\n"_s.arg(m.monat, 2, 10, QChar(u'0'))
                    .arg(m.jahr)
                    .arg(cliAmount(m.anfangsbestand), m.anfangsdate.toString(u"dd.MM.yyyy"_s), cliAmount(m.endbestand),
                         m.enddate.toString(u"dd.MM.yyyy"_s));
        monthJson.append(QJsonObject{ { u"jahr"_s, m.jahr },
                                      { u"monat"_s, m.monat },
                                      { u"anfangsbestand"_s, m.anfangsbestand },
                                      { u"endbestand"_s, m.endbestand },
                                      { u"anfangsdate"_s, m.anfangsdate.toString(Qt::ISODate) },
                                      { u"enddate"_s, m.enddate.toString(Qt::ISODate) } });
    }
    if (months.isEmpty())
        text += u"  (keine)\n"_s;
    const QJsonObject article{ { u"id"_s, a.id },         { u"idnummer"_s, a.idnummer },
                               { u"name"_s, a.name },     { u"bestand"_s, a.bestand },
                               { u"countlager"_s, a.countLager }, { u"countbestand"_s, a.countBestand },
                               { u"countcharge"_s, a.countCharge }, { u"countbestellt"_s, a.countBestellt } };
    return { QJsonObject{ { u"artikel"_s, article }, { u"log"_s, logJson }, { u"monate"_s, monthJson } }, text };
}

CliOutput listArticles(const CliContext &context)
{
    CliArguments(context, {}, {}).positional(0, u"keine Argumente"_s);
    QJsonArray json;
    QString text = u"%1 %2 %3 %4 %5\n"_s.arg(u"Nr"_s, 8).arg(u"Bezeichnung"_s, -30).arg(u"Bestand"_s, 12).arg(u"gebucht"_s, 12)
                       .arg(u"bestellt"_s, 12);
    for (const StockArticle &a : stock_ReadArticles()) {
        json.append(QJsonObject{ { u"id"_s, a.id }, { u"idnummer"_s, a.idnummer }, { u"name"_s, a.name },
                                 { u"bestand"_s, a.bestand }, { u"countlager"_s, a.countLager },
                                 { u"countbestand"_s, a.countBestand }, { u"countcharge"_s, a.countCharge },
                                 { u"countbestellt"_s, a.countBestellt } });
        text += u"%1 %2 %3 %4 %5\n"_s.arg(a.idnummer, 8).arg(a.name, -30).arg(cliAmount(a.bestand), 12)
                    .arg(cliAmount(a.countLager), 12).arg(cliAmount(a.countBestellt), 12);
    }
    if (json.isEmpty())
        text += u"(keine Artikel)\n"_s;
    return { json, text };
}

CliOutput listDocuments(const CliContext &context)
{
    const CliArguments args(context, {}, {});
    const QStringList p = args.positional(0, 1, u"[TABELLE]"_s);
    const QStringList tables = p.isEmpty() ? QStringList{ QString::fromUtf16(StockLineTable), QString::fromUtf16(OrderLineTable) } : p;
    QJsonArray json;
    QString text;
    for (const QString &table : tables) {
        if (!compSqlConnection->tableExists(table))
            throw CliInputError{ u"Die Tabelle \"%1\" gibt es nicht."_s.arg(table) };
        for (const StockDocument &d : stock_ReadDocuments(table)) {
            json.append(QJsonObject{ { u"table"_s, d.table }, { u"document"_s, d.document }, { u"lines"_s, d.lines },
                                     { u"anzahl"_s, d.anzahl }, { u"countlager"_s, d.countLager },
                                     { u"countbestellt"_s, d.countBestellt } });
            text += u"%1 %2: %3, Menge %4, gebucht %5, bestellt %6\n"_s.arg(
                d.table, d.document, cliCount(d.lines, u"Zeile"_s, u"Zeilen"_s), cliAmount(d.anzahl),
                cliAmount(d.countLager), cliAmount(d.countBestellt));
        }
    }
    if (json.isEmpty())
        text += u"(keine Belege)\n"_s;
    return { json, text };
}

const QString postingOptions = u"TABELLE BELEG [--action add|sub|reset-add|reset-sub] [--mode in|out|correction|stocktaking] "
                               u"[--charge] [--multi-storage] [--modul NR] [--belegnummer N] [--bestellung ID] "
                               u"[--wareneingang ID] [--eingangsrechnung ID] [--ausgabe ID] [--date DATUM]"_s;

} // namespace

void registerStockCommands()
{
    registerCommand({ u"stock init"_s, QString(),
                      u"Legt die Lagertabellen der Module an (Artikel, Lagerorte, Chargen, Bestellungen, Belegzeilen)."_s,
                      init });
    registerCommand({ u"stock article"_s, u"ARTIKELNUMMER NAME [--bestand N]"_s,
                      u"Legt einen Artikel mit Grundbestand an."_s, addArticle });
    registerCommand({ u"stock line"_s, u"TABELLE BELEG ARTIKELNUMMER MENGE [--preis P] [--charge ID] [--lager ID]"_s,
                      u"Setzt die Menge einer Belegzeile (ändert die vorhandene Zeile des Artikels oder legt sie an)."_s,
                      setLine });
    registerCommand({ u"stock post"_s, postingOptions, u"Bucht einen Lagerbeleg (nur was noch nicht gebucht ist)."_s,
                      [](const CliContext &c) { return postDocument(c, false); } });
    registerCommand({ u"stock order"_s, u"TABELLE BELEG [--action add|sub|reset-add|reset-sub]"_s,
                      u"Bucht einen Bestellbeleg auf die bestellten Mengen der Artikel."_s,
                      [](const CliContext &c) { return postDocument(c, true); } });
    registerCommand({ u"stock avail"_s, u"ARTIKELNUMMER [--lager ID]"_s,
                      u"Zeigt die höchstens entnehmbare Menge (-280772: kein Bestand verfügbar)."_s, avail });
    registerCommand({ u"stock log"_s, u"ARTIKELNUMMER"_s,
                      u"Zeigt Bestand, Lagerprotokoll (mit Zugang und Preis jeder Entnahme) und Monatsbestände."_s,
                      showLog });
    registerCommand({ u"stock articles"_s, QString(), u"Listet die Artikel mit ihren Beständen."_s, listArticles });
    registerCommand({ u"stock docs"_s, u"[TABELLE]"_s,
                      u"Listet die Belege der Zeilentabellen (LAGERBELEG_POS, Bestellungen_artikel) mit Mengen."_s,
                      listDocuments });

    const std::pair<QString, QString> articles{ u"Artikel"_s, u"stock init"_s };
    const std::pair<QString, QString> lines{ QString::fromUtf16(StockLineTable), u"stock init"_s };
    const std::pair<QString, QString> log{ u"LagerLog"_s, u"sys init"_s };
    const std::pair<QString, QString> months{ u"LagerLogMonth"_s, u"sys init"_s };
    for (const QString &command : { u"stock article"_s, u"stock articles"_s })
        cliRequire(command, { articles });
    cliRequire(u"stock line"_s, { articles, lines });
    cliRequire(u"stock docs"_s, { lines });
    cliRequire(u"stock order"_s, { articles, lines });
    for (const QString &command : { u"stock post"_s, u"stock avail"_s, u"stock log"_s })
        cliRequire(command, { articles, lines, log, months });
    cliDetails(u"stock post"_s,
               u"  TABELLE            die Zeilentabelle des Belegs, z. B. LAGERBELEG_POS\n"
               u"  BELEG              der Schlüssel des Belegs (IDPARENT seiner Zeilen)\n"
               u"  --action WERT      add (Vorgabe): Menge zubuchen; sub: abbuchen; reset-add, reset-sub: eine\n"
               u"                     frühere Buchung zurücknehmen\n"
               u"  --mode WERT        Art im Lagerprotokoll: in (Vorgabe, Zugang), out (Entnahme nach FIFO),\n"
               u"                     correction (Korrektur), stocktaking (Inventur)\n"
               u"  --charge           Zeilen mit Charge buchen die Charge\n"
               u"  --multi-storage    Bestände je Lagerort (Artikel_Lager)\n"
               u"  --modul NR         Modulnummer im Lagerprotokoll\n"
               u"  --belegnummer N, --bestellung ID, --wareneingang ID, --eingangsrechnung ID, --ausgabe ID\n"
               u"                     Belegverweise im Lagerprotokoll\n"
               u"  --date DATUM       Buchungsdatum (TT.MM.JJJJ oder JJJJ-MM-TT; Vorgabe: heute)\n"_s);
    cliDetails(u"stock article"_s,
               u"  ARTIKELNUMMER      ganze Zahl (IDNUMMER), noch nicht vergeben\n"
               u"  NAME               Bezeichnung des Artikels\n"
               u"  --bestand N        Grundbestand (Zahl, 2,5 oder 2.5; Vorgabe 0)\n"_s);
    cliDetails(u"stock line"_s,
               u"  TABELLE            Zeilentabelle, z. B. LAGERBELEG_POS oder Bestellungen_artikel\n"
               u"  BELEG              Schlüssel des Belegs (IDPARENT der Zeile)\n"
               u"  ARTIKELNUMMER      ganze Zahl eines angelegten Artikels\n"
               u"  MENGE              Zahl (2,5 oder 2.5); eine vorhandene Zeile des Artikels bekommt die neue Menge\n"
               u"  --preis P          Einzelpreis (Zahl; Vorgabe 0)\n"
               u"  --charge ID        Schlüssel der Charge (ARTIKEL_CHARGE)\n"
               u"  --lager ID         Schlüssel des Lagerorts (Artikel_Lager)\n"_s);
    cliDetails(u"stock order"_s,
               u"  TABELLE            Zeilentabelle der Bestellung, z. B. Bestellungen_artikel\n"
               u"  BELEG              Schlüssel der Bestellung (IDPARENT ihrer Zeilen)\n"
               u"  --action WERT      add (Vorgabe): bestellte Mengen erhöhen; sub: senken; reset-add,\n"
               u"                     reset-sub: eine frühere Buchung zurücknehmen\n"_s);
    cliDetails(u"stock avail"_s,
               u"  ARTIKELNUMMER      ganze Zahl eines angelegten Artikels\n"
               u"  --lager ID         nur der Bestand dieses Lagerorts (Artikel_Lager)\n"_s);
    cliDetails(u"stock log"_s, u"  ARTIKELNUMMER      ganze Zahl eines angelegten Artikels\n"_s);
    cliDetails(u"stock docs"_s,
               u"  TABELLE            LAGERBELEG_POS oder Bestellungen_artikel; ohne: beide\n"_s);
}
