// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tcedit.h"

#include "dataaccess.h"
#include "sqltool.h"
#include "strtools.h"
#include "tcselecttomask.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMetaMethod>
#include <QStringListModel>
#include <QToolButton>

using namespace Qt::StringLiterals;

void TCEditStyle::SetStyle(TCEditType style)
{
    m_style = style;
    m_edit->applyStyle();
}

void TCEditStyle::SetMandatory(bool mandatory)
{
    m_mandatory = mandatory;
    m_edit->applyStyle();
}

TCEdit::TCEdit(QWidget *parent)
    : QWidget(parent)
    , m_label(new QLabel(this))
    , m_edit(new QLineEdit(this))
    , m_button(new QToolButton(this))
    , m_menu(new QMenu(this))
    , m_pickList(new QStringListModel(this))
    , m_completer(new QCompleter(m_pickList, this))
{
    m_label->setBuddy(m_edit);
    m_button->setFocusPolicy(Qt::NoFocus);
    m_completer->setCaseSensitivity(Qt::CaseInsensitive);
    m_completer->setCompletionMode(QCompleter::PopupCompletion);
    m_edit->setCompleter(m_completer);
    m_edit->installEventFilter(this);
    setFocusProxy(m_edit);
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setHorizontalSpacing(4);
    layout->setVerticalSpacing(2);
    relayout();
    applyStyle();

    connect(m_edit, &QLineEdit::textEdited, this, [this] { Q_EMIT OnChanged(this); });
    connect(m_completer, qOverload<const QString &>(&QCompleter::activated), this, &TCEdit::Select);
    connect(m_button, &QToolButton::clicked, this, &TCEdit::buttonClicked);
    connect(m_menu, &QMenu::aboutToShow, this, [this] {
        m_menu->clear();
        for (const QString &item : PickList())
            m_menu->addAction(item.isEmpty() ? u"(leer)"_s : item)->setData(item);
    });
    connect(m_menu, &QMenu::triggered, this, [this](QAction *action) { Select(action->data().toString()); });
}

QString TCEdit::Text() const
{
    return m_edit->text();
}

void TCEdit::setText(const QString &text)
{
    m_edit->setText(text);
}

double TCEdit::AsFloat() const
{
    return StrToFloatDef(m_edit->text(), 0.0);
}

void TCEdit::setAsFloat(double value)
{
    m_edit->setText(kx::formatFloat(value));
}

QString TCEdit::Caption() const
{
    return m_label->text();
}

void TCEdit::setCaption(const QString &caption)
{
    m_label->setText(caption);
}

void TCEdit::setLabelWidth(int width)
{
    m_labelWidth = width;
    relayout();
}

void TCEdit::setLabelPosition(TCLabelPosition position)
{
    m_labelPosition = position;
    setVisible(position != clpHide);
    relayout();
}

void TCEdit::relayout()
{
    auto *grid = static_cast<QGridLayout *>(layout());
    grid->removeWidget(m_label);
    grid->removeWidget(m_edit);
    grid->removeWidget(m_button);
    if (m_labelPosition == clpTop) {
        m_label->setMinimumWidth(0);
        grid->addWidget(m_label, 0, 0, 1, 2);
        grid->addWidget(m_edit, 1, 0);
        grid->addWidget(m_button, 1, 1);
    } else {
        m_label->setFixedWidth(m_labelWidth);
        grid->addWidget(m_label, 0, 0);
        grid->addWidget(m_edit, 0, 1);
        grid->addWidget(m_button, 0, 2);
    }
}

void TCEdit::setDataAccess(TCDataAccess *dataAccess)
{
    m_dataAccess = dataAccess;
    ApplyField();
}

void TCEdit::setDataField(const QString &field)
{
    m_dataField = field;
    ApplyField();
}

bool TCEdit::Bound() const
{
    return m_dataAccess && !m_dataField.isEmpty();
}

TCFieldDef *TCEdit::Field() const
{
    return Bound() ? m_dataAccess->GetFieldFromName(m_dataField) : nullptr;
}

QString TCEdit::Title() const
{
    if (!m_title.isEmpty())
        return m_title;
    const TCFieldDef *field = Field();
    return field && !field->Caption.isEmpty() ? field->Caption : m_label->text();
}

void TCEdit::ApplyField()
{
    const TCFieldDef *field = Field();
    if (!field)
        return;
    cEditStyle.SetMandatory(field->Required);
    m_edit->setReadOnly(!field->Enabled);
    m_button->setEnabled(field->Enabled);
}

void TCEdit::LoadDefault()
{
    if (const TCFieldDef *field = Field())
        m_edit->setText(field->DefaultValue);
}

void TCEdit::setSelectLink(TCSelectToMask *select)
{
    m_select = select;
}

TCSelectToMask *TCEdit::SelectLink() const
{
    return m_select;
}

void TCEdit::PickListClear()
{
    m_pickList->setStringList({});
}

void TCEdit::PickListAdd(const QString &item)
{
    const int row = m_pickList->rowCount();
    m_pickList->insertRows(row, 1);
    m_pickList->setData(m_pickList->index(row), item);
}

QStringList TCEdit::PickList() const
{
    return m_pickList->stringList();
}

void TCEdit::ShowPickList()
{
    m_completer->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    m_completer->setCompletionPrefix(QString());
    m_completer->complete();
    m_completer->setCompletionMode(QCompleter::PopupCompletion);
}

void TCEdit::Select(const QString &text)
{
    m_edit->setText(text);
    Q_EMIT OnChanged(this);
    Q_EMIT OnAfterSelect(this);
}

void TCEdit::applyStyle()
{
    const TCEditType style = cEditStyle.Style();
    m_button->setVisible(style == ceFunction || style == ceMenu || style == ceHandlerList);
    m_button->setPopupMode(style == ceMenu ? QToolButton::InstantPopup : QToolButton::DelayedPopup);
    m_button->setMenu(style == ceMenu ? m_menu : nullptr);
    m_button->setText(style == ceFunction ? u"…"_s : style == ceMenu ? u"☰"_s : u"▾"_s);
    m_edit->setAlignment(style == ceFloat ? Qt::AlignRight : Qt::AlignLeft);
    QFont font = m_label->font();
    font.setBold(cEditStyle.Mandatory());
    m_label->setFont(font);
    m_edit->setPlaceholderText(cEditStyle.Mandatory() ? u"Pflichtfeld"_s
                               : style == ceDate                ? u"TT.MM.JJJJ"_s
                                                                : QString());
}

void TCEdit::buttonClicked()
{
    // The button takes no focus: a click while another field has it enters this one first, so
    // that its entry handler fills the list before it drops down.
    if (!m_edit->hasFocus()) {
        m_edit->setFocus(Qt::MouseFocusReason);
        if (!m_edit->hasFocus()) // a window that is not active gives no focus; the entry still happens
            Q_EMIT OnEnter(this);
    }
    if (m_select && cEditStyle.Style() == ceFunction) {
        m_select->Execute(this);
        return;
    }
    if (cEditStyle.Style() == ceFunction && isSignalConnected(QMetaMethod::fromSignal(&TCEdit::OnDropDown))) {
        Q_EMIT OnDropDown(this);
        return;
    }
    ShowPickList();
}

bool TCEdit::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_edit) {
        if (event->type() == QEvent::FocusIn) {
            Q_EMIT OnEnter(this);
        } else if (event->type() == QEvent::KeyPress) {
            const auto *key = static_cast<QKeyEvent *>(event);
            if (key->key() == Qt::Key_F7 && m_select && m_selectKey && !m_edit->isReadOnly()) {
                m_select->Execute(this);
                return true;
            }
            if (key->key() == Qt::Key_Down && (key->modifiers() & Qt::AltModifier)) {
                ShowPickList();
                return true;
            }
        }
    }
    return QWidget::eventFilter(watched, event);
}
