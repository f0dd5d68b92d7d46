// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_export.h>

#include <QPointer>
#include <QStringList>
#include <QWidget>

class QCompleter;
class QLabel;
class QLineEdit;
class QMenu;
class QStringListModel;
class QToolButton;
class TCDataAccess;
class TCSelectToMask;
struct TCFieldDef;

// The edit styles. Ordinal 6 is the look-up whose pick list the host's handlers fill when the
// edit is entered; it drops the list down from its button or with Alt+Down.
enum TCEditType {
    ceNormal = 0,     // a plain edit
    ceFunction = 1,   // a drop-down button that opens the linked selection (or the pick list)
    ceMenu = 2,       // a button with a menu of the pick list's entries
    ceDate = 3,       // a date in the short date format
    ceFloat = 4,      // a number in the user's format
    cePlzOrtStr = 5,  // postcode, town and street linked to each other
    ceHandlerList = 6 // pick list filled by the OnEnter handlers, shown as a drop-down
};

// Where the label stands; clpHide hides the edit together with its label.
enum TCLabelPosition { clpLeft, clpTop, clpHide };

class TCEdit;

// The style object of an edit (cEditStyle): its TCEditType and whether it is shown as mandatory.
class KXCOMMON_EXPORT TCEditStyle
{
public:
    explicit TCEditStyle(TCEdit *edit)
        : m_edit(edit)
    {
    }
    void SetStyle(TCEditType style);
    TCEditType Style() const { return m_style; }
    void SetMandatory(bool mandatory);
    bool Mandatory() const { return m_mandatory; }

private:
    TCEdit *m_edit;
    TCEditType m_style = ceNormal;
    bool m_mandatory = false;
};

// A labelled edit bound to a field of a record: the field's definition gives its title, default
// value, whether it is mandatory and whether it may be changed. It carries a pick list (offered
// as completion, as a drop-down or as a menu, after the style) and may be linked to a selection
// dialog that fills it. OnChanged follows the user's edits and choices, not texts set by code,
// so that handlers which clear other edits do not set each other off.
class KXCOMMON_EXPORT TCEdit : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString Text READ Text WRITE setText)
    Q_PROPERTY(QString Caption READ Caption WRITE setCaption)
    Q_PROPERTY(QString DataField READ DataField WRITE setDataField)

public:
    explicit TCEdit(QWidget *parent = nullptr);

    TCEditStyle cEditStyle{ this };

    QString Text() const;
    void setText(const QString &text);
    // The text as a number in the user's format; an empty or unreadable text reads as 0.
    double AsFloat() const;
    void setAsFloat(double value);

    QString Caption() const;
    void setCaption(const QString &caption);
    int LabelWidth() const { return m_labelWidth; }
    void setLabelWidth(int width);
    TCLabelPosition LabelPosition() const { return m_labelPosition; }
    void setLabelPosition(TCLabelPosition position);

    // The record's data access and the field the edit shows.
    TCDataAccess *DataAccess() const { return m_dataAccess; }
    void setDataAccess(TCDataAccess *dataAccess);
    QString DataField() const { return m_dataField; }
    void setDataField(const QString &field);
    bool Bound() const;
    // The bound field's definition, or nullptr.
    TCFieldDef *Field() const;
    QString Title() const;
    void setTitle(const QString &title) { m_title = title; }
    // Takes mandatory and enabled from the bound field's definition.
    void ApplyField();
    // Sets the text to the bound field's default value (a new record).
    void LoadDefault();

    QString MenuName() const { return m_menuName; }
    void setMenuName(const QString &name) { m_menuName = name; }

    // The pick list.
    void PickListClear();
    void PickListAdd(const QString &item);
    QStringList PickList() const;
    // Shows the pick list as a drop-down under the edit.
    void ShowPickList();

    // The selection dialog the drop-down button and F7 open.
    void setSelectLink(TCSelectToMask *select);
    TCSelectToMask *SelectLink() const;
    bool SelectKeyEnabled() const { return m_selectKey; }
    void setSelectKeyEnabled(bool enabled) { m_selectKey = enabled; }

    QLineEdit *lineEdit() const { return m_edit; }
    QToolButton *button() const { return m_button; }
    QLabel *label() const { return m_label; }

    // Sets the text as chosen from a list and raises OnChanged and OnAfterSelect.
    void Select(const QString &text);

Q_SIGNALS:
    void OnEnter(QObject *sender);
    void OnChanged(QObject *sender);
    void OnAfterSelect(QObject *sender);
    // The drop-down button of a function-style edit without a selection link (a host that
    // chooses the value itself, e.g. with a file dialog); unconnected, the button drops the pick
    // list down.
    void OnDropDown(QObject *sender);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    friend class TCEditStyle;
    void applyStyle();
    void buttonClicked();
    void relayout();

    QLabel *m_label;
    QLineEdit *m_edit;
    QToolButton *m_button;
    QMenu *m_menu;
    QStringListModel *m_pickList;
    QCompleter *m_completer;
    TCDataAccess *m_dataAccess = nullptr; // owned by the mask, which outlives its edits
    QPointer<TCSelectToMask> m_select;
    QString m_dataField;
    QString m_title;
    QString m_menuName;
    int m_labelWidth = 121;
    TCLabelPosition m_labelPosition = clpLeft;
    bool m_selectKey = true;
};
