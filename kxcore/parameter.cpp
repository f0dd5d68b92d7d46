// SPDX-License-Identifier: LGPL-2.1-or-later
#include "parameter.h"

#include "dataaccess.h"
#include "globals.h"
#include "kxerror.h"
#include "sqlconnection.h"
#include "sqltool.h"
#include "strtools.h"

#include <QSysInfo>

using namespace Qt::StringLiterals;

namespace {
const TCTableDef &parameterTable()
{
    static const TCTableDef table{
        u"SYSPARAMETER"_s,
        { { u"ID"_s, u"Varchar(43)"_s, fIndex },
          { u"SECTIONNAME"_s, u"VarChar(100)"_s, fIndex },
          { u"KEYNAME"_s, u"VarChar(100)"_s, fIndex },
          { u"SCOPEKEY"_s, u"VarChar(100)"_s },
          { u"PVALUE"_s, u"VarChar(2000)"_s } },
        { { u"SYSPARAMETERKEYIDX"_s, true, u"SECTIONNAME,KEYNAME,SCOPEKEY"_s } },
        {}
    };
    return table;
}

QString condition(const QString &section, const QString &key, const QString &scopeKey)
{
    return u" where SECTIONNAME='"_s + sqlConvertString(section) + u"' and KEYNAME='"_s + sqlConvertString(key)
        + u"' and SCOPEKEY='"_s + sqlConvertString(scopeKey) + u'\'';
}
} // namespace

TCParameter::TCParameter(QObject *owner)
    : QObject(owner)
{
}

QString TCParameter::scopeKey(TCParameterScope scope)
{
    switch (scope) {
    case TCParameterScope::Computer:
        return u"C:"_s + QSysInfo::machineHostName().toUpper();
    case TCParameterScope::User:
        return u"U:"_s + User.Name.toUpper();
    default:
        return u"G"_s;
    }
}

template<class Work>
auto TCParameter::withTable(Work &&work)
{
    // The table is made on first use: try first, so that reads cost no catalog look-up.
    try {
        return work();
    } catch (const kx::DatabaseError &) {
        if (compSqlConnection->tableExists(parameterTable().Tablename))
            throw;
    }
    alterOrCreateTable(parameterTable(), compSqlConnection);
    return work();
}

QString TCParameter::Read(const QString &section, const QString &key, const QString &defaultValue,
                          TCParameterScope scope)
{
    const QString sql = u"select PVALUE from SYSPARAMETER"_s + condition(section, key, scopeKey(scope));
    const kx::SqlResult result = withTable([&] { return compSqlConnection->execute(sql); });
    if (result.rows.empty())
        return defaultValue;
    return result.rows.front().value(0).toString();
}

bool TCParameter::ReadBool(const QString &section, const QString &key, bool defaultValue, TCParameterScope scope)
{
    const QString value = Read(section, key, defaultValue ? u"1"_s : u"0"_s, scope);
    return hStrToBool(value);
}

void TCParameter::Write(const QString &section, const QString &key, const QString &value, TCParameterScope scope)
{
    const QString sql = u"update SYSPARAMETER set PVALUE='"_s + sqlConvertString(value) + u'\''
        + condition(section, key, scopeKey(scope));
    const kx::SqlResult updated = withTable([&] { return compSqlConnection->execute(sql); });
    if (updated.rowsAffected > 0)
        return;
    kx::SqlValueList row;
    row.addText(u"ID"_s, sqlGenIdValue())
        .addText(u"SECTIONNAME"_s, section)
        .addText(u"KEYNAME"_s, key)
        .addText(u"SCOPEKEY"_s, scopeKey(scope))
        .addText(u"PVALUE"_s, value);
    SqlExec(SqlBuildInsertSql(u"SYSPARAMETER"_s, row.pairs()));
}

void TCParameter::WriteBool(const QString &section, const QString &key, bool value, TCParameterScope scope)
{
    Write(section, key, value ? u"1"_s : u"0"_s, scope);
}
