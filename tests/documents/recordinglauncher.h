// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// A document launcher for the tests: records what would have been opened ("link <text>",
// "file <path>") and answers with a chosen code.
#include "documentlauncher.h"

#include <QDir>
#include <QStringList>

class RecordingLauncher : public TDocumentLauncher
{
public:
    explicit RecordingLauncher(QStringList &calls, int code = launchSucceeded)
        : m_calls(calls)
        , m_code(code)
    {
    }
    int OpenLink(const QString &link) override
    {
        m_calls << QStringLiteral("link ") + link;
        return m_code;
    }
    int OpenFile(const QString &file, const QString &directory) override
    {
        m_calls << QStringLiteral("file ") + QDir(directory).filePath(file);
        return m_code;
    }

private:
    QStringList &m_calls;
    int m_code;
};
