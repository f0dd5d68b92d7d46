// SPDX-License-Identifier: CC0-1.0
// Opens a database, creates the fee tables with the sample schedule, calculates the fee of a
// fire operation and splits an alarm's street text.
#include <kxcommon/aaocommon.h>
#include <kxcommon/feedata.h>
#include <kxcommon/gscommon.h>
#include <kxcommon/kxerror.h>
#include <kxcommon/sqlconnection.h>

#include <QCoreApplication>
#include <cstdio>

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "Aufruf: kxcommon-hello sqlite:DATEI\n");
        return 2;
    }
    try {
        compSqlConnection->Open(QString::fromLocal8Bit(argv[1]));
        fee_CreateTables();
        const QString schedule = fee_AddSampleSchedule();
        double fwaFw = 0, fwSvgv = 0, svgvKt = 0;
        CalcGebuhren(schedule, QStringLiteral("BRAND"), 0, 1, 20, 0, fwaFw, fwSvgv, svgvKt);
        std::printf("Brand, 1 h 20 min: %.2f / %.2f / %.2f\n", fwaFw, fwSvgv, svgvKt);

        const TAaoStrasseParts parts = AaoSplitStrasse(QStringLiteral("Hauptstraße 12a/Hinterhaus"));
        std::printf("Straße: %s, Hausnummer: %s, Zusatz: %s\n", qPrintable(parts.Strasse),
                    qPrintable(parts.CompleteHausnummer()), qPrintable(parts.Zusatz));
        compSqlConnection->Close();
        return 0;
    } catch (const kx::Error &e) {
        std::fprintf(stderr, "%s\n", qPrintable(e.message()));
        return 1;
    }
}
