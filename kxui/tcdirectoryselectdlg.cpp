// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tcdirectoryselectdlg.h"

#include "tcfiledialog.h"
#include "germantexts.h"

#include <QFileDialog>

TCDirectorySelectDlg::TCDirectorySelectDlg(QObject *owner)
    : QObject(owner)
{
    kx::ui::loadGermanQtTexts();
}

bool TCDirectorySelectDlg::Execute()
{
    QFileDialog dialog(m_handle, Caption, Directory);
    dialog.setFileMode(QFileDialog::Directory);
    prepareFileDialog(dialog);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.setLabelText(QFileDialog::Accept, QStringLiteral("Auswählen"));
    dialog.setLabelText(QFileDialog::FileName, QStringLiteral("Ordner:"));
    m_dialog = &dialog;
    const bool chosen = dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty();
    m_dialog = nullptr;
    if (chosen)
        Directory = dialog.selectedFiles().constFirst();
    return chosen;
}
