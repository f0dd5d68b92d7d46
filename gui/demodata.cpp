// SPDX-License-Identifier: LGPL-2.1-or-later
#include "demodata.h"

#include "dataaccess.h"
#include "binarydata.h"
#include "dispatchdata.h"
#include "documentdata.h"
#include "globals.h"
#include "sqltool.h"
#include "streetdirectory.h"
#include "importcommonform.h"
#include "tcfiledialog.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include "katscommon.h"
#include "katsdata.h"
#include "modulcommon.h"
#include "sqlconnection.h"
#include "syscommon.h"
#include "tenantdata.h"

using namespace Qt::StringLiterals;

namespace {

// The sample streets of Musterstadt, house numbers for one of them, and a directory of a
// thousand generated postcodes around them.
bool hasDemoStreets()
{
    return sqlGetValueInt(u"select count(*) from ORTE where ID like 'G1-%'"_s) > 0;
}

void createDemoStreetDirectory()
{
    if (hasDemoStreets())
        return;
    dispatch_AddSampleData();
    for (int number = 1; number <= 12; ++number)
        dispatch_AddOrt({ u"64285"_s, u"Musterstadt"_s, u"Altstadt"_s, u"Am Markt"_s, {}, {}, {}, {}, QString::number(number) });
    address_GenerateDirectory(1000);
}

// A folder of documents on the search path, and the demo vehicle's documents: two named by
// their files, a photo stored in the database.
void createDemoDocuments()
{
    const QDir folder = demoDocumentFolder();
    folder.mkpath(u"."_s);
    cSearchPathList = { folder.path() };
    cEnableBinarySave = true;
    const auto write = [&folder](const QString &name, const QByteArray &content) {
        QFile file(folder.filePath(name));
        if (file.open(QIODevice::WriteOnly))
            file.write(content);
    };
    write(u"Fahrzeugbrief HLF 20.txt"_s, "Zulassungsbescheinigung Teil II\nHLF 20, MS-FW 1201\n");
    write(u"Prüfbericht Drehleiter 2026.txt"_s, "Jährliche Prüfung der Drehleiter: ohne Mängel.\n");
    QImage photo(320, 200, QImage::Format_RGB32);
    photo.fill(QColor(0xC8, 0x10, 0x2E));
    QPainter painter(&photo);
    painter.setPen(Qt::white);
    painter.drawText(photo.rect(), Qt::AlignCenter, u"Einsatzstelle Hauptstraße 12"_s);
    painter.end();
    photo.save(folder.filePath(u"Einsatzfoto.jpg"_s), "JPEG", 80);
    if (compSqlConnection->tableExists(demoDocumentTable))
        return;
    documents_CreateTable(demoDocumentTable);
    documents_Add(demoDocumentTable, demoVehicle, u"Fahrzeugbrief"_s, u"Fahrzeugbrief HLF 20.txt"_s);
    documents_Add(demoDocumentTable, demoVehicle, u"Prüfbericht Drehleiter"_s, u"Prüfbericht Drehleiter 2026.txt"_s);
    const QString stored = documents_Add(demoDocumentTable, demoVehicle, u"Einsatzfoto"_s, u"Einsatzfoto.jpg"_s);
    SaveBinaryData(stored, demoDocumentTable, u"DOKUMENT"_s, folder.filePath(u"Einsatzfoto.jpg"_s));
}

} // namespace

QDir demoDocumentFolder()
{
    return QDir(QDir::temp().filePath(u"kxcommon-demo-dokumente"_s));
}

bool hasDemoData()
{
    return compSqlConnection->tableExists(demoDocumentTable) && compSqlConnection->tableExists(u"ORTE"_s)
        && hasDemoStreets();
}

void prepareDemoSession()
{
    tenants_SignInSampleUser();
    cSearchPathList = { demoDocumentFolder().path() };
}

void createDemoData()
{
    if (!compSqlConnection->tableExists(u"SysDef_DataLink"_s))
        Sys_CreateData();
    if (!compSqlConnection->tableExists(u"SYSDef_Module"_s))
        mdef_CreateData();
    if (!compSqlConnection->tableExists(u"SYSDef_Kats"_s)) {
        Kats_CreateData();
        Kats_AddSampleTree();
        Kats_AddModul(demoModule, 7010, u"Fahrzeug"_s, u"Fahrzeug_Kats"_s, u"KENNZEICHEN,TYP"_s);
        Kats_WriteCheckState(demoVehicle, demoModule, { u"FZ-LF"_s, u"GE-AS-PA"_s, u"GE-SL"_s, u"EA-B"_s, u"EA-TH"_s });
    }
    if (!compSqlConnection->tableExists(u"Mandanten"_s)) {
        tenants_CreateTables();
        tenants_AddSampleData();
    }
    if (!compSqlConnection->tableExists(u"ORTE"_s))
        dispatch_CreateTables();
    createDemoStreetDirectory();
    tenants_SignInSampleUser();
    createDemoDocuments();
}

TImportCommonForm *createDemoImportForm(QWidget *owner)
{
    auto *form = new TImportCommonForm(owner);
    form->sourceDataAccess = importTableDefinition(u"ORTE"_s, form);
    form->setOnAfterUpdateRecord(importAfterUpdateHook(u"ORTE"_s));
    form->FormShow();
    // The example's definition names its file relative to itself; the copy names it in full.
    // The sources' example, or the installed copy beside the symbol pack.
    QString folder = QStringLiteral(KX_DEMO_IMPORT_DIR);
    if (!QFileInfo::exists(folder))
        folder = cApplicationPath + u"/examples/import"_s;
    QFile example(folder + u"/orte.iDef"_s);
    QFile copy(QDir::temp().filePath(u"kxcommon-demo-orte.iDef"_s));
    if (example.open(QIODevice::ReadOnly) && copy.open(QIODevice::WriteOnly))
        copy.write(example.readAll().replace("_File_=orte.csv", QByteArray("_File_=" + QFile::encodeName(folder + u"/orte.csv"_s))));
    copy.close();
    form->LoadDefinition(copy.fileName());
    form->DatabasePrimaryKeyEdit->setCurrentText(u"STRASSE.ORTE"_s);
    form->ImportPrimaryKeyEdit->setCurrentText(u"Spalte 4"_s);
    return form;
}
