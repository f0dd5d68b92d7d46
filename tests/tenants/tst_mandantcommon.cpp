// SPDX-License-Identifier: LGPL-2.1-or-later
// The tenant fragment on each product: its exact text for each kind of user and tree, the
// statements it runs, a broken code, a ring in the hierarchy and a large deep tree.
#include "globals.h"
#include "kxerror.h"
#include "mandantcommon.h"
#include "tenantdata.h"
#include "testdatabase.h"

#include <QElapsedTimer>

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
    void SetUp() override
    {
        kxtest::DatabaseTest::SetUp();
        if (IsSkipped() || HasFailure())
            return;
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
    void TearDown() override
    {
        User = TCUser{};
        kxtest::DatabaseTest::TearDown();
    }
};

TEST_F(MandantCommonTest, FragmentForEachUserAndTree)
{
    const struct
    {
        const char *name;
        QString user;
        bool unrestricted;
        QString table;
        QString code;
        QString expected;
    } cases[] = {
        { "unrestricted user", u"u1"_s, true, u"Fahrzeug"_s, u"A"_s, QString() },
        { "unknown tenant", u"u1"_s, false, u"Fahrzeug"_s, u"ZZ"_s, QString() },
        { "empty tenant code", u"u1"_s, false, u"Fahrzeug"_s, QString(), QString() },
        { "tenant without sub-tenants", u"u1"_s, false, u"Fahrzeug"_s, u"C"_s, plainFragment(u"FAHRZEUG"_s, { u"C"_s }) },
        { "user without group links", u"u3"_s, false, u"Fahrzeug"_s, u"A"_s, QString() },
        { "only a sub-tenant linked", u"u2"_s, false, u"Fahrzeug"_s, u"A"_s, plainFragment(u"FAHRZEUG"_s, { u"C"_s }) },
        { "parent not linked, sub-tenant linked", u"u1"_s, false, u"einsatz"_s, u"E"_s,
          plainFragment(u"EINSATZ"_s, { u"F"_s }) },
        { "order of discovery, depth first", u"u1"_s, false, u"Fahrzeug"_s, u"A"_s,
          plainFragment(u"FAHRZEUG"_s, { u"A"_s, u"B"_s, u"C"_s, u"D"_s }) },
        { "personal in lower case", u"u1"_s, false, u"personal"_s, u"B"_s, linkFragment(u"PERSONAL"_s, { u"B"_s, u"C"_s }) },
        { "Geraetestamm in mixed case", u"u2"_s, false, u"Geraetestamm"_s, u"A"_s,
          linkFragment(u"GERAETESTAMM"_s, { u"C"_s }) },
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        User.Id = c.user;
        User.NoMandantRestriction = c.unrestricted;
        kx::SqlTraceCapture trace;
        EXPECT_EQ(MandantenBuildSubSelect(c.table, c.code), c.expected);
        if (c.unrestricted)
            EXPECT_TRUE(trace.statements().isEmpty());
        else
            EXPECT_EQ(trace.statements().first(), u"Select id from Mandanten where MANDANTID='"_s + c.code + u"'"_s);
    }
}

TEST_F(MandantCommonTest, StatementsOfOneTenant)
{
    User.Id = u"u1"_s;
    kx::SqlTraceCapture trace;
    MandantenBuildSubSelect(u"Fahrzeug"_s, u"C"_s);
    EXPECT_EQ(trace.statements(),
              (QStringList{ u"Select id from Mandanten where MANDANTID='C'"_s,
                            u"Select * from Mandanten_sub where idparent='3'"_s,
                            u"Select Count(idMandant) from User_GruppenMandantLink where idMandant='3' and  "
                            u"User_GruppenMandantLink.idParent in ( Select User_GruppenLink.Groupid From User_GruppenLink "
                            u"Where User_GruppenLink.Idparent='u1')"_s,
                            u"Select mandantId from Mandanten where ID='3'"_s }));
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
