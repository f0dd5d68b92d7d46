// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

class TCSqlConnection;
struct TCTableDef;

// The nodes of a tree table and their check states, without any window: the data behind the
// database tree view, also used where no window can be shown (the command line).
//
// A tree table holds one row per node: TREENAME names the tree (one table may hold several),
// TREEID is the node's key (what link tables refer to), TREEPARENTID the parent's TREEID (empty
// under the root), KEYTEXT the sort key within the parent, CAPTION the text shown. The root is
// no row: its caption belongs to the view. Check states of a record go into the module's link
// table (IDPARENT = the record, TREEID, TREECHECKSTATE), which "SYSDef_Kats" names by module.
class KXCOMMON_CORE_EXPORT TCTreeData
{
public:
    static constexpr int Root = -1;

    struct Node
    {
        QString TreeId;
        QString ParentId;
        QString KeyText;
        QString Caption;
        int Parent = Root;
        QList<int> Children;
        int CheckState = 0; // 0 unchecked, 1 partly checked (some below), 2 checked
    };

    // The definition of a tree table of that name.
    static TCTableDef tableDefinition(const QString &tableName);

    // Reads every node of the tree, children ordered by key text. A node whose parent is not in
    // the tree hangs under the root; nodes whose parents form a ring are left out.
    void load(TCSqlConnection *connection, const QString &tableName, const QString &treeName);

    const QList<Node> &nodes() const { return m_nodes; }
    const QList<int> &topLevel() const { return m_topLevel; }
    // The node of that key, or Root.
    int indexOf(const QString &treeId) const { return m_byId.value(treeId, Root); }

    // Checks or unchecks a node with everything below it, and sets every node above it to
    // checked, partly checked or unchecked after its children. Returns whether any node changed.
    bool setChecked(int node, bool checked);
    // Unchecks everything, then checks the given keys (unknown keys are ignored).
    void setCheckedIds(const QSet<QString> &treeIds);

    // The tree as text: the root caption, then one line per node indented by depth, with its
    // state in front when asked ("[x]" checked, "[-]" partly checked, "[ ]" unchecked).
    QString text(const QString &rootCaption, bool withStates = true) const;

    // The link table of a module, from "SYSDef_Kats"; kx::Error when the module has none.
    static QString linkTable(TCSqlConnection *connection, const QString &module);
    // The keys stored as checked for a record of the module.
    static QSet<QString> loadCheckState(TCSqlConnection *connection, const QString &recordId, const QString &module);
    // Replaces the record's rows in the module's link table: one row per checked node, and with
    // OnlyChecked false also one (TREECHECKSTATE 1) per partly checked node.
    void saveCheckState(TCSqlConnection *connection, const QString &recordId, const QString &module,
                        bool onlyChecked) const;

private:
    int stateFromChildren(int node) const;
    // The checked nodes (with the partly checked ones when asked), in tree order.
    void collect(const QList<int> &level, bool withPartly, QList<int> &out) const;
    void appendText(const QList<int> &level, int depth, bool withStates, QString &out) const;

    QList<Node> m_nodes;
    QList<int> m_topLevel;
    QHash<QString, int> m_byId;
};
