// SPDX-License-Identifier: LGPL-2.1-or-later
// Random sequences of receipts, issues, corrections and stocktakings, with lines changed, reset
// and posted again unchanged, with quantities of two decimals, posted on the database and on a
// model that books in whole cents. The article counts, every log row (quantity, remainder, the receipt drawn on, its price,
// the running stock) and the month's balance equal the model's to the cent, so every product
// keeps the same ledger; and what issues drew is what receipts gave.
#include "property.h"
#include "sqltool.h"
#include "stocktest.h"

#include <optional>

using namespace Qt::StringLiterals;
using kxtest::exec;
using kxtest::rows;

namespace {

using Cents = qint64;

struct Step
{
    int kind;    // new documents: 0 receipt, 1 issue, 2 correction, 3 stocktaking; of a posted document:
                 // 4 its line changed and posted again, 5 reset, 6 posted again unchanged
    int article; // 0 or 1
    Cents cents; // the quantity, or the change of a line; `negative` gives corrections and changes their sign
    bool negative;
    Cents price;
    int pick; // which document a raised line belongs to
};

// How a failing sequence is shown.
void showValue(const Step &s, std::ostream &os)
{
    static const char *const kinds[] = { "receipt", "issue", "correction", "stocktaking", "change", "reset", "repost" };
    os << kinds[s.kind] << " article " << s.article << ' ' << (s.negative && s.kind >= 2 ? -s.cents : s.cents)
       << " cents, price " << s.price << ", document " << s.pick;
}

struct Document
{
    QString key;
    TCLagerActionType action;
    TCLagerModeType mode;
    int article;
    Cents quantity = 0, booked = 0, price = 0;
    bool active = true; // false once reset
};

struct LogRow
{
    int llmode;
    Cents anzahl, avail, preis, oldCount, newCount;
    int drawnOn; // the row index of the receipt an issue row drew on; -1 for none
};

// The ledger as the posting rules make it, in whole cents.
class Ledger
{
public:
    Cents count[2] = { 0, 0 };
    QList<LogRow> log[2];
    std::optional<std::pair<Cents, Cents>> month[2]; // opening and closing stock

    void post(Document &d, TCLagerActionType action)
    {
        const int a = d.article;
        const Cents A = d.quantity, C = d.booked;
        if ((action == latAdd || action == latSub) && A == C)
            return; // the line is not read at all
        // What the article's count changes by, and the quantity the log is given.
        Cents change = 0, passed = 0;
        switch (action) {
        case latAdd:
            change = passed = A - C;
            break;
        case latSub:
            change = C - A;
            passed = std::abs(C - A);
            break;
        case latResetAdd:
            change = -A;
            passed = A;
            break;
        case latResetSub:
            change = passed = A;
            break;
        }
        const Cents old = count[a];
        count[a] += change;
        d.booked = A;
        const bool counted = d.mode == lmtCorrection || d.mode == lmtStocktaking;
        Cents opening = old;
        if ((counted && passed > 0) || d.mode == lmtIn)
            log[a] << LogRow{ 0, passed, passed, d.price, old, count[a], -1 };
        else if (d.mode == lmtOut || (counted && passed < 0))
            opening = issue(a, passed, old);
        if (!month[a])
            month[a] = { opening, count[a] };
        month[a]->second = count[a];
    }

private:
    // First in, first out, with the loop's own end: it stops once the remainder equals the part
    // just taken (an issue of 8 against receipts of 4 and 10 draws 4 only).
    Cents issue(int a, Cents passed, Cents running)
    {
        Cents R = std::abs(passed), T = 0, anzahl = passed;
        bool found = false;
        do {
            T = 0;
            int r = -1;
            for (int i = 0; i < log[a].size() && r < 0; ++i)
                if (log[a][i].llmode == 0 && log[a][i].avail > 0)
                    r = i;
            found = r >= 0;
            Cents preis = 0;
            if (found) {
                const Cents V = log[a][r].avail;
                T = R < V ? R : V;
                log[a][r].avail = V - T;
                preis = log[a][r].preis;
                anzahl = T;
                if (T != R)
                    R -= T;
            }
            log[a] << LogRow{ 1, anzahl, 0, preis, running, running - T, r };
            running -= T;
        } while (R != T && found);
        return running;
    }
};

QString amount(Cents cents)
{
    return QString::number(cents / 100.0, 'g', 17);
}

std::string modelText(const Ledger &ledger, int a)
{
    QStringList lines{ u"count "_s + amount(ledger.count[a]) };
    for (const LogRow &r : ledger.log[a])
        lines << QStringList{ QString::number(r.llmode), amount(r.anzahl), amount(r.avail), amount(r.preis), amount(r.oldCount),
                              amount(r.newCount), QString::number(r.drawnOn) }
                     .join(u' ');
    if (ledger.month[a])
        lines << u"month "_s + amount(ledger.month[a]->first) + u' ' + amount(ledger.month[a]->second);
    return lines.join(u'\n').toStdString();
}

// The same text from the database; a value stored off its two decimals shows as itself.
std::string databaseText(const QString &articleId)
{
    const auto number = [](const QVariant &v) { return QString::number(v.toDouble(), 'g', 17); };
    const kx::SqlResult article = exec(u"select COUNTLAGER, BESTAND from Artikel where ID='"_s + articleId + u"'"_s);
    QStringList lines{ u"count "_s + number(article.rows.front().value(0)) };
    if (article.rows.front().value(0).toDouble() != article.rows.front().value(1).toDouble())
        lines << u"BESTAND differs: "_s + number(article.rows.front().value(1));
    const kx::SqlResult log = exec(u"select ID, LLMODE, ANZAHL, INCOUNTAVAIL, PREIS, OLDCOUNTBESTAND, COUNTBESTAND, OUT_IDIN "
                                   u"from LagerLog where IDARTIKEL='"_s
                                   + articleId + u"' order by TSTAMP"_s);
    QStringList ids;
    for (const auto &row : log.rows)
        ids << row.value(0).toString();
    for (const auto &row : log.rows)
        lines << QStringList{ row.value(1).toString(), number(row.value(2)), number(row.value(3)), number(row.value(4)),
                              number(row.value(5)), number(row.value(6)),
                              QString::number(ids.indexOf(row.value(7).toString().trimmed())) }
                     .join(u' ');
    const kx::SqlResult month = exec(u"select ANFANGSBESTAND, ENDBESTAND from LagerLogMonth where IDARTIKEL='"_s + articleId + u"'"_s);
    for (const auto &row : month.rows)
        lines << u"month "_s + number(row.value(0)) + u' ' + number(row.value(1));
    return lines.join(u'\n').toStdString();
}

class LedgerPropertyTest : public kxtest::StockTest
{
};

TEST_F(LedgerPropertyTest, FractionalBookingsKeepTheLedgerToTheCent)
{
    const QString lines = QString::fromUtf16(StockLineTable);
    const int cases = kxtest::product() == u"firebird"_s ? 25 : 80;
    const bool holds = kxtest::propertyHolds("the ledger of fractional bookings", cases, [&] {
        const auto step = rc::gen::apply(
            [](int kind, int article, int cents, bool negative, int price, int pick) {
                return Step{ kind, article, cents, negative, price, pick };
            },
            rc::gen::inRange(0, 7), rc::gen::inRange(0, 2), rc::gen::inRange(1, 1500), rc::gen::arbitrary<bool>(),
            rc::gen::inRange(0, 5000), rc::gen::inRange(0, 1000));
        const auto steps = *rc::gen::container<std::vector<Step>>(size_t(*rc::gen::inRange(1, 20)), step);

        for (const QString &table : { u"LagerLog"_s, u"LagerLogMonth"_s, lines, u"Artikel"_s })
            exec(u"delete from "_s + table);
        const QString articleIds[2] = { stock_AddArticle(501, u"Schaummittel (l)"_s), stock_AddArticle(502, u"Ölbinder (kg)"_s) };
        Ledger ledger;
        QList<Document> documents;
        // Every posting gets a booking date of its own, so that first in, first out has one order.
        const QDate first = QDate::currentDate().addDays(-3000);
        int postings = 0;
        for (const Step &s : steps) {
            QList<Document *> active;
            for (Document &d : documents)
                if (d.active)
                    active << &d;
            if (s.kind >= 4 && active.isEmpty())
                continue;
            if (s.kind < 4) {
                static const std::pair<TCLagerActionType, TCLagerModeType> kinds[] = {
                    { latAdd, lmtIn }, { latSub, lmtOut }, { latAdd, lmtCorrection }, { latAdd, lmtStocktaking }
                };
                const Cents signedCents = s.kind >= 2 && s.negative ? -s.cents : s.cents;
                documents << Document{ sqlGenIdValue(), kinds[s.kind].first, kinds[s.kind].second, s.article, signedCents, 0, s.price };
                active = { &documents.last() };
            }
            Document &d = *active[s.pick % active.size()];
            if (s.kind == 4)
                d.quantity += s.negative ? -s.cents : s.cents;
            if (s.kind <= 4)
                stock_SetLine({ lines, d.key, 501 + d.article, d.quantity / 100.0, d.price / 100.0 });
            TCLagerAction action;
            action.fTablename = lines;
            action.fLinkvalue = d.key;
            action.fAction = s.kind != 5 ? d.action : d.action == latAdd ? latResetAdd : latResetSub;
            action.fMode = d.mode;
            action.fLogActionDate = QDateTime(first.addDays(++postings), QTime(0, 0));
            kx::SqlTraceCapture trace;
            Lager_PostDocument(action);
            if (s.kind == 6) // nothing to book: the line query and the final mark only
                RC_ASSERT(trace.statements().size() == 2);
            ledger.post(d, action.fAction);
            d.active = s.kind != 5;
        }
        for (int a = 0; a < 2; ++a)
            RC_ASSERT(databaseText(articleIds[a]) == modelText(ledger, a));
        // What issues drew on receipts is what the receipts gave.
        RC_ASSERT(rows(u"select round(sum(ANZAHL),2) from LagerLog where LLMODE=1 and OUT_IDIN<>''"_s)
                  == rows(u"select round(sum(ANZAHL-INCOUNTAVAIL),2) from LagerLog where LLMODE=0 and INCOUNTAVAIL<>ANZAHL"_s));
    });
    EXPECT_TRUE(holds);
}

} // namespace
