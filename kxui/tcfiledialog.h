// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_export.h>

#include <QFileDialog>
#include <QObject>
#include <QPointer>
#include <QString>

class QWidget;

// The file-open and file-save dialogs: Execute shows Qt's own dialog over the handle's window
// and returns true when a file was chosen; FileName then holds its full path.
class KXCOMMON_EXPORT TCFileDialog : public QObject
{
    Q_OBJECT

public:
    enum Kind { Open, Save };
    explicit TCFileDialog(Kind kind, QObject *owner = nullptr);

    void SetHandle(QWidget *form) { m_handle = form; }
    QString Title;
    QString DefaultExt; // added to a name typed without extension, e.g. "iDef"
    QString Filter;     // "Beschreibung|*.ext|Beschreibung|*.a;*.b" pairs
    QString FileName;   // the proposed name before Execute, the chosen one after it
    bool MultiSelect = false; // open: several files may be chosen
    QStringList Files;        // every chosen file after Execute

    bool Execute();
    // The dialog while Execute runs (for a host or a test that drives it), else nullptr.
    QFileDialog *dialog() const { return m_dialog; }

    // The filter pairs as the dialog's name filters: "Beschreibung (*.ext)".
    static QStringList nameFilters(const QString &filter);

private:
    Kind m_kind;
    QPointer<QWidget> m_handle;
    QPointer<QFileDialog> m_dialog;
};

// Qt's own dialog, the same on every desktop and drivable where no desktop runs, with the
// German texts its file and folder pickers share.
KXCOMMON_EXPORT void prepareFileDialog(QFileDialog &dialog);
