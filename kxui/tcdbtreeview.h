// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_export.h>

#include "treedata.h"

#include <QAbstractItemModel>
#include <QTreeView>

class TCSqlConnection;

// The nodes of a tree table under one root item, with check boxes: checking a node checks
// everything below it, and a node above shows checked, partly checked (grayed) or unchecked
// after its children. The root carries the view's caption and no check box.
class KXCOMMON_EXPORT TCDBTreeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    explicit TCDBTreeModel(QObject *parent = nullptr);

    void reset(const TCTreeData &data, const QString &rootCaption, bool checkBoxes);
    TCTreeData &data() { return m_data; }
    const TCTreeData &data() const { return m_data; }
    // Tells the view that every node's check state may have changed.
    void checkStatesChanged();
    // The index of a node of the tree data.
    QModelIndex indexOfNode(int node) const;
    QModelIndex rootIndex() const { return index(0, 0); }

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    // Internal ids: 0 is the root item, node n is n + 1.
    static int nodeOf(const QModelIndex &index) { return int(index.internalId()) - 1; }
    const QList<int> &childrenOf(int node) const;

    TCTreeData m_data;
    QString m_rootCaption;
    bool m_checkBoxes = true;
};

// A read-only tree over a tree table, with check boxes whose states are stored per record and
// module in the module's link table (see TCTreeData for both formats).
class KXCOMMON_EXPORT TCDBTreeView : public QTreeView
{
    Q_OBJECT

public:
    explicit TCDBTreeView(QWidget *parent = nullptr);

    TCSqlConnection *Connection = nullptr;
    QString TableName;
    QString TreeName;
    // The name of the tree's caption pattern; kept for the host, the view shows the captions.
    QString Pattern;
    QString RootCaption;
    bool CheckBoxes = true;

    // Reads the whole tree and shows it expanded; earlier check states are gone.
    void BuildTreeComplett();
    // Sets the check boxes to the states stored for the record and the module.
    void LoadCheckState(const QString &id, const QString &module);
    // Stores the check states for the record and the module; OnlyChecked leaves out the partly
    // checked nodes (they follow from their children).
    void SaveCheckState(const QString &id, const QString &module, bool onlyChecked);

    TCDBTreeModel *treeModel() const { return m_model; }
    // The captions with their states, one line per node, indented by depth ("[x]", "[-]", "[ ]").
    QString stateText() const;

private:
    TCDBTreeModel *m_model;
};
