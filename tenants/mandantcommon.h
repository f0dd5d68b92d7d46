// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include "holder.h"

#include <QPointer>
#include <QString>
#include <QSet>
#include <QStringList>

class TCSqlQuery;

// Builds the tenant fragment: CRLF-terminated lines beginning " and ( 1=2 " that a caller
// appends to its WHERE clause, admitting the rows of the current tenant and of its sub-tenants
// (at any depth) that one of the user's groups is linked to. Empty when nothing restricts.
class KXCOMMON_CORE_EXPORT TMandantCommonForm : public THolderForm
{
    Q_OBJECT

public:
    explicit TMandantCommonForm(QObject *owner);

    // TableName as it stands in the caller's FROM clause; MandantId the current tenant's code.
    QString MandantenBuildSubSelect(const QString &TableName, const QString &MandantId);
    // Adds the "ID"s of every sub-tenant below ParentId to the tenant list, depth first.
    void BuildSub(const QString &TableName, const QString &ParentId);

    TCSqlQuery *DataQuery;

private:
    QStringList m_list; // the tenant list of one MandantenBuildSubSelect: IDs, then codes
    // The IDs being descended into, from the current tenant down, each with the number of
    // different IDs the tenant list held when its descent began.
    QList<std::pair<QString, qsizetype>> m_path;
    QSet<QString> m_distinct; // the different IDs of the tenant list
};

extern KXCOMMON_CORE_EXPORT QPointer<TMandantCommonForm> MandantCommonForm;

KXCOMMON_CORE_EXPORT QString MandantenBuildSubSelect(const QString &TableName, const QString &MandantId);
