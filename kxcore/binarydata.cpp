// SPDX-License-Identifier: LGPL-2.1-or-later
#include "binarydata.h"

#include "kxerror.h"
#include "sqlconnection.h"
#include "sqltool.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace {

QString ownerCondition(const QString &id, const QString &table, const QString &field)
{
    return u"IDPARENT="_s + kx::sqlQuoted(id) + u" and TABLEPARENT="_s + kx::sqlQuoted(table.toUpper())
        + u" and DATAFILTER="_s + kx::sqlQuoted(field.toUpper());
}

} // namespace

QString SaveBinaryData(const QString &Id, const QString &TableName, const QString &FieldName, const QString &FilePath)
{
    QFile file(FilePath);
    if (!file.open(QIODevice::ReadOnly))
        throw kx::Error(u"Die Datei %1 lässt sich nicht lesen: %2"_s.arg(FilePath, file.errorString()));
    QCryptographicHash md5(QCryptographicHash::Md5);
    // Deliberate: hashed in a pass of its own before the row is written; setting DATAMD5 after
    // the content would make SQLite rewrite the whole value.
    md5.addData(&file);
    file.seek(0);

    const QString name = QFileInfo(FilePath).fileName();
    SqlExec(u"delete from BinaryData where "_s + ownerCondition(Id, TableName, FieldName));
    const QString key = sqlGenIdValue();
    kx::SqlValueList row;
    row.addText(u"ID"_s, key)
        .addText(u"IDPARENT"_s, Id)
        .addText(u"TABLEPARENT"_s, TableName.toUpper())
        .addText(u"DATAFILTER"_s, FieldName.toUpper())
        .addText(u"DATAFILENAME"_s, name)
        .addText(u"DATAMD5"_s, QString::fromLatin1(md5.result().toHex()));
    for (const auto &[stampName, value] : kx::changeStamp())
        row.addText(stampName, value);
    SqlExec(SqlBuildInsertSql(u"BinaryData"_s, row.pairs()));
    compSqlConnection->writeBlob({ u"BinaryData"_s, u"DATA"_s, u"ID"_s, key }, file);
    return name;
}

int CopyBinaryData(const QString &Id, const QString &NewId, const QString &TableName)
{
    const kx::SqlResult stored = compSqlConnection->execute(u"select ID from BinaryData where IDPARENT="_s + kx::sqlQuoted(Id)
                                                            + u" and TABLEPARENT="_s + kx::sqlQuoted(TableName.toUpper()));
    QString stamp;
    for (const auto &[name, value] : kx::changeStamp())
        stamp += u", "_s + kx::sqlQuoted(value);
    for (const auto &row : stored.rows)
        SqlExec(u"insert into BinaryData (ID, IDPARENT, TABLEPARENT, DATAFILTER, DATAFILENAME, DATAMD5, DATA, LDATE, LTIME, LUSER) "
                u"select "_s + kx::sqlQuoted(sqlGenIdValue()) + u", "_s + kx::sqlQuoted(NewId)
                + u", TABLEPARENT, DATAFILTER, DATAFILENAME, DATAMD5, DATA"_s + stamp + u" from BinaryData where ID="_s
                + kx::sqlQuoted(row.value(0).toString()));
    return int(stored.rows.size());
}

QString ExtractBinaryData(const QString &Id, const QString &TableName, const QString &FieldName, const QString &Folder)
{
    const kx::SqlResult found = compSqlConnection->execute(u"select ID, DATAFILENAME from BinaryData where "_s
                                                           + ownerCondition(Id, TableName, FieldName));
    if (found.rows.empty())
        return QString();
    const QString key = found.rows.front().value(0).toString();
    const QString name = QFileInfo(found.rows.front().value(1).toString()).fileName(); // never a path of its own
    const QString path = QDir(Folder.isEmpty() ? QDir::currentPath() : Folder).filePath(name.isEmpty() ? key : name);
    QSaveFile out(path);
    if (!out.open(QIODevice::WriteOnly))
        throw kx::Error(u"Die Datei %1 lässt sich nicht schreiben: %2"_s.arg(path, out.errorString()));
    if (!compSqlConnection->readBlob({ u"BinaryData"_s, u"DATA"_s, u"ID"_s, key }, out)) {
        out.cancelWriting();
        return QString();
    }
    if (!out.commit())
        throw kx::Error(u"Die Datei %1 lässt sich nicht schreiben: %2"_s.arg(path, out.errorString()));
    return path;
}
