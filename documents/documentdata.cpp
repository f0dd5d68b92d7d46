// SPDX-License-Identifier: LGPL-2.1-or-later
#include "documentdata.h"

#include "sqlconnection.h"
#include "sqltool.h"

using namespace Qt::StringLiterals;

TCTableDef documentTableDef(const QString &tableName)
{
    // The rights of a document table: the standard list up to "Direktdruck".
    return { tableName,
             { { u"ID"_s, u"Varchar(33)"_s, fUniqueIndex },
               { u"IDPARENT"_s, u"Varchar(33)"_s, fIndex },
               { u"BEZEICHNUNG"_s, u"VarChar(80)"_s, 0, u"Bezeichnung"_s },
               { u"DOKUMENT"_s, u"VarChar(350)"_s, 0, u"Dokument"_s },
               { u"MANDANTID"_s, u"Varchar(40)"_s, fIndex | fNotEditable, u"MandantId"_s },
               { u"UID"_s, u"Varchar(33)"_s, fIndex | fNotEditable, u"uId"_s },
               { u"SID"_s, u"Varchar(33)"_s, fIndex | fNotEditable, u"sId"_s },
               { u"LDATE"_s, u"Date"_s, 0, u"Letze Änderung Datum"_s },
               { u"LTIME"_s, u"Varchar(10)"_s, 0, u"Letze Änderung Uhrzeit"_s },
               { u"LUSER"_s, u"VarChar(50)"_s, 0, u"Letze Änderung User"_s },
               { u"MAINDOC"_s, u"Numeric(10,0)"_s, 0, u"Hauptdokument"_s } },
             {},
             standardRights().mid(0, 11) };
}

void documents_CreateTable(const QString &tableName)
{
    alterOrCreateTable(documentTableDef(tableName), compSqlConnection);
}

QString documents_Add(const QString &tableName, const QString &parentId, const QString &bezeichnung,
                      const QString &dokument)
{
    const QString id = sqlGenIdValue();
    kx::SqlValueList row;
    row.addText(u"ID"_s, id)
        .addText(u"IDPARENT"_s, parentId)
        .addText(u"BEZEICHNUNG"_s, bezeichnung)
        .addText(u"DOKUMENT"_s, dokument);
    for (const auto &[name, value] : kx::changeStamp())
        row.addText(name, value);
    row.add(u"MAINDOC"_s, u"0"_s);
    SqlExec(SqlBuildInsertSql(tableName, row.pairs()));
    return id;
}
