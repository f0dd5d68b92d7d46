// SPDX-License-Identifier: LGPL-2.1-or-later
// The settings file: any file reads; a written key reads back, and so does every other key.
#include "fuzzsupport.h"
#include "inifile.h"
#include "kxerror.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString path = kxfuzz::asFile(data, size, "kxdb.ini");
    TCIniFile before(path);
    QList<std::pair<QString, QString>> keys;
    for (const QString &section : { QStringLiteral("Scanner"), QStringLiteral("Lage"), QString() })
        for (const QString &key : before.ReadSection(section))
            keys.append({ section, key });
    TCIniFile ini(path);
    ini.WriteString(QStringLiteral("KxFuzz"), QStringLiteral("Wert"), QStringLiteral("Mühle 1"));
    const TCIniFile after(path);
    KXFUZZ_CHECK(after.ReadString(QStringLiteral("kxfuzz"), QStringLiteral("WERT")) == QStringLiteral("Mühle 1"));
    for (const auto &[section, key] : keys)
        KXFUZZ_CHECK(after.ReadString(section, key) == before.ReadString(section, key));
    return 0;
}
