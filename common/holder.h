// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include "globals.h"

#include <QObject>
#include <QPointer>
#include <type_traits>

// Base of the hidden holder of a unit: a container of table definitions and queries, owned by
// the application owner, scaled when it is created.
class KXCOMMON_CORE_EXPORT THolderForm : public QObject
{
    Q_OBJECT

public:
    explicit THolderForm(QObject *owner)
        : QObject(owner)
    {
        appScaleForm(this);
    }
};

// The create-run-free cycle of a call: a new holder owned by the application owner, the unit's
// global pointed at it, the work run on it, the holder freed. When the work throws, the holder
// is deliberately left with its owner and the error goes on to the caller unchanged.
template<class Holder, class Work>
auto runInHolder(QPointer<Holder> &unitGlobal, Work &&work)
{
    auto *holder = new Holder(applicationOwner());
    unitGlobal = holder;
    if constexpr (std::is_void_v<std::invoke_result_t<Work, Holder &>>) {
        work(*holder);
        delete holder;
    } else {
        auto result = work(*holder);
        delete holder;
        return result;
    }
}
