#include "documentlauncher.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

namespace {

std::unique_ptr<TDocumentLauncher> &current()
{
    static std::unique_ptr<TDocumentLauncher> launcher = std::make_unique<TDesktopLauncher>();
    return launcher;
}

} // namespace

int TDesktopLauncher::OpenLink(const QString &link)
{
    const QUrl url(link.trimmed(), QUrl::TolerantMode);
    if (!url.isValid() || url.scheme().isEmpty())
        return 2;
    return QDesktopServices::openUrl(url) ? launchSucceeded : 31;
}

int TDesktopLauncher::OpenFile(const QString &file, const QString &directory)
{
    if (!directory.isEmpty() && !QFileInfo(directory).isDir())
        return 3;
    const QFileInfo target(directory.isEmpty() ? QDir::current() : QDir(directory), file);
    if (!target.exists())
        return 2;
    return QDesktopServices::openUrl(QUrl::fromLocalFile(target.absoluteFilePath())) ? launchSucceeded : 31;
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
