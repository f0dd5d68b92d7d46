// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_export.h>

#include <QDialog>

class QComboBox;
class QFileSystemModel;
class QLabel;
class QListView;
class QPushButton;
class QSortFilterProxyModel;
class QTreeView;

// The browser the document dialogs show when the user may only use the search paths: the
// search paths to choose from ("SearchIn"), a folder tree rooted at the chosen one and the
// entries of the folder selected in it. Shared by the open and the save form.
class KXCOMMON_EXPORT TDocBrowserForm : public QDialog
{
    Q_OBJECT

public:
    QComboBox *SearchIn;
    QLabel *SearchInLabel;
    QTreeView *ShellTreeView1;
    QListView *ShellListView1;
    QPushButton *OkButton;
    QPushButton *CancelButton;

    // The folder selected in the tree, empty when none is.
    QString SelectedFolder() const;
    // The full path of the entry selected in the list, empty when none is.
    QString SelectedEntry() const;
    // Makes Path the tree's root (a path that does not exist leaves the tree where it is).
    void SetRoot(const QString &path);
    // The tree's root path.
    QString Root() const;

protected:
    TDocBrowserForm(const QString &caption, const QString &searchInCaption, const QString &okCaption, QWidget *parent);
    // Which entries the list shows: files only, or (with Filter) folders and the files it accepts.
    void setListFilter(bool withFolders, std::function<bool(const QString &path)> filter);
    void addBelowLists(QWidget *widget);

    QFileSystemModel *m_folders;
    QFileSystemModel *m_entries;
    QSortFilterProxyModel *m_folderView;
    QSortFilterProxyModel *m_entryView;

private:
    void showFolder(const QString &path);
};

// The search paths as the forms offer them: the non-empty entries of cSearchPathList in order,
// each once regardless of letter case (the first spelling kept).
KXCOMMON_EXPORT QStringList documentSearchPaths();
// Whether the documents may only be chosen below the search paths ("OnlyUseSearchPath").
KXCOMMON_EXPORT bool onlyUseSearchPath();
