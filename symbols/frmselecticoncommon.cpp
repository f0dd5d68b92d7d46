// SPDX-License-Identifier: LGPL-2.1-or-later
#include "frmselecticoncommon.h"

#include "symbolsview.h"
#include "germantexts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

void SortSymbolsByCategory(TLumSheetItemManager *manager, const QString &languageCode)
{
    const int n = manager->Count() - 1;
    if (n < 3)
        return;
    for (int i = n; i >= 3; --i) {
        for (int j = 2; j <= i; ++j) {
            const TTexts *before = manager->Item(j - 1)->Texts.ByLanguage(languageCode);
            const TTexts *after = manager->Item(j)->Texts.ByLanguage(languageCode);
            if (before && after && before->GetCategory().compare(after->GetCategory()) > 0)
                manager->Exchange(j - 1, j);
        }
    }
}

TfrmSelectIconForm::TfrmSelectIconForm(QWidget *parent)
    : QDialog(parent)
    , dockPanel(new QWidget(this))
    , OkButton(new QPushButton(u"&OK"_s, this))
    , CancelButton(new QPushButton(u"&Abbrechen"_s, this))
    , SelectionLabel(new QLabel(this))
    , fSymbolsView(nullptr)
{
    kx::ui::loadGermanQtTexts();
    setObjectName(u"frmSelectIconForm"_s);
    setWindowTitle(u"Symbol auswählen"_s);
    dockPanel->setObjectName(u"dockPanel"_s);
    OkButton->setObjectName(u"OkButton"_s);
    OkButton->setDefault(true);
    CancelButton->setObjectName(u"CancelButton"_s);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(SelectionLabel, 1);
    buttons->addWidget(OkButton);
    buttons->addWidget(CancelButton);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(dockPanel, 1);
    layout->addLayout(buttons);
    resize(520, 560);
    connect(OkButton, &QPushButton::clicked, this, &TfrmSelectIconForm::OkButtonClick);
    connect(CancelButton, &QPushButton::clicked, this, &QDialog::reject);
    FormCreate();
}

TfrmSelectIconForm::~TfrmSelectIconForm() = default; // the view is a child of the panel

void TfrmSelectIconForm::FormCreate()
{
    fSymbolsView = new TSymbolsView(dockPanel);
    auto *panel = new QVBoxLayout(dockPanel);
    panel->setContentsMargins(0, 0, 0, 0);
    panel->addWidget(fSymbolsView);
    fSymbolsView->SetButtonSize(64);
    connect(fSymbolsView, &TSymbolsView::DblClick, this, &TfrmSelectIconForm::fSymbolsViewDblClick);
    connect(fSymbolsView, &TSymbolsView::SelectionChanged, this, [this] {
        TLumSheetItem *item = fSymbolsView->SelectedItem();
        SelectionLabel->setText(item ? u"Auswahl: %1 (%2)"_s.arg(fSymbolsView->NameOf(item), fSymbolsView->CategoryOf(item))
                                     : QString());
    });
    SortSymbolsByCategory(fSymbolsView->Manager(), fSymbolsView->LanguageCode());
    fSymbolsView->ApplyFilter(QString());
}

void TfrmSelectIconForm::OkButtonClick()
{
    accept();
}

void TfrmSelectIconForm::fSymbolsViewDblClick()
{
    OkButtonClick();
}

bool TfrmSelectIconForm::SelectSymbol(QWidget *Owner, QString &Name, TEvSymbolType &SymbolType, QLabel *Image)
{
    TfrmSelectIconForm form(Owner);
    if (form.exec() != QDialog::Accepted)
        return false;
    TLumSheetItem *item = form.fSymbolsView->SelectedItem();
    if (!item)
        return false;
    if (!item->FileName.isEmpty()) {
        Name = item->FileName;
        SymbolType = evSymIsFile;
        if (Image) {
            const QPixmap picture(item->FileName);
            if (!picture.isNull()) // deliberate: a picture that does not load leaves the old one
                Image->setPixmap(picture);
        }
    } else {
        Name = item->Guid;
        SymbolType = evSymIsFromPak;
        if (Image) {
            try {
                Image->setPixmap(QPixmap::fromImage(item->Graphic()->Image()));
            } catch (const std::exception &) {
                // deliberate: picture errors never escape the selection
            }
        }
    }
    return true;
}

bool TfrmSelectIconForm::SelectSymbol(QString &Name, TEvSymbolType &SymbolType, QLabel *Image)
{
    return SelectSymbol(nullptr, Name, SymbolType, Image);
}

bool TfrmSelectIconForm::LoadSymbol(const QString &Name, TEvSymbolType SymbolType, QLabel *Image)
{
    if (Name.isEmpty()) {
        if (Image)
            Image->clear();
        return false;
    }
    if (SymbolType == evSymIsFile) {
        const QPixmap picture(Name);
        if (picture.isNull()) {
            if (Image)
                Image->clear();
            return false;
        }
        if (Image)
            Image->setPixmap(picture);
        return true;
    }
    TfrmSelectIconForm form;
    TLumSheetItem *item = form.fSymbolsView->Manager()->ItemByGuid(Name);
    if (!item)
        return false;
    try {
        if (Image)
            Image->setPixmap(QPixmap::fromImage(item->Graphic()->Image()));
    } catch (const std::exception &) {
        // deliberate: picture errors never escape; the picture stays as it was
    }
    return true;
}
