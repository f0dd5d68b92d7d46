// SPDX-License-Identifier: LGPL-2.1-or-later
// The tenant fragment on each product: its exact text for each kind of user and tree, the
// statements it runs, a broken code, a ring in the hierarchy and a large deep tree.
#include "globals.h"
#include "kxerror.h"
#include "mandantcommon.h"
#include "tenantdata.h"
#include "goldentrace.h"
#include "property.h"
#include "testdatabase.h"

#include <functional>

using namespace Qt::StringLiterals;

namespace {

// The fragment's lines, each followed by CRLF.
QString fragment(const QStringList &lines)
{
    QString text;
    for (const QString &line : lines)
        text += line + u"\r\n"_s;
    return text;
}

QStringList codeTerms(const QString &table, const QStringList &codes)
{
    QStringList lines;
    for (const QString &code : codes)
        lines << u" or "_s + table + u".MandantId='"_s + code + u"' "_s;
    return lines;
}

QString plainFragment(const QString &table, const QStringList &codes)
{
    return fragment(QStringList{ u" and ( 1=2 "_s } + codeTerms(table, codes) + QStringList{ u")"_s });
}

QString linkFragment(const QString &table, const QStringList &codes)
{
    return fragment(QStringList{ u" and ( 1=2 "_s } + codeTerms(table, codes)
                    + QStringList{ u"or "_s + table + u".id in (Select "_s + table + u"_Mandant.IdParent from "_s + table
                                       + u"_Mandant "_s,
                                   u"Where 1=2 "_s }
                    + codeTerms(table + u"_Mandant"_s, codes) + QStringList{ u")"_s, u")"_s });
}

class MandantCommonTest : public kxtest::DatabaseTest
{
protected:
    void prepare() override
    {
        tenants_CreateTables();
        // A: B (with C below it) and D; E alone with F below it. Group G1 sees A-D and F, G2 only C.
        const QStringList codes{ u"A"_s, u"B"_s, u"C"_s, u"D"_s, u"E"_s, u"F"_s };
        for (int i = 0; i < codes.size(); ++i)
            tenants_AddMandant(i + 1, codes.at(i), u"Wehr "_s + codes.at(i));
        tenants_AddSub(1, 2, u"B"_s);
        tenants_AddSub(2, 3, u"C"_s);
        tenants_AddSub(1, 4, u"D"_s);
        tenants_AddSub(5, 6, u"F"_s);
        for (int id : { 1, 2, 3, 4, 6 })
            tenants_LinkGroup(u"G1"_s, id);
        tenants_LinkGroup(u"G2"_s, 3);
        tenants_AddToGroup(u"u1"_s, u"G1"_s);
        tenants_AddToGroup(u"u2"_s, u"G2"_s);
        User = TCUser{};
    }
};

TEST_F(MandantCommonTest, GoldenStatementsOfATreeWithLinkTable)
{
    User.Id = u"u1"_s;
    kx::SqlTraceCapture trace;
    EXPECT_EQ(MandantenBuildSubSelect(u"personal"_s, u"B"_s), linkFragment(u"PERSONAL"_s, { u"B"_s, u"C"_s }));
    kxtest::expectGoldenTrace(u"tenants-fragment"_s, trace.statements());
    trace.clear();
    User.NoMandantRestriction = true;
    EXPECT_EQ(MandantenBuildSubSelect(u"personal"_s, u"B"_s), QString());
    EXPECT_TRUE(trace.statements().isEmpty());
}

// A forest of tenants: tenant i (1-based) may hang below an earlier one; the user's groups see some.
struct Forest
{
    std::vector<int> parent; // 0: a root
    std::vector<bool> visible;
    int start;               // 0: a code no tenant has, or none
    int table;
};

const QString tables[] = { u"Fahrzeug"_s, u"einsatz"_s, u"personal"_s, u"Geraetestamm"_s };

QString codeOf(int id)
{
    return QString(QChar(u'A' + id - 1));
}

// The fragment as the recursion gives it for a forest: the start, then its subtree depth first in
// the order the links were written, without the tenants the user does not see.
QString modelFragment(const Forest &f)
{
    QStringList codes;
    std::function<void(int)> walk = [&](int id) {
        if (f.visible[size_t(id - 1)])
            codes << codeOf(id);
        for (size_t child = 1; child <= f.parent.size(); ++child)
            if (f.parent[child - 1] == id)
                walk(int(child));
    };
    if (f.start > 0)
        walk(f.start);
    if (codes.isEmpty())
        return {};
    const QString table = tables[f.table].toUpper();
    return table == u"PERSONAL"_s || table == u"GERAETESTAMM"_s ? linkFragment(table, codes) : plainFragment(table, codes);
}

TEST_F(MandantCommonTest, FragmentIsTheRecursionsOverRandomForests)
{
    const int cases = kxtest::product() == u"firebird"_s ? 30 : 100;
    EXPECT_TRUE(kxtest::propertyHolds("the fragment of a random forest", cases, [] {
        const int n = *rc::gen::inRange(1, 8);
        Forest f;
        for (int i = 1; i <= n; ++i) {
            f.parent.push_back(i == 1 ? 0 : *rc::gen::inRange(0, i));
            f.visible.push_back(*rc::gen::arbitrary<bool>());
        }
        f.start = *rc::gen::inRange(0, n + 1);
        const QString unknown = *rc::gen::arbitrary<bool>() ? u"ZZ"_s : QString();
        f.table = *rc::gen::inRange(0, 4);
        for (const QString &table : { u"Mandanten"_s, u"Mandanten_sub"_s, u"User_GruppenMandantLink"_s })
            kxtest::exec(u"delete from "_s + table);
        for (int i = 1; i <= n; ++i) {
            tenants_AddMandant(i, codeOf(i), u"Wehr "_s + codeOf(i));
            if (f.parent[size_t(i - 1)] > 0)
                tenants_AddSub(f.parent[size_t(i - 1)], i, codeOf(i));
            if (f.visible[size_t(i - 1)])
                tenants_LinkGroup(u"G1"_s, i);
        }
        User.Id = u"u1"_s;
        RC_ASSERT(MandantenBuildSubSelect(tables[f.table], f.start > 0 ? codeOf(f.start) : unknown) == modelFragment(f));
    }));
}

// A tenant code is matched as the text it is: an apostrophe in a code goes into the fragment
// doubled, and a code built to change the statement finds no tenant and changes nothing.
TEST_F(MandantCommonTest, QuotesInCodesAreMatchedAsText)
{
    tenants_AddMandant(7, u"O'B"_s, u"Wehr O'B"_s);
    tenants_AddSub(1, 7, u"O'B"_s);
    tenants_LinkGroup(u"G1"_s, 7);
    User.Id = u"u1"_s;
    EXPECT_EQ(MandantenBuildSubSelect(u"Fahrzeug"_s, u"A"_s),
              plainFragment(u"FAHRZEUG"_s, { u"A"_s, u"B"_s, u"C"_s, u"D"_s, u"O''B"_s }));
    for (const QString &code : { u"A'; delete from Mandanten"_s, u"x' or '1'='1"_s })
        EXPECT_EQ(MandantenBuildSubSelect(u"Fahrzeug"_s, code), QString()) << code.toStdString();
    EXPECT_EQ(kxtest::rows(u"select count(*) from Mandanten"_s), QStringList{ u"7"_s });
}

// Rings in the hierarchy. Where the link rows' guard ends the repeated descent, the fragment is
// the one the recursion gives, repeated terms included; where the recursion would repeat without
// end (the list gained no new tenant since the same descent), it stops there.
TEST_F(MandantCommonTest, RingsInTheHierarchy)
{
    // G: H (linked under the code "8", H's own ID) and I; H has G below it again.
    for (const auto &[id, code] : { std::pair{ 7, u"G"_s }, { 8, u"H"_s }, { 9, u"I"_s } }) {
        tenants_AddMandant(id, code, u"Wehr "_s + code);
        tenants_LinkGroup(u"G1"_s, id);
    }
    tenants_AddSub(7, 8, u"8"_s);
    tenants_AddSub(8, 7, u"G-RING"_s);
    tenants_AddSub(7, 9, u"I"_s);
    // C gets A below it again: A, B and C are collected twice, then nothing new comes.
    tenants_AddSub(3, 1, u"A-RING"_s);
    User.Id = u"u1"_s;
    EXPECT_EQ(MandantenBuildSubSelect(u"Fahrzeug"_s, u"G"_s),
              plainFragment(u"FAHRZEUG"_s, { u"G"_s, u"H"_s, u"G"_s, u"I"_s, u"I"_s }));
    EXPECT_EQ(MandantenBuildSubSelect(u"Fahrzeug"_s, u"A"_s),
              plainFragment(u"FAHRZEUG"_s, { u"A"_s, u"B"_s, u"C"_s, u"A"_s, u"B"_s, u"C"_s, u"D"_s, u"D"_s }));
}

TEST_F(MandantCommonTest, ALargeDeepTreeBuildsItsFragment)
{
    // 10 000 tenants: a chain of depth 200, the rest hanging off the chain; the group sees every tenth.
    kxtest::emptyDatabase(*compSqlConnection);
    tenants_CreateTables();
    constexpr int total = 10000;
    constexpr int depth = 200;
    for (int id = 1; id <= total; ++id) {
        tenants_AddMandant(id, u"M%1"_s.arg(id), QString());
        if (id > 1)
            tenants_AddSub(id <= depth ? id - 1 : (id - depth - 1) % depth + 1, id, u"M%1"_s.arg(id));
        if (id % 10 == 1)
            tenants_LinkGroup(u"G"_s, id);
    }
    tenants_AddToGroup(u"big"_s, u"G"_s);
    User.Id = u"big"_s;
    const QString result = MandantenBuildSubSelect(u"Fahrzeug"_s, u"M1"_s);
    EXPECT_EQ(result.count(u"\r\n"_s), total / 10 + 2);
    EXPECT_TRUE(result.contains(u" or FAHRZEUG.MandantId='M191' \r\n"_s)); // on the chain, depth 191
}

} // namespace
