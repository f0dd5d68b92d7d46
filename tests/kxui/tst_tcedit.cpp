// SPDX-License-Identifier: LGPL-2.1-or-later
// The edit of the widget kit through its real widgets: events, pick list, styles, numbers.
#include "tcedit.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(TCEdit, ChangedFollowsTheUserNotTheCode)
{
    TCEdit edit;
    edit.show();
    QSignalSpy changed(&edit, &TCEdit::OnChanged);
    QSignalSpy selected(&edit, &TCEdit::OnAfterSelect);
    edit.setText(u"64285"_s);
    EXPECT_EQ(changed.count(), 0);
    QTest::keyClicks(edit.lineEdit(), u"a"_s);
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(edit.Text(), u"64285a"_s);
    edit.Select(u"Musterstadt"_s);
    EXPECT_EQ(changed.count(), 2);
    EXPECT_EQ(selected.count(), 1);
}

TEST(TCEdit, PickListDropsDownAndChoosingSelects)
{
    TCEdit edit;
    edit.cEditStyle.SetStyle(ceHandlerList);
    edit.show();
    QSignalSpy entered(&edit, &TCEdit::OnEnter);
    QObject::connect(&edit, &TCEdit::OnEnter, &edit, [&edit] {
        edit.PickListClear();
        for (const QString &item : { QString(), u"64283"_s, u"64285"_s, u"64287"_s })
            edit.PickListAdd(item);
    });
    edit.activateWindow();
    edit.setFocus();
    QApplication::processEvents();
    ASSERT_EQ(entered.count(), 1);
    EXPECT_EQ(edit.PickList(), (QStringList{ QString(), u"64283"_s, u"64285"_s, u"64287"_s }));
    EXPECT_TRUE(edit.button()->isVisible());
    QSignalSpy selected(&edit, &TCEdit::OnAfterSelect);
    QTest::mouseClick(edit.button(), Qt::LeftButton);
    QAbstractItemView *popup = edit.lineEdit()->completer()->popup();
    ASSERT_TRUE(popup->isVisible());
    EXPECT_EQ(popup->model()->rowCount(), 4);
    popup->setCurrentIndex(popup->model()->index(2, 0));
    QTest::keyClick(popup, Qt::Key_Return);
    EXPECT_EQ(edit.Text(), u"64285"_s);
    EXPECT_EQ(selected.count(), 1);
}

// The drop-down button of an edit that does not have the focus enters it first: its list is
// filled by the entry, then shown.
TEST(TCEdit, TheButtonOfAnotherFieldEntersItAndDropsItsList)
{
    QWidget window;
    auto *other = new TCEdit(&window);
    auto *edit = new TCEdit(&window);
    auto *layout = new QVBoxLayout(&window);
    layout->addWidget(other);
    layout->addWidget(edit);
    edit->cEditStyle.SetStyle(ceHandlerList);
    QObject::connect(edit, &TCEdit::OnEnter, edit, [edit] {
        edit->PickListClear();
        for (const QString &item : { u"64283"_s, u"64285"_s })
            edit->PickListAdd(item);
    });
    window.show();
    window.activateWindow();
    other->lineEdit()->setFocus();
    QApplication::processEvents();
    ASSERT_TRUE(edit->PickList().isEmpty());
    QTest::mouseClick(edit->button(), Qt::LeftButton);
    EXPECT_EQ(edit->PickList(), (QStringList{ u"64283"_s, u"64285"_s }));
    QAbstractItemView *popup = edit->lineEdit()->completer()->popup();
    ASSERT_TRUE(popup->isVisible());
    EXPECT_EQ(popup->model()->rowCount(), 2);
}

TEST(TCEdit, StylesNumbersAndHiding)
{
    TCEdit edit;
    edit.show();
    const struct {
        TCEditType style;
        bool button;
    } styles[] = { { ceNormal, false }, { ceFunction, true }, { ceMenu, true }, { ceFloat, false }, { ceHandlerList, true } };
    for (const auto &s : styles) {
        edit.cEditStyle.SetStyle(s.style);
        EXPECT_EQ(edit.button()->isVisible(), s.button) << int(s.style);
    }
    EXPECT_EQ(edit.AsFloat(), 0.0); // never set
    edit.setText(u"1.234,5"_s);
    EXPECT_EQ(edit.AsFloat(), 1234.5);
    edit.setText(u"keine Zahl"_s);
    EXPECT_EQ(edit.AsFloat(), 0.0);
    edit.setAsFloat(-0.25);
    EXPECT_EQ(edit.Text(), u"-0,25"_s);
    edit.setLabelPosition(clpHide);
    EXPECT_FALSE(edit.isVisible());
    edit.setLabelPosition(clpLeft);
    EXPECT_TRUE(edit.isVisible());
}

} // namespace
