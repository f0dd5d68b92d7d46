// SPDX-License-Identifier: LGPL-2.1-or-later
#include "streetdirectory.h"

#include "dataaccess.h"
#include "dispatchdata.h"
#include "globals.h"
#include "sqlconnection.h"
#include "sqltool.h"

#include <QSet>
#include <QStringList>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QStringList townStems = {
    u"Hausen"_s, u"Bach"_s, u"Feld"_s, u"Heim"_s, u"Dorf"_s, u"Stadt"_s, u"Brück"_s, u"Furt"_s, u"Berg"_s,
    u"Wald"_s, u"Au"_s, u"Kirchen"_s, u"Hofen"_s, u"Weiler"_s, u"Rode"_s, u"Münster"_s, u"Burg"_s, u"Stein"_s,
    u"Ried"_s, u"Mühl"_s, u"Büttel"_s, u"Hagen"_s, u"Lohe"_s, u"Wörth"_s, u"Ingen"_s,
};
const QStringList townHeads = {
    u"Alten"_s, u"Neu"_s, u"Ober"_s, u"Unter"_s, u"Nieder"_s, u"Hoch"_s, u"Groß"_s, u"Klein"_s, u"Linden"_s,
    u"Eichen"_s, u"Buchen"_s, u"Tann"_s, u"Wolfs"_s, u"Hirsch"_s, u"Falken"_s, u"Rosen"_s, u"Sonnen"_s,
    u"Steinen"_s, u"Kalten"_s, u"Warm"_s, u"Schön"_s, u"Grün"_s, u"Roth"_s, u"Weiß"_s, u"Mar"_s, u"Ebers"_s,
    u"Frieders"_s, u"Hermanns"_s, u"Ottens"_s, u"Ludwigs"_s, u"Königs"_s, u"Bisch"_s, u"Mittel"_s, u"Würz"_s,
};
const QStringList streetStems = {
    u"Haupt"_s, u"Schul"_s, u"Garten"_s, u"Bahnhof"_s, u"Dorf"_s, u"Berg"_s, u"Kirch"_s, u"Wald"_s, u"Linden"_s,
    u"Birken"_s, u"Eichen"_s, u"Buchen"_s, u"Ahorn"_s, u"Rosen"_s, u"Tulpen"_s, u"Goethe"_s, u"Schiller"_s,
    u"Mozart"_s, u"Beethoven"_s, u"Feld"_s, u"Wiesen"_s, u"Mühlen"_s, u"Brunnen"_s, u"Markt"_s, u"Post"_s,
    u"Friedhof"_s, u"Sonnen"_s, u"Mittel"_s, u"Industrie"_s, u"Raiffeisen"_s, u"Tannen"_s, u"Fichten"_s,
    u"Kastanien"_s, u"Jahn"_s, u"Blumen"_s, u"Weiher"_s, u"Lessing"_s, u"Kant"_s, u"Uhland"_s, u"Hölderlin"_s,
    u"Grenz"_s, u"Schützen"_s, u"Feuerwehr"_s, u"Rathaus"_s, u"Schloss"_s,
};
const QStringList streetKinds = { u"straße"_s, u"weg"_s, u"gasse"_s, u"ring"_s, u"allee"_s, u"platz"_s };
const QStringList plainStreets = {
    u"Am Anger"_s, u"Am Sportplatz"_s, u"An der Kirche"_s, u"Im Winkel"_s, u"Auf der Höhe"_s,
    u"Zur Mühle"_s, u"Hinter den Gärten"_s, u"Am Bach"_s, u"Unter den Linden"_s, u"Alte Dorfstraße"_s,
};

constexpr int streetsPerPostcodeMin = 5;
constexpr int streetsPerPostcodeMax = 20;
constexpr int sampleStreets = 12;

// A small generator of our own: the same sequence on every machine and library.
class Sequence
{
public:
    explicit Sequence(unsigned seed)
        : m_state(seed)
    {
    }
    int below(int bound)
    {
        m_state = m_state * 1103515245u + 12345u;
        return int((m_state >> 8) % unsigned(bound));
    }

private:
    unsigned m_state;
};

QStringList streetNames()
{
    QStringList names = plainStreets;
    for (const QString &stem : streetStems)
        for (const QString &kind : streetKinds)
            names << stem + kind;
    return names;
}

QString townName(Sequence &random)
{
    const QString head = townHeads.at(random.below(int(townHeads.size())));
    const QString stem = townStems.at(random.below(int(townStems.size())));
    QString name = head + stem.toLower();
    if (random.below(10) == 0)
        name = u"Bad "_s + name;
    return name;
}

const TCTableDef postcodeTable{ u"KX_GENPLZ"_s,
                                { { u"PLZ"_s, u"VarChar(10)"_s }, { u"ORT"_s, u"VarChar(80)"_s },
                                  { u"SELECTPLZ"_s, u"VarChar(10)"_s }, { u"SELECTORT"_s, u"VarChar(80)"_s },
                                  { u"LO"_s, u"Integer"_s }, { u"HI"_s, u"Integer"_s } },
                                {},
                                {} };
const TCTableDef streetTable{ u"KX_GENSTR"_s,
                              { { u"NR"_s, u"Integer"_s }, { u"KEYPART"_s, u"VarChar(4)"_s },
                                { u"STRASSE"_s, u"VarChar(80)"_s }, { u"SELECTSTRASSE"_s, u"VarChar(80)"_s } },
                              {},
                              {} };

void dropHelpers()
{
    for (const QString &table : { postcodeTable.Tablename, streetTable.Tablename })
        if (compSqlConnection->tableExists(table))
            SqlExec(u"drop table "_s + table);
}

} // namespace

StreetDirectoryFacts address_GenerateDirectory(int postcodes, unsigned seed)
{
    dispatch_CreateTables();
    dropHelpers();
    alterOrCreateTable(postcodeTable, compSqlConnection);
    alterOrCreateTable(streetTable, compSqlConnection);

    Sequence random(seed);
    const QStringList streets = streetNames();
    for (int i = 0; i < streets.size(); ++i) {
        kx::SqlValueList row;
        row.add(u"NR"_s, QString::number(i))
            .addText(u"KEYPART"_s, QString::number(i))
            .addText(u"STRASSE"_s, streets.at(i))
            .addText(u"SELECTSTRASSE"_s, SqlGetSelectFieldValue(streets.at(i)));
        SqlExec(SqlBuildInsertSql(streetTable.Tablename, row.pairs()));
    }

    // Postcodes in ascending order; neighbouring postcodes share a town, as they do in a region.
    // Postcodes the directory holds already keep their own rows and towns.
    QSet<int> existing;
    for (const auto &row : compSqlConnection->execute(u"select distinct PLZ from ORTE"_s).rows)
        existing.insert(row.value(0).toInt());
    QSet<int> chosen;
    while (chosen.size() < postcodes) {
        const int code = 1067 + random.below(99999 - 1067);
        if (!existing.contains(code))
            chosen.insert(code);
    }
    QList<int> codes(chosen.begin(), chosen.end());
    std::sort(codes.begin(), codes.end());

    StreetDirectoryFacts facts;
    QSet<QString> towns;
    QString town;
    int leftInTown = 0;
    for (int i = 0; i < codes.size(); ++i) {
        if (leftInTown-- <= 0) {
            town = townName(random);
            towns.insert(town);
            leftInTown = random.below(4) == 0 ? random.below(20) : random.below(3);
        }
        const QString plz = u"%1"_s.arg(codes.at(i), 5, 10, QLatin1Char('0'));
        const int count = streetsPerPostcodeMin + random.below(streetsPerPostcodeMax - streetsPerPostcodeMin + 1);
        const int lo = random.below(int(streets.size()) - count + 1);
        kx::SqlValueList row;
        row.addText(u"PLZ"_s, plz)
            .addText(u"ORT"_s, town)
            .addText(u"SELECTPLZ"_s, SqlGetSelectFieldValue(plz))
            .addText(u"SELECTORT"_s, SqlGetSelectFieldValue(town))
            .add(u"LO"_s, QString::number(lo))
            .add(u"HI"_s, QString::number(lo + count - 1));
        SqlExec(SqlBuildInsertSql(postcodeTable.Tablename, row.pairs()));
        facts.rows += count;
        if (facts.samplePlz.isEmpty() && i >= codes.size() / 2 && count == sampleStreets) {
            facts.samplePlz = plz;
            facts.sampleOrt = town;
        }
    }
    // The seed in the key keeps two directories of different seeds apart.
    SqlExec(u"insert into ORTE (ID,PLZ,ORT,STRASSE,SELECTPLZ,SELECTORT,SELECTSTRASSE) "
            "select 'G%1-' || P.PLZ || '-' || S.KEYPART, P.PLZ, P.ORT, S.STRASSE, P.SELECTPLZ, P.SELECTORT, "
            "S.SELECTSTRASSE from KX_GENPLZ P, KX_GENSTR S where S.NR between P.LO and P.HI"_s.arg(seed));
    dropHelpers();
    facts.postcodes = int(codes.size());
    facts.towns = int(towns.size());
    return facts;
}
