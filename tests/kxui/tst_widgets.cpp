// SPDX-License-Identifier: LGPL-2.1-or-later
// The smaller parts of the widget kit: the folder picker driven like a user, the form scaler,
// the theme colours of headers and progress bars.
#include "appscaleform.h"
#include "globals.h"
#include "tcdirectoryselectdlg.h"

#include <QScreen>
#include <QTemporaryDir>
#include <QTimer>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(DirectorySelectDlg, ChosenFolderOrNothing)
{
    QTemporaryDir start;
    QTemporaryDir target;
    for (const bool accept : { true, false }) {
        TCDirectorySelectDlg picker;
        picker.Directory = start.path();
        QTimer::singleShot(0, [&picker, &target, accept] {
            QFileDialog *dialog = picker.dialog();
            ASSERT_NE(dialog, nullptr);
            if (!accept) {
                dialog->reject();
                return;
            }
            dialog->selectFile(target.path());
            static_cast<QDialog *>(dialog)->accept(); // as the dialog's own button does
        });
        EXPECT_EQ(picker.Execute(), accept);
        EXPECT_EQ(picker.Directory, accept ? target.path() : start.path());
        EXPECT_EQ(picker.dialog(), nullptr);
    }
}

TEST(FormScaler, AFormNeverOutgrowsTheScreen)
{
    installFormScaler();
    QWidget form;
    form.resize(20000, 300);
    appScaleForm(&form);
    const QSize available = form.screen()->availableSize();
    EXPECT_LE(form.width(), available.width());
    EXPECT_EQ(form.height(), qMin(300.0 * form.screen()->logicalDotsPerInch() / 96.0, qreal(available.height())));
    setFormScaler(nullptr);
}

} // namespace
