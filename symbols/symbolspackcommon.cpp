// SPDX-License-Identifier: LGPL-2.1-or-later
#include "symbolspackcommon.h"

#include "globals.h"
#include "inifile.h"
#include "kxerror.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

const QString resFileOpenError = u"Fehler beim Öffnen der Datei!"_s; // resource string 65514
const QString resErrorMessage = u"Fehlermeldung:"_s;                // resource string 65515
const QString packName = u"symbols.pak"_s;

// Deliberate: the folder scan tests a file's extension as a case-sensitive substring of this
// text, so ".PNG" is refused and a partial ".jp" accepted, as the suite's symbol folders expect.
const QString folderExtensions = u"*.bmp;*.jpg;*.jpeg;*.png;*.emf;*.wmf"_s;

const QList<std::pair<QString, TSymbolsImageFormat>> extensionTable = {
    { u".bmp"_s, sifBmp }, { u".jpg"_s, sifJpg }, { u".jpeg"_s, sifJpg }, { u".gif"_s, sifGif }, { u".png"_s, sifPng },
    { u".tif"_s, sifTif }, { u".tiff"_s, sifTif }, { u".emf"_s, sifEmf }, { u".wmf"_s, sifWmf },
};

QString withDelimiter(const QString &path)
{
    return path.endsWith(u'/') ? path : path + u'/';
}

// The extension with its dot, from the last dot of the file name; empty without one.
QString extensionOf(const QString &fileName)
{
    const qsizetype dot = fileName.lastIndexOf(u'.');
    return dot < 0 ? QString() : fileName.mid(dot);
}

// The symbol folder and its immediate sub-folders (not those beginning with "."), in the order
// the file system lists them.
QStringList symbolFolders(const QString &symbolPath)
{
    QStringList folders;
    const QDir root(symbolPath);
    if (!root.exists())
        return folders;
    folders << withDelimiter(symbolPath);
    for (const QString &name : root.entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Unsorted))
        if (!name.startsWith(u'.'))
            folders << withDelimiter(symbolPath) + name + u'/';
    return folders;
}

QStringList symbolFiles(const QString &folder)
{
    QStringList kept;
    for (const QString &name : QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Unsorted)) {
        const QString ext = extensionOf(name);
        if (!ext.isEmpty() && folderExtensions.contains(ext) && !name.startsWith(u"____"_s, Qt::CaseInsensitive))
            kept << folder + name;
    }
    std::sort(kept.begin(), kept.end(), [](const QString &a, const QString &b) {
        return a.compare(b, Qt::CaseInsensitive) < 0;
    });
    return kept;
}

// The first candidate that exists: the application folder, the symbol folder, the application's
// "Bitmaps" folder; the first when none does.
QString packPath(const QString &symbolPath)
{
    const QString application = withDelimiter(cApplicationPath);
    QString path = application + packName;
    if (!QFileInfo::exists(path) && QFileInfo::exists(withDelimiter(symbolPath) + packName))
        path = withDelimiter(symbolPath) + packName;
    if (!QFileInfo::exists(path) && QFileInfo::exists(application + u"Bitmaps/"_s + packName))
        path = application + u"Bitmaps/"_s + packName;
    return path;
}

} // namespace

QString FileExtByImageFormat(TSymbolsImageFormat format)
{
    for (const auto &[extension, tableFormat] : extensionTable)
        if (tableFormat == format)
            return extension;
    return QString();
}

TSymbolsImageFormat SymbolsImageFormatOf(int imageType)
{
    switch (imageType) {
    case 1: return sifWmf;
    case 2: return sifJpg;
    case 3: return sifBmp;
    case 4: return sifEmf;
    default: return sifUnknown;
    }
}

TSymbolsSettings SymbolsSettings()
{
    const TCIniFile ini(cDatabaseIni);
    TSymbolsSettings settings;
    settings.SymbolPath = ini.ReadString(u"Lagekarte"_s, u"SymbolPath"_s, withDelimiter(cApplicationPath) + u"Bitmaps/"_s)
                              .trimmed();
    const int type = ini.ReadInteger(u"Lagekarte"_s, u"SymbolType"_s, 0);
    settings.SymbolType = type >= stSystem && type <= stAll ? TSymbolsSymbolType(type) : stSystem;
    return settings;
}

void TItemSymbol::SaveDataToFile(const QString &fileName)
{
    TLumSheetItem::SaveDataToFile(fileName);
    m_savedFileName = fileName;
}

TItemSymbolFromFile::TItemSymbolFromFile(const QString &fileName)
    : TItemSymbolFromFile(fileName, SymbolsSettings().SymbolPath)
{
}

TItemSymbolFromFile::TItemSymbolFromFile(const QString &fileName, const QString &symbolPath)
{
    FileName = fileName;
    const QString name = QFileInfo(fileName).fileName();
    ImageType = GetImageTypeByFileExt(extensionOf(name));
    auto graphic = GetGraphicByImageType(ImageType);
    graphic->LoadFromFile(fileName);
    SetGraphic(std::move(graphic));

    TTexts texts;
    texts.SetName(QFileInfo(fileName).completeBaseName());
    const QString relative = QString(fileName).remove(withDelimiter(symbolPath), Qt::CaseInsensitive);
    Guid = relative;
    QString category = relative.left(relative.lastIndexOf(u'/') + 1).remove(u'\\');
    // A symbol directly in the folder takes the folder's own name, as the setting writes it.
    if (category.trimmed().isEmpty())
        category = symbolPath.mid(symbolPath.lastIndexOf(u'/') + 1);
    texts.SetCategory(category.remove(u'/').remove(u'\\'));
    Texts.Add(texts);
}

void TSymbolsPackIconManager::Load(TLumSheetItemManager *Manager)
{
    Load(Manager, SymbolsSettings().SymbolType);
}

void TSymbolsPackIconManager::Load(TLumSheetItemManager *Manager, TSymbolsSymbolType SymbolType)
{
    LoadFrom(Manager, SymbolType, SymbolsSettings().SymbolPath);
}

void TSymbolsPackIconManager::LoadFrom(TLumSheetItemManager *Manager, TSymbolsSymbolType SymbolType,
                                       const QString &symbolPath)
{
    if (SymbolType == stUserdefined || SymbolType == stAll)
        for (const QString &folder : symbolFolders(symbolPath))
            for (const QString &file : symbolFiles(folder))
                Manager->AddItem(new TItemSymbolFromFile(file, symbolPath));
    if (SymbolType == stSystem || SymbolType == stAll) {
        const QString path = packPath(symbolPath);
        try {
            Manager->LoadFromFile(path);
        } catch (const kx::Error &error) {
            if (SymbolType == stSystem)
                throw kx::Error(resFileOpenError + u"\r\n"_s + path + u"\r\n\r\n"_s + resErrorMessage + u"\r\n"_s
                                + error.message().trimmed());
        }
    }
}
