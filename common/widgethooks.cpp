// SPDX-License-Identifier: LGPL-2.1-or-later
#include "widgethooks.h"

#include "appscaleform.h"
#include "germantexts.h"
#include "msgdlg.h"

#include <QApplication>
#include <QMessageBox>

using namespace Qt::StringLiterals;

namespace {
QMessageBox::Icon iconFor(TMsgDlgType type)
{
    switch (type) {
    case TMsgDlgType::mtWarning:
        return QMessageBox::Warning;
    case TMsgDlgType::mtError:
        return QMessageBox::Critical;
    case TMsgDlgType::mtInformation:
        return QMessageBox::Information;
    case TMsgDlgType::mtConfirmation:
        return QMessageBox::Question;
    default:
        return QMessageBox::NoIcon;
    }
}

int showMessage(const QString &text, TMsgDlgType type, unsigned buttons, int)
{
    static const std::pair<unsigned, std::pair<QMessageBox::StandardButton, int>> map[] = {
        { mbYes, { QMessageBox::Yes, mrYes } },       { mbNo, { QMessageBox::No, mrNo } },
        { mbOK, { QMessageBox::Ok, mrOk } },          { mbCancel, { QMessageBox::Cancel, mrCancel } },
        { mbAbort, { QMessageBox::Abort, mrAbort } }, { mbRetry, { QMessageBox::Retry, mrRetry } },
        { mbIgnore, { QMessageBox::Ignore, mrIgnore } },
    };
    QMessageBox box(iconFor(type), QApplication::applicationDisplayName(), text);
    for (const auto &[flag, button] : map) {
        if (buttons & flag)
            box.addButton(button.first);
    }
    const int clicked = box.exec();
    for (const auto &[flag, button] : map) {
        if (clicked == button.first)
            return button.second;
    }
    return mrCancel;
}

} // namespace

void installWidgetHooks()
{
    setMsgDlgHandler(showMessage);
    installFormScaler();
    kx::ui::loadGermanQtTexts();
}
