// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

class TCDataAccess;
namespace kx {
struct SqlResult;
class TextLineReader;
} // namespace kx

// The generic importer of semicolon-separated files: the user pairs database fields of a table
// and its child tables with file columns, keeps the pairing as an ".iDef" file and runs it. The
// run writes every line of the file (the first included: the form shows it as the sample of
// each column) into one main row, found by a key column or new, and one fresh child row per
// child table, one UPDATE per value. This header holds what runs without a window; the form is
// in importcommonform.h.

// A row of the database field list: "caption.TABLE" and its seven sub-items.
struct KXCOMMON_CORE_EXPORT TImportField
{
    enum SubItem { Column, Table, Field, DataType, Generator, GeneratorMin, Main };
    QString Caption;
    QStringList SubItems;
};

// The field list and the tables taking part (name, "TRUE" for the main table, "FALSE" for a
// child, main table first).
struct KXCOMMON_CORE_EXPORT TImportSetup
{
    QList<TImportField> Fields;
    QList<std::pair<QString, QString>> TableList;
};

// The rows of one table definition (AddImportTableFields): every field but ID, IDPARENT and
// MANDANTID, and EINHEIT only for unit records (Tag -99).
KXCOMMON_CORE_EXPORT QList<TImportField> importTableFields(TCDataAccess *dataAccess, bool isMain, int tag);
// The main table and every child of its child collection that has a definition.
KXCOMMON_CORE_EXPORT TImportSetup importSetup(TCDataAccess *source, int tag);

// The columns of the file's first line ("Spalte n" is column n + 1): the texts between ";"
// after one ";" is appended, quotes kept as they stand. Throws kx::Error when the file cannot
// be read; check importFileExists first for the user's message.
KXCOMMON_CORE_EXPORT QStringList importFileColumns(const QString &fileName);
KXCOMMON_CORE_EXPORT bool importFileExists(const QString &fileName);
// The warning shown when the data file of a definition or of the file dialog is missing.
KXCOMMON_CORE_EXPORT QString importMissingFileMessage(const QString &fileName);

// The definition file: name=value lines, one per paired field (caption=column, in list order),
// then "_File_", "_Key1_" and "_Key2_"; an empty value leaves no line.
struct KXCOMMON_CORE_EXPORT TImportDefinition
{
    QList<std::pair<QString, QString>> Values;
    QString value(const QString &name) const;
};
// Throws kx::Error when the file cannot be written or read (missing, a folder).
KXCOMMON_CORE_EXPORT void importWriteDefinition(const QString &fileName, const QList<TImportField> &fields, const QString &dataFile,
                           const QString &key1, const QString &key2);
KXCOMMON_CORE_EXPORT TImportDefinition importReadDefinition(const QString &fileName);
// What a definition names that the field list or the file does not have, as German sentences: a
// caption of no field, a column that is no number, a key field (_Key1_) of no caption, a key
// column (_Key2_) not among the first line's FileColumns columns (-1: the file is not known). A run with such a definition would add rows where it should update them, so it is
// refused before anything is written. Empty when the definition fits.
KXCOMMON_CORE_EXPORT QStringList importDefinitionProblems(const QList<TImportField> &fields, const TImportDefinition &definition,
                                     qsizetype fileColumns);
// Pairs each field with the column stored under its caption (none when there is none).
KXCOMMON_CORE_EXPORT void importApplyDefinition(QList<TImportField> &fields, const TImportDefinition &definition);

using TNotifyImportBeforeInsert = std::function<void(QObject *sender, QStringList &fields, QStringList &values)>;
using TNotifyImportAfterUpdateRecord = std::function<void(QObject *sender, const QString &id)>;

// A value that could not be written: the file's line number (1-based), the field's caption,
// the error text.
struct KXCOMMON_CORE_EXPORT TImportColumnError
{
    qint64 Line = 0;
    QString Caption;
    QString Error;
};

// What a run did, for the command line's summary.
struct KXCOMMON_CORE_EXPORT TImportSummary
{
    bool Started = false;  // the questions were answered and the first table touched
    bool Finished = false; // "Daten wurden importiert." was shown
    qint64 LinesRead = 0;
    qint64 RowsInserted = 0;
    qint64 RowsUpdated = 0; // main rows found through the key
    qint64 Statements = 0;
    QList<TImportColumnError> ColumnErrors;
};

// How the run shows its progress and keeps the window responsive; every hook may be empty.
struct KXCOMMON_CORE_EXPORT TImportProgress
{
    std::function<void(qint64 maximum)> SetMaximum;
    std::function<void(qint64 position)> SetPosition;
    std::function<void()> Step;
    std::function<void()> ProcessMessages;
    std::function<void()> BusyCursor;
    std::function<void()> DefaultCursor;
};

// How often the run commits: after this many lines or this much time, whichever comes first,
// and after a line whose child row was committed explicitly. Lines = 0 runs statement by
// statement without any transaction, every statement committing on its own; a line is then not
// atomic (for comparison only).
struct KXCOMMON_CORE_EXPORT TImportBatch
{
    int Lines = 1000;
    int Milliseconds = 1000;
};

// One run of the import (the start button). Questions and messages go through MsgDlg; an error
// outside the guarded places ends the run and goes on to the caller, with what was written
// staying written.
class KXCOMMON_CORE_EXPORT TImportRun
{
public:
    QObject *Sender = nullptr;
    QList<TImportField> Fields;
    QList<std::pair<QString, QString>> TableList;
    QString MainTable;
    QString FileName;
    QString DatabaseKey;       // the caption chosen as key field, or empty
    QString ImportKey;         // "Spalte n", or empty
    QStringList ImportKeyItems; // "Spalte 1", "Spalte 2", ...
    int Tag = 0;
    TNotifyImportBeforeInsert OnBeforeInsert;
    TNotifyImportAfterUpdateRecord OnAfterUpdateRecord;
    TImportProgress Progress;
    TImportBatch Batch;

    void Execute();
    const TImportSummary &summary() const { return m_summary; }
    bool einheitValueImported() const { return m_einheitValueImported; }

private:
    struct AheadLine;

    void importLines(const QString &keyField, int keyColumn, const QStringList &assignedTables);
    void importLineInBatch(const QString &keyField, int keyColumn, const QStringList &assignedTables);
    void importLine(const QString &keyField, int keyColumn, const QStringList &assignedTables);
    // Lines whose look-ups and writes are sent ahead in groups (importahead.cpp), where the
    // product's client can and nothing of a line reads after its writes.
    bool canImportAhead(const QString &keyField, const QStringList &assignedTables) const;
    void importLinesAhead(kx::TextLineReader &reader, const QString &keyField, int keyColumn);
    bool readAhead(kx::TextLineReader &reader, QList<AheadLine> &group, const QString &keyField, int keyColumn);
    QStringList aheadWrites(const QList<AheadLine> &group, const std::vector<kx::SqlResult> &results,
                            std::optional<qsizetype> firstLookup);
    bool nextLine(kx::TextLineReader &reader);
    // The line's value for the field, where the field is one of the table's that the line writes.
    QString lineValue(const TImportField &field, const QString &table);
    QString valueAssignment(const TImportField &field, const QString &value, QString &error) const;
    bool importLineTogether(const QString &keyField, int keyColumn, const QStringList &assignedTables);
    QString mainRowId(const QString &table, const QString &keyField, int keyColumn);
    void InsertImportRecord(const QString &table, const QString &idField, const QString &parentField, QString &newId,
                            const QString &parentId);
    void UpdateImportRecord(const QString &table, QString id);
    void reportColumnError(const TImportField &field, const QString &statement, const QString &error);
    void runUnitPass();
    void DoBeforeInsert(QStringList &fields, QStringList &values);
    void DoAfterUpdateRecord(const QString &id);
    void runStatement(const QStringList &lines);

    TImportSummary m_summary;
    bool m_einheitValueImported = false;
    QString m_line;
    qint64 m_lineNumber = 0;
    QString m_mainId;
    bool m_commitAfterLine = false; // the line committed a child row explicitly
    bool m_readsAfterWrites = false; // this run's lines read after writing (a hook, a generator)
};

// The definition of a table to import into: the package's own definition when it knows the
// table (system, registry, tenant, stock, fee, AAO and street-directory tables), else one read
// from the database's catalog. Throws kx::Error for a table that does not exist.
KXCOMMON_CORE_EXPORT TCDataAccess *importTableDefinition(const QString &table, QObject *owner);
// What the module owning a table does after each written row, where the package knows it: the
// street directory ORTE fills its search columns. Empty for other tables.
KXCOMMON_CORE_EXPORT TNotifyImportAfterUpdateRecord importAfterUpdateHook(const QString &table);

// "Spalte n": the key-column item of file column N (1-based), as the form offers it.
KXCOMMON_CORE_EXPORT QString importColumnKey(qsizetype n);
// A run without a window: the field list of the table and its children paired as the
// definition says, its key pair (_Key1_, _Key2_) and the key-column items of the file (none when
// the file is missing: the run then reports it). The file is the one given, not _File_.
KXCOMMON_CORE_EXPORT TImportRun importRunFor(TCDataAccess *source, int tag, const TImportDefinition &definition, const QString &fileName);

// The N-th (1-based) field of a line, every double quote removed, trimmed.
KXCOMMON_CORE_EXPORT QString GetImportField(const QString &line, int n);
// The length between the first "(" and ")" of a type text; kx::ConvertError without one.
KXCOMMON_CORE_EXPORT int GetFieldLength(const QString &dataType);
