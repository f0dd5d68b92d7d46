#include "docsavecommon.h"

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

void TDocSaveCommonForm::OkButtonClick()
{
    if (!SaveName->text().isEmpty())
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
        if (folder.isEmpty() || !QFileInfo(folder).isDir())
            return false;
        Path = QDir(folder).filePath(form->SaveName->text());
        return true;
    }
    if (!form->SaveDialog->Execute())
        return false;
    Path = form->SaveDialog->FileName;
    return true;
}
