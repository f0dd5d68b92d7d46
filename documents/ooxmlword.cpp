// SPDX-License-Identifier: LGPL-2.1-or-later
#include "ooxmlword.h"

#include "documentlauncher.h"
#include "globals.h"
#include "kxerror.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>
#include <optional>
#include <quazip.h>
#include <quazipfile.h>

using namespace Qt::StringLiterals;

namespace {

const QString wordNamespace = u"http://schemas.openxmlformats.org/wordprocessingml/2006/main"_s;
const QString documentPart = u"word/document.xml"_s;

using ZipEntries = QList<std::pair<QString, QByteArray>>;

// What one part and all parts of an archive may hold unpacked. A template of a few kilobytes can
// inflate to gigabytes; real templates, pictures included, stay far below. Counted while
// unpacking: the sizes an archive declares may lie.
constexpr qint64 partLimit = qint64(64) << 20;
constexpr qint64 archiveLimit = qint64(256) << 20;

// Reads the archive's parts, each when Keep is set; returns the reason it is refused (a part or
// the whole larger than the limits, a part that does not unpack), or the empty text.
QString unpack(QuaZip &zip, ZipEntries *keep)
{
    qint64 total = 0;
    for (bool more = zip.goToFirstFile(); more; more = zip.goToNextFile()) {
        QuaZipFile entry(&zip);
        const QString name = zip.getCurrentFileName();
        if (!entry.open(QIODevice::ReadOnly))
            return u"der Teil %1 lässt sich nicht entpacken"_s.arg(name);
        QByteArray data;
        qint64 size = 0;
        for (QByteArray piece = entry.read(1 << 16); !piece.isEmpty(); piece = entry.read(1 << 16)) {
            size += piece.size();
            total += piece.size();
            if (size > partLimit)
                return u"der Teil %1 ist entpackt größer als %2 MiB"_s.arg(name).arg(partLimit >> 20);
            if (total > archiveLimit)
                return u"das Archiv ist entpackt größer als %1 MiB"_s.arg(archiveLimit >> 20);
            if (keep)
                data += piece;
        }
        if (entry.getZipError() != UNZ_OK)
            return u"der Teil %1 ist beschädigt"_s.arg(name);
        if (keep)
            keep->append({ name, data });
    }
    return QString();
}

ZipEntries readZip(const QString &file)
{
    QuaZip zip(file);
    if (!zip.open(QuaZip::mdUnzip))
        throw kx::Error(u"Die Vorlage %1 lässt sich nicht öffnen (kein Office-Open-XML-Dokument?)."_s.arg(file));
    ZipEntries entries;
    if (const QString refused = unpack(zip, &entries); !refused.isEmpty())
        throw kx::Error(u"Die Vorlage %1 wird nicht gelesen: %2."_s.arg(file, refused));
    return entries;
}

void writeZip(const QString &file, const ZipEntries &entries)
{
    QuaZip zip(file);
    if (!zip.open(QuaZip::mdCreate))
        throw kx::Error(u"Das Dokument %1 lässt sich nicht schreiben."_s.arg(file));
    for (const auto &[name, data] : entries) {
        QuaZipFile entry(&zip);
        if (!entry.open(QIODevice::WriteOnly, QuaZipNewInfo(name)) || entry.write(data) != data.size())
            throw kx::Error(u"Das Dokument %1 lässt sich nicht schreiben."_s.arg(file));
        entry.close();
    }
    zip.close();
}

// The prefix of the word-processing namespace at each open element ("w:", "" for the default
// namespace, null where none is in scope), so that a new result's elements are written with a
// prefix that holds where they stand. Declarations may come and go on any element.
class WordPrefixes
{
public:
    // The prefix in scope for a new sibling of the reader's current element.
    std::optional<QString> current() const { return scopes.isEmpty() ? std::nullopt : scopes.last(); }

    void enter(const QXmlStreamReader &xml)
    {
        std::optional<QString> prefix = current();
        for (const QXmlStreamNamespaceDeclaration &ns : xml.namespaceDeclarations()) {
            const QString declared = ns.prefix().isEmpty() ? u""_s : ns.prefix().toString() + u':';
            if (ns.namespaceUri() == wordNamespace)
                prefix = isName(ns.prefix()) ? std::optional(declared) : std::nullopt;
            else if (prefix == declared)
                prefix.reset();
        }
        scopes.append(prefix);
    }
    void leave()
    {
        if (!scopes.isEmpty())
            scopes.removeLast();
    }

private:
    // Qt's reader takes a declared prefix that is no XML name ("7") but refuses it on an element,
    // so such a prefix is not used for new elements.
    static bool isName(QStringView prefix)
    {
        for (qsizetype i = 0; i < prefix.size(); ++i) {
            const QChar c = prefix[i];
            const bool letter = c.isLetter() || c == u'_' || c.unicode() >= 0x80;
            if (!letter && (i == 0 || !(c.isDigit() || c == u'-' || c == u'.')))
                return false;
        }
        return true; // the empty prefix: the default namespace
    }

    QList<std::optional<QString>> scopes;
};

// Copies the reader's token with the prefixes as written: Qt's writer would give elements
// prefixes of its own, which word processors do not all accept.
void copyToken(const QXmlStreamReader &xml, QXmlStreamWriter &writer, WordPrefixes &prefixes)
{
    if (xml.isStartDocument()) {
        // A part without a declaration keeps none (the reader reports an empty version for it).
        if (!xml.documentVersion().isEmpty()) {
            if (xml.isStandaloneDocument())
                writer.writeStartDocument(xml.documentVersion().toString(), true);
            else
                writer.writeStartDocument(xml.documentVersion().toString());
        }
    } else if (xml.isStartElement()) {
        writer.writeStartElement(xml.qualifiedName().toString());
        for (const QXmlStreamNamespaceDeclaration &ns : xml.namespaceDeclarations()) {
            const QString prefix = ns.prefix().toString();
            writer.writeAttribute(prefix.isEmpty() ? u"xmlns"_s : u"xmlns:"_s + prefix, ns.namespaceUri().toString());
        }
        for (const QXmlStreamAttribute &attribute : xml.attributes())
            writer.writeAttribute(attribute.qualifiedName().toString(), attribute.value().toString());
        prefixes.enter(xml);
    } else if (xml.isEndElement()) {
        writer.writeEndElement();
        prefixes.leave();
    } else {
        writer.writeCurrentToken(xml);
    }
}

bool isWord(const QXmlStreamReader &xml, QLatin1StringView name)
{
    return xml.namespaceUri() == wordNamespace && xml.name() == name;
}

// Writes a field's result as runs' content: its text in w:t elements, a line break (CR LF, LF,
// CR or the word processor's vertical tab) as w:br, a tab as w:tab; characters XML cannot hold
// are left out. Returns the result as it will read back.
QString writeResult(QXmlStreamWriter &writer, const std::optional<QString> &prefix, const QString &result)
{
    // Where no prefix names the namespace, each element declares one of its own.
    const QString w = prefix.value_or(u"w:"_s);
    const auto declare = [&] {
        if (!prefix)
            writer.writeAttribute(u"xmlns:w"_s, wordNamespace);
    };
    QString text = result;
    text.replace(u"\r\n"_s, u"\v"_s).replace(u'\n', u'\v').replace(u'\r', u'\v');
    QString shown, piece;
    const auto flush = [&] {
        if (piece.isEmpty())
            return;
        writer.writeStartElement(w + u"t"_s);
        declare();
        writer.writeAttribute(u"xml:space"_s, u"preserve"_s);
        writer.writeCharacters(piece);
        writer.writeEndElement();
        piece.clear();
    };
    for (const QChar c : text) {
        if (c == u'\v' || c == u'\t') {
            flush();
            writer.writeEmptyElement(w + (c == u'\v' ? u"br"_s : u"tab"_s));
            declare();
            shown += c;
        } else if (c.unicode() >= 0x20 && c.unicode() != 0xFFFE && c.unicode() != 0xFFFF) {
            piece += c;
            shown += c;
        }
    }
    flush();
    return shown;
}

// One pass over the document part: collects the legacy form fields' names and shown texts, and
// writes the part with the given results in place of the shown texts. The begin, separator,
// result and end of a field may share runs in any arrangement. A result takes the place of the
// first text of the field's result, in that text's run, so it keeps the run's formatting; the
// other texts, breaks and tabs of the old result go. A result without any text is written
// before the field's end, in the end's run.
} // namespace

QByteArray ooxmlFillFormFields(const QByteArray &part, const QHash<int, QString> &results, QStringList *names, QStringList *shown)
{
    struct Field
    {
        int index = -1;         // the form field's number, -1 for other fields
        bool separated = false; // past the separator: in the result
        bool written = false;   // the new result is written
    };
    QXmlStreamReader xml(part);
    QByteArray out;
    QXmlStreamWriter writer(&out);
    WordPrefixes prefixes;
    QList<Field> fields; // the open complex fields, innermost last
    bool inBegin = false, inText = false;
    int skipped = 0; // the depth of an element of an old result that is left out
    while (!xml.atEnd()) {
        xml.readNext();
        if (skipped > 0) {
            skipped += xml.isStartElement() ? 1 : xml.isEndElement() ? -1 : 0;
            continue;
        }
        Field *field = fields.isEmpty() ? nullptr : &fields.last();
        const bool inResult = field && field->separated && field->index >= 0;
        const bool replacing = inResult && results.contains(field->index);
        if (xml.isStartElement() && isWord(xml, "fldChar"_L1)) {
            const auto type = xml.attributes().value(wordNamespace, u"fldCharType"_s);
            if (type == u"begin"_s) {
                fields.append(Field{});
                inBegin = true;
            } else if (type == u"separate"_s && field) {
                field->separated = true;
            } else if (type == u"end"_s && field) {
                if (replacing && !field->written)
                    (*shown)[field->index] = writeResult(writer, prefixes.current(), results.value(field->index));
                fields.removeLast();
            }
        } else if (xml.isEndElement() && isWord(xml, "fldChar"_L1)) {
            inBegin = false;
        } else if (xml.isStartElement() && inBegin && field && isWord(xml, "name"_L1)) {
            field->index = int(names->size());
            names->append(xml.attributes().value(wordNamespace, u"val"_s).toString());
            shown->append(QString());
        } else if (replacing && xml.isStartElement()
                   && (isWord(xml, "t"_L1) || isWord(xml, "br"_L1) || isWord(xml, "cr"_L1) || isWord(xml, "tab"_L1))) {
            if (isWord(xml, "t"_L1) && !field->written) {
                (*shown)[field->index] = writeResult(writer, prefixes.current(), results.value(field->index));
                field->written = true;
            }
            skipped = 1;
            continue;
        } else if (inResult && xml.isStartElement() && (isWord(xml, "br"_L1) || isWord(xml, "cr"_L1) || isWord(xml, "tab"_L1))) {
            (*shown)[field->index] += isWord(xml, "tab"_L1) ? u'\t' : u'\v';
        } else if (xml.isStartElement() && isWord(xml, "t"_L1)) {
            inText = true;
        } else if (xml.isEndElement() && isWord(xml, "t"_L1)) {
            inText = false;
        } else if (xml.isCharacters() && inText && inResult) {
            (*shown)[field->index] += xml.text();
        }
        copyToken(xml, writer, prefixes);
    }
    if (xml.hasError())
        throw kx::Error(u"Der Dokumentteil %1 ist kein gültiges XML: %2"_s.arg(documentPart, xml.errorString()));
    return out;
}

namespace {

QString suffixOf(const QString &file)
{
    return QFileInfo(file).suffix().toLower();
}

QByteArray *partOf(ZipEntries &entries, const QString &name)
{
    for (auto &[entry, data] : entries)
        if (entry == name)
            return &data;
    return nullptr;
}

// The document part; Owner names the archive in the error ("Der Vorlage", "Dem Dokument x").
QByteArray documentOf(ZipEntries &entries, const QString &owner)
{
    if (const QByteArray *part = partOf(entries, documentPart))
        return *part;
    throw kx::Error(u"%1 fehlt der Dokumentteil %2."_s.arg(owner, documentPart));
}

} // namespace

// A template, read once per merge: its parts, the content type already a document's, and the
// names of its form fields.
struct TOoxmlWordApplication::Template
{
    explicit Template(const QString &templateFile)
        : file(templateFile)
        , entries(readZip(templateFile))
    {
        if (QByteArray *types = partOf(entries, u"[Content_Types].xml"_s))
            types->replace("wordprocessingml.template.main+xml", "wordprocessingml.document.main+xml")
                .replace("ms-word.template.macroEnabledTemplate.main+xml", "ms-word.document.macroEnabled.main+xml");
        QStringList shown;
        ooxmlFillFormFields(documentOf(entries, u"Der Vorlage"_s), {}, &names, &shown);
    }
    QString file;
    ZipEntries entries;
    QStringList names;
};

class TOoxmlWordApplication::Document : public TWordDocument
{
public:
    Document(const Template &from, const QString &target)
        : m_entries(from.entries)
        , m_target(target)
        , m_names(from.names)
    {
    }
    int FormFieldsCount() const override { return int(m_names.size()); }
    QString FormFieldName(int item) const override
    {
        if (item < 1 || item > m_names.size())
            throw kx::Error(u"Das Formularfeld %1 gibt es nicht (das Dokument hat %2)."_s.arg(item).arg(m_names.size()));
        return m_names.at(item - 1);
    }
    void SetFormFieldResult(int item, const QString &result) override
    {
        FormFieldName(item); // the same error for an item that is not there
        m_results.insert(item - 1, result);
    }
    void save()
    {
        QStringList names, shown;
        *partOf(m_entries, documentPart) = ooxmlFillFormFields(documentOf(m_entries, u"Der Vorlage"_s), m_results, &names, &shown);
        writeZip(m_target, m_entries);
    }
    const QString &target() const { return m_target; }

private:
    ZipEntries m_entries;
    QString m_target;
    QStringList m_names;
    QHash<int, QString> m_results;
};

TOoxmlWordApplication::TOoxmlWordApplication() = default;
TOoxmlWordApplication::~TOoxmlWordApplication() = default;

QString TOoxmlWordApplication::CannotFill(const QString &templateFile) const
{
    if (!QStringList{ u"docx"_s, u"dotx"_s, u"docm"_s, u"dotm"_s }.contains(suffixOf(templateFile)))
        return u"eine binäre Word-Datei, die hier nicht gefüllt werden kann; bitte als .docx oder .dotx speichern"_s;
    QuaZip zip(templateFile);
    if (!zip.open(QuaZip::mdUnzip))
        return u"kein Office-Open-XML-Dokument (kein Zip-Archiv)"_s;
    if (!zip.setCurrentFile(documentPart))
        return u"dem Archiv fehlt der Dokumentteil %1"_s.arg(documentPart);
    return unpack(zip, nullptr);
}

void TOoxmlWordApplication::DocumentsAdd(const QString &templateFile)
{
    const QDir work(cWorkPath.isEmpty() ? QDir::currentPath() : cWorkPath);
    const QString suffix = suffixOf(templateFile).endsWith(u'm') ? u"docm"_s : u"docx"_s;
    const QString base = QFileInfo(templateFile).completeBaseName();
    QString target;
    for (int n = 1;; ++n) {
        target = work.filePath(u"%1-%2.%3"_s.arg(base).arg(n).arg(suffix));
        if (!QFileInfo::exists(target) && !Documents().contains(target))
            break;
    }
    if (!m_template || m_template->file != templateFile)
        m_template = std::make_unique<Template>(templateFile);
    m_documents.push_back(std::make_unique<Document>(*m_template, target));
}

TWordDocument *TOoxmlWordApplication::ActiveDocument()
{
    return m_documents.empty() ? nullptr : m_documents.back().get();
}

void TOoxmlWordApplication::Release()
{
    for (const auto &document : m_documents) {
        document->save();
        const QFileInfo file(document->target());
        documentLauncher().OpenFile(file.fileName(), file.absolutePath());
    }
}

QStringList TOoxmlWordApplication::Documents() const
{
    QStringList paths;
    for (const auto &document : m_documents)
        paths << document->target();
    return paths;
}

QList<std::pair<QString, QString>> ooxmlFormFields(const QString &document)
{
    ZipEntries entries = readZip(document);
    QStringList names, shown;
    ooxmlFillFormFields(documentOf(entries, u"Dem Dokument "_s + document), {}, &names, &shown);
    QList<std::pair<QString, QString>> fields;
    for (qsizetype i = 0; i < names.size(); ++i)
        fields.append({ names.at(i), shown.at(i) });
    return fields;
}
