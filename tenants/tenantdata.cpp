// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tenantdata.h"

#include "dataaccess.h"
#include "globals.h"
#include "sqlconnection.h"
#include "sqltool.h"

using namespace Qt::StringLiterals;

namespace {

const QString key = u"Varchar(43)"_s;
const QString number = u"Numeric(10,0)"_s;
const QString code = u"Varchar(40)"_s;
const QString name = u"Varchar(80)"_s;

QList<TCTableDef> tables()
{
    return {
        { u"Mandanten"_s,
          { { u"ID"_s, number, fUniqueIndex }, { u"MANDANTID"_s, code, fIndex }, { u"NAME1"_s, name },
            { u"NAME2"_s, name }, { u"NAME3"_s, name } },
          {}, standardRights() },
        { u"Mandanten_sub"_s,
          { { u"ID"_s, key, fUniqueIndex }, { u"IDPARENT"_s, number, fIndex }, { u"IDMANDANT"_s, number },
            { u"MANDANTID"_s, code } },
          {}, standardRights() },
        { u"User_GruppenMandantLink"_s,
          { { u"ID"_s, key, fUniqueIndex }, { u"IDPARENT"_s, key, fIndex }, { u"IDMANDANT"_s, number, fIndex } },
          {}, standardRights() },
        { u"User_GruppenLink"_s,
          { { u"ID"_s, key, fUniqueIndex }, { u"IDPARENT"_s, key, fIndex }, { u"GROUPID"_s, key } },
          {}, standardRights() },
        { u"User_User"_s,
          { { u"ID"_s, key, fUniqueIndex }, { u"NAME"_s, name }, { u"HMANDANT"_s, name }, { u"HMANDANTID"_s, code } },
          {}, standardRights() },
    };
}

void insert(const QString &table, const kx::SqlValueList &row)
{
    SqlExec(SqlBuildInsertSql(table, row.pairs()));
}

} // namespace

QList<TCTableDef> tenants_Tables()
{
    return tables();
}

void tenants_CreateTables()
{
    for (const TCTableDef &table : tables())
        alterOrCreateTable(table, compSqlConnection);
}

void tenants_AddMandant(int id, const QString &mandantId, const QString &name1, const QString &name2,
                        const QString &name3)
{
    insert(u"Mandanten"_s, kx::SqlValueList()
                               .add(u"ID"_s, QString::number(id))
                               .addText(u"MANDANTID"_s, mandantId)
                               .addText(u"NAME1"_s, name1)
                               .addText(u"NAME2"_s, name2)
                               .addText(u"NAME3"_s, name3));
}

void tenants_AddSub(int parentId, int subId, const QString &mandantId)
{
    insert(u"Mandanten_sub"_s, kx::SqlValueList()
                                   .addText(u"ID"_s, sqlGenIdValue())
                                   .add(u"IDPARENT"_s, QString::number(parentId))
                                   .add(u"IDMANDANT"_s, QString::number(subId))
                                   .addText(u"MANDANTID"_s, mandantId));
}

void tenants_LinkGroup(const QString &groupId, int mandantId)
{
    insert(u"User_GruppenMandantLink"_s, kx::SqlValueList()
                                             .addText(u"ID"_s, sqlGenIdValue())
                                             .addText(u"IDPARENT"_s, groupId)
                                             .add(u"IDMANDANT"_s, QString::number(mandantId)));
}

void tenants_AddToGroup(const QString &userId, const QString &groupId)
{
    insert(u"User_GruppenLink"_s, kx::SqlValueList()
                                      .addText(u"ID"_s, sqlGenIdValue())
                                      .addText(u"IDPARENT"_s, userId)
                                      .addText(u"GROUPID"_s, groupId));
}

void tenants_AddUser(const QString &userId, const QString &userName, const QString &hMandant, const QString &hMandantId)
{
    insert(u"User_User"_s, kx::SqlValueList()
                               .addText(u"ID"_s, userId)
                               .addText(u"NAME"_s, userName)
                               .addText(u"HMANDANT"_s, hMandant)
                               .addText(u"HMANDANTID"_s, hMandantId));
}

void tenants_AddSampleData()
{
    const struct
    {
        int id;
        const char16_t *code;
        const char16_t *name1;
        const char16_t *name2;
        int parent;
    } tenants[] = {
        { 1, u"KFV", u"Kreisfeuerwehrverband Musterkreis", u"Geschäftsstelle", 0 },
        { 2, u"FFM", u"Freiwillige Feuerwehr Musterstadt", u"Stadtbrandinspektion", 1 },
        { 3, u"FFM-N", u"Löschzug Musterstadt-Nord", u"Gerätehaus Nordstraße", 2 },
        { 4, u"FFM-S", u"Löschzug Musterstadt-Süd", u"Gerätehaus Am Bächle", 2 },
        { 5, u"FFN", u"Freiwillige Feuerwehr Neudorf", u"Gerätehaus Dorfplatz", 1 },
        { 6, u"JF", u"Jugendfeuerwehr Musterkreis", u"Kreisjugendfeuerwehrwart", 0 },
    };
    for (const auto &t : tenants) {
        tenants_AddMandant(t.id, QString::fromUtf16(t.code), QString::fromUtf16(t.name1), QString::fromUtf16(t.name2),
                           u"Musterkreis"_s);
        if (t.parent)
            tenants_AddSub(t.parent, t.id, QString::fromUtf16(t.code));
    }
    for (int id : { 2, 3, 4 })
        tenants_LinkGroup(u"GRP-WEHRFUEHRUNG"_s, id);
    tenants_LinkGroup(u"GRP-KREIS"_s, 1);
    tenants_AddToGroup(u"demo"_s, u"GRP-WEHRFUEHRUNG"_s);
    tenants_AddToGroup(u"kreis"_s, u"GRP-KREIS"_s);
    tenants_AddUser(u"demo"_s, u"Erika Mustermann"_s, u"Freiwillige Feuerwehr Musterstadt"_s, u"FFM"_s);
    tenants_AddUser(u"kreis"_s, u"Max Mustermann"_s, u"Kreisfeuerwehrverband Musterkreis"_s, u"KFV"_s);
}

void tenants_SignInSampleUser()
{
    User.Id = u"demo"_s;
    User.Name = u"Erika Mustermann"_s;
    User.Rights = u"[2:150][7010:20]"_s;
    User.NoMandantRestriction = false;
    User.Mandanten = u"'FFM','FFM-N','FFM-S'"_s;
}
