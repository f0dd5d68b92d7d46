// SPDX-License-Identifier: LGPL-2.1-or-later
#include "katsdata.h"

#include "sqltool.h"

using namespace Qt::StringLiterals;

void Kats_AddNode(const QString &treeId, const QString &parentId, const QString &keyText, const QString &caption)
{
    kx::SqlValueList row;
    row.addText(u"ID"_s, sqlGenIdValue())
        .addText(u"TREENAME"_s, u"KATS"_s)
        .addText(u"TREEID"_s, treeId)
        .addText(u"TREEPARENTID"_s, parentId)
        .addText(u"KEYTEXT"_s, keyText)
        .addText(u"CAPTION"_s, caption);
    SqlExec(SqlBuildInsertSql(u"KATS"_s, row.pairs()));
}

void Kats_AddSampleTree()
{
    const struct
    {
        const char16_t *id;
        const char16_t *parent;
        const char16_t *key;
        const char16_t *caption;
    } nodes[] = {
        { u"FZ", u"", u"01", u"Fahrzeuge" },
        { u"FZ-LF", u"FZ", u"01.01", u"Löschfahrzeuge" },
        { u"FZ-HR", u"FZ", u"01.02", u"Hubrettungsfahrzeuge" },
        { u"FZ-RW", u"FZ", u"01.03", u"Rüst- und Gerätewagen" },
        { u"GE", u"", u"02", u"Geräte" },
        { u"GE-AS", u"GE", u"02.01", u"Atemschutz" },
        { u"GE-AS-PA", u"GE-AS", u"02.01.01", u"Pressluftatmer" },
        { u"GE-AS-CSA", u"GE-AS", u"02.01.02", u"Chemikalienschutzanzüge" },
        { u"GE-SL", u"GE", u"02.02", u"Schläuche und Armaturen" },
        { u"GE-PU", u"GE", u"02.03", u"Pumpen und Aggregate" },
        { u"EA", u"", u"03", u"Einsatzarten" },
        { u"EA-B", u"EA", u"03.01", u"Brandeinsatz" },
        { u"EA-TH", u"EA", u"03.02", u"Technische Hilfeleistung" },
        { u"EA-GSG", u"EA", u"03.03", u"Gefahrstoffeinsatz" },
    };
    for (const auto &n : nodes)
        Kats_AddNode(QString::fromUtf16(n.id), QString::fromUtf16(n.parent), QString::fromUtf16(n.key),
                     QString::fromUtf16(n.caption));
}
