// SPDX-License-Identifier: LGPL-2.1-or-later
// The import definition file: read, checked against a field list, applied.
#include "fuzzsupport.h"
#include "importcommon.h"
#include "kxerror.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString path = kxfuzz::asFile(data, size, "orte.iDef");
    static const QList<TImportField> fields = [] {
        QList<TImportField> list;
        for (const char *caption : { "PLZ.ORTE", "ORT.ORTE", "STRASSE.ORTE" })
            list.append({ QString::fromLatin1(caption),
                          { QString(), QStringLiteral("ORTE"), QString::fromLatin1(caption).section(u'.', 0, 0),
                            QStringLiteral("VarChar(40)"), QStringLiteral("0"), QStringLiteral("0"), QStringLiteral("TRUE") } });
        return list;
    }();
    const TImportDefinition definition = importReadDefinition(path);
    const QStringList problems = importDefinitionProblems(fields, definition, 3);
    QList<TImportField> applied = fields;
    importApplyDefinition(applied, definition);
    if (problems.isEmpty())
        for (const TImportField &field : applied)
            KXFUZZ_CHECK(field.SubItems[TImportField::Column].isEmpty() || field.SubItems[TImportField::Column].toInt() >= 1);
    return 0;
}
