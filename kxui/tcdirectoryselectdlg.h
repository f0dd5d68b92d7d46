// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_export.h>

#include <QObject>
#include <QPointer>
#include <QString>

#include <QFileDialog>
class QWidget;

// The folder picker: Execute shows a folder dialog over the handle's window and returns true
// when a folder was chosen; Directory then holds it.
class KXCOMMON_EXPORT TCDirectorySelectDlg : public QObject
{
    Q_OBJECT

public:
    explicit TCDirectorySelectDlg(QObject *owner = nullptr);

    void SetHandle(QWidget *form) { m_handle = form; }
    QString Caption = QStringLiteral("Ordner auswählen");
    QString Directory; // the start folder before Execute, the chosen one after it

    bool Execute();
    // The dialog while Execute runs (for a host that drives it), else nullptr.
    QFileDialog *dialog() const { return m_dialog; }

private:
    QPointer<QWidget> m_handle;
    QPointer<QFileDialog> m_dialog;
};
