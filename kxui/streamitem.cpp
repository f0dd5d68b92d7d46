// SPDX-License-Identifier: LGPL-2.1-or-later
#include "streamitem.h"

#include "kxerror.h"

#include <QFile>
#include <QSaveFile>
#include <QtEndian>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QByteArray packMagic = "KXSYMPAK"_ba;
constexpr quint16 packVersion = 1;
constexpr qint64 headerSize = 20;     // magic, version, reserved, item count, index size
constexpr qint64 smallestEntry = 17;  // an entry with an empty identifier and no texts

// Appends little-endian numbers and length-prefixed texts to an index under construction.
class IndexWriter
{
public:
    template<class T>
    void number(T value)
    {
        char bytes[sizeof(T)];
        qToLittleEndian(value, bytes);
        m_bytes.append(bytes, sizeof(T));
    }
    template<class Length>
    void text(const QString &value, const char *what)
    {
        const QByteArray utf8 = value.toUtf8();
        if (utf8.size() > qsizetype(std::numeric_limits<Length>::max()))
            throw kx::Error(u"%1 ist zu lang für die Symboldatei: %2"_s.arg(QString::fromLatin1(what), value.left(40)));
        number(Length(utf8.size()));
        m_bytes.append(utf8);
    }
    const QByteArray &bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
};

// What the items read from a pack may take in memory, by the pack's size: a pack of 20 MB with a
// million empty entries, or with 255 texts to each, took gigabytes. The costs are what one item
// and one text were measured to take, with the characters of their texts.
constexpr qint64 itemCost = 1024, textCost = 512;
qint64 memoryBudget(qint64 packSize)
{
    return (qint64(64) << 20) + 8 * packSize;
}

// Reads the header from memory or the index from the file, a piece at a time, so that an index
// is checked entry by entry before anything is held for it; every read is checked against what
// is left.
class IndexReader
{
public:
    IndexReader(const QByteArray &bytes, const QString &fileName)
        : m_buffer(bytes)
        , m_fileName(fileName)
    {
    }
    IndexReader(QFile &file, qint64 size, const QString &fileName)
        : m_file(&file)
        , m_remaining(size)
        , m_fileName(fileName)
    {
    }

    template<class T>
    T number()
    {
        need(sizeof(T));
        const T value = qFromLittleEndian<T>(m_buffer.constData() + m_pos);
        m_pos += sizeof(T);
        return value;
    }

    template<class Length>
    QString text()
    {
        const qsizetype length = number<Length>();
        need(length);
        const QString value = QString::fromUtf8(m_buffer.constData() + m_pos, length);
        m_pos += length;
        return value;
    }

    [[noreturn]] void fail(const QString &reason) const
    {
        throw kx::Error(u"Die Symboldatei %1 ist beschädigt: %2."_s.arg(m_fileName, reason));
    }

    void setEntry(int entry) { m_entry = entry; }

private:
    void need(qsizetype count)
    {
        const qsizetype available = m_buffer.size() - m_pos;
        if (count > available + m_remaining)
            fail(u"das Verzeichnis endet in Eintrag %1 vorzeitig"_s.arg(m_entry + 1));
        if (count <= available)
            return;
        const QByteArray more = m_file->read(std::min(m_remaining, std::max<qint64>(count - available, 1 << 16)));
        if (more.size() < count - available)
            fail(u"die Datei endet in Eintrag %1 vorzeitig"_s.arg(m_entry + 1));
        m_buffer = m_buffer.mid(m_pos) + more;
        m_remaining -= more.size();
        m_pos = 0;
    }

    QFile *m_file = nullptr;
    qint64 m_remaining = 0; // index bytes not read from the file yet
    QByteArray m_buffer;
    const QString &m_fileName;
    qsizetype m_pos = 0;
    int m_entry = 0;
};

} // namespace

const TTexts *TTextsList::ByLanguage(const QString &languageCode) const
{
    for (const TTexts &texts : m_texts)
        if (texts.GetLanguageCode() == languageCode)
            return &texts;
    return nullptr;
}

QByteArray TStreamItem::Data() const
{
    if (!m_loaded) {
        if (!m_pack->seek(m_offset))
            throw kx::Error(u"Die Symboldatei %1 kann nicht gelesen werden: %2"_s.arg(m_pack->fileName(), m_pack->errorString()));
        m_data = m_pack->read(m_length);
        if (m_data.size() != m_length)
            throw kx::Error(u"Die Symboldatei %1 ist seit dem Laden kürzer geworden."_s.arg(m_pack->fileName()));
        m_loaded = true;
    }
    return m_data;
}

void TStreamItem::SetData(const QByteArray &data)
{
    m_data = data;
    m_loaded = true;
}

qint64 TStreamItem::DataSize() const
{
    return m_loaded ? m_data.size() : m_length;
}

void TStreamItem::SaveDataToFile(const QString &fileName)
{
    const QByteArray data = Data();
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly) || file.write(data) != data.size() || !file.commit())
        throw kx::Error(u"Die Datei %1 kann nicht geschrieben werden: %2"_s.arg(fileName, file.errorString()));
}

TStreamItem *TStreamItemManager::CreateItem()
{
    return new TStreamItem;
}

void TStreamItemManager::AddItem(TStreamItem *item)
{
    m_items.emplace_back(item);
}

TStreamItem *TStreamItemManager::ItemByGuid(const QString &guid) const
{
    const auto found = std::find_if(m_items.begin(), m_items.end(), [&](const auto &item) { return item->Guid == guid; });
    return found == m_items.end() ? nullptr : found->get();
}

void TStreamItemManager::Exchange(int a, int b)
{
    std::swap(m_items.at(size_t(a)), m_items.at(size_t(b)));
}

void TStreamItemManager::LoadFromFile(const QString &fileName)
{
    auto pack = std::make_shared<QFile>(fileName);
    QFile &file = *pack;
    if (!file.open(QIODevice::ReadOnly))
        throw kx::Error(u"Die Datei %1 kann nicht geöffnet werden: %2"_s.arg(fileName, file.errorString()));
    const qint64 size = file.size();
    const QByteArray header = file.read(headerSize);
    IndexReader head(header, fileName);
    if (header.size() < qsizetype(packMagic.size()) || !header.startsWith(packMagic))
        throw kx::Error(u"Die Datei %1 ist keine Symboldatei."_s.arg(fileName));
    if (header.size() < headerSize)
        head.fail(u"der Kopf endet vorzeitig"_s);
    head.number<quint64>(); // the magic
    const quint16 version = head.number<quint16>();
    if (version != packVersion)
        throw kx::Error(u"Die Symboldatei %1 hat die Version %2; gelesen wird Version %3."_s.arg(fileName).arg(version).arg(packVersion));
    head.number<quint16>();
    const quint32 count = head.number<quint32>();
    const quint32 indexSize = head.number<quint32>();
    if (indexSize > size - headerSize)
        head.fail(u"das Verzeichnis (%1 Bytes) ist größer als der Rest der Datei (%2 Bytes)"_s.arg(indexSize).arg(size - headerSize));
    if (qint64(count) * smallestEntry > indexSize)
        head.fail(u"%1 Einträge passen nicht in ein Verzeichnis von %2 Bytes"_s.arg(count).arg(indexSize));
    const qint64 budget = memoryBudget(size);
    qint64 cost = qint64(count) * itemCost;
    const auto overBudget = [&] {
        head.fail(u"%1 Einträge mit ihren Texten bräuchten mehr als %2 MB Speicher, mehr als eine Symboldatei von %3 MB "
                  u"braucht"_s.arg(count).arg(budget >> 20).arg(size >> 20));
    };
    if (cost > budget)
        overBudget();

    IndexReader reader(file, indexSize, fileName);
    const qint64 dataStart = headerSize + indexSize;
    std::vector<std::unique_ptr<TStreamItem>> read;
    read.reserve(count);
    for (quint32 i = 0; i < count; ++i) {
        reader.setEntry(int(i));
        std::unique_ptr<TStreamItem> item(CreateItem());
        item->Guid = reader.text<quint16>();
        item->ImageType = reader.number<quint16>();
        const quint64 offset = reader.number<quint64>();
        const quint32 length = reader.number<quint32>();
        if (offset < quint64(dataStart) || offset > quint64(size) || length > quint64(size) - offset)
            reader.fail(u"die Bilddaten von Eintrag %1 liegen außerhalb der Datei"_s.arg(i + 1));
        const int texts = reader.number<quint8>();
        for (int t = 0; t < texts; ++t) {
            TTexts text(reader.text<quint8>());
            text.SetName(reader.text<quint16>());
            text.SetCategory(reader.text<quint16>());
            cost += textCost + 2 * (text.GetLanguageCode().size() + text.GetName().size() + text.GetCategory().size());
            if (cost > budget)
                overBudget();
            item->Texts.Add(text);
        }
        item->m_pack = pack;
        item->m_offset = qint64(offset);
        item->m_length = length;
        item->m_loaded = length == 0;
        read.push_back(std::move(item));
    }
    for (auto &item : read)
        m_items.push_back(std::move(item));
}

void TStreamItemManager::SaveToFile(const QString &fileName) const
{
    // The index first, with offsets counted from where the data will start.
    const auto buildIndex = [this](qint64 dataStart) {
        IndexWriter index;
        qint64 offset = dataStart;
        for (const auto &item : m_items) {
            index.text<quint16>(item->Guid, "Die Kennung");
            index.number(quint16(item->ImageType));
            index.number(quint64(offset));
            index.number(quint32(item->DataSize()));
            if (item->Texts.Count() > 255)
                throw kx::Error(u"Das Symbol %1 hat mehr als 255 Sprachen."_s.arg(item->Guid));
            index.number(quint8(item->Texts.Count()));
            for (int t = 0; t < item->Texts.Count(); ++t) {
                const TTexts &texts = item->Texts.Item(t);
                index.text<quint8>(texts.GetLanguageCode(), "Der Sprachcode");
                index.text<quint16>(texts.GetName(), "Der Name");
                index.text<quint16>(texts.GetCategory(), "Die Kategorie");
            }
            offset += item->DataSize();
        }
        return index.bytes();
    };
    const qint64 indexSize = buildIndex(0).size();
    IndexWriter header;
    header.number(quint64(qFromLittleEndian<quint64>(packMagic.constData())));
    header.number(packVersion);
    header.number(quint16(0));
    header.number(quint32(m_items.size()));
    header.number(quint32(indexSize));

    QSaveFile file(fileName);
    bool written = file.open(QIODevice::WriteOnly) && file.write(header.bytes()) == headerSize;
    written = written && file.write(buildIndex(headerSize + indexSize)) == indexSize;
    for (const auto &item : m_items) {
        const QByteArray data = item->Data();
        written = written && file.write(data) == data.size();
    }
    if (!written || !file.commit())
        throw kx::Error(u"Die Symboldatei %1 kann nicht geschrieben werden: %2"_s.arg(fileName, file.errorString()));
}
