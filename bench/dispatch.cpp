// SPDX-License-Identifier: LGPL-2.1-or-later
// Median AAO lookup latency with 10,000 rules in "AAO" and 50,000 places in "AAO_Orte" over the
// same lookups with 100 rules and 500 places; and fee calculations per second on a schedule
// with 20 surcharge rows.
#include "benchsupport.h"
#include "emptydatabase.h"

#include "aaocommon.h"
#include "dispatchdata.h"
#include "feedata.h"
#include "gscommon.h"
#include "sqlconnection.h"
#include "sqldialect.h"
#include "sqltool.h"

#include <QTemporaryDir>
#include <QTextStream>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int keywords = 20;

QString keyword(int k)
{
    return u"K%1"_s.arg(k, 2, 10, QChar(u'0'));
}

// 100 rules, five per keyword (everywhere, one object, one place with five listed places, a
// weekday window, object and place), under keys beginning with "X" (no generated key does).
void insertBaseRules()
{
    for (int k = 0; k < keywords; ++k) {
        for (int r = 0; r < 5; ++r) {
            const QString id = u"X%1-%2"_s.arg(k).arg(r);
            const QString objekt = (r == 1 || r == 4) ? u"Objekt %1-%2"_s.arg(k).arg(r) : QString();
            const QString ort = (r == 2 || r == 4) ? u"Ort %1-%2"_s.arg(k).arg(r) : QString();
            const bool restricted = r == 3;
            SqlExec(u"Insert into AAO (ID,BEZEICHNUNG,ALARMKUERZEL,ALARMOBJEKT,EINSATZORT,EXTENDEDSETTINGS,ES_MO,ES_DI,"
                    u"ES_MI,ES_DO,ES_FR,ES_SA,ES_SO,ES_FROMTIME,ES_TOTIME) values ('%1','Regel %1','%2','%3','%4',%5,"
                    u"1,1,1,1,1,1,1,'%6','%7')"_s.arg(id, keyword(k), objekt, ort, restricted ? u"1"_s : u"0"_s,
                                                      restricted ? u"08:00:00"_s : QString(),
                                                      restricted ? u"16:00:00"_s : QString()));
            for (int p = 0; p < 5; ++p)
                SqlExec(u"Insert into AAO_Orte (ID,IDPARENT,EINSATZORT) values ('X%1-%2','%1','Ortsteil %3-%4-%2')"_s
                            .arg(id)
                            .arg(p)
                            .arg(k)
                            .arg(r));
        }
    }
}

// 99 copies of the base rules with other objects and places; they never apply (no weekday),
// so every lookup must give the same answer as with the base rules alone.
void addCopies()
{
    for (int c = 1; c < 100; ++c) {
        const QString tag = u"#"_s + QString::number(c);
        SqlExec(u"Insert into AAO (ID,BEZEICHNUNG,ALARMKUERZEL,ALARMOBJEKT,EINSATZORT,EXTENDEDSETTINGS,ES_MO,ES_DI,ES_MI,"
                u"ES_DO,ES_FR,ES_SA,ES_SO,ES_FROMTIME,ES_TOTIME) select 'C%1' || ID,BEZEICHNUNG,ALARMKUERZEL,"
                u"ALARMOBJEKT || '%2',EINSATZORT || '%2',1,0,0,0,0,0,0,0,ES_FROMTIME,ES_TOTIME from AAO where ID like 'X%'"_s
                    .arg(c)
                    .arg(tag));
        SqlExec(u"Insert into AAO_Orte (ID,IDPARENT,EINSATZORT) select 'C%1' || ID,'C%1' || IDPARENT,EINSATZORT || '%2' "
                u"from AAO_Orte where ID like 'X%'"_s.arg(c)
                    .arg(tag));
    }
}

struct Lookup
{
    QString objekt, ort, kuerzel;
};

QList<Lookup> lookups()
{
    QList<Lookup> list;
    for (int i = 0; i < 200; ++i) {
        const int k = i % keywords;
        const QString objekte[] = { u"Objekt %1-1"_s.arg(k), u"Objekt %1-4"_s.arg(k), u"Schule"_s };
        const QString orte[] = { u"Ort %1-2"_s.arg(k), u"Ortsteil %1-2-3"_s.arg(k), u"Ort %1-4"_s.arg(k), u"Feld"_s };
        list << Lookup{ objekte[i % 3], orte[(i / 3) % 4], keyword(k) };
    }
    return list;
}

// Median seconds per lookup over three rounds; Answers receives the first round's results.
double measure(const QList<Lookup> &list, QStringList &answers)
{
    std::vector<double> times;
    for (int round = 0; round < 3; ++round) {
        for (const Lookup &l : list) {
            QString id;
            times.push_back(kxbench::seconds(
                [&] { id = aaoGetID(l.objekt, l.ort, l.kuerzel, u"25.11.2026"_s, u"12:00:00"_s); }));
            if (round == 0)
                answers << id;
        }
    }
    return kxbench::median(times);
}

void runProduct(const QString &product, QTextStream &out)
{
    QTemporaryDir scratch;
    const QString connection = kxbench::openProduct("dispatch", product, scratch.path(), out);
    if (connection.isEmpty())
        return;
    kxtest::emptyDatabase(*compSqlConnection);
    dispatch_CreateTables();
    fee_CreateTables();
    insertBaseRules();
    kxbench::refreshStatistics({ u"AAO"_s, u"AAO_Orte"_s });

    const QList<Lookup> list = lookups();
    QStringList smallAnswers, largeAnswers;
    measure(list.mid(0, 20), smallAnswers); // warm-up
    smallAnswers.clear();
    const double small = measure(list, smallAnswers);
    addCopies();
    kxbench::refreshStatistics({ u"AAO"_s, u"AAO_Orte"_s });
    measure(list.mid(0, 20), largeAnswers);
    largeAnswers.clear();
    const double large = measure(list, largeAnswers);
    const QString rules = sqlGetValue(u"select count(*) from AAO"_s);
    const QString places = sqlGetValue(u"select count(*) from AAO_Orte"_s);
    // The copies never apply, so the answers must not change; and the lookups must find rules.
    if (smallAnswers != largeAnswers || smallAnswers.count(QString()) == smallAnswers.size()) {
        out << "BENCH dispatch " << product << " invalid: the answers differ between the two sizes\n";
        std::exit(1);
    }

    const QString schedule = fee_AddSampleSchedule();
    const int calculations = product == u"firebird"_s ? 200 : 1000;
    double a = 0, b = 0, c = 0, check = 0;
    const double total = kxbench::seconds([&] {
        for (int i = 0; i < calculations; ++i) {
            CalcGebuhren(schedule, u"BRAND"_s, 0, 1 + i % 5, (i * 7) % 60, 0, 12.5, a, b, c);
            check += a;
        }
    });
    double a1 = 0;
    CalcGebuhren(schedule, u"BRAND"_s, 0, 1, 20, 0, 12.5, a1, b, c);
    if (a1 != 25 + 90 + 10) { // flat 25, 60 an hour for 90 minutes, two surcharges below 90 minutes
        out << "BENCH dispatch " << product << " invalid: fee " << a1 << " instead of 125\n";
        std::exit(1);
    }

    out << "BENCH dispatch " << product << " ratio=" << QString::number(large / small, 'f', 3)
        << " median AAO lookup (date and time given) with " << rules << " rules and " << places
        << " places over 100 rules and 500 places: " << QString::number(large * 1e3, 'f', 3) << " ms vs "
        << QString::number(small * 1e3, 'f', 3) << " ms (" << list.size() << " lookups x 3 rounds, same answers)\n";
    out << "  detail: dispatch " << product << " fee calculations " << QString::number(calculations / total, 'f', 0)
        << "/s (schedule with 20 surcharge rows, " << calculations << " calculations in "
        << QString::number(total, 'f', 2) << " s)\n";
    out.flush();
    compSqlConnection->Close();
}

} // namespace

int main(int argc, char *argv[])
{
    return kxbench::runEachProduct(argc, argv, runProduct);
}
