// SPDX-License-Identifier: LGPL-2.1-or-later
// The text reader of imports: any bytes give lines; the count of a scan is the count read.
#include "fuzzsupport.h"
#include "importcommon.h"
#include "kxerror.h"
#include "textfile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString path = kxfuzz::asFile(data, size, "import.csv");
    kx::TextLineReader reader(path);
    qint64 lines = 0;
    for (QString line; reader.readLine(line); ++lines) {
        KXFUZZ_CHECK(!line.contains(u'\n') && !line.contains(u'\r') && !line.contains(QChar(0)));
    }
    KXFUZZ_CHECK(kx::TextLineReader::scan(path).lines == lines);
    importFileColumns(path);
    return 0;
}
