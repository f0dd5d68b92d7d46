// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QDir>
#include <QString>

// The demo data the windows show, created once per database: the system tables, the category
// tree with the vehicle module and the ticks of one vehicle, the sample tenants, the street
// directory (Musterstadt's streets and a thousand generated postcodes); then the sample user is
// signed in, and the demo vehicle's documents are made (a folder on the search path, binary
// storage switched on).
void createDemoData();
// The folder of the demo's document files, on the search path.
QDir demoDocumentFolder();
// Whether the database already holds the demo data (its streets and its documents).
bool hasDemoData();
// What the windows need without writing to the database: the sample user signed in, the demo
// documents' folder on the search path.
void prepareDemoSession();

class TImportCommonForm;
class QWidget;
// The import form for the street directory ORTE, with the example file and its definition
// loaded (the file's columns shown, the pairs made): the form owns what it needs.
TImportCommonForm *createDemoImportForm(QWidget *owner);

// The vehicle of the demo whose categories are ticked.
inline const QString demoVehicle = QStringLiteral("FZ-1");
inline const QString demoModule = QStringLiteral("Fahrzeuge");
// The document table of the demo's vehicles.
inline const QString demoDocumentTable = QStringLiteral("Fahrzeug_Dokumente");
