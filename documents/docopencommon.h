// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_export.h>

#include "docbrowser.h"

class TCFileDialog;

// "Dokument hinzufügen": an existing file below the search paths; "Öffnen" or a double click
// confirms the selected entry of the list.
class KXCOMMON_EXPORT TDocOpenCommonForm : public TDocBrowserForm
{
    Q_OBJECT

public:
    explicit TDocOpenCommonForm(QWidget *parent = nullptr);
    TCFileDialog *OpenDialog; // the standard dialog, used when the browser is not asked for

    void OkButtonClick();
};

// Asks for a file to add as a document; true when one was chosen, its path in Path. With
// "OnlyUseSearchPath" the browser above, otherwise the standard dialog; with MultiSelect that
// dialog takes several files and Path holds each followed by CR LF.
KXCOMMON_EXPORT bool openCommonDocument(QString &Path, bool MultiSelect = false);
