// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_export.h>

#include "lumsheetitem.h"

// Where symbols come from: the pack only, the symbol folder only, or the folder first and then
// the pack. The order is the stored order ("SymbolType" in the settings).
enum TSymbolsSymbolType { stSystem, stUserdefined, stAll };

enum TSymbolsImageFormat { sifUnknown, sifBmp, sifJpg, sifGif, sifPng, sifTif, sifEmf, sifWmf };

// The extension, with its dot, of the format's first row in the extension table (".jpg" for
// sifJpg, ".tif" for sifTif); empty for sifUnknown.
KXCOMMON_EXPORT QString FileExtByImageFormat(TSymbolsImageFormat format);
// The format of an item's image type code. Deliberate: only WMF, JPEG, BMP and EMF are reported;
// GIF, PNG and TIFF items answer sifUnknown, as the suite's stored symbols expect.
KXCOMMON_EXPORT TSymbolsImageFormat SymbolsImageFormatOf(int imageType);

// The "Lagekarte" settings of the database INI file.
struct KXCOMMON_EXPORT TSymbolsSettings
{
    QString SymbolPath; // the user symbol folder, trimmed; default: application folder + "Bitmaps/"
    TSymbolsSymbolType SymbolType = stSystem; // values outside 0..2 read as stSystem
};
KXCOMMON_EXPORT TSymbolsSettings SymbolsSettings();

// A symbol read from the pack; remembers the file its image was last saved to.
class KXCOMMON_EXPORT TItemSymbol : public TLumSheetItem
{
public:
    TSymbolsImageFormat GetImageFormat() const { return SymbolsImageFormatOf(ImageType); }
    void SaveDataToFile(const QString &fileName) override;
    const QString &SavedFileName() const { return m_savedFileName; }

private:
    QString m_savedFileName;
};

// A symbol from a loose image file under the symbol folder: identified by its path relative to
// that folder, its category the relative folder (separators removed), its name the file's base
// name. Raises the picture's error when the file cannot be read.
class KXCOMMON_EXPORT TItemSymbolFromFile : public TLumSheetItem
{
public:
    explicit TItemSymbolFromFile(const QString &fileName);
    // With the symbol folder already read from the settings (a folder scan reads it once).
    TItemSymbolFromFile(const QString &fileName, const QString &symbolPath);
    TSymbolsImageFormat GetImageFormat() const { return SymbolsImageFormatOf(ImageType); }
};

// Makes every item it reads from a pack a TItemSymbol.
class KXCOMMON_EXPORT TItemSymbolManager : public TLumSheetItemManager
{
public:
    TItemSymbol *CreateItem() override { return new TItemSymbol; }
};

// The manager a symbols view owns. The Load operations fill the manager handed to them.
class KXCOMMON_EXPORT TSymbolsPackIconManager : public TItemSymbolManager
{
public:
    // With the configured "SymbolType".
    void Load(TLumSheetItemManager *Manager);
    // The folder symbols (folder by folder, each sorted), then the pack, as SymbolType selects.
    // A pack that cannot be read raises an error for stSystem and is passed over for stAll.
    void Load(TLumSheetItemManager *Manager, TSymbolsSymbolType SymbolType);
    // As Load, with the symbol folder given instead of read from the settings.
    static void LoadFrom(TLumSheetItemManager *Manager, TSymbolsSymbolType SymbolType, const QString &SymbolPath);
};
