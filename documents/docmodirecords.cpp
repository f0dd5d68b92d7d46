// SPDX-License-Identifier: LGPL-2.1-or-later
// The document editor's records: reading a record's documents, saving the changed rows (with
// their content where the documents are stored in the database) and copying them to another record.
#include "docmodicommon.h"

#include "binarydata.h"
#include "dataaccess.h"
#include "globals.h"
#include "sqlconnection.h"
#include "sqlquery.h"
#include "sqltool.h"

#include <QDate>
#include <QFileInfo>
#include <QSet>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {


QString pairText(const QVariant &value)
{
    return value.typeId() == QMetaType::QDate ? value.toDate().toString(Qt::ISODate) : value.toString();
}

} // namespace

void TDocModiCommonForm::LoadDocuments(const QString &ParentId)
{
    m_parentId = ParentId;
    DokumentList->clear();
    const QString table = DataAccess_Doc->Tablename;
    QSet<QString> stored;
    if (compSqlConnection->tableExists(u"BinaryData"_s))
        for (const auto &row : compSqlConnection->execute(u"select IDPARENT from BinaryData where TABLEPARENT="_s
                                                          + kx::sqlQuoted(table.toUpper()) + u" and DATAFILTER='DOKUMENT'"_s)
                                   .rows)
            stored.insert(row.value(0).toString());
    TCSqlQuery query;
    query.Connection = compSqlConnection;
    query.SQL.Add(u"select * from "_s + table + u" where IDPARENT="_s + kx::sqlQuoted(ParentId) + u" order by BEZEICHNUNG"_s);
    query.Open();
    for (; !query.Eof(); query.Next()) {
        kx::NameValues pairs;
        for (int c = 0; c < query.FieldCount(); ++c) {
            const TCQueryField field = query.Fields(c);
            const TCFieldDef *definition = DataAccess_Doc->Fields.GetItemFromFieldname(field.FieldName());
            // Deliberate: a null column leaves no pair, so a copy adds its own change stamp.
            if (definition && !field.IsNull())
                pairs.SetValue(definition->Fieldname, pairText(field.Value()));
        }
        pairs.SetValue(RealMark, stored.contains(pairs.Value(u"ID"_s)) ? u"1"_s : u"0"_s);
        pairs.SetValue(ModiMark, u"0"_s);
        addRow(pairs);
    }
    query.Close();
}

void TDocModiCommonForm::saveChangedRows()
{
    const QString table = DataAccess_Doc->Tablename;
    const TCFieldDef *document = DataAccess_Doc->Fields.GetItemFromFieldname(u"DOKUMENT"_s);
    for (int i = 0; i < RowCount(); ++i) {
        kx::NameValues pairs = Row(i);
        if (pairs.Value(ModiMark) != u"1"_s)
            continue;
        const QString id = pairs.Value(u"ID"_s);
        const QString file = pairs.Value(u"DOKUMENT"_s);
        // Stored in the database: the file's content goes in, the column keeps its name.
        const bool binary = document->SaveBinary && cEnableBinarySave && QFileInfo(file).isFile();
        if (binary)
            pairs.SetValue(u"DOKUMENT"_s, QFileInfo(file).fileName());
        for (const auto &[name, value] : kx::changeStamp())
            pairs.SetValue(name, value);
        kx::SqlValueList values;
        for (int p = 0; p < pairs.Count(); ++p)
            if (DataAccess_Doc->Fields.GetItemFromFieldname(pairs.Name(p)))
                values.addText(pairs.Name(p), pairs.ValueAt(p));
        if (pairs.Value(NewMark) == u"1"_s)
            SqlExec(SqlBuildInsertSql(table, values.pairs()));
        else
            SqlExec(SqlBuildUpdateSql(table, values.pairs(), u"Where ID="_s + kx::sqlQuoted(id)));
        if (binary) {
            SaveBinaryData(id, table, u"DOKUMENT"_s, file);
            pairs.SetValue(RealMark, u"1"_s);
        }
        pairs.SetValue(ModiMark, u"0"_s);
        pairs.SetValue(NewMark, u"0"_s);
        SetRow(i, pairs);
    }
}

void TDocModiCommonForm::CloneDocuments(const QString &NewParentId)
{
    TCSqlQuery query;
    query.Connection = compSqlConnection;
    // All copies or none: a copy without its stored content would name a file that is nowhere.
    kx::SqlTransaction transaction;
    const bool contents = compSqlConnection->tableExists(u"BinaryData"_s);
    for (int i = 0; i < RowCount(); ++i) {
        kx::NameValues pairs = Row(i);
        if (pairs.Count() == 0)
            continue;
        for (int p = pairs.Count() - 1; p >= 0; --p)
            if (!DataAccess_Doc->Fields.GetItemFromFieldname(pairs.Name(p)))
                pairs.Delete(p);
        const QString id = pairs.Value(u"ID"_s);
        pairs.SetValue(u"ID"_s, sqlGenIdValue());
        pairs.SetValue(u"IDPARENT"_s, NewParentId);
        for (const auto &[name, value] : kx::changeStamp())
            if (!pairs.Contains(name))
                pairs.SetValue(name, value);
        QStringList quoted;
        for (int p = 0; p < pairs.Count(); ++p)
            quoted << pairs.Name(p) + u'=' + kx::sqlQuoted(pairs.ValueAt(p));
        query.SQL.Clear();
        query.SQL.Add(SqlBuildInsertSql(DataAccess_Doc->Tablename, quoted));
        query.ExecSQL();
        if (contents)
            CopyBinaryData(id, pairs.Value(u"ID"_s), DataAccess_Doc->Tablename);
    }
    transaction.commit();
}
