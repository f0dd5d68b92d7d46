// SPDX-License-Identifier: LGPL-2.1-or-later
// The import's field list, the file's columns and the ".iDef" definition file.
#include "importcommon.h"

#include <algorithm>

#include "dataaccess.h"
#include "kxerror.h"
#include "textfile.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

using namespace Qt::StringLiterals;

QList<TImportField> importTableFields(TCDataAccess *dataAccess, bool isMain, int tag)
{
    QList<TImportField> fields;
    for (const TCFieldDef &field : dataAccess->Fields.items()) {
        const QString name = field.Fieldname.toUpper();
        if (name == u"ID"_s || name == u"IDPARENT"_s || name == u"MANDANTID"_s)
            continue;
        if (name == u"EINHEIT"_s && tag != -99)
            continue;
        const QString caption = (field.Caption.isEmpty() ? field.Fieldname : field.Caption) + u'.'
            + dataAccess->Tablename;
        fields.append({ caption,
                        { QString(), dataAccess->Tablename, field.Fieldname, field.SQLType,
                          field.Generator ? u"1"_s : u"0"_s,
                          field.Generator ? QString::number(field.GeneratorMin) : u"0"_s,
                          isMain ? u"1"_s : u"0"_s } });
    }
    return fields;
}

TImportSetup importSetup(TCDataAccess *source, int tag)
{
    TImportSetup setup;
    setup.Fields = importTableFields(source, true, tag);
    setup.TableList.append({ source->Tablename, u"TRUE"_s });
    for (int i = 0; i < source->DataAccessChilds.Count(); ++i) {
        TCDataAccess *child = source->DataAccessChilds.GetItem(i).DataAccess;
        if (!child)
            continue;
        setup.Fields << importTableFields(child, false, tag);
        setup.TableList.append({ child->Tablename, u"FALSE"_s });
    }
    return setup;
}

bool importFileExists(const QString &fileName)
{
    return QFileInfo(fileName).isFile();
}

QString importMissingFileMessage(const QString &fileName)
{
    return u"Die Datei: "_s + fileName + u"\r\n"_s + u"aus der gewählten Importdefinitionsdatei existiert nicht."_s
        + u"\r\n"_s + u"Der Import für diese Datei kann daher nicht durchgeführt werden."_s + u"\r\n"_s
        + u"Die Spaltenzuordnung wurde trotzdem geladen und kann verwendet werden."_s;
}

QStringList importFileColumns(const QString &fileName)
{
    kx::TextLineReader reader(fileName);
    QString line;
    reader.readLine(line);
    line += u';';
    QStringList columns;
    for (qsizetype end = line.indexOf(u';'); end >= 0; end = line.indexOf(u';')) {
        columns << line.left(end);
        line.remove(0, end + 1);
    }
    return columns;
}

QString TImportDefinition::value(const QString &name) const
{
    for (const auto &[key, value] : Values)
        if (key.compare(name, Qt::CaseInsensitive) == 0)
            return value;
    return {};
}

namespace {

// Name=value lines with the behaviour of a settings list: setting a name again replaces its
// line, an empty value removes it.
void setValue(QList<std::pair<QString, QString>> &values, const QString &name, const QString &value)
{
    for (qsizetype i = 0; i < values.size(); ++i) {
        if (values[i].first.compare(name, Qt::CaseInsensitive) == 0) {
            if (value.isEmpty())
                values.removeAt(i);
            else
                values[i].second = value;
            return;
        }
    }
    if (!value.isEmpty())
        values.append({ name, value });
}

} // namespace

void importWriteDefinition(const QString &fileName, const QList<TImportField> &fields, const QString &dataFile,
                           const QString &key1, const QString &key2)
{
    QList<std::pair<QString, QString>> values;
    for (const TImportField &field : fields)
        setValue(values, field.Caption, field.SubItems.value(TImportField::Column));
    setValue(values, u"_File_"_s, dataFile);
    setValue(values, u"_Key1_"_s, key1);
    setValue(values, u"_Key2_"_s, key2);

    // UTF-8 and CRLF: readable by the Windows workstations of the same brigade.
    QByteArray text;
    for (const auto &[name, value] : values)
        text += (name + u'=' + value).toUtf8() + "\r\n";
    if (QFileInfo(fileName).isDir())
        throw kx::Error(u"\"%1\" ist ein Ordner, keine Datei."_s.arg(fileName));
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.commit())
        throw kx::Error(u"Die Definition kann nicht nach \"%1\" geschrieben werden: %2"_s.arg(fileName,
                                                                                             file.errorString()));
}

TImportDefinition importReadDefinition(const QString &fileName)
{
    if (!QFileInfo::exists(fileName))
        throw kx::Error(u"Die Definitionsdatei \"%1\" gibt es nicht."_s.arg(fileName));
    kx::TextLineReader reader(fileName);
    TImportDefinition definition;
    QString line;
    while (reader.readLine(line)) {
        const qsizetype equals = line.indexOf(u'=');
        if (equals > 0)
            definition.Values.append({ line.left(equals), line.mid(equals + 1) });
    }
    return definition;
}

QStringList importDefinitionProblems(const QList<TImportField> &fields, const TImportDefinition &definition,
                                     qsizetype fileColumns)
{
    const auto isCaption = [&fields](const QString &name) {
        return std::any_of(fields.cbegin(), fields.cend(),
                           [&name](const TImportField &f) { return f.Caption.compare(name, Qt::CaseInsensitive) == 0; });
    };
    QStringList problems;
    for (const auto &[name, value] : definition.Values) {
        if (value.isEmpty() || name.compare(u"_File_"_s, Qt::CaseInsensitive) == 0)
            continue;
        if (name.compare(u"_Key1_"_s, Qt::CaseInsensitive) == 0) {
            if (!isCaption(value))
                problems << u"Das Schlüsselfeld \"%1\" (_Key1_) gibt es in der Feldliste nicht."_s.arg(value);
        } else if (name.compare(u"_Key2_"_s, Qt::CaseInsensitive) == 0) {
            bool known = false;
            for (qsizetype n = 1; n <= fileColumns && !known; ++n)
                known = value == importColumnKey(n);
            if (!known && fileColumns >= 0)
                problems << u"Die Schlüsselspalte \"%1\" (_Key2_) gibt es in der Datei nicht (%2 Spalten)."_s.arg(value)
                                .arg(fileColumns);
        } else if (!isCaption(name)) {
            problems << u"Das Feld \"%1\" der Importdefinition gibt es in der Feldliste nicht."_s.arg(name);
        } else {
            // Deliberate: a column beyond the first line's is allowed; a line without it gives
            // no value, as for any short line.
            bool number = false;
            if (value.toInt(&number) < 1 || !number)
                problems << u"\"%1\" ist der Spalte \"%2\" zugeordnet, die keine Spaltennummer ist."_s.arg(name, value);
        }
    }
    return problems;
}

void importApplyDefinition(QList<TImportField> &fields, const TImportDefinition &definition)
{
    for (TImportField &field : fields)
        field.SubItems[TImportField::Column] = definition.value(field.Caption);
}
