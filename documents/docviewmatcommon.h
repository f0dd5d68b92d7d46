// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_export.h>

#include "docviewcommon.h"

// The documents of a material ("Mat_Dokumente"), whose rows may hang on any of three parents.
class KXCOMMON_EXPORT TDocViewMatCommonForm : public TDocViewCommonForm
{
    Q_OBJECT

public:
    explicit TDocViewMatCommonForm(QWidget *parent = nullptr);

    void ShowCommonDokuments(const QString &Id1, const QString &Id2, const QString &Id3);
    int CountDokuments(const QString &Id1, const QString &Id2, const QString &Id3);
};

// Shows the material documents of the three parents modally.
KXCOMMON_EXPORT void ShowCommonMatDokuments(const QString &Id1, const QString &Id2, const QString &Id3);
// The number of material documents on any of the three parents. Deliberate: an empty id is
// compared like any other, so three empty ids count the rows without a parent.
KXCOMMON_EXPORT int CheckCommonMatDokuments(const QString &Id1, const QString &Id2, const QString &Id3);
