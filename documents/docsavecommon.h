// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_export.h>

#include "docbrowser.h"

class QLineEdit;
class TCFileDialog;

// "Dokument speichern": a folder below the search paths and a file name; the list shows the
// folders and the JPEG pictures already there. "Speichern" confirms only with a name.
class KXCOMMON_EXPORT TDocSaveCommonForm : public TDocBrowserForm
{
    Q_OBJECT

public:
    explicit TDocSaveCommonForm(QWidget *parent = nullptr);
    QLineEdit *SaveName;
    TCFileDialog *SaveDialog; // the standard dialog, used when the browser is not asked for

    void OkButtonClick();
};

// Asks where to save a document; true when a target was chosen, its path in Path. With
// "OnlyUseSearchPath" the browser above (the folder selected in its tree and the name),
// otherwise the standard dialog, its file name unchanged.
KXCOMMON_EXPORT bool SaveCommonDocument(QString &Path);
