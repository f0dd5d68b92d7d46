// SPDX-License-Identifier: LGPL-2.1-or-later
#include "treedata.h"

#include "dataaccess.h"
#include "kxerror.h"
#include "sqlconnection.h"
#include "sqltool.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr int unchecked = 0;
constexpr int partly = 1;
constexpr int checked = 2;

QString stateValue(int state)
{
    return state == checked ? u"2"_s : u"1"_s;
}
} // namespace

TCTableDef TCTreeData::tableDefinition(const QString &tableName)
{
    return TCTableDef{ tableName,
                       { { u"ID"_s, u"Varchar(43)"_s, fIndex },
                         { u"TREENAME"_s, u"Varchar(50)"_s, fIndex },
                         { u"TREEID"_s, u"Varchar(33)"_s, fIndex },
                         { u"TREEPARENTID"_s, u"Varchar(33)"_s, fIndex },
                         { u"KEYTEXT"_s, u"Varchar(50)"_s },
                         { u"CAPTION"_s, u"Varchar(100)"_s },
                         { u"MANDANTID"_s, u"Varchar(40)"_s, fIndex },
                         { u"UID"_s, u"Varchar(33)"_s, fIndex },
                         { u"SID"_s, u"Varchar(33)"_s, fIndex } },
                       {},
                       standardRights() };
}

void TCTreeData::load(TCSqlConnection *connection, const QString &tableName, const QString &treeName)
{
    m_nodes.clear();
    m_topLevel.clear();
    m_byId.clear();
    if (!connection)
        throw kx::DatabaseError(u"Der Baum hat keine Datenbankverbindung."_s);
    const kx::SqlResult result = connection->execute(
        u"select TREEID,TREEPARENTID,KEYTEXT,CAPTION from "_s + tableName + u" where upper(TREENAME)="_s
        + kx::sqlQuoted(treeName.toUpper()) + u" order by KEYTEXT,CAPTION"_s);
    for (const auto &row : result.rows) {
        Node node{ row.value(0).toString(), row.value(1).toString(), row.value(2).toString(), row.value(3).toString() };
        if (node.TreeId.isEmpty() || m_byId.contains(node.TreeId))
            continue; // a node without key, or a second row of one key, cannot be told apart
        m_byId.insert(node.TreeId, int(m_nodes.size()));
        m_nodes << node;
    }
    // Rows arrive sorted by key text, so every child list is in that order too.
    for (int i = 0; i < m_nodes.size(); ++i) {
        const int parent = m_byId.value(m_nodes[i].ParentId, Root);
        m_nodes[i].Parent = parent == i ? Root : parent;
        if (m_nodes[i].Parent == Root)
            m_topLevel << i;
        else
            m_nodes[m_nodes[i].Parent].Children << i;
    }
    // Nodes not reached from the root hang in a ring of parents: they cannot be shown.
    QList<bool> reached(m_nodes.size(), false);
    QList<int> pending = m_topLevel;
    while (!pending.isEmpty()) {
        const int n = pending.takeLast();
        reached[n] = true;
        pending << m_nodes[n].Children;
    }
    for (int i = 0; i < m_nodes.size(); ++i) {
        if (!reached[i])
            m_byId.remove(m_nodes[i].TreeId);
    }
}

int TCTreeData::stateFromChildren(int node) const
{
    const QList<int> &children = m_nodes[node].Children;
    const bool all = std::all_of(children.begin(), children.end(), [this](int c) { return m_nodes[c].CheckState == checked; });
    const bool none = std::all_of(children.begin(), children.end(), [this](int c) { return m_nodes[c].CheckState == unchecked; });
    return all ? checked : none ? unchecked : partly;
}

bool TCTreeData::setChecked(int node, bool isChecked)
{
    bool changed = false;
    const int state = isChecked ? checked : unchecked;
    QList<int> pending{ node };
    while (!pending.isEmpty()) {
        const int n = pending.takeLast();
        if (m_nodes[n].CheckState != state) {
            m_nodes[n].CheckState = state;
            changed = true;
        }
        pending << m_nodes[n].Children;
    }
    for (int n = m_nodes[node].Parent; n != Root; n = m_nodes[n].Parent) {
        const int derived = stateFromChildren(n);
        if (derived == m_nodes[n].CheckState)
            break; // nothing above can change either
        m_nodes[n].CheckState = derived;
        changed = true;
    }
    return changed;
}

void TCTreeData::setCheckedIds(const QSet<QString> &treeIds)
{
    for (Node &node : m_nodes)
        node.CheckState = unchecked;
    for (const QString &id : treeIds) {
        const int n = indexOf(id);
        if (n != Root)
            setChecked(n, true);
    }
}

void TCTreeData::collect(const QList<int> &level, bool withPartly, QList<int> &out) const
{
    for (int n : level) {
        const int state = m_nodes[n].CheckState;
        if (state == checked || (withPartly && state == partly))
            out << n;
        collect(m_nodes[n].Children, withPartly, out);
    }
}

void TCTreeData::appendText(const QList<int> &level, int depth, bool withStates, QString &out) const
{
    static const QString marks[] = { u"[ ] "_s, u"[-] "_s, u"[x] "_s };
    for (int n : level) {
        out += QString(depth * 2, u' ') + (withStates ? marks[m_nodes[n].CheckState] : QString()) + m_nodes[n].Caption
            + u'\n';
        appendText(m_nodes[n].Children, depth + 1, withStates, out);
    }
}

QString TCTreeData::text(const QString &rootCaption, bool withStates) const
{
    QString out = rootCaption + u'\n';
    appendText(m_topLevel, 1, withStates, out);
    return out;
}

QString TCTreeData::linkTable(TCSqlConnection *connection, const QString &module)
{
    const kx::SqlResult result = connection->execute(u"select ModulKatsTable from SYSDef_Kats where ModulName="_s
                                                     + kx::sqlQuoted(module));
    const QString table = result.rows.empty() ? QString() : result.rows.front().value(0).toString();
    if (table.isEmpty())
        throw kx::Error(u"Für das Modul \"%1\" ist keine Kategorietabelle registriert."_s.arg(module));
    return table;
}

QSet<QString> TCTreeData::loadCheckState(TCSqlConnection *connection, const QString &recordId, const QString &module)
{
    const QString table = linkTable(connection, module);
    const kx::SqlResult result = connection->execute(u"select TREEID from "_s + table + u" where IDPARENT="_s
                                                     + kx::sqlQuoted(recordId) + u" and TREECHECKSTATE=2"_s);
    QSet<QString> ids;
    for (const auto &row : result.rows)
        ids.insert(row.value(0).toString());
    return ids;
}

void TCTreeData::saveCheckState(TCSqlConnection *connection, const QString &recordId, const QString &module,
                                bool onlyChecked) const
{
    const QString table = linkTable(connection, module);
    connection->execute(u"delete from "_s + table + u" where IDPARENT="_s + kx::sqlQuoted(recordId));
    QList<int> stored;
    collect(m_topLevel, !onlyChecked, stored);
    for (int n : stored) {
        kx::SqlValueList row;
        row.addText(u"ID"_s, sqlGenIdValue())
            .addText(u"IDPARENT"_s, recordId)
            .addText(u"TREEID"_s, m_nodes[n].TreeId)
            .add(u"TREECHECKSTATE"_s, stateValue(m_nodes[n].CheckState));
        connection->execute(SqlBuildInsertSql(table, row.pairs()));
    }
}
