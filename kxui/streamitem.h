// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_export.h>

#include <QByteArray>
#include <QList>
#include <QString>
#include <memory>

class QFile;
#include <vector>

// The texts of a map item in one language: its name and its category.
class KXCOMMON_EXPORT TTexts
{
public:
    // Texts without a language code are German, the suite's language.
    explicit TTexts(QString languageCode = QStringLiteral("de"))
        : m_language(std::move(languageCode))
    {
    }
    const QString &GetLanguageCode() const { return m_language; }
    const QString &GetName() const { return m_name; }
    void SetName(const QString &name) { m_name = name; }
    const QString &GetCategory() const { return m_category; }
    void SetCategory(const QString &category) { m_category = category; }

private:
    QString m_language, m_name, m_category;
};

// An item's texts, one per language code.
class KXCOMMON_EXPORT TTextsList
{
public:
    void Add(const TTexts &texts) { m_texts.append(texts); }
    int Count() const { return int(m_texts.size()); }
    const TTexts &Item(int index) const { return m_texts.at(index); }
    // The texts of the language, or nullptr when the item has none in it.
    const TTexts *ByLanguage(const QString &languageCode) const;

private:
    QList<TTexts> m_texts;
};

// An item of a symbol pack: its identifier, its image type code and image bytes, and its texts.
// Items read from a pack keep only where their bytes lie; the bytes are read when asked for.
class KXCOMMON_EXPORT TStreamItem
{
public:
    virtual ~TStreamItem() = default;

    QString Guid;      // the identifier
    int ImageType = 0; // see GetImageTypeByFileExt
    TTextsList Texts;

    // The image bytes (read from the pack file on first use).
    QByteArray Data() const;
    void SetData(const QByteArray &data);
    qint64 DataSize() const;
    // Writes the image bytes to the file.
    virtual void SaveDataToFile(const QString &fileName);

private:
    friend class TStreamItemManager;
    mutable QByteArray m_data;
    mutable bool m_loaded = true;
    std::shared_ptr<QFile> m_pack; // kept open while items read from it live
    qint64 m_offset = 0, m_length = 0;
};

// Owns a list of items and reads and writes them as a symbol pack (the layout is in
// docs/SYMBOLPACK.md). Reading checks every count, length and offset against the file's size,
// so a truncated or damaged file is refused with its reason before anything is allocated for it.
class KXCOMMON_EXPORT TStreamItemManager
{
public:
    TStreamItemManager() = default;
    TStreamItemManager(const TStreamItemManager &) = delete;
    TStreamItemManager &operator=(const TStreamItemManager &) = delete;
    virtual ~TStreamItemManager() = default;

    // The item the manager makes for each item read from a pack; derived managers make their own kind.
    virtual TStreamItem *CreateItem();
    // Takes ownership.
    void AddItem(TStreamItem *item);
    int Count() const { return int(m_items.size()); }
    TStreamItem *Item(int index) const { return m_items.at(size_t(index)).get(); }
    // The item of that identifier, or nullptr.
    TStreamItem *ItemByGuid(const QString &guid) const;
    // Swaps two items (for orderings over the list).
    void Exchange(int a, int b);
    void Clear() { m_items.clear(); }

    // Appends the pack's items; raises a kx::Error naming the file and what is wrong with it.
    void LoadFromFile(const QString &fileName);
    // Writes every item to a new pack file.
    void SaveToFile(const QString &fileName) const;

private:
    std::vector<std::unique_ptr<TStreamItem>> m_items;
};
