// SPDX-License-Identifier: LGPL-2.1-or-later
#include "docopencommon.h"

#include "tcfiledialog.h"

#include <QListView>
#include <QPushButton>
#include <memory>

using namespace Qt::StringLiterals;

TDocOpenCommonForm::TDocOpenCommonForm(QWidget *parent)
    : TDocBrowserForm(u"Dokument hinzufügen"_s, u"Suchen in"_s, u"Öffnen"_s, parent)
    , OpenDialog(new TCFileDialog(TCFileDialog::Open, this))
{
    setObjectName(u"DocOpenCommonForm"_s);
    setListFilter(false, {});
    connect(OkButton, &QPushButton::clicked, this, &TDocOpenCommonForm::OkButtonClick);
    connect(ShellListView1, &QListView::doubleClicked, this, &TDocOpenCommonForm::OkButtonClick);
}

void TDocOpenCommonForm::OkButtonClick()
{
    if (!SelectedEntry().isEmpty())
        accept();
}

bool openCommonDocument(QString &Path, bool MultiSelect)
{
    Path.clear();
    const auto form = std::make_unique<TDocOpenCommonForm>();
    if (onlyUseSearchPath()) {
        if (form->exec() != QDialog::Accepted)
            return false;
        Path = form->SelectedEntry();
        return true;
    }
    form->OpenDialog->MultiSelect = MultiSelect;
    if (!form->OpenDialog->Execute())
        return false;
    if (MultiSelect) {
        for (const QString &file : std::as_const(form->OpenDialog->Files))
            Path += file + u"\r\n"_s; // the list's text: each line ends in CR LF
    } else {
        Path = form->OpenDialog->FileName.trimmed();
    }
    return true;
}
