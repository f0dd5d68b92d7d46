// SPDX-License-Identifier: LGPL-2.1-or-later
#include "appscaleform.h"

#include "globals.h"

#include <QScreen>
#include <QWidget>

namespace {
void scaleForm(QObject *form)
{
    auto *widget = qobject_cast<QWidget *>(form);
    if (!widget || !widget->screen())
        return;
    QSize size = widget->size();
    const qreal factor = widget->screen()->logicalDotsPerInch() / 96.0;
    if (!qFuzzyCompare(factor, 1.0))
        size *= factor;
    size = size.boundedTo(widget->screen()->availableSize());
    if (size != widget->size())
        widget->resize(size);
}
} // namespace

void installFormScaler()
{
    setFormScaler(scaleForm);
}
