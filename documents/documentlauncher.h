// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_export.h>

#include <QString>
#include <memory>

// The desktop's "open" for links and files, behind an interface that tests replace. The codes
// are those of the launch-error table of ToolsCommon: above 32 the launch succeeded; 2 the file
// was not found, 3 the folder was not found, 31 no program is associated with it.
class KXCOMMON_EXPORT TDocumentLauncher
{
public:
    virtual ~TDocumentLauncher() = default;
    // Opens a link ("http://...", "mailto:...").
    virtual int OpenLink(const QString &link) = 0;
    // Opens a file with its default program; Directory is the working folder.
    virtual int OpenFile(const QString &file, const QString &directory) = 0;
};

// The real launcher: QDesktopServices, which hands the link or file to the desktop's opener
// (xdg-open); without a window system xdg-open is started directly. It needs a graphics
// application object.
class KXCOMMON_EXPORT TDesktopLauncher : public TDocumentLauncher
{
public:
    int OpenLink(const QString &link) override;
    int OpenFile(const QString &file, const QString &directory) override;
};

// The launcher in use (the desktop's unless replaced).
KXCOMMON_EXPORT TDocumentLauncher &documentLauncher();
// Replaces the launcher; returns the previous one (nullptr restores the desktop's).
KXCOMMON_EXPORT std::unique_ptr<TDocumentLauncher> setDocumentLauncher(std::unique_ptr<TDocumentLauncher> launcher);

// The success code a launcher returns (any value above 32 means success).
inline constexpr int launchSucceeded = 42;
