// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_export.h>

#include <QEvent>
#include <QString>

// Opens a link or a document file: names holding "HTTP:", "FTP:", "MAILTO:" or "CALLTO:"
// (anywhere, any case) are opened as links; a situation-map file (".LDMV") is handed to the
// main program; anything else is looked for on the search path and opened with its program.
// With ShowError a failure raises a kx::Error with the launch-error text of its code.
KXCOMMON_EXPORT void ShellExecuteAndSearchDokument(const QString &FileName, bool ShowError);
// With a name holding ".DOC" or ".DOT": one new document from the template per row of Sql, its
// form fields filled with the row's values (matched through the office names of TableName's
// columns in OfficeTableMapping). Any other name is opened as by the first form, silently.
KXCOMMON_EXPORT void ShellExecuteAndSearchDokument(const QString &FileName, const QString &TableName, const QString &Sql);

// Hands a record to the main program: writes "Open.Def" (the module, the data) into the work
// folder and sends the open-record event to the main window "MarvexMainForm", which has read the
// file when this returns. Silent when there is no main window and on every error.
KXCOMMON_EXPORT void SendOpenRecord(const QString &Modul, const QString &Data);

// The text of a launch-error code.
KXCOMMON_EXPORT QString ShellExecuteErrorText(int code);

// The open-record event (the main program's window message 1060), sent synchronously.
class KXCOMMON_EXPORT TOpenRecordEvent : public QEvent
{
public:
    static constexpr QEvent::Type EventType = QEvent::Type(1060);
    TOpenRecordEvent()
        : QEvent(EventType)
    {
    }
    const int WParam = 1;
    const int LParam = 1;
};
