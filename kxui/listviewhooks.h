// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_export.h>

#include <QColor>

#include <QList>
#include <QStringList>

class QAbstractItemView;
class QProgressBar;
class QTreeWidget;
class QWidget;

// The suite's theme colours for list headers and progress bars. Off by default: the widgets
// keep the style's own colours.
struct KXCOMMON_EXPORT TCThemeColors
{
    bool Enabled = false;
    QColor HeaderBackground = QColor(0xC0, 0x1F, 0x1F); // brigade red
    QColor HeaderText = Qt::white;
    QColor ProgressBackground = QColor(0xF3, 0xE5, 0xE5);
    QColor ProgressChunk = QColor(0xC0, 0x1F, 0x1F);
};
KXCOMMON_EXPORT TCThemeColors &themeColors();

// Redraws the view's header in the theme colours (the style's own when they are off).
KXCOMMON_EXPORT void RedrawHeader(QAbstractItemView *view);
// Colours the bar's background (and its chunk in the theme's colour).
KXCOMMON_EXPORT void setProgressBarBackgroundColor(QProgressBar *bar, const QColor &color = themeColors().ProgressBackground);

// A list view in report style: read-only rows with columns, whole-row single selection that stays
// visible without focus.
KXCOMMON_EXPORT QTreeWidget *createReportList(QWidget *parent, const QString &name, const QStringList &columns, const QList<int> &widths);
