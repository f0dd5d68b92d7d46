// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include <QStringList>
#include <QVariant>
#include <QVector>
#include <vector>

namespace kx {

// The rows one statement returned, fully read: columns as the database names them.
struct KXCOMMON_CORE_EXPORT SqlResult
{
    QStringList columns;
    std::vector<QVector<QVariant>> rows;
    qint64 rowsAffected = -1;
};

} // namespace kx
