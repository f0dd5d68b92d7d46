// SPDX-License-Identifier: LGPL-2.1-or-later
#include "docviewmatcommon.h"

#include "sqlquery.h"
#include "sqltool.h"
#include "strtools.h"

#include <memory>

using namespace Qt::StringLiterals;

namespace {

void setParents(TCSqlQuery *query, const QString &first, const QString &Id1, const QString &Id2, const QString &Id3)
{
    query->SQL.Clear();
    query->SQL.Add(first);
    query->SQL.Add(u"Where idParent='"_s + sqlConvertString(Id1) + u"'"_s);
    query->SQL.Add(u"Or idParent='"_s + sqlConvertString(Id2) + u"'"_s);
    query->SQL.Add(u"Or idParent='"_s + sqlConvertString(Id3) + u"'"_s);
}

} // namespace

TDocViewMatCommonForm::TDocViewMatCommonForm(QWidget *parent)
    : TDocViewCommonForm(parent)
{
    setObjectName(u"DocViewMatCommonForm"_s);
}

void TDocViewMatCommonForm::ShowCommonDokuments(const QString &Id1, const QString &Id2, const QString &Id3)
{
    setParents(DataQuery, u"Select * from Mat_Dokumente"_s, Id1, Id2, Id3);
    DataQuery->SQL.Add(u"Order By BEZEICHNUNG"_s);
    fillFromQuery();
}

int TDocViewMatCommonForm::CountDokuments(const QString &Id1, const QString &Id2, const QString &Id3)
{
    setParents(DataQuery, u"Select Count(*) from Mat_Dokumente"_s, Id1, Id2, Id3);
    DataQuery->Open();
    const int count = hStrToInt(DataQuery->Fields(0).AsString(), 0);
    DataQuery->Close();
    return count;
}

void ShowCommonMatDokuments(const QString &Id1, const QString &Id2, const QString &Id3)
{
    const auto form = std::make_unique<TDocViewMatCommonForm>();
    form->ShowCommonDokuments(Id1, Id2, Id3);
    form->exec();
}

int CheckCommonMatDokuments(const QString &Id1, const QString &Id2, const QString &Id3)
{
    const auto form = std::make_unique<TDocViewMatCommonForm>();
    return form->CountDokuments(Id1, Id2, Id3);
}
