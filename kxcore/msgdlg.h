// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include <QString>
#include <functional>

enum class TMsgDlgType { mtWarning, mtError, mtInformation, mtConfirmation, mtCustom };

// Buttons of a message; a set is an OR of these.
enum TMsgDlgBtn : unsigned {
    mbYes = 1,
    mbNo = 2,
    mbOK = 4,
    mbCancel = 8,
    mbAbort = 16,
    mbRetry = 32,
    mbIgnore = 64,
};
enum : unsigned { mbYesNo = mbYes | mbNo, mbYesNoCancel = mbYes | mbNo | mbCancel, mbOKCancel = mbOK | mbCancel };

// Answers, as the buttons that give them.
enum TModalResult : int { mrNone = 0, mrOk = 1, mrCancel = 2, mrAbort = 3, mrRetry = 4, mrIgnore = 5, mrYes = 6, mrNo = 7 };

using MsgDlgHandler = std::function<int(const QString &text, TMsgDlgType type, unsigned buttons, int helpContext)>;

// Shows a message to the user and returns the answer (through the installed handler).
KXCOMMON_CORE_EXPORT int MsgDlg(const QString &text, TMsgDlgType type, unsigned buttons, int helpContext = 0);
// Replaces the handler; returns the previous one. Without a handler, messages go to standard
// error and the answer is the first of Yes, OK, Ignore, Retry, No, Cancel, Abort offered.
KXCOMMON_CORE_EXPORT MsgDlgHandler setMsgDlgHandler(MsgDlgHandler handler);
