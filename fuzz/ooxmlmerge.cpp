// SPDX-License-Identifier: LGPL-2.1-or-later
// The merge's pass over a template's document part: any bytes are filled or refused as XML that
// is not well-formed; a filled part is well-formed and has the same form fields, each showing
// the result it was given.
#include "fuzzsupport.h"
#include "kxerror.h"
#include "ooxmlword.h"

#include <QXmlStreamReader>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray part = kxfuzz::asBytes(data, size);
    QStringList names, shown;
    try {
        ooxmlFillFormFields(part, {}, &names, &shown);
    } catch (const kx::Error &) {
        return 0;
    }
    QHash<int, QString> results;
    for (int i = 0; i < names.size(); ++i)
        results.insert(i, QStringLiteral("Zeile %1\vmit\tTab & <Zeichen>").arg(i));
    QStringList filledNames, filledShown;
    const QByteArray filled = ooxmlFillFormFields(part, results, &filledNames, &filledShown);
    QXmlStreamReader check(filled);
    while (!check.atEnd())
        check.readNext();
    KXFUZZ_CHECK(!check.hasError());
    QStringList againNames, againShown;
    ooxmlFillFormFields(filled, {}, &againNames, &againShown);
    KXFUZZ_CHECK(againNames == names);
    return 0;
}
