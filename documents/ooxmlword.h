// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_export.h>

#include "wordautomation.h"

#include <QHash>
#include <QList>
#include <QStringList>
#include <vector>

// The word processor's object model over Office Open XML templates (.docx, .dotx, .docm, .dotm):
// Documents.Add copies the template into a new document in the work folder, the form fields are
// the template's legacy text form fields, and Result replaces a field's shown text. Release
// writes the documents and opens each for the user through the document launcher. Binary
// .doc/.dot templates, files that are no zip archive and archives without a document part cannot
// be filled: CannotFill says why.
class KXCOMMON_EXPORT TOoxmlWordApplication : public TWordApplication
{
public:
    TOoxmlWordApplication();
    ~TOoxmlWordApplication() override;
    QString CannotFill(const QString &templateFile) const override;
    void SetVisible(bool visible) override { m_visible = visible; }
    void DocumentsAdd(const QString &templateFile) override;
    TWordDocument *ActiveDocument() override;
    void Release() override;
    // The documents made, in order (written by Release).
    QStringList Documents() const;

private:
    class Document;
    struct Template;
    std::unique_ptr<Template> m_template;
    std::vector<std::unique_ptr<Document>> m_documents;
    bool m_visible = false;
};

// The legacy text form fields of a document, in document order: name and shown text.
KXCOMMON_EXPORT QList<std::pair<QString, QString>> ooxmlFormFields(const QString &document);

// One pass over a document part (word/document.xml): the part with Results (by the form field's
// number, from 0) in place of the fields' shown texts, and the fields' names and shown texts as
// they stand in the part written. Throws kx::Error for a part that is not well-formed XML.
KXCOMMON_EXPORT QByteArray ooxmlFillFormFields(const QByteArray &part, const QHash<int, QString> &results, QStringList *names,
                               QStringList *shown);
