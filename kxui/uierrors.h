// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "kxerror.h"
#include "msgdlg.h"

#include <QObject>
#include <exception>

namespace kx {

// Runs an event handler as the application runs one: an error that escapes it is shown to the
// user as an error message, and the event loop goes on.
template<class Handler>
void showErrors(Handler &&handler)
{
    try {
        handler();
    } catch (const kx::Error &error) {
        MsgDlg(error.message(), TMsgDlgType::mtError, mbOK);
    } catch (const std::exception &error) {
        MsgDlg(QString::fromLocal8Bit(error.what()), TMsgDlgType::mtError, mbOK);
    }
}

// Connects a signal to a handler of Receiver without arguments, run as showErrors runs it.
template<class Sender, class Signal, class Receiver>
void connectHandler(Sender *sender, Signal signal, Receiver *receiver, void (Receiver::*handler)())
{
    QObject::connect(sender, signal, receiver, [receiver, handler] { showErrors([&] { (receiver->*handler)(); }); });
}

} // namespace kx
