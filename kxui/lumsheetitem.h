// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_export.h>

#include "streamitem.h"

#include <QImage>

// The image type codes of map items.
enum TLumImageType : int {
    litUnknown = 0,
    litWmf = 1,
    litJpg = 2,
    litBmp = 3,
    litEmf = 4,
    litPng = 5,
    litGif = 6,
    litTif = 7,
};

// The image type of a file extension with its dot (".png", any case); litUnknown for others.
KXCOMMON_EXPORT int GetImageTypeByFileExt(const QString &ext);

// A map item's picture. Raster types decode with Qt's image readers; metafiles (EMF, WMF), which
// Qt cannot draw, keep their bytes and show no picture.
class KXCOMMON_EXPORT TGraphic
{
public:
    explicit TGraphic(int imageType)
        : m_type(imageType)
    {
    }
    int ImageType() const { return m_type; }
    // Raises a kx::Error when the file cannot be read or a raster image not decoded.
    void LoadFromFile(const QString &fileName);
    void LoadFromData(const QByteArray &data, const QString &source);
    const QImage &Image() const { return m_image; }
    bool IsMetafile() const { return m_type == litWmf || m_type == litEmf; }

private:
    int m_type;
    QImage m_image;
    QByteArray m_metafile;
};

// A new, empty graphic that can hold pictures of the type.
KXCOMMON_EXPORT std::unique_ptr<TGraphic> GetGraphicByImageType(int imageType);

// A map item: a pack item with, for symbols from files, the file's path, and its picture.
class KXCOMMON_EXPORT TLumSheetItem : public TStreamItem
{
public:
    QString FileName;
    // The picture; a pack item's is decoded from its bytes on first use.
    TGraphic *Graphic();
    void SetGraphic(std::unique_ptr<TGraphic> graphic) { m_graphic = std::move(graphic); }

private:
    std::unique_ptr<TGraphic> m_graphic;
};

class KXCOMMON_EXPORT TLumSheetItemManager : public TStreamItemManager
{
public:
    TLumSheetItem *CreateItem() override { return new TLumSheetItem; }
    TLumSheetItem *Item(int index) const { return static_cast<TLumSheetItem *>(TStreamItemManager::Item(index)); }
    TLumSheetItem *ItemByGuid(const QString &guid) const
    {
        return static_cast<TLumSheetItem *>(TStreamItemManager::ItemByGuid(guid));
    }
    // Takes ownership; a manager of map items holds map items only.
    void AddItem(TLumSheetItem *item) { TStreamItemManager::AddItem(item); }
};
