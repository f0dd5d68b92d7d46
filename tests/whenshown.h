// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QApplication>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>

namespace kxtest {

// Runs Action on the modal window of type W that the caller opens next, once it is shown.
template<class W> void whenShown(std::function<void(W *)> action, int delay = 50)
{
    QTimer::singleShot(delay, [action] {
        auto *shown = qobject_cast<W *>(QApplication::activeModalWidget());
        ASSERT_NE(shown, nullptr);
        action(shown);
    });
}

} // namespace kxtest
