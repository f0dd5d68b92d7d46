// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_export.h>

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

// The scanner as the document editor drives it, one call per step of a scan: load the driver
// layer, open its source manager, list the sources, select and open one, acquire one page as a
// JPEG picture, close the session, unload. Tests replace it; the real one is SANE.
class KXCOMMON_EXPORT TScannerSession
{
public:
    virtual ~TScannerSession() = default;
    virtual void LoadTwainModule() = 0;
    virtual void OpenSourceManager() = 0;
    virtual QStringList GetSources() = 0;
    virtual void SelectSource(const QString &name) = 0;
    virtual void OpenSource() = 0;
    // One page as JPEG bytes; Quality is the JPEG quality, 0 to 100.
    virtual QByteArray AcquireJpg(int quality) = 0;
    virtual void CloseTwainSession() = 0;
    virtual void UnLoadTwainModule() = 0;
};

// SANE through libsane: the sources are SANE's device names ("test:0", "genesys:libusb:001:004").
// Errors raise a kx::Error with SANE's status text.
class KXCOMMON_EXPORT TSaneScanner : public TScannerSession
{
public:
    ~TSaneScanner() override;
    void LoadTwainModule() override;
    void OpenSourceManager() override {}
    QStringList GetSources() override;
    void SelectSource(const QString &name) override { m_source = name; }
    void OpenSource() override;
    QByteArray AcquireJpg(int quality) override;
    void CloseTwainSession() override;
    void UnLoadTwainModule() override;

private:
    void *m_handle = nullptr;
    bool m_loaded = false;
    QString m_source;
};

// Makes the scanner session of a scan (SANE unless replaced).
using TScannerFactory = std::function<std::unique_ptr<TScannerSession>()>;
KXCOMMON_EXPORT TScannerFactory &scannerFactory();
