// SPDX-License-Identifier: LGPL-2.1-or-later
#include "scanner.h"

#include "kxerror.h"

#include <QBuffer>
#include <QImage>
#include <sane/sane.h>
#include <sane/saneopts.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int documentResolution = 150;

void check(SANE_Status status, const QString &step)
{
    if (status != SANE_STATUS_GOOD)
        throw kx::Error(u"Scanner: %1: %2"_s.arg(step, QString::fromLocal8Bit(sane_strstatus(status))));
}

// The page's bytes as a picture: gray or colour in 8 bits, or black and white in 1 bit.
QImage pageImage(const SANE_Parameters &p, const QByteArray &data)
{
    const int width = p.pixels_per_line, lines = data.size() / std::max(1, p.bytes_per_line);
    if (p.format == SANE_FRAME_GRAY && p.depth == 8) {
        QImage image(width, lines, QImage::Format_Grayscale8);
        for (int y = 0; y < lines; ++y)
            std::memcpy(image.scanLine(y), data.constData() + qsizetype(y) * p.bytes_per_line, size_t(width));
        return image;
    }
    if (p.format == SANE_FRAME_RGB && p.depth == 8) {
        QImage image(width, lines, QImage::Format_RGB888);
        for (int y = 0; y < lines; ++y)
            std::memcpy(image.scanLine(y), data.constData() + qsizetype(y) * p.bytes_per_line, size_t(width) * 3);
        return image;
    }
    if (p.format == SANE_FRAME_GRAY && p.depth == 1) {
        QImage image(width, lines, QImage::Format_Grayscale8);
        for (int y = 0; y < lines; ++y)
            for (int x = 0; x < width; ++x) {
                const char byte = data.at(qsizetype(y) * p.bytes_per_line + x / 8);
                image.scanLine(y)[x] = (byte >> (7 - x % 8)) & 1 ? 0 : 255; // 1 is black in SANE
            }
        return image;
    }
    throw kx::Error(u"Scanner: das Bildformat des Scanners (Art %1, %2 Bit) wird nicht unterstützt."_s
                        .arg(int(p.format))
                        .arg(p.depth));
}

} // namespace

TScannerFactory &scannerFactory()
{
    static TScannerFactory factory = [] { return std::make_unique<TSaneScanner>(); };
    return factory;
}

TSaneScanner::~TSaneScanner()
{
    CloseTwainSession();
    UnLoadTwainModule();
}

void TSaneScanner::LoadTwainModule()
{
    if (m_loaded)
        return;
    SANE_Int version = 0;
    check(sane_init(&version, nullptr), u"Laden"_s);
    m_loaded = true;
}

QStringList TSaneScanner::GetSources()
{
    const SANE_Device **devices = nullptr;
    check(sane_get_devices(&devices, SANE_TRUE), u"Geräteliste"_s);
    QStringList names;
    for (int i = 0; devices && devices[i]; ++i)
        names << QString::fromLocal8Bit(devices[i]->name);
    return names;
}

void TSaneScanner::OpenSource()
{
    SANE_Handle handle = nullptr;
    check(sane_open(m_source.toLocal8Bit().constData(), &handle), u"Öffnen von %1"_s.arg(m_source));
    m_handle = handle;
    // A document page at 150 dpi, whatever the driver starts with (some start far lower); a
    // driver that cannot do it keeps its own value.
    for (SANE_Int option = 1;; ++option) {
        const SANE_Option_Descriptor *d = sane_get_option_descriptor(handle, option);
        if (!d)
            break;
        if (!d->name || qstrcmp(d->name, SANE_NAME_SCAN_RESOLUTION) != 0 || !SANE_OPTION_IS_SETTABLE(d->cap))
            continue;
        SANE_Int value = d->type == SANE_TYPE_FIXED ? SANE_FIX(documentResolution) : documentResolution;
        SANE_Int info = 0;
        sane_control_option(handle, option, SANE_ACTION_SET_VALUE, &value, &info);
        break;
    }
}

QByteArray TSaneScanner::AcquireJpg(int quality)
{
    if (!m_handle)
        throw kx::Error(u"Scanner: keine Quelle geöffnet."_s);
    auto *handle = static_cast<SANE_Handle>(m_handle);
    check(sane_start(handle), u"Start"_s);
    SANE_Parameters parameters{};
    check(sane_get_parameters(handle, &parameters), u"Bildparameter"_s);
    QByteArray page;
    SANE_Byte buffer[32768];
    for (;;) {
        SANE_Int length = 0;
        const SANE_Status status = sane_read(handle, buffer, sizeof buffer, &length);
        if (status == SANE_STATUS_EOF)
            break;
        check(status, u"Lesen"_s);
        page.append(reinterpret_cast<const char *>(buffer), length);
    }
    sane_cancel(handle);
    QByteArray jpeg;
    QBuffer out(&jpeg);
    out.open(QIODevice::WriteOnly);
    if (!pageImage(parameters, page).save(&out, "JPEG", quality))
        throw kx::Error(u"Scanner: die Seite lässt sich nicht als JPEG speichern."_s);
    return jpeg;
}

void TSaneScanner::CloseTwainSession()
{
    if (m_handle) {
        sane_close(static_cast<SANE_Handle>(m_handle));
        m_handle = nullptr;
    }
}

void TSaneScanner::UnLoadTwainModule()
{
    if (m_loaded) {
        sane_exit();
        m_loaded = false;
    }
}
