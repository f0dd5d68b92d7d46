// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_export.h>

#include "katscommon.h"

#include <QDialog>

class QAction;
class QToolBar;
class TCDBTreeView;

// The category dialog "Kats": the shared category tree with check boxes for one record of a
// module, a toolbar with the close button.
class KXCOMMON_EXPORT TKatsCommonForm : public QDialog
{
    Q_OBJECT

public:
    explicit TKatsCommonForm(QWidget *owner = nullptr);

    TCDBTreeView *KatsTree;
    QToolBar *ToolBar;
    QAction *DoClose;
    TCSqlQuery *DataQuery;
    TCDataAccess *KatsLinkDataAccess;

    bool fTreeBuilt = false;
    bool fCheckStateLoaded = false;
    QString fModul;

private:
    void FormCreate();
};
