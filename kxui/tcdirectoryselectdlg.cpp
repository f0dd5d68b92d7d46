#include "tcdirectoryselectdlg.h"

#include <QFileDialog>

TCDirectorySelectDlg::TCDirectorySelectDlg(QObject *owner)
    : QObject(owner)
{
}

bool TCDirectorySelectDlg::Execute()
{
    QFileDialog dialog(m_handle, Caption, Directory);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    // Qt's own dialog: the same on every desktop, and drivable where no desktop runs.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setLabelText(QFileDialog::Accept, QStringLiteral("Auswählen"));
    dialog.setLabelText(QFileDialog::Reject, QStringLiteral("Abbrechen"));
    dialog.setLabelText(QFileDialog::LookIn, QStringLiteral("Suchen in:"));
    dialog.setLabelText(QFileDialog::FileName, QStringLiteral("Ordner:"));
    m_dialog = &dialog;
    const bool chosen = dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty();
    m_dialog = nullptr;
    if (chosen)
        Directory = dialog.selectedFiles().constFirst();
    return chosen;
}
