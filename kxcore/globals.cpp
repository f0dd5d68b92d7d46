// SPDX-License-Identifier: LGPL-2.1-or-later
#include "globals.h"

#include <QCoreApplication>

QString cWorkPath;
QString cApplicationPath;
QStringList cSearchPathList;
int cDBSystem = 2;
bool cEnableBinarySave = false;
bool cPlzOrtStrasseAsTriple = false;
QString cDatabaseIni;
TCUser User;

namespace {
std::function<void(QObject *)> &formScaler()
{
    static std::function<void(QObject *)> scaler;
    return scaler;
}
} // namespace

QObject *applicationOwner()
{
    if (QCoreApplication *app = QCoreApplication::instance())
        return app;
    static QObject owner;
    return &owner;
}

void appScaleForm(QObject *form)
{
    if (formScaler())
        formScaler()(form);
}

void setFormScaler(std::function<void(QObject *)> scaler)
{
    formScaler() = std::move(scaler);
}
