// SPDX-License-Identifier: LGPL-2.1-or-later
#include "documentlauncher.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QProcess>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

std::unique_ptr<TDocumentLauncher> &current()
{
    static std::unique_ptr<TDocumentLauncher> launcher = std::make_unique<TDesktopLauncher>();
    return launcher;
}

// Without a window system (the offscreen platform of the command line) Qt offers no desktop
// services; the desktop's opener is then started directly, as Qt would start it.
bool openThroughDesktop(const QUrl &url)
{
    const QString platform = QGuiApplication::platformName();
    if (platform == u"offscreen"_s || platform == u"minimal"_s)
        return QProcess::startDetached(u"xdg-open"_s, { url.toString() });
    return QDesktopServices::openUrl(url);
}

} // namespace

int TDesktopLauncher::OpenLink(const QString &link)
{
    const QUrl url(link.trimmed(), QUrl::TolerantMode);
    if (!url.isValid() || url.scheme().isEmpty())
        return 2;
    return openThroughDesktop(url) ? launchSucceeded : 31;
}

int TDesktopLauncher::OpenFile(const QString &file, const QString &directory)
{
    if (!directory.isEmpty() && !QFileInfo(directory).isDir())
        return 3;
    const QFileInfo target(directory.isEmpty() ? QDir::current() : QDir(directory), file);
    if (!target.exists())
        return 2;
    return openThroughDesktop(QUrl::fromLocalFile(target.absoluteFilePath())) ? launchSucceeded : 31;
}

TDocumentLauncher &documentLauncher()
{
    return *current();
}

std::unique_ptr<TDocumentLauncher> setDocumentLauncher(std::unique_ptr<TDocumentLauncher> launcher)
{
    std::unique_ptr<TDocumentLauncher> previous = std::move(current());
    current() = launcher ? std::move(launcher) : std::make_unique<TDesktopLauncher>();
    return previous;
}
