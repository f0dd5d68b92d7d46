// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include <QString>
#include <stdexcept>

namespace kx {

// Base of every error the platform raises; the message is the German text shown to the user.
class KXCOMMON_CORE_EXPORT Error : public std::runtime_error
{
public:
    explicit Error(const QString &message)
        : std::runtime_error(message.toStdString())
        , m_message(message)
    {
    }
    const QString &message() const { return m_message; }

private:
    QString m_message;
};

// A statement the database refused, or a connection that is missing or lost.
class KXCOMMON_CORE_EXPORT DatabaseError : public Error
{
public:
    DatabaseError(const QString &message, const QString &statement = {}, const QString &nativeText = {})
        : Error(message)
        , m_statement(statement)
        , m_nativeText(nativeText)
    {
    }
    const QString &statement() const { return m_statement; }
    const QString &nativeText() const { return m_nativeText; }

private:
    QString m_statement;
    QString m_nativeText;
};

// A character or element read beyond the end of a text or list.
class KXCOMMON_CORE_EXPORT RangeError : public Error
{
public:
    using Error::Error;
};

// A text that does not convert to the number or date asked for.
class KXCOMMON_CORE_EXPORT ConvertError : public Error
{
public:
    using Error::Error;
};

// Integer arithmetic that left its 32-bit signed range.
class KXCOMMON_CORE_EXPORT OverflowError : public Error
{
public:
    using Error::Error;
};

} // namespace kx
