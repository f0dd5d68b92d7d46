#include "widgethooks.h"

#include "globals.h"
#include "msgdlg.h"

#include <QApplication>
#include <QMessageBox>
#include <QScreen>
#include <QWidget>

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

void scaleForm(QObject *form)
{
    // Forms are laid out for 96 dpi; widgets scale with the screen's logical resolution.
    auto *widget = qobject_cast<QWidget *>(form);
    if (!widget || !widget->screen())
        return;
    const qreal factor = widget->screen()->logicalDotsPerInch() / 96.0;
    if (qFuzzyCompare(factor, 1.0))
        return;
    widget->resize(widget->size() * factor);
}
} // namespace

void installWidgetHooks()
{
    setMsgDlgHandler(showMessage);
    setFormScaler(scaleForm);
}
