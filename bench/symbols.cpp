// SPDX-License-Identifier: LGPL-2.1-or-later
// Loading 1,000 symbols from a pack against reading the same images as loose files from a
// symbol folder, both decoded to pictures, in the same run. No database is involved; the line
// carries the "sqlite" label of the embedded default.
#include "benchsupport.h"

#include "symbolspackbuilder.h"
#include "symbolspackcommon.h"

#include <QCoreApplication>
#include <QDir>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

constexpr int symbolCount = 1000;
constexpr int folders = 10;

// 1,000 different 64 x 64 pictures in ten category folders.
void drawSymbols(const QString &root)
{
    for (int i = 0; i < symbolCount; ++i) {
        QImage image(64, 64, QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setBrush(QColor::fromHsv((i * 37) % 360, 200, 220));
        painter.drawRect(4 + i % 8, 14, 52 - i % 8, 30);
        painter.drawEllipse(14, 44, 10, 10);
        painter.drawEllipse(40, 44, 10, 10);
        painter.end();
        const QString folder = root + u"/Kategorie%1"_s.arg(i % folders);
        QDir().mkpath(folder);
        image.save(folder + u"/Symbol%1.png"_s.arg(i, 4, 10, QLatin1Char('0')));
    }
}

// Median seconds over the rounds of loading the symbols and decoding every picture.
double loadAndDecode(int rounds, const std::function<void(TItemSymbolManager &)> &load, int &count)
{
    std::vector<double> times;
    for (int r = 0; r < rounds + 1; ++r) {
        TItemSymbolManager symbols;
        const double t = kxbench::seconds([&] {
            load(symbols);
            for (int i = 0; i < symbols.Count(); ++i)
                symbols.Item(i)->Graphic();
        });
        if (r > 0) // the first warms the file cache
            times.push_back(t);
        count = symbols.Count();
    }
    return kxbench::median(times);
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    QTemporaryDir scratch;
    const QString folder = scratch.filePath(u"Bitmaps"_s);
    const QString pack = scratch.filePath(u"symbols.pak"_s);
    drawSymbols(folder);
    SymbolsBuildPack(folder, pack);

    const int rounds = 15;
    int fromFolder = 0, fromPack = 0, indexOnly = 0;
    const double folderTime = loadAndDecode(rounds, [&](TItemSymbolManager &m) {
        TSymbolsPackIconManager::LoadFrom(&m, stUserdefined, folder);
    }, fromFolder);
    const double packTime = loadAndDecode(rounds, [&](TItemSymbolManager &m) { m.LoadFromFile(pack); }, fromPack);
    std::vector<double> indexTimes;
    for (int r = 0; r < rounds; ++r) {
        TItemSymbolManager symbols;
        indexTimes.push_back(kxbench::seconds([&] { symbols.LoadFromFile(pack); }));
        indexOnly = symbols.Count();
    }
    if (fromFolder != symbolCount || fromPack != symbolCount || indexOnly != symbolCount) {
        out << "BENCH symbols sqlite invalid: " << fromFolder << " from the folder, " << fromPack << " from the pack\n";
        return 1;
    }
    out << "BENCH symbols sqlite ratio=" << QString::number(packTime / folderTime, 'f', 3) << " loading "
        << symbolCount << " symbols from a pack (" << QFileInfo(pack).size() / 1024 << " KiB) over reading the same "
        << "PNG files from " << folders << " folders, every picture decoded: " << QString::number(packTime * 1e3, 'f', 1)
        << " ms vs " << QString::number(folderTime * 1e3, 'f', 1) << " ms; the pack's directory alone "
        << QString::number(kxbench::median(indexTimes) * 1e3, 'f', 2) << " ms (median of " << rounds << ")\n";
    return 0;
}
