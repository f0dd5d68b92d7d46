// SPDX-License-Identifier: LGPL-2.1-or-later
// The smaller parts of the widget kit: the folder picker driven like a user, the form scaler,
// the theme colours of headers and progress bars.
#include "appscaleform.h"
#include "globals.h"
#include "listviewhooks.h"
#include "tcdirectoryselectdlg.h"

#include <QHeaderView>
#include <QProgressBar>
#include <QScreen>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeView>
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

TEST(ThemeColors, HeadersAndProgressBars)
{
    QTreeView view;
    themeColors().Enabled = true;
    RedrawHeader(&view);
    EXPECT_TRUE(view.header()->styleSheet().contains(themeColors().HeaderBackground.name()));
    themeColors().Enabled = false;
    RedrawHeader(&view);
    EXPECT_TRUE(view.header()->styleSheet().isEmpty());
    QProgressBar bar;
    setProgressBarBackgroundColor(&bar, QColor(0x12, 0x34, 0x56));
    EXPECT_TRUE(bar.styleSheet().contains(u"background-color: #123456"_s));
}

} // namespace
