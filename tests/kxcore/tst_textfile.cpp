// SPDX-License-Identifier: LGPL-2.1-or-later
// Files as other programs write them: any lines, joined by CRLF, LF or CR in any mix, written as
// UTF-8 (with or without mark), UTF-16 LE or BE (with mark), or line by line in UTF-8 or
// Windows-1252, are read back as the same lines.
#include "property.h"
#include "scratchfiles.h"
#include "textfile.h"

#include <QStringEncoder>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

enum class Written { Utf8, Utf8Mark, Utf16LE, Utf16BE, MixedPerLine };

QByteArray encoded(const QString &line, Written written, bool windows1252)
{
    switch (written) {
    case Written::Utf16LE:
        return QStringEncoder(QStringConverter::Utf16LE).encode(line);
    case Written::Utf16BE:
        return QStringEncoder(QStringConverter::Utf16BE).encode(line);
    case Written::MixedPerLine:
        if (windows1252)
            return line.toLatin1(); // the alphabet's letters are the same in Latin-1 and Windows-1252
        [[fallthrough]];
    default:
        return line.toUtf8();
    }
}

TEST(TextLineReader, LinesComeBackWhateverTheEncodingAndLineEnds)
{
    QTemporaryDir dir;
    const QString name = dir.filePath(u"zeilen.csv"_s);
    // No letter here is a UTF-8 continuation byte in Windows-1252, so a Windows-1252 line with
    // one of them is never valid UTF-8 and is told apart.
    const QString alphabet = u"abcXYZ09 ;,.\"'-äöüßÄÖÜ"_s;
    EXPECT_TRUE(kxtest::propertyHolds("lines read back", 300, [&] {
        const auto letter = rc::gen::elementOf(std::vector<QChar>(alphabet.cbegin(), alphabet.cend()));
        const auto lines = *rc::gen::container<std::vector<std::vector<QChar>>>(rc::gen::container<std::vector<QChar>>(letter));
        const auto written = Written(*rc::gen::inRange(0, 5));
        const char *const ends[] = { "\r\n", "\n", "\r" };
        QByteArray bytes = written == Written::Utf8Mark ? "\xEF\xBB\xBF"
            : written == Written::Utf16LE               ? "\xFF\xFE"
            : written == Written::Utf16BE               ? "\xFE\xFF"
                                                        : "";
        QStringList expected;
        int previousEnd = -1;
        for (size_t i = 0; i < lines.size(); ++i) {
            const QString line(lines[i].data(), qsizetype(lines[i].size()));
            expected << line;
            bytes += encoded(line, written, *rc::gen::arbitrary<bool>());
            // The last line may end without a line end, unless it is empty (then it is no line). An
            // empty line after a CR takes no LF alone: CR and LF are one CRLF.
            if (i + 1 < lines.size() || line.isEmpty() || *rc::gen::arbitrary<bool>()) {
                const bool afterCr = previousEnd == 2 && line.isEmpty();
                previousEnd = afterCr ? *rc::gen::elementOf(std::vector<int>{ 0, 2 }) : *rc::gen::inRange(0, 3);
                bytes += encoded(QString::fromLatin1(ends[previousEnd]), written, false);
            }
        }
        kxtest::writeFile(name, bytes);
        kx::TextLineReader reader(name);
        QStringList read;
        for (QString line; reader.readLine(line);)
            read << line;
        RC_ASSERT(read.join(u"|"_s).toStdString() == expected.join(u"|"_s).toStdString());
        RC_ASSERT(read.size() == expected.size());
        RC_ASSERT(kx::TextLineReader::scan(name).lines == qint64(expected.size()));
    }));
}

// The file is read in pieces of 64 KiB: a CRLF split between two pieces is still one line end,
// and a UTF-16 character split between them is still one character.
TEST(TextLineReader, LineEndsAcrossPieces)
{
    QTemporaryDir dir;
    const QString name = dir.filePath(u"lang.csv"_s);
    kxtest::writeFile(name, QByteArray(65535, 'x') + "\r\nende\r");
    kx::TextLineReader bytes(name);
    QString first, second, none;
    EXPECT_TRUE(bytes.readLine(first) && bytes.readLine(second) && !bytes.readLine(none));
    EXPECT_EQ(first.size(), 65535);
    EXPECT_EQ(second, u"ende"_s);

    const QByteArray utf16Text = QStringEncoder(QStringConverter::Utf16LE).encode(QString(32766, u'ü') + u"\r\nß"_s);
    kxtest::writeFile(name, QByteArray("\xFF\xFE") + utf16Text);
    kx::TextLineReader utf16(name);
    EXPECT_TRUE(utf16.readLine(first) && utf16.readLine(second) && !utf16.readLine(none));
    EXPECT_EQ(first, QString(32766, u'ü'));
    EXPECT_EQ(second, u"ß"_s);
}

} // namespace
