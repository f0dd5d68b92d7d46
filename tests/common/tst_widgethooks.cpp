// SPDX-License-Identifier: LGPL-2.1-or-later
// The widget hooks on the offscreen platform: MsgDlg as a real message box.
#include "msgdlg.h"
#include "widgethooks.h"
#include "whenshown.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// Presses the button of the open message box when it shows, and notes what it showed.
struct Answer
{
    QMessageBox::StandardButton press;
    QString text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QList<QMessageBox::StandardButton> buttons;
    QStringList captions;
};

void answerWhenShown(Answer &answer)
{
    kxtest::whenShown<QMessageBox>([&answer](QMessageBox *box) {
        answer.text = box->text();
        answer.icon = box->icon();
        for (QAbstractButton *b : box->buttons()) {
            answer.buttons << box->standardButton(b);
            answer.captions << b->text();
        }
        box->button(answer.press)->click();
    });
}

TEST(WidgetHooks, MsgDlgShowsAMessageBoxAndReturnsTheAnswer)
{
    installWidgetHooks();
    const struct {
        TMsgDlgType type;
        unsigned buttons;
        QMessageBox::StandardButton press;
        QMessageBox::Icon icon;
        int result;
    } cases[] = {
        { TMsgDlgType::mtConfirmation, mbYesNo, QMessageBox::No, QMessageBox::Question, mrNo },
        { TMsgDlgType::mtConfirmation, mbYesNoCancel, QMessageBox::Yes, QMessageBox::Question, mrYes },
        { TMsgDlgType::mtError, mbOK, QMessageBox::Ok, QMessageBox::Critical, mrOk },
        { TMsgDlgType::mtWarning, mbAbort | mbRetry | mbIgnore, QMessageBox::Retry, QMessageBox::Warning, mrRetry },
        { TMsgDlgType::mtInformation, mbOKCancel, QMessageBox::Cancel, QMessageBox::Information, mrCancel },
    };
    for (const auto &c : cases) {
        Answer answer{ c.press };
        answerWhenShown(answer);
        EXPECT_EQ(MsgDlg(u"Der Scanner ist belegt. Erneut versuchen?"_s, c.type, c.buttons), c.result);
        EXPECT_EQ(answer.text, u"Der Scanner ist belegt. Erneut versuchen?"_s);
        EXPECT_EQ(answer.icon, c.icon);
        EXPECT_EQ(answer.buttons.size(), qPopulationCount(c.buttons));
    }
    setMsgDlgHandler(nullptr);
}

} // namespace

// Qt's own buttons speak German, as the texts around them do.
TEST(WidgetHooks, MessageBoxButtonsAreGerman)
{
    installWidgetHooks();
    Answer answer{ QMessageBox::No };
    answerWhenShown(answer);
    MsgDlg(u"Speichern?"_s, TMsgDlgType::mtConfirmation, mbYesNoCancel);
    answer.captions.sort();
    EXPECT_EQ(answer.captions, QStringList({ u"&Ja"_s, u"&Nein"_s, u"Abbrechen"_s }));
}
