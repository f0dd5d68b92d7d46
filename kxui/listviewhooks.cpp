// SPDX-License-Identifier: LGPL-2.1-or-later
#include "listviewhooks.h"

#include <QHeaderView>
#include <QProgressBar>
#include <QTableView>
#include <QTreeView>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

TCThemeColors &themeColors()
{
    static TCThemeColors colors;
    return colors;
}

void RedrawHeader(QAbstractItemView *view)
{
    QHeaderView *header = nullptr;
    if (auto *tree = qobject_cast<QTreeView *>(view))
        header = tree->header();
    else if (auto *table = qobject_cast<QTableView *>(view))
        header = table->horizontalHeader();
    if (!header)
        return;
    const TCThemeColors &theme = themeColors();
    header->setStyleSheet(theme.Enabled ? u"QHeaderView::section { background-color: %1; color: %2; "
                                          u"padding: 3px; border: 0px; border-right: 1px solid %3; }"_s
                                              .arg(theme.HeaderBackground.name(), theme.HeaderText.name(),
                                                   theme.HeaderBackground.darker(130).name())
                                        : QString());
    header->viewport()->update();
}

void setProgressBarBackgroundColor(QProgressBar *bar, const QColor &color)
{
    bar->setStyleSheet(u"QProgressBar { background-color: %1; border: 1px solid %2; border-radius: 2px; "
                       u"text-align: center; } QProgressBar::chunk { background-color: %3; }"_s
                           .arg(color.name(), color.darker(140).name(), themeColors().ProgressChunk.name()));
}

QTreeWidget *createReportList(QWidget *parent, const QString &name, const QStringList &columns, const QList<int> &widths)
{
    auto *list = new QTreeWidget(parent);
    list->setObjectName(name);
    list->setHeaderLabels(columns);
    list->setRootIsDecorated(false);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setSelectionBehavior(QAbstractItemView::SelectRows);
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    list->setAllColumnsShowFocus(true);
    for (int i = 0; i < widths.size(); ++i)
        list->setColumnWidth(i, widths[i]);
    return list;
}
