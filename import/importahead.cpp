// SPDX-License-Identifier: LGPL-2.1-or-later
// Lines sent ahead: where nothing of a line reads after its writes, the look-ups of a group of
// lines go in one message with the writes of the group before, and the next group is read while
// the server works. The statement texts are the run's own; only their order differs: a group's
// look-ups come before the writes of the lines before them in the group, so the rows those lines
// write are looked up here instead (see aheadWrites). A failure rolls the batch back and writes
// its lines again the usual way, which reports or ends as ever; a killed run leaves whole
// batches.
#include "importcommon.h"
#include "importstatements.h"

#include "kxerror.h"
#include "sqlconnection.h"
#include "sqlresult.h"
#include "sqltool.h"
#include "textfile.h"

#include <QElapsedTimer>
#include <QHash>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

// One line read ahead: its look-up and its value assignments, or `plain` where a value must be
// reported or ends the run (the line is written the usual way, once the lines before it are).
struct TImportRun::AheadLine
{
    qint64 number = 0;
    QString line;
    QString key;
    QStringList assignments;
    QString keyWritten; // what the line writes into the key field, when it does
    bool writesKey = false;
    bool plain = false;
};

namespace {

// Lines a message carries: a few hundred statements, short of the batch.
constexpr int aheadGroup = 100;

bool isMainField(const TImportField &field, const QString &table)
{
    return field.SubItems[TImportField::Table].compare(table, Qt::CaseInsensitive) == 0;
}

} // namespace

bool TImportRun::canImportAhead(const QString &keyField, const QStringList &assignedTables) const
{
    const QString &table = TableList.value(0).first;
    if (Batch.Lines <= 0 || OnBeforeInsert || OnAfterUpdateRecord || !compSqlConnection->sendsAhead()
        || assignedTables.size() != 1 || assignedTables.front().compare(table, Qt::CaseInsensitive) != 0)
        return false;
    for (const TImportField &field : Fields) {
        if (!isMainField(field, table))
            continue;
        if (field.SubItems[TImportField::Generator] != u"0"_s)
            return false; // a generator reads before the insert
        // Keys written by the lines before are compared here as texts: only for a text key.
        if (!keyField.isEmpty() && field.SubItems[TImportField::Field] == keyField
            && !field.SubItems[TImportField::DataType].toUpper().contains(u"CHAR"_s))
            return false;
    }
    return true;
}

bool TImportRun::readAhead(kx::TextLineReader &reader, QList<AheadLine> &group, const QString &keyField, int keyColumn)
{
    const QString &table = TableList.front().first;
    while (group.size() < std::min(aheadGroup, Batch.Lines) && nextLine(reader)) {
        AheadLine &line = group.emplace_back();
        line.number = m_lineNumber;
        line.line = m_line;
        if (keyColumn != -1 && !keyField.isEmpty())
            line.key = GetImportField(m_line, keyColumn);
        for (const TImportField &field : std::as_const(Fields)) {
            const QString value = lineValue(field, table);
            if (value.isEmpty())
                continue;
            const QStringList &s = field.SubItems;
            QString error, assignment;
            try {
                assignment = valueAssignment(field, value, error);
            } catch (const kx::Error &) {
                // Deliberate: the usual way raises it again, once the lines before are written.
            }
            if (assignment.isEmpty()) {
                line.plain = true;
                return true;
            }
            line.assignments << assignment;
            if (s[TImportField::Field] == keyField) {
                line.writesKey = true;
                line.keyWritten = value.left(GetFieldLength(s[TImportField::DataType]));
            }
        }
    }
    return !group.isEmpty();
}

// The writes of a group whose look-ups are answered. A look-up ran before the writes of the
// group's earlier lines: a row one of them gave the key counts as found, and a found row whose
// key one of them changed no longer does, as if each line had been looked up in its turn.
QStringList TImportRun::aheadWrites(const QList<AheadLine> &group, const std::vector<kx::SqlResult> &results,
                                    std::optional<qsizetype> firstLookup)
{
    const QString &table = TableList.front().first;
    QStringList statements;
    QHash<QString, QString> rowOfKey; // the first row an earlier line of the group gave the key
    QHash<QString, QString> keyOfRow; // the key an earlier line of the group wrote into the row
    for (qsizetype i = 0; i < group.size(); ++i) {
        const AheadLine &line = group[i];
        std::optional<QString> id;
        if (firstLookup) {
            const kx::SqlResult &found = results.at(size_t(*firstLookup + i));
            if (!found.rows.empty()) {
                const QString row = found.rows.front().value(0).toString();
                if (!keyOfRow.contains(row) || keyOfRow.value(row) == line.key)
                    id = row;
            }
            if (!id && rowOfKey.contains(line.key))
                id = rowOfKey.value(line.key);
        }
        if (id) {
            ++m_summary.RowsUpdated;
        } else {
            id = sqlGenIdValue();
            statements << importInsertLines(table, { u"ID"_s }, { kx::sqlQuoted(*id) }).join(u'\n');
            ++m_summary.RowsInserted;
        }
        for (const QString &assignment : line.assignments)
            statements << importUpdateLines(table, assignment, *id).join(u'\n');
        if (line.writesKey) {
            keyOfRow.insert(*id, line.keyWritten);
            if (!rowOfKey.contains(line.keyWritten))
                rowOfKey.insert(line.keyWritten, *id);
        }
    }
    return statements;
}

void TImportRun::importLinesAhead(kx::TextLineReader &reader, const QString &keyField, int keyColumn)
{
    const bool keyed = keyColumn != -1 && !keyField.isEmpty();
    const QString &table = TableList.front().first;
    const QStringList assigned{ table };
    bool inFlight = false;
    // A message sent ahead is waited for before anything else goes to the database.
    const auto collect = [&inFlight] {
        std::vector<kx::SqlResult> results = compSqlConnection->collectAhead();
        inFlight = false;
        return results;
    };
    const auto settle = [&inFlight] {
        if (inFlight) {
            inFlight = false;
            try {
                compSqlConnection->collectAhead();
            } catch (const kx::Error &) {
                // Deliberate: the error that came first is the one that goes on.
            }
        }
    };
    QList<AheadLine> next;
    while (!next.isEmpty() || readAhead(reader, next, keyField, keyColumn)) {
        std::optional<kx::SqlTransaction> batch(std::in_place);
        QElapsedTimer age;
        age.start();
        const TImportSummary atStart = m_summary;
        QList<AheadLine> sent; // this batch's lines, written again after a refused statement
        std::optional<AheadLine> plain;
        try {
            QStringList writes;
            while (!next.isEmpty() && !plain) {
                QList<AheadLine> current = std::exchange(next, {});
                if (current.last().plain)
                    plain = current.takeLast();
                QStringList statements = std::exchange(writes, {});
                const qsizetype firstLookup = statements.size();
                if (keyed)
                    for (const AheadLine &line : std::as_const(current))
                        statements << importLookupLines(table, keyField, line.key).join(u'\n');
                sent += current;
                const bool full = sent.size() >= Batch.Lines || age.elapsed() >= Batch.Milliseconds;
                if (!statements.isEmpty()) {
                    compSqlConnection->sendAhead(statements);
                    inFlight = true;
                }
                if (!plain && !full)
                    readAhead(reader, next, keyField, keyColumn); // while the server works
                const std::vector<kx::SqlResult> results = inFlight ? collect() : std::vector<kx::SqlResult>{};
                writes = aheadWrites(current, results, keyed ? std::optional(firstLookup) : std::nullopt);
                if (full)
                    break;
            }
            if (!writes.isEmpty()) {
                compSqlConnection->sendAhead(writes);
                inFlight = true;
                collect();
            }
            if (plain) {
                m_line = plain->line;
                m_lineNumber = plain->number;
                importLineInBatch(keyField, keyColumn, assigned);
            }
            batch->commit();
        } catch (const kx::DatabaseError &) {
            const bool refused = inFlight; // the error came with statements sent ahead
            settle();
            if (!refused) {
                batch->commit(); // the whole lines before the error stay
                throw;
            }
            // A statement the database refused: the batch again, line by line, as ever.
            batch.reset();
            const TImportSummary read = m_summary;
            m_summary = atStart;
            m_summary.LinesRead = read.LinesRead;
            m_summary.Statements = read.Statements;
            if (plain)
                sent << *plain;
            kx::SqlTransaction again;
            try {
                for (const AheadLine &line : std::as_const(sent)) {
                    m_line = line.line;
                    m_lineNumber = line.number;
                    importLineInBatch(keyField, keyColumn, assigned);
                }
            } catch (...) {
                again.commit();
                throw;
            }
            again.commit();
        } catch (...) {
            settle();
            batch->commit();
            throw;
        }
    }
}
