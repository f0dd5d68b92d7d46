// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include <QObject>
#include <QString>

// Where a setting applies: to every workstation, to this workstation, or to the signed-in user.
enum class TCParameterScope { Global, Computer, User };

// The settings store: rows of the table "SYSPARAMETER", so that every workstation sees them.
class KXCOMMON_CORE_EXPORT TCParameter : public QObject
{
    Q_OBJECT

public:
    explicit TCParameter(QObject *owner = nullptr);

    QString Read(const QString &section, const QString &key, const QString &defaultValue = {},
                 TCParameterScope scope = TCParameterScope::Global);
    bool ReadBool(const QString &section, const QString &key, bool defaultValue = false,
                  TCParameterScope scope = TCParameterScope::Global);
    void Write(const QString &section, const QString &key, const QString &value,
               TCParameterScope scope = TCParameterScope::Global);
    void WriteBool(const QString &section, const QString &key, bool value,
                   TCParameterScope scope = TCParameterScope::Global);

private:
    static QString scopeKey(TCParameterScope scope);
    template<class Work>
    auto withTable(Work &&work);
};
