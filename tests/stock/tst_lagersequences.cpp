// Random sequences of stock documents, checked after every posting against a model of the
// expected counts and against the rules every stock log must keep.
#include "sqlconnection.h"
#include "sqltool.h"
#include "stocktest.h"
#include "syscommon.h"

#include <QMap>
#include <cstdio>
#include <random>

using namespace Qt::StringLiterals;
using kxtest::exec;
using kxtest::rows;

namespace {

class LagerSequenceTest : public kxtest::StockTest
{
};

const QString lines = QString::fromUtf16(StockLineTable);

struct Document
{
    QString key;
    TCLagerActionType action; // latAdd or latSub
    TCLagerModeType mode;
    QMap<int, double> lines; // article number -> quantity (one line per article)
    bool active = true;      // false once reset
};

class Sequence
{
public:
    explicit Sequence(unsigned seed)
        : m_random(seed)
    {
    }

    void run(int postings);
    int postings() const { return m_postings; }

private:
    double quantity(double low, double high)
    {
        // Quarters: exact in binary and in the two-decimal columns, so the model adds exactly.
        return std::uniform_int_distribution<int>(int(low * 4), int(high * 4))(m_random) / 4.0;
    }
    int pick(int n) { return std::uniform_int_distribution<int>(0, n - 1)(m_random); }

    void newDocument();
    void editDocument(Document &document);
    void resetDocument(Document &document);
    void repostUnchanged(const Document &document);
    void post(const Document &document, TCLagerActionType action);
    void check(const QString &what);

    std::mt19937 m_random;
    QList<Document> m_documents;
    QMap<int, double> m_expected; // article number -> expected COUNTLAGER
    QList<int> m_articles;
    int m_postings = 0;
};

void Sequence::run(int postings)
{
    for (int i = 0; i < 4; ++i) {
        m_articles << 1000 + i;
        stock_AddArticle(1000 + i, u"Artikel Nr. %1"_s.arg(i), i);
        m_expected[1000 + i] = 0;
    }
    while (m_postings < postings) {
        QList<Document *> active;
        for (Document &d : m_documents)
            if (d.active)
                active << &d;
        const int choice = pick(10);
        if (active.isEmpty() || choice < 5)
            newDocument();
        else if (choice < 8)
            editDocument(*active[pick(int(active.size()))]);
        else if (choice < 9)
            resetDocument(*active[pick(int(active.size()))]);
        else
            repostUnchanged(*active[pick(int(active.size()))]);
        if (::testing::Test::HasFatalFailure())
            return;
    }
}

void Sequence::newDocument()
{
    static const std::pair<TCLagerActionType, TCLagerModeType> kinds[] = {
        { latAdd, lmtIn }, { latSub, lmtOut }, { latAdd, lmtCorrection }, { latAdd, lmtStocktaking }
    };
    const auto [action, mode] = kinds[pick(4)];
    Document d{ sqlGenIdValue(), action, mode, {} };
    const int count = 1 + pick(3);
    for (int i = 0; i < count; ++i) {
        const int article = m_articles[pick(int(m_articles.size()))];
        const double q = (mode == lmtCorrection || mode == lmtStocktaking) ? quantity(-5, 5) : quantity(0.25, 20);
        d.lines[article] = q;
        stock_SetLine({ lines, d.key, article, q, quantity(0, 50) });
    }
    m_documents << d;
    post(m_documents.last(), action);
    check(u"neuer Beleg"_s);
}

void Sequence::editDocument(Document &d)
{
    const QList<int> articles = d.lines.keys();
    const int article = articles[pick(int(articles.size()))];
    const double q = (d.mode == lmtCorrection || d.mode == lmtStocktaking) ? quantity(-5, 5) : quantity(0, 20);
    d.lines[article] = q;
    stock_SetLine({ lines, d.key, article, q, 1 });
    post(d, d.action);
    check(u"geänderter Beleg"_s);
}

void Sequence::resetDocument(Document &d)
{
    d.active = false;
    post(d, d.action == latAdd ? latResetAdd : latResetSub);
    check(u"Beleg zurückgesetzt"_s);
}

void Sequence::repostUnchanged(const Document &d)
{
    const QStringList articlesBefore = rows(u"select * from Artikel order by ID"_s);
    const QStringList logBefore = rows(u"select count(*) from LagerLog"_s);
    kx::SqlTraceCapture trace;
    post(d, d.action);
    EXPECT_EQ(trace.statements().size(), 2) << "only the line query and the final mark";
    EXPECT_EQ(rows(u"select * from Artikel order by ID"_s), articlesBefore);
    EXPECT_EQ(rows(u"select count(*) from LagerLog"_s), logBefore);
    check(u"unveränderter Beleg erneut gebucht"_s);
}

void Sequence::post(const Document &d, TCLagerActionType action)
{
    ++m_postings;
    kxtest::Posting posting{ action, d.mode, d.key };
    if (pick(3) == 0)
        posting.bookingDate = QDate::currentDate().addDays(-pick(4));
    kxtest::post(posting);

    // The model: an active document holds its lines' quantities in stock, with the sign of
    // its direction; a reset document holds nothing.
    for (int article : m_articles)
        m_expected[article] = 0;
    for (const Document &doc : m_documents)
        if (doc.active)
            for (auto it = doc.lines.cbegin(); it != doc.lines.cend(); ++it)
                m_expected[it.key()] += doc.action == latAdd ? it.value() : -it.value();
}

void Sequence::check(const QString &what)
{
    SCOPED_TRACE(what.toStdString() + " nach Buchung " + std::to_string(m_postings));
    for (int article : m_articles) {
        const StockArticle a = stock_ReadArticle(article);
        ASSERT_DOUBLE_EQ(a.countLager, m_expected[article]) << "article " << article;
        ASSERT_DOUBLE_EQ(a.bestand, a.countBestand + a.countLager) << "article " << article;
    }
    // Receipts: what is left of them lies between nothing and their quantity; a reduced receipt
    // line is logged as a receipt of the negative difference and never drawn on.
    ASSERT_EQ(rows(u"select count(*) from LagerLog where LLMODE=0 and ANZAHL>=0 "
                   u"and (INCOUNTAVAIL<0 or INCOUNTAVAIL>ANZAHL)"_s),
              QStringList{ u"0"_s });
    ASSERT_EQ(rows(u"select count(*) from LagerLog where LLMODE=0 and ANZAHL<0 and INCOUNTAVAIL<>ANZAHL"_s),
              QStringList{ u"0"_s });
    ASSERT_EQ(rows(u"select count(*) from LagerLog where LLMODE=1 and INCOUNTAVAIL<>0"_s), QStringList{ u"0"_s });
    // The month's closing stock is the article's stock after its latest booking.
    ASSERT_EQ(rows(u"select count(*) from LagerLogMonth m join Artikel a on a.ID=m.IDARTIKEL "
                   u"where m.ENDBESTAND<>a.BESTAND"_s),
              QStringList{ u"0"_s });
    // Every line of a posted document counts as booked.
    ASSERT_EQ(rows(u"select count(*) from "_s + lines + u" where COUNTLAGER<>ANZAHL"_s), QStringList{ u"0"_s });
}

TEST_F(LagerSequenceTest, CountsAndLogStayConsistent)
{
    if (!ready())
        return;
    const int sequences = qEnvironmentVariableIntValue("KX_STOCK_SEQUENCES") > 0
        ? qEnvironmentVariableIntValue("KX_STOCK_SEQUENCES")
        : 10;
    const int postingsPerSequence = 40;
    int total = 0;
    for (int seed = 1; seed <= sequences; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        kxtest::emptyDatabase(*compSqlConnection);
        Sys_CreateData();
        stock_CreateModuleTables();
        Sequence sequence{ unsigned(seed) };
        sequence.run(postingsPerSequence);
        total += sequence.postings();
        if (HasFatalFailure())
            return;
    }
    std::printf("%s: %d sequences, %d postings checked\n", kxtest::product().toUtf8().constData(), sequences, total);
}

} // namespace
