// SPDX-License-Identifier: LGPL-2.1-or-later
// The import run: every line of the file into one main row and the child rows, one UPDATE per
// value, so that a value the database refuses is reported and the rest of the line still lands.
// Lines are written in batches, each one transaction committed after a number of lines or a
// time (a commit per statement would make the disk's latency the pace). Each line is a savepoint
// in its batch, or its writes go as one unit: a run that ends keeps the whole lines before it, a
// killed one leaves whole lines only. A guarded statement fails alone (kx::StatementGuard).
#include "importcommon.h"
#include "importstatements.h"

#include "dataaccess.h"
#include "kxerror.h"
#include "log.h"
#include "msgdlg.h"
#include "sqlconnection.h"
#include "sqlquery.h"
#include "sqltool.h"
#include "strtools.h"
#include "textfile.h"

#include <QElapsedTimer>
#include <QScopeGuard>
#include <algorithm>

using namespace Qt::StringLiterals;

QString GetImportField(const QString &line, int n)
{
    QString field = GetNthString(line, n);
    field.remove(u'"');
    return field.trimmed();
}

int GetFieldLength(const QString &dataType)
{
    const qsizetype open = dataType.indexOf(u'(');
    const qsizetype close = dataType.indexOf(u')');
    // Deliberate: a type without "(n)" gives the empty text, which does not convert; the run
    // ends there, as it must not guess a length.
    const QString length = open >= 0 && close > open ? dataType.mid(open + 1, close - open - 1) : QString();
    return kx::strToInt(length);
}

namespace {

// Counts the statements that reach the database while it lives.
class StatementCounter
{
public:
    explicit StatementCounter(qint64 &count)
        : m_connection(QObject::connect(compSqlConnection, &TCSqlConnection::statementExecuted,
                                        [&count](const QString &) { ++count; }))
    {
    }
    ~StatementCounter() { QObject::disconnect(m_connection); }

private:
    QMetaObject::Connection m_connection;
};

void call(const std::function<void()> &hook)
{
    if (hook)
        hook();
}

template<class Value>
void call(const std::function<void(Value)> &hook, Value value)
{
    if (hook)
        hook(value);
}

} // namespace

void TImportRun::runStatement(const QStringList &lines)
{
    TCSqlQuery query;
    query.Connection = compSqlConnection;
    query.SQL.Assign(lines);
    query.ExecSQL();
}

void TImportRun::Execute()
{
    m_summary = {};
    StatementCounter counter(m_summary.Statements);
    if (!importFileExists(FileName)) {
        if (FileName.trimmed().isEmpty())
            MsgDlg(u"Es wurde noch keine Datei für den Import festgelegt. \r\n Bitte wählen Sie zunächst eine "
                   u"entsprechende Datei aus."_s,
                   TMsgDlgType::mtWarning, mbOK);
        else
            MsgDlg(u"Die Datei: "_s + FileName + u"\r\n"_s + u" existiert nicht."_s + u"\r\n"_s
                       + u" Der Import kann daher nicht durchgeführt werden"_s,
                   TMsgDlgType::mtWarning, mbOK);
        return;
    }
    m_einheitValueImported = false;
    const bool anyAssigned = std::any_of(Fields.cbegin(), Fields.cend(), [](const TImportField &field) {
        return !field.SubItems.value(TImportField::Column).isEmpty();
    });
    if (!anyAssigned) {
        MsgDlg(u"Es wurden noch keine Spalten zugeordnet. \r\n Bitte ordnen Sie mindestens eine Spalte für den "
               u"Import zu."_s,
               TMsgDlgType::mtWarning, mbOK);
        return;
    }
    if (MsgDlg(u"Daten wirklich importieren?"_s, TMsgDlgType::mtInformation, mbYesNo) != mrYes)
        return;
    const int clear = MsgDlg(u"Wollen Sie die bisherigen Daten leeren?"_s, TMsgDlgType::mtInformation, mbYesNoCancel);
    if (clear != mrYes && clear != mrNo)
        return;
    // Deliberate: asked whatever the answer to clearing was.
    if (MsgDlg(u"Sind Sie sich wirklich sicher?"_s, TMsgDlgType::mtInformation, mbYesNo) != mrYes)
        return;
    m_summary.Started = true;
    call(Progress.BusyCursor);
    // The cursor comes back on every way out, an error that ends the run included.
    auto restoreCursor = qScopeGuard([this] { call(Progress.DefaultCursor); });
    call(Progress.ProcessMessages);

    QStringList assignedTables;
    for (const TImportField &field : std::as_const(Fields))
        if (!field.SubItems[TImportField::Column].isEmpty()
            && !assignedTables.contains(field.SubItems[TImportField::Table], Qt::CaseInsensitive))
            assignedTables << field.SubItems[TImportField::Table];

    if (clear == mrYes) {
        for (const auto &[table, isMain] : std::as_const(TableList)) {
            runStatement({ u"Delete from "_s + table });
            SqlAlterGen(table, u"ID"_s, 1);
        }
    }

    QString keyField;
    int keyColumn = -1;
    if (!DatabaseKey.isEmpty() && !ImportKey.isEmpty()) {
        for (const TImportField &field : std::as_const(Fields)) {
            // As the definition is checked: a catalog may spell names in another case (PostgreSQL
            // gives them in lower case), and a definition must fit every product.
            if (field.Caption.compare(DatabaseKey, Qt::CaseInsensitive) == 0) {
                keyField = field.SubItems[TImportField::Field];
                break;
            }
        }
        const qsizetype position = ImportKeyItems.indexOf(ImportKey);
        keyColumn = position >= 0 ? int(position) + 1 : -1;
    }

    importLines(keyField, keyColumn, assignedTables);
    if (Tag == -99 && !m_einheitValueImported)
        runUnitPass();

    call(Progress.SetPosition, qint64(0));
    restoreCursor.dismiss();
    call(Progress.DefaultCursor);
    call(Progress.ProcessMessages);
    MsgDlg(u"Daten wurden importiert."_s, TMsgDlgType::mtInformation, mbOK);
    m_summary.Finished = true;
}

void TImportRun::importLines(const QString &keyField, int keyColumn, const QStringList &assignedTables)
{
    // Counted in one pass, then read line by line: the file is never held whole.
    const kx::TextLineReader::Facts facts = kx::TextLineReader::scan(FileName);
    call(Progress.SetMaximum, facts.lines + 1);
    call(Progress.SetPosition, qint64(0));
    kx::TextLineReader reader(FileName);
    m_lineNumber = 0;
    m_readsAfterWrites = false;
    if (canImportAhead(keyField, assignedTables)) {
        importLinesAhead(reader, keyField, keyColumn);
        return;
    }
    std::optional<kx::SqlTransaction> batch;
    QElapsedTimer batchAge;
    int batchLines = 0;
    try {
        while (nextLine(reader)) {
            if (Batch.Lines > 0 && !batch) {
                batch.emplace();
                batchAge.start();
                batchLines = 0;
            }
            m_commitAfterLine = false;
            if (!batch)
                importLine(keyField, keyColumn, assignedTables);
            else
                importLineInBatch(keyField, keyColumn, assignedTables);
            if (batch && (++batchLines >= Batch.Lines || batchAge.elapsed() >= Batch.Milliseconds || m_commitAfterLine)) {
                batch->commit();
                batch.reset();
            }
        }
        if (batch)
            batch->commit();
    } catch (...) {
        // The error ends the run; the line it came in is undone (its savepoint, left above), the
        // whole lines before it stay.
        if (batch) {
            try {
                batch->commit();
            } catch (const std::exception &lost) {
                writeErrorLog(kxLogImport(), u"Import: die Zeilen vor Zeile %1 ließen sich nicht bestätigen: %2"_s.arg(m_lineNumber).arg(
                    QString::fromUtf8(lost.what())));
            }
        }
        throw;
    }
}

bool TImportRun::nextLine(kx::TextLineReader &reader)
{
    if (!reader.readLine(m_line))
        return false;
    ++m_lineNumber;
    ++m_summary.LinesRead;
    call(Progress.Step);
    call(Progress.ProcessMessages);
    m_line += u';';
    return true;
}

void TImportRun::importLineInBatch(const QString &keyField, int keyColumn, const QStringList &assignedTables)
{
    if (importLineTogether(keyField, keyColumn, assignedTables))
        return;
    kx::SqlTransaction line;
    importLine(keyField, keyColumn, assignedTables);
    line.commit();
}

void TImportRun::importLine(const QString &keyField, int keyColumn, const QStringList &assignedTables)
{
    for (qsizetype t = 0; t < TableList.size(); ++t) {
        const QString &table = TableList[t].first;
        if (t == 0) {
            m_mainId = mainRowId(table, keyField, keyColumn);
            UpdateImportRecord(table, m_mainId);
        } else if (assignedTables.contains(table, Qt::CaseInsensitive)) {
            UpdateImportRecord(table, u"-99"_s);
        }
    }
}

namespace {

// A value of the line needs reporting; the line is written again statement by statement, which
// reports it as ever.
struct ValueToReport
{
};

} // namespace

// The line's writes wait and go as one unit after its reads (kx::DeferredWrites): one round trip
// for all of them, and no savepoint, as the unit lands whole or not at all. When anything else
// happens (a value to report, a refused statement, any error), nothing of the line was written
// and false sends it the usual way, statement by statement under a savepoint, which reports and
// ends as ever. A run whose lines read after writing (a hook's or a generator's look-up) writes
// its lines in several units under a savepoint each.
bool TImportRun::importLineTogether(const QString &keyField, int keyColumn, const QStringList &assignedTables)
{
    const TImportSummary summary = m_summary;
    const bool einheit = m_einheitValueImported;
    try {
        std::optional<kx::SqlTransaction> line;
        if (m_readsAfterWrites)
            line.emplace();
        kx::DeferredWrites writes(m_readsAfterWrites ? kx::DeferredWrites::Units::Many : kx::DeferredWrites::Units::One);
        importLine(keyField, keyColumn, assignedTables);
        writes.finish();
        if (line)
            line->commit();
        return true;
    } catch (const kx::DeferredWritesBroken &) {
        m_readsAfterWrites = true;
    } catch (...) {
        // Deliberate: whatever it was happens again, and is reported or ends the run, below.
    }
    m_summary = summary;
    m_einheitValueImported = einheit;
    m_commitAfterLine = false;
    return false;
}

QString TImportRun::mainRowId(const QString &table, const QString &keyField, int keyColumn)
{
    QString id;
    if (keyColumn == -1 || keyField.isEmpty()) {
        InsertImportRecord(table, u"ID"_s, QString(), id, QString());
        return id;
    }
    try {
        kx::StatementGuard guard;
        TCSqlQuery lookup;
        lookup.Connection = compSqlConnection;
        lookup.SQL.Assign(importLookupLines(table, keyField, GetImportField(m_line, keyColumn)));
        lookup.Open();
        if (!lookup.IsEmpty()) {
            ++m_summary.RowsUpdated;
            return lookup.Fields(0).AsString();
        }
        InsertImportRecord(table, u"ID"_s, QString(), id, QString());
        guard.commit();
    } catch (const kx::Error &) {
        // Deliberate: a look-up the database refuses (a quote in the key value) or a failed
        // insert is swallowed; one more insert follows outside the guard.
        InsertImportRecord(table, u"ID"_s, QString(), id, QString());
    }
    return id;
}

void TImportRun::InsertImportRecord(const QString &table, const QString &idField, const QString &parentField,
                                    QString &newId, const QString &parentId)
{
    QStringList fields;
    QStringList values;
    newId = sqlGenIdValue();
    fields << idField;
    values << kx::sqlQuoted(newId);
    if (!parentField.isEmpty()) {
        fields << parentField;
        values << kx::sqlQuoted(parentId);
    }
    for (const TImportField &field : std::as_const(Fields)) {
        const QStringList &s = field.SubItems;
        if (s[TImportField::Table].compare(table, Qt::CaseInsensitive) != 0 || s[TImportField::Generator] == u"0"_s)
            continue;
        fields << s[TImportField::Field];
        values << QString::number(SqlGetNextValue(table, s[TImportField::Field], hStrToInt(s[TImportField::GeneratorMin])));
    }
    DoBeforeInsert(fields, values);
    if (fields.isEmpty())
        return;
    runStatement(importInsertLines(table, fields, values));
    ++m_summary.RowsInserted;
}

QStringList importLookupLines(const QString &table, const QString &keyField, const QString &key)
{
    return { u"Select id from "_s + table, u"Where "_s + keyField + u" = '"_s + sqlConvertString(key) + u"'"_s };
}

QStringList importInsertLines(const QString &table, const QStringList &fields, const QStringList &values)
{
    QStringList lines{ u"Insert Into "_s + table, u"("_s };
    for (qsizetype i = 0; i < fields.size(); ++i)
        lines << fields[i] + (i + 1 < fields.size() ? u","_s : QString());
    lines << u")"_s << u"Values"_s << u"("_s;
    for (qsizetype i = 0; i < values.size(); ++i)
        lines << values[i] + (i + 1 < values.size() ? u","_s : QString());
    lines << u")"_s;
    return lines;
}

QStringList importUpdateLines(const QString &table, const QString &assignment, const QString &id)
{
    return { u"Update "_s + table + u" set"_s, assignment, u"Where id ='"_s + sqlConvertString(id) + u'\'' };
}

namespace {

// The declared length of a text field. A type without one ends the run, as it must not guess
// a length; the message names the field, so that the user knows which pairing to remove.
int fieldLength(const TImportField &field, qint64 lineNumber)
{
    try {
        return GetFieldLength(field.SubItems[TImportField::DataType]);
    } catch (const kx::ConvertError &) {
        throw kx::ConvertError(u"Das Feld \"%1\" (Typ %2) hat keine Länge, auf die ein Text gekürzt werden kann; der "
                               u"Import endet hier, die Zeile %3 wurde nicht geschrieben."_s
                                   .arg(field.Caption, field.SubItems[TImportField::DataType])
                                   .arg(lineNumber));
    }
}

} // namespace

QString TImportRun::lineValue(const TImportField &field, const QString &table)
{
    const QStringList &s = field.SubItems;
    if (s[TImportField::Table].compare(table, Qt::CaseInsensitive) != 0 || s[TImportField::Generator] != u"0"_s
        || s[TImportField::Column].isEmpty())
        return {};
    const QString value = GetImportField(m_line, kx::strToInt(s[TImportField::Column]));
    if (!value.isEmpty() && s[TImportField::Field].toUpper() == u"EINHEIT"_s)
        m_einheitValueImported = true;
    return value;
}

QString TImportRun::valueAssignment(const TImportField &field, const QString &value, QString &error) const
{
    const QString &name = field.SubItems[TImportField::Field];
    const QString type = field.SubItems[TImportField::DataType].toUpper();
    if (type.contains(u"NUMERIC"_s)) {
        try {
            return name + u'=' + sqlConvertFloat(value);
        } catch (const kx::ConvertError &failure) {
            error = failure.message();
            return {};
        }
    }
    if (type.contains(u"DATE"_s)) {
        const QString date = sqlConvertDate(value);
        return date.isEmpty() ? QString(name + u"=NULL"_s) : QString(name + u"='"_s + date + u'\'');
    }
    // Cut to the declared length before the quotes are doubled, so that the cut never splits a
    // doubled quote and ends the literal early.
    return name + u"='"_s + sqlConvertString(value.left(fieldLength(field, m_lineNumber))) + u'\'';
}

void TImportRun::UpdateImportRecord(const QString &table, QString id)
{
    for (const TImportField &field : std::as_const(Fields)) {
        const QString value = lineValue(field, table);
        if (value.isEmpty())
            continue;
        QString error;
        const QString assignment = valueAssignment(field, value, error);
        if (assignment.isEmpty()) {
            // A number that does not read is this value's failure, reported like a refused
            // statement, not the end of the run; the statement as far as it came.
            reportColumnError(field, importUpdateLines(table, {}, id).first(), error);
            continue;
        }
        if (id == u"-99"_s) {
            // The first written value of a child table makes the child row of this line.
            InsertImportRecord(table, u"ID"_s, u"IDParent"_s, id, m_mainId);
            runStatement({ u"Commit"_s });
            // Deliberate: inside a batch the commit waits for the end of this line, which stays
            // whole; the batch so far is committed then.
            m_commitAfterLine = true;
        }
        TCSqlQuery update;
        update.Connection = compSqlConnection;
        update.SQL.Assign(importUpdateLines(table, assignment, id));
        try {
            kx::StatementGuard guard;
            update.ExecSQL();
            guard.commit();
        } catch (const kx::Error &error) {
            reportColumnError(field, update.SQL.Text(), error.message());
        }
    }
    DoAfterUpdateRecord(id);
}

void TImportRun::reportColumnError(const TImportField &field, const QString &statement, const QString &error)
{
    if (compSqlConnection->deferring()) // the line is written together; again, one by one, it reports
        throw ValueToReport();
    m_summary.ColumnErrors.append({ m_lineNumber, field.Caption, error });
    MsgDlg(u"Beim Import der Zeile: "_s + m_line + u"\r\n"_s + u"trat folgender Fehler auf: "_s + error + u"\r\n"_s
               + u"Klicken Sie auf OK um den Import fortzuführen."_s,
           TMsgDlgType::mtWarning, mbOK);
    writeLog(kxLogImport(), u"ERROR: TImportCommonForm.StartImportButtonClick.ExecSql for: "_s + statement + u" failed with: "_s
             + error);
}

void TImportRun::runUnitPass()
{
    call(Progress.SetPosition, qint64(0));
    TCSqlQuery records;
    records.Connection = compSqlConnection;
    records.SQL.Add(u"Select * from "_s + MainTable);
    records.Open();
    call(Progress.SetMaximum, qint64(records.RecordCount()));
    for (; !records.Eof(); records.Next()) {
        call(Progress.Step);
        // The record's values with their quotes doubled, so that "O'Brien" goes in as it is.
        const auto text = [&records](const char16_t *name) {
            return sqlConvertString(records.FieldByName(QString::fromUtf16(name)).AsString());
        };
        const QString assignment = !text(u"OPTA_KENNZEICHNUNG").isEmpty()
            ? QString(u"Einheit='"_s + text(u"OPTA_FUNKTIONSZUORDN") + u' ' + text(u"OPTA_FUNKRUFNAME") + u" ("_s
                      + text(u"OPTA_BUNDESLAND") + u")'"_s)
            : QString(u"Einheit='"_s + text(u"Typ") + u' ' + text(u"Funkrufname") + u" ("_s + text(u"Bundesland")
                      + u'-' + text(u"Kreis") + u")'"_s);
        runStatement({ u"Update "_s + MainTable + u" set "_s, assignment, u"Where id='"_s + text(u"id") + u'\'' });
    }
    records.Close();
}

void TImportRun::DoBeforeInsert(QStringList &fields, QStringList &values)
{
    if (OnBeforeInsert)
        OnBeforeInsert(Sender, fields, values);
}

void TImportRun::DoAfterUpdateRecord(const QString &id)
{
    if (OnAfterUpdateRecord)
        OnAfterUpdateRecord(Sender, id);
}

QString importColumnKey(qsizetype n)
{
    return u"Spalte "_s + QString::number(n);
}

TImportRun importRunFor(TCDataAccess *source, int tag, const TImportDefinition &definition, const QString &fileName)
{
    const TImportSetup setup = importSetup(source, tag);
    const qsizetype fileColumns = importFileExists(fileName) ? importFileColumns(fileName).size() : -1;
    if (const QStringList problems = importDefinitionProblems(setup.Fields, definition, fileColumns); !problems.isEmpty())
        throw kx::Error(u"Die Importdefinition passt nicht zu %1 und der Datei; es wurde nichts importiert.\n"_s.arg(source->Tablename)
                        + problems.join(u'\n'));
    TImportRun run;
    run.Fields = setup.Fields;
    importApplyDefinition(run.Fields, definition);
    run.TableList = setup.TableList;
    run.MainTable = source->Tablename;
    run.FileName = fileName;
    run.Tag = tag;
    run.DatabaseKey = definition.value(u"_Key1_"_s);
    run.ImportKey = definition.value(u"_Key2_"_s);
    for (qsizetype n = 1; n <= fileColumns; ++n)
        run.ImportKeyItems << importColumnKey(n);
    return run;
}
