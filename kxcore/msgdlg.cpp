// SPDX-License-Identifier: LGPL-2.1-or-later
#include "msgdlg.h"

#include <QTextStream>

namespace {
MsgDlgHandler &handler()
{
    static MsgDlgHandler current;
    return current;
}

int defaultAnswer(unsigned buttons)
{
    static const std::pair<unsigned, int> order[] = { { mbYes, mrYes },     { mbOK, mrOk },      { mbIgnore, mrIgnore },
                                                      { mbRetry, mrRetry }, { mbNo, mrNo },      { mbCancel, mrCancel },
                                                      { mbAbort, mrAbort } };
    for (const auto &[button, answer] : order) {
        if (buttons & button)
            return answer;
    }
    return mrOk;
}
} // namespace

int MsgDlg(const QString &text, TMsgDlgType type, unsigned buttons, int helpContext)
{
    if (handler())
        return handler()(text, type, buttons, helpContext);
    QTextStream(stderr) << text << Qt::endl;
    return defaultAnswer(buttons);
}

MsgDlgHandler setMsgDlgHandler(MsgDlgHandler newHandler)
{
    MsgDlgHandler previous = std::move(handler());
    handler() = std::move(newHandler);
    return previous;
}
