// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_export.h>

#include <QDialog>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QStringList>

class QLineEdit;
class QSortFilterProxyModel;
class QStandardItemModel;
class QTableView;
class TCEdit;
class TCSqlConnection;

// A column of a selection: the field, its title in the list, its type ("Varchar" or "Numeric")
// and the edit of the mask that receives its value.
struct KXCOMMON_EXPORT TCSelectColumn
{
    QString FieldName;
    QString Title;
    QString FieldType = QStringLiteral("Varchar");
    QPointer<TCEdit> Target;
};

// The list of a selection: a search line over a table of rows, OK and Abbrechen.
class KXCOMMON_EXPORT TCSelectDialog : public QDialog
{
    Q_OBJECT

public:
    explicit TCSelectDialog(QWidget *parent = nullptr);

    QTableView *view() const { return m_view; }
    QLineEdit *search() const { return m_search; }
    QStandardItemModel *model() const { return m_model; }
    // The chosen rows' values, in list order.
    QList<QStringList> chosenRows() const;
    // Selects the first row whose first column is the text (Exact) or begins with it.
    void preselect(const QString &text, bool exact);

private:
    QTableView *m_view;
    QLineEdit *m_search;
    QStandardItemModel *m_model;
    QSortFilterProxyModel *m_filter;
};

// A selection over a table that fills the edits of a mask from the chosen row. BeforeSelect is
// raised before the rows are read (its handlers may set Filter); AfterSelect after the edits are
// filled. With MultiSelect several rows may be chosen (Selected holds them all); the edits take
// the first. ExactSelect preselects the row whose first column equals the source edit's text.
class KXCOMMON_EXPORT TCSelectToMask : public QObject
{
    Q_OBJECT

public:
    explicit TCSelectToMask(QObject *parent = nullptr);

    QString Caption;
    QString TableName;
    QString LinkField;
    QList<TCSelectColumn> Columns;
    QStringList Filter; // extra lines after the FROM clause, e.g. "Where Mandantid in (...)"
    bool MultiSelect = false;
    bool ExactSelect = false;
    TCSqlConnection *Connection = nullptr; // none: the application's connection
    QList<QStringList> Selected;

    // The statement that reads the rows.
    QString SelectSql() const;
    // Raises BeforeSelect, reads the rows and returns the list, not yet shown.
    TCSelectDialog *CreateDialog(QWidget *parent, const QString &searchText = {});
    // Shows the list modally from the edit; on OK fills the edits and raises AfterSelect and the
    // edit's OnAfterSelect. Returns whether rows were chosen. A database error is shown as a
    // message and chooses nothing.
    bool Execute(TCEdit *source = nullptr);
    // Fills the edits from the first of the rows (values in column order) and raises AfterSelect.
    void Apply(const QList<QStringList> &rows, TCEdit *source = nullptr);

Q_SIGNALS:
    void BeforeSelect(QObject *sender);
    void AfterSelect(QObject *sender);
};
