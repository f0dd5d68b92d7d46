// SPDX-License-Identifier: LGPL-2.1-or-later
#include "docsavecommon.h"

#include "msgdlg.h"
#include "tcfiledialog.h"

#include <QDir>
#include <QFileInfo>
#include <QFormLayout>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <memory>

using namespace Qt::StringLiterals;

TDocSaveCommonForm::TDocSaveCommonForm(QWidget *parent)
    : TDocBrowserForm(u"Dokument speichern"_s, u"Speichern in"_s, u"Speichern"_s, parent)
    , SaveName(new QLineEdit(this))
    , SaveDialog(new TCFileDialog(TCFileDialog::Save, this))
{
    setObjectName(u"DocSaveCommonForm"_s);
    SaveName->setObjectName(u"SaveName"_s);
    auto *nameRow = new QWidget(this);
    auto *form = new QFormLayout(nameRow);
    form->setContentsMargins(0, 0, 0, 0);
    form->addRow(u"Dateiname"_s, SaveName);
    addBelowLists(nameRow);
    // Deliberate: a substring test on the whole path, so ".jpeg" files stay hidden and a folder
    // whose name holds ".jpg" lets all its files through.
    setListFilter(true, [](const QString &path) { return path.toUpper().contains(u".JPG"_s); });
    connect(OkButton, &QPushButton::clicked, this, &TDocSaveCommonForm::OkButtonClick);
    connect(ShellListView1->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] {
        const QString entry = SelectedEntry();
        if (!entry.isEmpty() && QFileInfo(entry).isFile())
            SaveName->setText(QFileInfo(entry).fileName());
    });
}

namespace {

// A name within the chosen folder: no folder of its own, no way out of it ("/tmp/x.jpg",
// "../x.jpg"), as the restricted browser keeps the user below the search path.
bool isPlainName(const QString &name)
{
    return !name.isEmpty() && !name.contains(u'/') && !name.contains(u'\\') && name != u"."_s && name != u".."_s;
}

} // namespace

void TDocSaveCommonForm::OkButtonClick()
{
    if (SaveName->text().isEmpty())
        return;
    if (!isPlainName(SaveName->text())) {
        MsgDlg(u"Bitte nur einen Dateinamen angeben, ohne Ordner: gespeichert wird in den gewählten Ordner."_s,
               TMsgDlgType::mtWarning, mbOK);
        return;
    }
    accept();
}

bool SaveCommonDocument(QString &Path)
{
    Path.clear();
    const auto form = std::make_unique<TDocSaveCommonForm>();
    if (onlyUseSearchPath()) {
        if (form->exec() != QDialog::Accepted)
            return false;
        const QString folder = form->SelectedFolder();
        if (folder.isEmpty() || !QFileInfo(folder).isDir() || !isPlainName(form->SaveName->text()))
            return false;
        Path = QDir(folder).filePath(form->SaveName->text());
        return true;
    }
    if (!form->SaveDialog->Execute())
        return false;
    Path = form->SaveDialog->FileName;
    return true;
}
