// SPDX-License-Identifier: LGPL-2.1-or-later
#include "lagercommon.h"

#include "sqlconnection.h"
#include "sqlquery.h"
#include "sqltool.h"
#include "strtools.h"

using namespace Qt::StringLiterals;

QPointer<TLagerCommonForm> LagerCommonForm;

namespace {

TCSqlQuery *newQuery(const char *name)
{
    auto *query = new TCSqlQuery(nullptr);
    query->setObjectName(QString::fromLatin1(name));
    query->Connection = compSqlConnection;
    return query;
}

// Fixed by the suite: what callers receive when no stock figure applies.
constexpr double noAvailableStock = -280772;

} // namespace

TCLagerAction::TCLagerAction()
    : DataQuery(newQuery("DataQuery"))
    , LogQuery(newQuery("LogQuery"))
    , ModiQuery(newQuery("ModiQuery"))
    , fLogActionDate(notSet())
{
}

TCLagerAction::~TCLagerAction()
{
    delete DataQuery;
    delete LogQuery;
    delete ModiQuery;
}

QDateTime TCLagerAction::notSet()
{
    return QDateTime(QDate(1, 1, 1), QTime(0, 0));
}

QString TCLagerAction::ModeAsString(TCLagerModeType aMode)
{
    switch (aMode) {
    case lmtIn:
        return u"Lager Eingang"_s;
    case lmtOut:
        return u"Lager Ausgang"_s;
    case lmtCorrection:
        return u"Bestandskorrektur"_s;
    case lmtStocktaking:
        return u"Inventur"_s;
    }
    return QString();
}

QString TCLagerAction::ModeAsString(TCLagerModeType aMode, double aMenge)
{
    if (aMode == lmtCorrection)
        return aMenge < 0 ? u"Bestandskorrektur (-)"_s : u"Bestandskorrektur (+)"_s;
    return ModeAsString(aMode);
}

double TCLagerAction::GetMaxAvail(const QString &IdArtikel)
{
    return StrToFloatDef(sqlGetValue(u"Select Bestand from Artikel where id='"_s + sqlConvertString(IdArtikel)
                                     + u"' and (IgnoreBestand=0 or IgnoreBestand is null)"_s),
                         noAvailableStock);
}

double TCLagerAction::GetMaxAvail(const QString &IdArtikel, const QString &)
{
    return GetMaxAvail(IdArtikel);
}

void TCLagerAction::UpdateVK(const QString &)
{
}

void TCLagerAction::runModi(const QStringList &lines)
{
    ModiQuery->SQL.Assign(lines);
    ModiQuery->ExecSQL();
}

TLagerCommonForm::TLagerCommonForm(QObject *owner)
    : THolderForm(owner)
    , DataQuery(new TCSqlQuery(this))
    , ModiQuery(new TCSqlQuery(this))
{
    DataQuery->setObjectName(u"DataQuery"_s);
    ModiQuery->setObjectName(u"ModiQuery"_s);
    DataQuery->Connection = compSqlConnection;
    ModiQuery->Connection = compSqlConnection;
}
