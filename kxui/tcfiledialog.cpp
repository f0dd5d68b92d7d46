// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tcfiledialog.h"
#include "germantexts.h"

#include <QFileDialog>
#include <QHeaderView>
#include <QTreeView>
#include <QFileInfo>

using namespace Qt::StringLiterals;

TCFileDialog::TCFileDialog(Kind kind, QObject *owner)
    : QObject(owner)
    , m_kind(kind)
{
    kx::ui::loadGermanQtTexts();
}

QStringList TCFileDialog::nameFilters(const QString &filter)
{
    const QStringList parts = filter.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
        filters << u"%1 (%2)"_s.arg(parts[i], QString(parts[i + 1]).replace(u';', u' '));
    return filters;
}

void prepareFileDialog(QFileDialog &dialog)
{
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setLabelText(QFileDialog::Reject, u"Abbrechen"_s);
    dialog.setLabelText(QFileDialog::LookIn, u"Suchen in:"_s);
    // The detail list's size, type and date columns as wide as their contents, not cut.
    dialog.resize(760, 460);
    if (auto *details = dialog.findChild<QTreeView *>(u"treeView"_s))
        for (int column = 1; column < details->header()->count(); ++column)
            details->header()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
}

bool TCFileDialog::Execute()
{
    const QFileInfo proposed(FileName);
    QFileDialog dialog(m_handle, Title.isEmpty() ? (m_kind == Open ? u"Öffnen"_s : u"Speichern unter"_s) : Title,
                       FileName.isEmpty() ? QString() : proposed.absolutePath());
    prepareFileDialog(dialog);
    dialog.setAcceptMode(m_kind == Open ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    dialog.setFileMode(m_kind == Save ? QFileDialog::AnyFile
                       : MultiSelect  ? QFileDialog::ExistingFiles
                                      : QFileDialog::ExistingFile);
    dialog.setNameFilters(nameFilters(Filter));
    dialog.setDefaultSuffix(DefaultExt);
    if (!FileName.isEmpty())
        dialog.selectFile(proposed.fileName());
    dialog.setLabelText(QFileDialog::Accept, m_kind == Open ? u"Öffnen"_s : u"Speichern"_s);
    dialog.setLabelText(QFileDialog::FileName, u"Dateiname:"_s);
    dialog.setLabelText(QFileDialog::FileType, u"Dateityp:"_s);
    m_dialog = &dialog;
    const bool chosen = dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty();
    m_dialog = nullptr;
    Files = chosen ? dialog.selectedFiles() : QStringList();
    if (chosen)
        FileName = Files.constFirst();
    return chosen;
}
