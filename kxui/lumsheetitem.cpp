// SPDX-License-Identifier: LGPL-2.1-or-later
#include "lumsheetitem.h"

#include "kxerror.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>

using namespace Qt::StringLiterals;

int GetImageTypeByFileExt(const QString &ext)
{
    static const QList<std::pair<QString, int>> types = {
        { u".wmf"_s, litWmf }, { u".jpg"_s, litJpg }, { u".jpeg"_s, litJpg }, { u".bmp"_s, litBmp },
        { u".emf"_s, litEmf }, { u".png"_s, litPng }, { u".gif"_s, litGif }, { u".tif"_s, litTif },
        { u".tiff"_s, litTif },
    };
    for (const auto &[extension, type] : types)
        if (ext.compare(extension, Qt::CaseInsensitive) == 0)
            return type;
    return litUnknown;
}

std::unique_ptr<TGraphic> GetGraphicByImageType(int imageType)
{
    return std::make_unique<TGraphic>(imageType);
}

void TGraphic::LoadFromFile(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        throw kx::Error(u"Das Bild %1 kann nicht gelesen werden: %2"_s.arg(fileName, file.errorString()));
    LoadFromData(file.readAll(), fileName);
}

void TGraphic::LoadFromData(const QByteArray &data, const QString &source)
{
    if (IsMetafile()) {
        m_metafile = data;
        return;
    }
    QBuffer buffer;
    buffer.setData(data);
    QImageReader reader(&buffer); // the format from the bytes, not from the name
    QImage image;
    if (!reader.read(&image))
        throw kx::Error(u"Das Bild %1 kann nicht gelesen werden: %2"_s.arg(source, reader.errorString()));
    m_image = image;
}

TGraphic *TLumSheetItem::Graphic()
{
    if (!m_graphic) {
        auto graphic = GetGraphicByImageType(ImageType);
        graphic->LoadFromData(Data(), Guid);
        m_graphic = std::move(graphic);
    }
    return m_graphic.get();
}
