// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tcselecttomask.h"

#include "kxerror.h"
#include "msgdlg.h"
#include "sqlconnection.h"
#include "sqlquery.h"
#include "tcedit.h"
#include "germantexts.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QScrollBar>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

TCSelectDialog::TCSelectDialog(QWidget *parent)
    : QDialog(parent)
    , m_view(new QTableView(this))
    , m_search(new QLineEdit(this))
    , m_model(new QStandardItemModel(this))
    , m_filter(new QSortFilterProxyModel(this))
{
    kx::ui::loadGermanQtTexts();
    m_filter->setSourceModel(m_model);
    m_filter->setFilterKeyColumn(-1);
    m_filter->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_view->setModel(m_filter);
    m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setSortingEnabled(true);
    m_view->setAlternatingRowColors(true);
    m_view->verticalHeader()->hide();
    m_view->horizontalHeader()->setStretchLastSection(true);
    m_search->setPlaceholderText(u"Suchen …"_s);
    m_search->setClearButtonEnabled(true);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(u"Übernehmen"_s);
    buttons->button(QDialogButtonBox::Cancel)->setText(u"Abbrechen"_s);
    auto *layout = new QVBoxLayout(this);
    auto *searchLabel = new QLabel(u"&Suche:"_s, this);
    searchLabel->setBuddy(m_search);
    layout->addWidget(searchLabel);
    layout->addWidget(m_search);
    layout->addWidget(m_view);
    layout->addWidget(buttons);
    resize(560, 340);
    connect(m_search, &QLineEdit::textChanged, m_filter, &QSortFilterProxyModel::setFilterFixedString);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_view, &QTableView::doubleClicked, this, &QDialog::accept);
}

QList<QStringList> TCSelectDialog::chosenRows() const
{
    QList<QStringList> rows;
    const QModelIndexList chosen = m_view->selectionModel()->selectedRows();
    QList<int> order;
    for (const QModelIndex &index : chosen)
        order << index.row();
    std::sort(order.begin(), order.end());
    for (int row : order) {
        QStringList values;
        for (int column = 0; column < m_filter->columnCount(); ++column)
            values << m_filter->index(row, column).data().toString();
        rows << values;
    }
    return rows;
}

void TCSelectDialog::preselect(const QString &text, bool exact)
{
    if (text.isEmpty())
        return;
    for (int row = 0; row < m_filter->rowCount(); ++row) {
        const QString value = m_filter->index(row, 0).data().toString();
        if (exact ? value == text : value.startsWith(text, Qt::CaseInsensitive)) {
            m_view->selectRow(row);
            m_view->scrollTo(m_filter->index(row, 0));
            return;
        }
    }
}

TCSelectToMask::TCSelectToMask(QObject *parent)
    : QObject(parent)
{
}

QString TCSelectToMask::SelectSql() const
{
    QStringList fields;
    for (const TCSelectColumn &column : Columns)
        fields << column.FieldName;
    QStringList lines{ u"Select "_s + fields.join(u',') + u" from "_s + TableName };
    lines << Filter;
    return lines.join(u'\n');
}

TCSelectDialog *TCSelectToMask::CreateDialog(QWidget *parent, const QString &searchText)
{
    Q_EMIT BeforeSelect(this);
    TCSqlQuery query;
    query.Connection = Connection ? Connection : compSqlConnection;
    query.SQL.Assign(QStringList{ SelectSql() });
    query.Open();
    auto *dialog = new TCSelectDialog(parent);
    dialog->setWindowTitle(Caption.isEmpty() ? u"Auswahl"_s : Caption);
    QStandardItemModel *model = dialog->model();
    QStringList titles;
    for (const TCSelectColumn &column : Columns)
        titles << (column.Title.isEmpty() ? column.FieldName : column.Title);
    model->setHorizontalHeaderLabels(titles);
    for (; !query.Eof(); query.Next()) {
        QList<QStandardItem *> items;
        for (const TCSelectColumn &column : Columns) {
            auto *item = new QStandardItem(query.FieldByName(column.FieldName).AsString());
            if (column.FieldType.startsWith(u"Numeric"_s, Qt::CaseInsensitive))
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            items << item;
        }
        model->appendRow(items);
    }
    dialog->view()->setSelectionMode(MultiSelect ? QAbstractItemView::ExtendedSelection
                                                 : QAbstractItemView::SingleSelection);
    QTableView *view = dialog->view();
    view->sortByColumn(0, Qt::AscendingOrder);
    view->resizeColumnsToContents();
    int width = view->frameWidth() * 2 + view->verticalScrollBar()->sizeHint().width() + 24;
    for (int column = 0; column < model->columnCount(); ++column)
        width += view->columnWidth(column);
    dialog->resize(qBound(dialog->width(), width, 900), dialog->height());
    dialog->preselect(searchText, ExactSelect);
    return dialog;
}

bool TCSelectToMask::Execute(TCEdit *source)
{
    QWidget *parent = source ? source->window() : nullptr;
    std::unique_ptr<TCSelectDialog> dialog;
    try {
        dialog.reset(CreateDialog(parent, source ? source->Text() : QString()));
    } catch (const kx::Error &e) {
        MsgDlg(e.message(), TMsgDlgType::mtError, mbOK);
        return false;
    }
    if (dialog->exec() != QDialog::Accepted)
        return false;
    const QList<QStringList> rows = dialog->chosenRows();
    if (rows.isEmpty())
        return false;
    Apply(rows, source);
    return true;
}

void TCSelectToMask::Apply(const QList<QStringList> &rows, TCEdit *source)
{
    Selected = rows;
    if (rows.isEmpty())
        return;
    for (int i = 0; i < Columns.size() && i < rows.first().size(); ++i) {
        if (Columns.at(i).Target)
            Columns.at(i).Target->setText(rows.first().at(i));
    }
    Q_EMIT AfterSelect(this);
    if (source)
        Q_EMIT source->OnAfterSelect(source);
}
