// SPDX-License-Identifier: LGPL-2.1-or-later
#include "docbrowser.h"

#include "globals.h"
#include "parameter.h"
#include "germantexts.h"

#include <QComboBox>
#include <QFileSystemModel>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QSplitter>
#include <QTreeView>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QString resScheduledTasks = u"Geplante Tasks"_s; // resource string 65509

// Hides entries by a test of their path; folders pass when told so.
class PathFilter : public QSortFilterProxyModel
{
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;
    bool withFolders = false;
    std::function<bool(const QString &)> accepts;
    QString shownFolder; // the folders on the way to it stay, so that the view can reach it
    QString limit;       // when set, only this folder, the way to it and what lies below it

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override
    {
        const auto *model = static_cast<QFileSystemModel *>(sourceModel());
        const QModelIndex index = model->index(row, 0, parent);
        if (model->isDir(index)) {
            const QString path = model->filePath(index);
            const auto within = [](const QString &inner, const QString &outer) {
                return inner == outer || inner.startsWith(outer.endsWith(u'/') ? outer : outer + u'/');
            };
            if (!limit.isEmpty() && !within(path, limit) && !within(limit, path))
                return false;
            if (within(shownFolder, path))
                return true;
            return withFolders && model->fileName(index) != resScheduledTasks;
        }
        return !accepts || accepts(model->filePath(index));
    }
};

} // namespace

QStringList documentSearchPaths()
{
    QStringList taken, upper;
    for (const QString &path : std::as_const(cSearchPathList)) {
        if (path.isEmpty() || upper.contains(path.toUpper()))
            continue;
        taken << path;
        upper << path.toUpper();
    }
    return taken;
}

bool onlyUseSearchPath()
{
    return TCParameter().ReadBool(u"Settings\\Dokuments"_s, u"OnlyUseSearchPath"_s, false);
}

TDocBrowserForm::TDocBrowserForm(const QString &caption, const QString &searchInCaption, const QString &okCaption,
                                 QWidget *parent)
    : QDialog(parent)
    , SearchIn(new QComboBox(this))
    , SearchInLabel(new QLabel(searchInCaption, this))
    , ShellTreeView1(new QTreeView(this))
    , ShellListView1(new QListView(this))
    , OkButton(new QPushButton(okCaption, this))
    , CancelButton(new QPushButton(u"Abbrechen"_s, this))
    , m_folders(new QFileSystemModel(this))
    , m_entries(new QFileSystemModel(this))
    , m_folderView(new PathFilter(this))
    , m_entryView(new PathFilter(this))
{
    kx::ui::loadGermanQtTexts();
    setWindowTitle(caption);
    SearchIn->setObjectName(u"SearchIn"_s);
    ShellTreeView1->setObjectName(u"ShellTreeView1"_s);
    ShellListView1->setObjectName(u"ShellListView1"_s);
    OkButton->setObjectName(u"OkButton"_s);
    CancelButton->setObjectName(u"CancelButton"_s);
    SearchInLabel->setBuddy(SearchIn);

    m_folders->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot | QDir::Drives);
    m_folders->setRootPath(u"/"_s);
    static_cast<PathFilter *>(m_folderView)->withFolders = true;
    m_folderView->setSourceModel(m_folders);
    ShellTreeView1->setModel(m_folderView);
    for (int column = 1; column < m_folders->columnCount(); ++column)
        ShellTreeView1->hideColumn(column);
    ShellTreeView1->setHeaderHidden(true);
    m_entries->setFilter(QDir::AllEntries | QDir::NoDotAndDotDot);
    m_entryView->setSourceModel(m_entries);
    ShellListView1->setModel(m_entryView);
    ShellListView1->setSelectionMode(QAbstractItemView::SingleSelection);

    auto *search = new QHBoxLayout;
    search->addWidget(SearchInLabel);
    search->addWidget(SearchIn, 1);
    auto *split = new QSplitter(this);
    split->addWidget(ShellTreeView1);
    split->addWidget(ShellListView1);
    split->setSizes({ 220, 340 });
    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(OkButton);
    buttons->addWidget(CancelButton);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(search);
    layout->addWidget(split, 1);
    layout->addLayout(buttons);
    resize(600, 420);
    appScaleForm(this);

    connect(CancelButton, &QPushButton::clicked, this, &QDialog::reject);
    connect(ShellTreeView1->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex &current) { showFolder(m_folders->filePath(m_folderView->mapToSource(current))); });
    connect(SearchIn, &QComboBox::textActivated, this, &TDocBrowserForm::SetRoot);

    const QStringList paths = documentSearchPaths();
    SearchIn->addItems(paths);
    if (!paths.isEmpty())
        SetRoot(paths.first());
}

void TDocBrowserForm::setListFilter(bool withFolders, std::function<bool(const QString &)> filter)
{
    auto *view = static_cast<PathFilter *>(m_entryView);
    view->withFolders = withFolders;
    view->accepts = std::move(filter);
    view->invalidate();
}

void TDocBrowserForm::addBelowLists(QWidget *widget)
{
    static_cast<QVBoxLayout *>(layout())->insertWidget(2, widget);
}

void TDocBrowserForm::SetRoot(const QString &path)
{
    if (path.isEmpty() || !QFileInfo(path).isDir())
        return; // deliberate: an unusable search path leaves the tree where it is
    auto *folders = static_cast<PathFilter *>(m_folderView);
    folders->limit = path; // the user stays below the search path
    folders->invalidate();
    m_folders->setRootPath(path);
    const QModelIndex root = m_folderView->mapFromSource(m_folders->index(path));
    ShellTreeView1->setRootIndex(root.parent());
    ShellTreeView1->setCurrentIndex(root);
    ShellTreeView1->expand(root);
    showFolder(path);
}

QString TDocBrowserForm::Root() const
{
    return m_folders->rootPath();
}

void TDocBrowserForm::showFolder(const QString &path)
{
    auto *view = static_cast<PathFilter *>(m_entryView);
    view->shownFolder = path;
    view->invalidate();
    m_entries->setRootPath(path);
    ShellListView1->setRootIndex(m_entryView->mapFromSource(m_entries->index(path)));
}

QString TDocBrowserForm::SelectedFolder() const
{
    const QModelIndex current = ShellTreeView1->currentIndex();
    return current.isValid() ? m_folders->filePath(m_folderView->mapToSource(current)) : QString();
}

QString TDocBrowserForm::SelectedEntry() const
{
    const QModelIndexList selected = ShellListView1->selectionModel()->selectedIndexes();
    return selected.isEmpty() ? QString() : m_entries->filePath(m_entryView->mapToSource(selected.first()));
}
