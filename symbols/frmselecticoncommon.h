// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_export.h>

#include <QDialog>

class QLabel;
class QPushButton;
class TLumSheetItemManager;
class TSymbolsView;

// How a stored symbol reference is read: the full path of an image file, or the identifier of
// a pack symbol.
enum TEvSymbolType { evSymIsFile, evSymIsFromPak };

// "Symbol auswählen": the symbols of the folder and the pack in their categories; OK or a double
// click confirms the selected one.
class KXCOMMON_EXPORT TfrmSelectIconForm : public QDialog
{
    Q_OBJECT

public:
    explicit TfrmSelectIconForm(QWidget *parent = nullptr);
    ~TfrmSelectIconForm() override;

    QWidget *dockPanel;
    QPushButton *OkButton;
    QPushButton *CancelButton;
    QLabel *SelectionLabel; // the selected symbol's name and category
    TSymbolsView *fSymbolsView;

    void OkButtonClick();
    void fSymbolsViewDblClick();

    // Lets the user pick a symbol. On confirmation with a symbol selected: Name and SymbolType
    // take its reference, Image (if given) its picture, and the result is true. Otherwise both
    // stay as they were.
    static bool SelectSymbol(QWidget *Owner, QString &Name, TEvSymbolType &SymbolType, QLabel *Image);
    static bool SelectSymbol(QString &Name, TEvSymbolType &SymbolType, QLabel *Image);
    // Puts the picture of a stored reference into Image; true when it did.
    static bool LoadSymbol(const QString &Name, TEvSymbolType SymbolType, QLabel *Image);

private:
    void FormCreate();
};

// The form's ordering of a manager's items by the category of their texts in the language.
// Deliberate: item 0 never takes part, nothing moves with fewer than four items, and items 1
// and 2 are not compared again after the last pass; stored orders depend on it.
KXCOMMON_EXPORT void SortSymbolsByCategory(TLumSheetItemManager *manager, const QString &languageCode);
