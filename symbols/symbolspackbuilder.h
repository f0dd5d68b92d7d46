// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_export.h>

#include <QString>
#include <QStringList>

// Builds a symbol pack from a folder of images, for brigades that make and ship their own:
// PNG, JPEG and BMP files are stored as they are, SVG files rendered to PNG. Each file's folder
// below the root is its category, its base name its German name. An optional file
// "names.<code>.csv" in the root adds texts in another language, one line per symbol:
// "relative/path.svg;Name;Category" (UTF-8). Identifiers are name-based UUIDs of the relative
// path, so a rebuilt pack keeps the identifiers that records store. A file directly in the root
// has the root folder's name as its category, as the symbol folder scan gives it.
struct KXCOMMON_EXPORT SymbolsPackFacts
{
    int symbols = 0;
    QStringList languages;
    QStringList warnings; // names lines that name no image of the folder, passed over
};

// SvgSize is the longer side of a rendered SVG in pixels. Raises a kx::Error naming the file
// for an image that does not read or a names line that does not fit.
KXCOMMON_EXPORT SymbolsPackFacts SymbolsBuildPack(const QString &folder, const QString &packFile, int svgSize = 64);
