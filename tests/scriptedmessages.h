// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "msgdlg.h"

#include <QList>
#include <QString>
#include <gtest/gtest.h>

namespace kxtest {

// Plays the user at the message boxes: expects the messages in this order and gives each its
// answer; a message not expected there fails the test. A text ending in "*" matches by prefix
// (for messages that quote the database's own error text).
class ScriptedMessages
{
public:
    struct Step
    {
        QString text;
        int answer = mrOk;
    };
    explicit ScriptedMessages(QList<Step> steps)
        : m_steps(std::move(steps))
    {
        m_previous = setMsgDlgHandler([this](const QString &text, TMsgDlgType, unsigned, int) {
            shown << text;
            if (m_next >= m_steps.size()) {
                ADD_FAILURE() << "unexpected message: " << text.toStdString();
                return int(mrCancel);
            }
            const Step &step = m_steps[m_next++];
            const bool matches = step.text.endsWith(u'*') ? text.startsWith(step.text.chopped(1)) : text == step.text;
            EXPECT_TRUE(matches) << "message " << m_next << ": " << text.toStdString() << "\n  expected: "
                                 << step.text.toStdString();
            return step.answer;
        });
    }
    ~ScriptedMessages()
    {
        setMsgDlgHandler(m_previous);
        EXPECT_EQ(m_next, m_steps.size()) << "messages not shown, first: "
                                          << m_steps.value(m_next).text.toStdString();
    }
    QStringList shown;

private:
    QList<Step> m_steps;
    qsizetype m_next = 0;
    MsgDlgHandler m_previous;
};

} // namespace kxtest
