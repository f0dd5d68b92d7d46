// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tcdbtreeview.h"

#include "sqlconnection.h"

#include <QHeaderView>

#include <functional>

using namespace Qt::StringLiterals;

TCDBTreeModel::TCDBTreeModel(QObject *parent)
    : QAbstractItemModel(parent)
{
}

void TCDBTreeModel::reset(const TCTreeData &data, const QString &rootCaption, bool checkBoxes)
{
    beginResetModel();
    m_data = data;
    m_rootCaption = rootCaption;
    m_checkBoxes = checkBoxes;
    endResetModel();
}

void TCDBTreeModel::checkStatesChanged()
{
    // One signal over the whole tree: a check may change any number of nodes below and above.
    std::function<void(const QModelIndex &)> notify = [&](const QModelIndex &parent) {
        const int rows = rowCount(parent);
        if (rows == 0)
            return;
        Q_EMIT dataChanged(index(0, 0, parent), index(rows - 1, 0, parent), { Qt::CheckStateRole });
        for (int row = 0; row < rows; ++row)
            notify(index(row, 0, parent));
    };
    notify(rootIndex());
}

const QList<int> &TCDBTreeModel::childrenOf(int node) const
{
    return node == TCTreeData::Root ? m_data.topLevel() : m_data.nodes().at(node).Children;
}

QModelIndex TCDBTreeModel::indexOfNode(int node) const
{
    const int parent = m_data.nodes().at(node).Parent;
    return createIndex(int(childrenOf(parent).indexOf(node)), 0, quintptr(node + 1));
}

QModelIndex TCDBTreeModel::index(int row, int column, const QModelIndex &parent) const
{
    if (column != 0 || row < 0)
        return {};
    if (!parent.isValid())
        return row == 0 ? createIndex(0, 0, quintptr(0)) : QModelIndex();
    const QList<int> &children = childrenOf(nodeOf(parent));
    return row < children.size() ? createIndex(row, 0, quintptr(children.at(row) + 1)) : QModelIndex();
}

QModelIndex TCDBTreeModel::parent(const QModelIndex &child) const
{
    if (!child.isValid() || child.internalId() == 0)
        return {};
    const int parent = m_data.nodes().at(nodeOf(child)).Parent;
    return parent == TCTreeData::Root ? rootIndex() : indexOfNode(parent);
}

int TCDBTreeModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return 1;
    return int(childrenOf(nodeOf(parent)).size());
}

int TCDBTreeModel::columnCount(const QModelIndex &) const
{
    return 1;
}

QVariant TCDBTreeModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const int node = nodeOf(index);
    if (node == TCTreeData::Root)
        return role == Qt::DisplayRole ? QVariant(m_rootCaption) : QVariant();
    const TCTreeData::Node &n = m_data.nodes().at(node);
    switch (role) {
    case Qt::DisplayRole:
        return n.Caption;
    case Qt::ToolTipRole:
        return n.KeyText;
    case Qt::CheckStateRole:
        return m_checkBoxes ? QVariant(Qt::CheckState(n.CheckState)) : QVariant();
    default:
        return {};
    }
}

bool TCDBTreeModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const int node = nodeOf(index);
    if (role != Qt::CheckStateRole || !m_checkBoxes || node == TCTreeData::Root)
        return false;
    // A click on a partly checked node checks it with everything below.
    const bool checked = value.value<Qt::CheckState>() != Qt::Unchecked;
    if (m_data.setChecked(node, checked))
        checkStatesChanged();
    return true;
}

Qt::ItemFlags TCDBTreeModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (m_checkBoxes && index.internalId() != 0)
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

TCDBTreeView::TCDBTreeView(QWidget *parent)
    : QTreeView(parent)
    , m_model(new TCDBTreeModel(this))
{
    setModel(m_model);
    setHeaderHidden(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setUniformRowHeights(true);
}

void TCDBTreeView::BuildTreeComplett()
{
    TCTreeData data;
    data.load(Connection ? Connection : compSqlConnection, TableName, TreeName);
    m_model->reset(data, RootCaption, CheckBoxes);
    expandAll();
}

void TCDBTreeView::LoadCheckState(const QString &id, const QString &module)
{
    TCSqlConnection *connection = Connection ? Connection : compSqlConnection;
    m_model->data().setCheckedIds(TCTreeData::loadCheckState(connection, id, module));
    m_model->checkStatesChanged();
}

void TCDBTreeView::SaveCheckState(const QString &id, const QString &module, bool onlyChecked)
{
    m_model->data().saveCheckState(Connection ? Connection : compSqlConnection, id, module, onlyChecked);
}

QString TCDBTreeView::stateText() const
{
    return m_model->data().text(RootCaption, CheckBoxes);
}
