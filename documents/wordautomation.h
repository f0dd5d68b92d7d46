// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_export.h>

#include <QString>
#include <functional>
#include <memory>

// The word processor's object model as the merge drives it: the application, its documents
// ("Documents.Add" of a template) and the active document's legacy form fields (1-based, as the
// object model counts them).
class KXCOMMON_EXPORT TWordDocument
{
public:
    virtual ~TWordDocument() = default;
    virtual int FormFieldsCount() const = 0;
    virtual QString FormFieldName(int item) const = 0;
    virtual void SetFormFieldResult(int item, const QString &result) = 0;
};

class KXCOMMON_EXPORT TWordApplication
{
public:
    virtual ~TWordApplication() = default;
    // Why this word processor cannot fill the template (the merge then logs it and does
    // nothing); empty when it can.
    virtual QString CannotFill(const QString &templateFile) const = 0;
    virtual void SetVisible(bool visible) = 0;
    // A new document from the template, which becomes the active document.
    virtual void DocumentsAdd(const QString &templateFile) = 0;
    // The active document, or nullptr before the first DocumentsAdd.
    virtual TWordDocument *ActiveDocument() = 0;
    // Done with the application: the documents stay for the user ("open and visible").
    virtual void Release() = 0;
};

// Makes the application object for a merge ("get the running one, else create one").
using TWordApplicationFactory = std::function<std::unique_ptr<TWordApplication>()>;
KXCOMMON_EXPORT TWordApplicationFactory &wordApplicationFactory();
