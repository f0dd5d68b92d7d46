// SPDX-License-Identifier: LGPL-2.1-or-later
#include "mandantcommon.h"

#include "globals.h"
#include "sqlconnection.h"
#include "sqlquery.h"
#include "sqltool.h"

#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

QPointer<TMandantCommonForm> MandantCommonForm;

TMandantCommonForm::TMandantCommonForm(QObject *owner)
    : THolderForm(owner)
    , DataQuery(new TCSqlQuery(this))
{
    DataQuery->setObjectName(u"DataQuery"_s);
    DataQuery->Connection = compSqlConnection;
}

QString TMandantCommonForm::MandantenBuildSubSelect(const QString &TableName, const QString &MandantId)
{
    QString result;
    if (User.NoMandantRestriction)
        return result;
    const QString key = sqlGetValue(u"Select id from Mandanten where MANDANTID='"_s + sqlConvertString(MandantId) + u"'"_s);
    if (key.isEmpty())
        return result;

    m_list = QStringList{ key };
    m_distinct = { key };
    m_path = { { key, 1 } };
    BuildSub(TableName, key);

    // From the last entry down, so that deleting keeps the remaining indexes valid.
    for (int i = int(m_list.size()) - 1; i >= 0; --i) {
        const QString &s = m_list.at(i);
        const qint64 count = sqlGetValueInt(
            u"Select Count(idMandant) from User_GruppenMandantLink where idMandant='"_s + sqlConvertString(s)
            + u"' and  User_GruppenMandantLink.idParent in ( Select User_GruppenLink.Groupid From User_GruppenLink Where User_GruppenLink.Idparent='"_s
            + sqlConvertString(User.Id) + u"')"_s);
        if (count == 0)
            m_list.removeAt(i);
        else
            m_list[i] = sqlGetValue(u"Select mandantId from Mandanten where ID='"_s + sqlConvertString(s) + u"'"_s);
    }
    // Deliberate: a user linked to none of the subtree's tenants is not restricted at all.
    const QStringList list = std::exchange(m_list, {});
    if (list.isEmpty())
        return result;

    const QString table = TableName.toUpper();
    QStringList lines{ u" and ( 1=2 "_s };
    for (const QString &code : list)
        lines << u" or "_s + table + u".MandantId='"_s + sqlConvertString(code) + u"' "_s;
    if (table == u"PERSONAL"_s || table == u"GERAETESTAMM"_s) {
        lines << u"or "_s + table + u".id in (Select "_s + table + u"_Mandant.IdParent from "_s + table + u"_Mandant "_s;
        lines << u"Where 1=2 "_s;
        for (const QString &code : list)
            lines << u" or "_s + table + u"_Mandant.MandantId='"_s + sqlConvertString(code) + u"' "_s;
        lines << u")"_s;
    }
    lines << u")"_s;
    for (const QString &line : lines)
        result += line + u"\r\n"_s;
    return result;
}

void TMandantCommonForm::BuildSub(const QString &TableName, const QString &ParentId)
{
    auto query = std::make_unique<TCSqlQuery>();
    query->Connection = compSqlConnection;
    query->SQL.Add(u"Select * from Mandanten_sub where idparent='"_s + sqlConvertString(ParentId) + u"'"_s);
    query->Open();
    for (; !query->Eof(); query->Next()) {
        // Deliberate: the link row's tenant code is looked for among tenant IDs; it only stops a
        // repeated descent where both columns carry the same value.
        if (m_list.contains(query->FieldByName(u"MandantID"_s).AsString()))
            continue;
        const QString id = query->FieldByName(u"IDMandant"_s).AsString();
        m_list << id;
        m_distinct.insert(id);
        // A ring in the hierarchy: descending into an ID again is followed as described, unless
        // the list has gained no new ID since the same descent began further up. Then the guard
        // answers every row as it did there, and the descent would repeat without end.
        // The latest descent into the ID counts: the list only grows along the path.
        const auto earlier = std::find_if(m_path.crbegin(), m_path.crend(), [&id](const auto &entry) { return entry.first == id; });
        if (earlier != m_path.crend() && earlier->second == m_distinct.size())
            continue;
        m_path.append({ id, m_distinct.size() });
        BuildSub(TableName, id);
        m_path.removeLast();
    }
    query->Close();
}

QString MandantenBuildSubSelect(const QString &TableName, const QString &MandantId)
{
    return runInHolder(MandantCommonForm, [&](TMandantCommonForm &form) {
        return form.MandantenBuildSubSelect(TableName, MandantId);
    });
}
