// SPDX-License-Identifier: LGPL-2.1-or-later
// The schemas of the system tables, as declared by the system-table holder.
#include "systables.h"

using namespace Qt::StringLiterals;

namespace systables {

// Every system table carries the same rights, in number order.
const QList<TCRight> &systemRights()
{
    static const QList<TCRight> rights{
        { 20, u"Lesen"_s },         { 30, u"Anlegen"_s },       { 40, u"Ändern"_s },
        { 45, u"Benutzermenüs bearbeiten"_s }, { 50, u"Löschen"_s }, { 60, u"Sammellöschen"_s },
        { 70, u"Drucken"_s },       { 75, u"Direktdruck"_s },   { 80, u"Kopieren"_s },
        { 90, u"Exportieren"_s },   { 100, u"Änderungsprotokoll"_s }, { 110, u"Masken Administration"_s },
    };
    return rights;
}

const TCTableDef &SysDef_Dialog()
{
    static const TCTableDef table{ u"SysDef_Dialog"_s,
        {
            { u"ID"_s, u"Varchar(43)"_s, fIndex },
            { u"DIALOG"_s, u"VarChar(50)"_s, fIndex },
            { u"CONTROL"_s, u"VarChar(50)"_s, fIndex },
            { u"CONTROLHINT"_s, u"VarChar(2000)"_s },
            { u"CAPTION"_s, u"VarChar(50)"_s },
            { u"FLAGVISIBLE"_s, u"Numeric(10,0)"_s },
            { u"FLAGENABLED"_s, u"Numeric(10,0)"_s },
            { u"FLAGUNIQUE"_s, u"Numeric(10,0)"_s },
            { u"FLAGNOTNULL"_s, u"Numeric(10,0)"_s },
            { u"FLAGLOOKUP"_s, u"Numeric(10,0)"_s },
            { u"DEFAULTVALUE"_s, u"VarChar(50)"_s },
            { u"BFLAGVISIBLE"_s, u"Numeric(10,0)"_s },
            { u"BFLAGENABLED"_s, u"Numeric(10,0)"_s },
            { u"BFLAGUNIQUE"_s, u"Numeric(10,0)"_s },
            { u"BFLAGNOTNULL"_s, u"Numeric(10,0)"_s },
            { u"BFLAGLOOKUP"_s, u"Numeric(10,0)"_s },
            { u"BCAPTION"_s, u"VarChar(50)"_s },
            { u"MANDANTID"_s, u"Varchar(40)"_s, fIndex },
            { u"UID"_s, u"Varchar(33)"_s, fIndex },
            { u"SID"_s, u"Varchar(33)"_s, fIndex },
            { u"LDATE"_s, u"Date"_s, fIndex },
            { u"LTIME"_s, u"Varchar(10)"_s, fIndex },
            { u"LUSER"_s, u"VarChar(50)"_s, fIndex },
        },
        {{ u"SysDef_DialogIndex"_s, true, u"Dialog,Control"_s } },
        systemRights() };
    return table;
}

const TCTableDef &SysDef_Replicate()
{
    static const TCTableDef table{ u"SysDef_Replicate"_s,
        {
            { u"ID"_s, u"Varchar(33)"_s },
            { u"RDATE"_s, u"Numeric(10,0)"_s, fIndex },
            { u"RTIME"_s, u"Numeric(10,0)"_s, fIndex },
            { u"RTABLE"_s, u"VarChar(30)"_s, fIndex },
            { u"RPARENTTABLE"_s, u"VarChar(30)"_s },
            { u"RMODE"_s, u"Numeric(10,0)"_s, fIndex },
            { u"RUID"_s, u"VarChar(33)"_s, fIndex },
            { u"RPARENTUID"_s, u"VarChar(33)"_s },
            { u"RSTATE"_s, u"Numeric(10,0)"_s },
            { u"MANDANTID"_s, u"Varchar(40)"_s, fIndex },
            { u"UID"_s, u"Varchar(33)"_s, fIndex },
            { u"SID"_s, u"Varchar(33)"_s, fIndex },
            { u"CLIENTID"_s, u"Varchar(33)"_s },
            { u"SERVERID"_s, u"Varchar(33)"_s },
            { u"LDATE"_s, u"Date"_s, fIndex },
            { u"LTIME"_s, u"Varchar(10)"_s, fIndex },
            { u"LUSER"_s, u"VarChar(50)"_s, fIndex },
        },
        { },
        systemRights() };
    return table;
}

const TCTableDef &SysDef_System()
{
    static const TCTableDef table{ u"SysDef_System"_s,
        {
            { u"ID"_s, u"Varchar(43)"_s, fIndex },
            { u"SYSCONST"_s, u"VarChar(50)"_s, fIndex },
            { u"SYSVALUE"_s, u"VarChar(50)"_s, fIndex },
            { u"UID"_s, u"Varchar(33)"_s, fIndex },
            { u"MANDANTID"_s, u"Varchar(40)"_s, fIndex },
            { u"SID"_s, u"VarChar(50)"_s, fIndex },
            { u"LDATE"_s, u"Date"_s, fIndex },
            { u"LTIME"_s, u"Varchar(10)"_s, fIndex },
            { u"LUSER"_s, u"VarChar(50)"_s, fIndex },
        },
        { },
        systemRights() };
    return table;
}

const TCTableDef &SysDef_GlobalReplicate()
{
    static const TCTableDef table{ u"SysDef_GlobalReplicate"_s,
        {
            { u"ID"_s, u"Varchar(43)"_s, fIndex },
            { u"RDATE"_s, u"Numeric(10,0)"_s, fIndex },
            { u"RTIME"_s, u"Numeric(10,0)"_s, fIndex },
            { u"RTABLE"_s, u"VarChar(30)"_s, fIndex },
            { u"RPARENTTABLE"_s, u"VarChar(30)"_s },
            { u"RMODE"_s, u"Numeric(10,0)"_s, fIndex },
            { u"RUID"_s, u"VarChar(33)"_s, fIndex },
            { u"RPARENTUID"_s, u"VarChar(33)"_s },
            { u"RSTATE"_s, u"Numeric(10,0)"_s },
            { u"RSID"_s, u"VarChar(33)"_s },
            { u"UID"_s, u"Varchar(33)"_s, fIndex },
            { u"SID"_s, u"Varchar(33)"_s, fIndex },
            { u"MANDANTID"_s, u"Varchar(40)"_s, fIndex },
            { u"LDATE"_s, u"Date"_s, fIndex },
            { u"LTIME"_s, u"Varchar(10)"_s, fIndex },
            { u"LUSER"_s, u"VarChar(50)"_s, fIndex },
        },
        { },
        systemRights() };
    return table;
}

const TCTableDef &SysDef_DataLink()
{
    static const TCTableDef table{ u"SysDef_DataLink"_s,
        {
            { u"ID"_s, u"Varchar(33)"_s },
            { u"TABLENAME"_s, u"VarChar(50)"_s, fIndex },
            { u"FIELDNAME"_s, u"VarChar(50)"_s, fIndex },
            { u"LINKTABLENAME"_s, u"VarChar(50)"_s },
            { u"LINKFIELDNAME"_s, u"VarChar(50)"_s },
            { u"UID"_s, u"Varchar(33)"_s, fIndex },
            { u"SID"_s, u"Varchar(33)"_s, fIndex },
            { u"MANDANTID"_s, u"Varchar(40)"_s, fIndex },
            { u"LDATE"_s, u"Date"_s, fIndex },
            { u"LTIME"_s, u"Varchar(10)"_s, fIndex },
            { u"LUSER"_s, u"VarChar(50)"_s, fIndex },
        },
        { },
        systemRights() };
    return table;
}

const TCTableDef &SysDef_Replicate2()
{
    static const TCTableDef table{ u"SysDef_Replicate2"_s,
        {
            { u"ID"_s, u"Varchar(33)"_s },
            { u"CHUNKNO"_s, u"Numeric(10,0)"_s },
            { u"CHUNKCOUNT"_s, u"Numeric(10,0)"_s },
            { u"CHUNKID"_s, u"Varchar(33)"_s },
            { u"DATASQL"_s, u"VarChar(2000)"_s },
            { u"WORKER"_s, u"Varchar(33)"_s },
            { u"MANDANTID"_s, u"Varchar(40)"_s, fIndex },
            { u"UID"_s, u"Varchar(33)"_s, fIndex },
            { u"SID"_s, u"Varchar(33)"_s, fIndex },
            { u"LDATE"_s, u"Date"_s, fIndex },
            { u"LTIME"_s, u"Varchar(10)"_s, fIndex },
            { u"LUSER"_s, u"VarChar(50)"_s, fIndex },
        },
        { },
        systemRights() };
    return table;
}

const TCTableDef &SysDef_ReplicateLog2()
{
    static const TCTableDef table{ u"SysDef_ReplicateLog2"_s,
        {
            { u"ID"_s, u"Varchar(33)"_s },
            { u"EVENTDATE"_s, u"Date"_s },
            { u"EVENTTIME"_s, u"VarChar(10)"_s },
            { u"EVENT"_s, u"VarChar(200)"_s },
            { u"MANDANTID"_s, u"Varchar(40)"_s, fIndex },
            { u"UID"_s, u"Varchar(33)"_s, fIndex },
            { u"SID"_s, u"Varchar(33)"_s, fIndex },
            { u"LDATE"_s, u"Date"_s, fIndex },
            { u"LTIME"_s, u"Varchar(10)"_s, fIndex },
            { u"LUSER"_s, u"VarChar(50)"_s, fIndex },
            { u"EVENTSTATUS"_s, u"Numeric(10,0)"_s, fIndex },
            { u"EVENTMESSAGE"_s, u"VarChar(2000)"_s },
            { u"EVENTGROUP"_s, u"Varchar(33)"_s, fIndex },
        },
        { },
        systemRights() };
    return table;
}

const TCTableDef &SysDef_Replicate3()
{
    static const TCTableDef table{ u"SysDef_Replicate3"_s,
        {
            { u"ID"_s, u"Varchar(33)"_s, fIndex },
            { u"DATA"_s, u"BLOB SUB_TYPE TEXT SEGMENT SIZE 80"_s },
            { u"MODE"_s, u"Numeric(10,0)"_s },
            { u"SORTID"_s, u"Numeric(15,0)"_s, fIndex },
            { u"MANDANTID"_s, u"Varchar(40)"_s, fIndex },
            { u"UID"_s, u"Varchar(33)"_s, fIndex },
            { u"SID"_s, u"Varchar(33)"_s, fIndex },
            { u"LDATE"_s, u"Date"_s, fIndex },
            { u"LTIME"_s, u"Varchar(10)"_s, fIndex },
            { u"LUSER"_s, u"VarChar(50)"_s, fIndex },
        },
        { },
        systemRights() };
    return table;
}

const TCTableDef &SysDef_Replicate3Clients()
{
    static const TCTableDef table{ u"SysDef_Replicate3Clients"_s,
        {
            { u"ID"_s, u"Varchar(33)"_s, fIndex },
            { u"IDPARENT"_s, u"Varchar(33)"_s, fIndex },
            { u"CLIENTID"_s, u"Varchar(33)"_s, fIndex },
            { u"MODE"_s, u"Numeric(10,0)"_s, fIndex },
            { u"MANDANTID"_s, u"Varchar(40)"_s, fIndex },
            { u"UID"_s, u"Varchar(33)"_s, fIndex },
            { u"SID"_s, u"Varchar(33)"_s, fIndex },
            { u"LDATE"_s, u"Date"_s, fIndex },
            { u"LTIME"_s, u"Varchar(10)"_s, fIndex },
            { u"LUSER"_s, u"VarChar(50)"_s, fIndex },
        },
        { },
        systemRights() };
    return table;
}

const TCTableDef &USBRel64Data()
{
    static const TCTableDef table{ u"USBRel64Data"_s,
        {
            { u"ID"_s, u"Varchar(43)"_s, fIndex|fUniqueIndex|fUnique },
            { u"RVALUE"_s, u"Numeric(10,0)"_s },
            { u"MANDANTID"_s, u"Varchar(40)"_s, fIndex },
            { u"UID"_s, u"Varchar(33)"_s, fIndex },
            { u"SID"_s, u"Varchar(33)"_s, fIndex },
            { u"LDATE"_s, u"Date"_s, fIndex },
            { u"LTIME"_s, u"Varchar(10)"_s, fIndex },
            { u"LUSER"_s, u"VarChar(50)"_s, fIndex },
        },
        { },
        systemRights() };
    return table;
}

const TCTableDef &USBRel64Settings()
{
    static const TCTableDef table{ u"USBRel64Settings"_s,
        {
            { u"ID"_s, u"Varchar(43)"_s, fIndex|fUniqueIndex|fUnique },
            { u"RTYPE"_s, u"Numeric(10,0)"_s },
            { u"RVALUE1"_s, u"Numeric(10,0)"_s },
            { u"RVALUE2"_s, u"Numeric(10,0)"_s },
            { u"CONTROLDATA"_s, u"VarChar(2000)"_s },
            { u"MANDANTID"_s, u"Varchar(40)"_s, fIndex },
            { u"UID"_s, u"Varchar(33)"_s, fIndex },
            { u"SID"_s, u"Varchar(33)"_s, fIndex },
            { u"LDATE"_s, u"Date"_s, fIndex },
            { u"LTIME"_s, u"Varchar(10)"_s, fIndex },
            { u"LUSER"_s, u"VarChar(50)"_s, fIndex },
        },
        { },
        systemRights() };
    return table;
}

const TCTableDef &LagerLog()
{
    static const TCTableDef table{ u"LagerLog"_s,
        {
            { u"ID"_s, u"Varchar(43)"_s, fIndex },
            { u"DATUM"_s, u"Date"_s },
            { u"UHRZEIT"_s, u"VarChar(10)"_s },
            { u"BENUTZER"_s, u"VarChar(80)"_s },
            { u"TABELLE"_s, u"VarChar(80)"_s },
            { u"ART"_s, u"VarChar(80)"_s },
            { u"ANZAHL"_s, u"Numeric(15,2)"_s },
            { u"OLDCOUNTBESTAND"_s, u"Numeric(15,2)"_s },
            { u"COUNTBESTAND"_s, u"Numeric(15,2)"_s },
            { u"IDARTIKEL"_s, u"Varchar(33)"_s },
            { u"PREIS"_s, u"Numeric(15,2)"_s },
            { u"MODULNR"_s, u"VarChar(10)"_s },
            { u"LLMODE"_s, u"Numeric(10,0)"_s },
            { u"SOURCEMODE"_s, u"Numeric(10,0)"_s },
            { u"KOSTENSTELLEIN"_s, u"VarChar(50)"_s },
            { u"KOSTENSTELLEOUT"_s, u"VarChar(50)"_s },
            { u"TSTAMP"_s, u"VarChar(20)"_s },
            { u"MANDANTID"_s, u"Varchar(40)"_s, fIndex },
            { u"LDATE"_s, u"Date"_s },
            { u"LTIME"_s, u"Varchar(10)"_s },
            { u"LUSER"_s, u"VarChar(50)"_s },
            { u"UID"_s, u"Varchar(33)"_s, fIndex },
            { u"SID"_s, u"Varchar(33)"_s, fIndex },
            { u"LINKID"_s, u"Varchar(33)"_s },
            { u"INCOUNTAVAIL"_s, u"Numeric(15,2)"_s },
            { u"OUT_IDIN"_s, u"Varchar(33)"_s },
            { u"IDBELEGNUMMER"_s, u"Numeric(10,0)"_s },
            { u"IDBESTELLUNG"_s, u"Varchar(33)"_s },
            { u"IDWARENEINGANG"_s, u"Varchar(33)"_s },
            { u"IDEINGANGSRECHNUNG"_s, u"Varchar(33)"_s },
            { u"IDAUSGABE"_s, u"Varchar(33)"_s },
            { u"OUT_IDBELEGNUMMERIN"_s, u"Numeric(10,0)"_s },
        },
        // Serves the look-up of an article's open receipts on every issue.
        { { u"LagerLogArtikelIDX"_s, false, u"IDARTIKEL,INCOUNTAVAIL"_s } },
        systemRights() };
    return table;
}

const TCTableDef &OfficeTableMapping()
{
    static const TCTableDef table{ u"OfficeTableMapping"_s,
        {
            { u"ID"_s, u"Varchar(43)"_s, fIndex },
            { u"TABLENAME"_s, u"VarChar(40)"_s },
            { u"FIELDNAME"_s, u"VarChar(40)"_s },
            { u"OFFICENAME"_s, u"VarChar(20)"_s },
            { u"TABLENO"_s, u"Numeric(10,0)"_s, fIndex },
            { u"FIELDNO"_s, u"Numeric(10,0)"_s, fIndex },
            { u"MANDANTID"_s, u"Varchar(40)"_s, fIndex },
            { u"LDATE"_s, u"Date"_s },
            { u"LTIME"_s, u"Varchar(10)"_s },
            { u"LUSER"_s, u"VarChar(50)"_s },
            { u"UID"_s, u"Varchar(33)"_s, fIndex },
            { u"SID"_s, u"Varchar(33)"_s, fIndex },
        },
        {{ u"OfficeTableMappingMainIDX"_s, true, u"Tablename,Fieldname"_s } },
        systemRights() };
    return table;
}

const TCTableDef &LagerLogMonth()
{
    static const TCTableDef table{ u"LagerLogMonth"_s,
        {
            { u"ID"_s, u"Varchar(43)"_s, fIndex },
            { u"IDARTIKEL"_s, u"Varchar(33)"_s },
            { u"MONAT"_s, u"Numeric(10,0)"_s },
            { u"JAHR"_s, u"Numeric(10,0)"_s },
            { u"ANFANGSBESTAND"_s, u"Numeric(15,2)"_s },
            { u"ENDBESTAND"_s, u"Numeric(15,2)"_s },
            { u"ANFANGSDATE"_s, u"Date"_s },
            { u"ENDDATE"_s, u"Date"_s },
            { u"MANDANTID"_s, u"Varchar(40)"_s, fIndex },
            { u"LDATE"_s, u"Date"_s },
            { u"LTIME"_s, u"Varchar(10)"_s },
            { u"LUSER"_s, u"VarChar(50)"_s },
            { u"UID"_s, u"Varchar(33)"_s, fIndex },
            { u"SID"_s, u"Varchar(33)"_s, fIndex },
        },
        // Serves the look-up of the article's balance of the month on every booking.
        { { u"LagerLogMonthArtikelIDX"_s, false, u"IDARTIKEL,JAHR,MONAT"_s } },
        systemRights() };
    return table;
}

const TCTableDef &BinaryData()
{
    static const TCTableDef table{ u"BinaryData"_s,
        {
            { u"ID"_s, u"Varchar(33)"_s, fIndex },
            { u"IDPARENT"_s, u"Varchar(33)"_s, fIndex },
            { u"TABLEPARENT"_s, u"VarChar(30)"_s },
            { u"DATAFILTER"_s, u"VarChar(50)"_s },
            { u"DATAFILENAME"_s, u"VarChar(200)"_s },
            { u"DATAMD5"_s, u"Varchar(33)"_s },
            { u"DATA"_s, u"BLOB SUB_TYPE 0"_s },
            { u"MANDANTID"_s, u"Varchar(40)"_s, fIndex },
            { u"LDATE"_s, u"Date"_s },
            { u"LTIME"_s, u"Varchar(10)"_s },
            { u"LUSER"_s, u"VarChar(50)"_s },
            { u"UID"_s, u"Varchar(33)"_s, fIndex },
            { u"SID"_s, u"Varchar(33)"_s, fIndex },
        },
        { },
        systemRights() };
    return table;
}

QList<TCTableDef> allTables()
{
    return { SysDef_Dialog(), SysDef_Replicate(), SysDef_System(), SysDef_GlobalReplicate(), SysDef_DataLink(),
             SysDef_Replicate2(), SysDef_ReplicateLog2(), SysDef_Replicate3(), SysDef_Replicate3Clients(),
             USBRel64Data(), USBRel64Settings(), LagerLog(), OfficeTableMapping(), LagerLogMonth(), BinaryData() };
}

} // namespace systables
