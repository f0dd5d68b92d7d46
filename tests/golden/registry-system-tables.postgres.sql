select tablename from pg_tables where schemaname=current_schema() order by tablename NULLS FIRST
;
CREATE TABLE SysDef_Dialog (ID Varchar(43), DIALOG VarChar(50), CONTROL VarChar(50), CONTROLHINT VarChar(2000), CAPTION VarChar(50), FLAGVISIBLE Numeric(10,0), FLAGENABLED Numeric(10,0), FLAGUNIQUE Numeric(10,0), FLAGNOTNULL Numeric(10,0), FLAGLOOKUP Numeric(10,0), DEFAULTVALUE VarChar(50), BFLAGVISIBLE Numeric(10,0), BFLAGENABLED Numeric(10,0), BFLAGUNIQUE Numeric(10,0), BFLAGNOTNULL Numeric(10,0), BFLAGLOOKUP Numeric(10,0), BCAPTION VarChar(50), MANDANTID Varchar(40), UID Varchar(33), SID Varchar(33), LDATE Date, LTIME Varchar(10), LUSER VarChar(50))
;
select indexname from pg_indexes where schemaname=current_schema() and tablename='sysdef_dialog'
;
CREATE INDEX IX_SYSDEF_DIALOG_ID ON SysDef_Dialog (ID)
;
CREATE INDEX IX_SYSDEF_DIALOG_DIALOG ON SysDef_Dialog (DIALOG)
;
CREATE INDEX IX_SYSDEF_DIALOG_CONTROL ON SysDef_Dialog (CONTROL)
;
CREATE INDEX IX_SYSDEF_DIALOG_MANDANTID ON SysDef_Dialog (MANDANTID)
;
CREATE INDEX IX_SYSDEF_DIALOG_UID ON SysDef_Dialog (UID)
;
CREATE INDEX IX_SYSDEF_DIALOG_SID ON SysDef_Dialog (SID)
;
CREATE INDEX IX_SYSDEF_DIALOG_LDATE ON SysDef_Dialog (LDATE)
;
CREATE INDEX IX_SYSDEF_DIALOG_LTIME ON SysDef_Dialog (LTIME)
;
CREATE INDEX IX_SYSDEF_DIALOG_LUSER ON SysDef_Dialog (LUSER)
;
CREATE UNIQUE INDEX SYSDEF_DIALOGINDEX ON SysDef_Dialog (Dialog,Control)
;
select tablename from pg_tables where schemaname=current_schema() order by tablename NULLS FIRST
;
CREATE TABLE SysDef_Replicate2 (ID Varchar(33), CHUNKNO Numeric(10,0), CHUNKCOUNT Numeric(10,0), CHUNKID Varchar(33), DATASQL VarChar(2000), WORKER Varchar(33), MANDANTID Varchar(40), UID Varchar(33), SID Varchar(33), LDATE Date, LTIME Varchar(10), LUSER VarChar(50))
;
select indexname from pg_indexes where schemaname=current_schema() and tablename='sysdef_replicate2'
;
CREATE INDEX IX_SYSDEF_REPLICATE2_MANDANTID ON SysDef_Replicate2 (MANDANTID)
;
CREATE INDEX IX_SYSDEF_REPLICATE2_UID ON SysDef_Replicate2 (UID)
;
CREATE INDEX IX_SYSDEF_REPLICATE2_SID ON SysDef_Replicate2 (SID)
;
CREATE INDEX IX_SYSDEF_REPLICATE2_LDATE ON SysDef_Replicate2 (LDATE)
;
CREATE INDEX IX_SYSDEF_REPLICATE2_LTIME ON SysDef_Replicate2 (LTIME)
;
CREATE INDEX IX_SYSDEF_REPLICATE2_LUSER ON SysDef_Replicate2 (LUSER)
;
select tablename from pg_tables where schemaname=current_schema() order by tablename NULLS FIRST
;
CREATE TABLE SysDef_ReplicateLog2 (ID Varchar(33), EVENTDATE Date, EVENTTIME VarChar(10), EVENT VarChar(200), MANDANTID Varchar(40), UID Varchar(33), SID Varchar(33), LDATE Date, LTIME Varchar(10), LUSER VarChar(50), EVENTSTATUS Numeric(10,0), EVENTMESSAGE VarChar(2000), EVENTGROUP Varchar(33))
;
select indexname from pg_indexes where schemaname=current_schema() and tablename='sysdef_replicatelog2'
;
CREATE INDEX IX_SYSDEF_REPLICATELOG2_MANDANTID ON SysDef_ReplicateLog2 (MANDANTID)
;
CREATE INDEX IX_SYSDEF_REPLICATELOG2_UID ON SysDef_ReplicateLog2 (UID)
;
CREATE INDEX IX_SYSDEF_REPLICATELOG2_SID ON SysDef_ReplicateLog2 (SID)
;
CREATE INDEX IX_SYSDEF_REPLICATELOG2_LDATE ON SysDef_ReplicateLog2 (LDATE)
;
CREATE INDEX IX_SYSDEF_REPLICATELOG2_LTIME ON SysDef_ReplicateLog2 (LTIME)
;
CREATE INDEX IX_SYSDEF_REPLICATELOG2_LUSER ON SysDef_ReplicateLog2 (LUSER)
;
CREATE INDEX IX_SYSDEF_REPLICATELOG2_EVENTSTATUS ON SysDef_ReplicateLog2 (EVENTSTATUS)
;
CREATE INDEX IX_SYSDEF_REPLICATELOG2_EVENTGROUP ON SysDef_ReplicateLog2 (EVENTGROUP)
;
select tablename from pg_tables where schemaname=current_schema() order by tablename NULLS FIRST
;
CREATE TABLE SysDef_Replicate (ID Varchar(33), RDATE Numeric(10,0), RTIME Numeric(10,0), RTABLE VarChar(30), RPARENTTABLE VarChar(30), RMODE Numeric(10,0), RUID VarChar(33), RPARENTUID VarChar(33), RSTATE Numeric(10,0), MANDANTID Varchar(40), UID Varchar(33), SID Varchar(33), CLIENTID Varchar(33), SERVERID Varchar(33), LDATE Date, LTIME Varchar(10), LUSER VarChar(50))
;
select indexname from pg_indexes where schemaname=current_schema() and tablename='sysdef_replicate'
;
CREATE INDEX IX_SYSDEF_REPLICATE_RDATE ON SysDef_Replicate (RDATE)
;
CREATE INDEX IX_SYSDEF_REPLICATE_RTIME ON SysDef_Replicate (RTIME)
;
CREATE INDEX IX_SYSDEF_REPLICATE_RTABLE ON SysDef_Replicate (RTABLE)
;
CREATE INDEX IX_SYSDEF_REPLICATE_RMODE ON SysDef_Replicate (RMODE)
;
CREATE INDEX IX_SYSDEF_REPLICATE_RUID ON SysDef_Replicate (RUID)
;
CREATE INDEX IX_SYSDEF_REPLICATE_MANDANTID ON SysDef_Replicate (MANDANTID)
;
CREATE INDEX IX_SYSDEF_REPLICATE_UID ON SysDef_Replicate (UID)
;
CREATE INDEX IX_SYSDEF_REPLICATE_SID ON SysDef_Replicate (SID)
;
CREATE INDEX IX_SYSDEF_REPLICATE_LDATE ON SysDef_Replicate (LDATE)
;
CREATE INDEX IX_SYSDEF_REPLICATE_LTIME ON SysDef_Replicate (LTIME)
;
CREATE INDEX IX_SYSDEF_REPLICATE_LUSER ON SysDef_Replicate (LUSER)
;
select tablename from pg_tables where schemaname=current_schema() order by tablename NULLS FIRST
;
CREATE TABLE SysDef_System (ID Varchar(43), SYSCONST VarChar(50), SYSVALUE VarChar(50), UID Varchar(33), MANDANTID Varchar(40), SID VarChar(50), LDATE Date, LTIME Varchar(10), LUSER VarChar(50))
;
select indexname from pg_indexes where schemaname=current_schema() and tablename='sysdef_system'
;
CREATE INDEX IX_SYSDEF_SYSTEM_ID ON SysDef_System (ID)
;
CREATE INDEX IX_SYSDEF_SYSTEM_SYSCONST ON SysDef_System (SYSCONST)
;
CREATE INDEX IX_SYSDEF_SYSTEM_SYSVALUE ON SysDef_System (SYSVALUE)
;
CREATE INDEX IX_SYSDEF_SYSTEM_UID ON SysDef_System (UID)
;
CREATE INDEX IX_SYSDEF_SYSTEM_MANDANTID ON SysDef_System (MANDANTID)
;
CREATE INDEX IX_SYSDEF_SYSTEM_SID ON SysDef_System (SID)
;
CREATE INDEX IX_SYSDEF_SYSTEM_LDATE ON SysDef_System (LDATE)
;
CREATE INDEX IX_SYSDEF_SYSTEM_LTIME ON SysDef_System (LTIME)
;
CREATE INDEX IX_SYSDEF_SYSTEM_LUSER ON SysDef_System (LUSER)
;
select tablename from pg_tables where schemaname=current_schema() order by tablename NULLS FIRST
;
CREATE TABLE SysDef_GlobalReplicate (ID Varchar(43), RDATE Numeric(10,0), RTIME Numeric(10,0), RTABLE VarChar(30), RPARENTTABLE VarChar(30), RMODE Numeric(10,0), RUID VarChar(33), RPARENTUID VarChar(33), RSTATE Numeric(10,0), RSID VarChar(33), UID Varchar(33), SID Varchar(33), MANDANTID Varchar(40), LDATE Date, LTIME Varchar(10), LUSER VarChar(50))
;
select indexname from pg_indexes where schemaname=current_schema() and tablename='sysdef_globalreplicate'
;
CREATE INDEX IX_SYSDEF_GLOBALREPLICATE_ID ON SysDef_GlobalReplicate (ID)
;
CREATE INDEX IX_SYSDEF_GLOBALREPLICATE_RDATE ON SysDef_GlobalReplicate (RDATE)
;
CREATE INDEX IX_SYSDEF_GLOBALREPLICATE_RTIME ON SysDef_GlobalReplicate (RTIME)
;
CREATE INDEX IX_SYSDEF_GLOBALREPLICATE_RTABLE ON SysDef_GlobalReplicate (RTABLE)
;
CREATE INDEX IX_SYSDEF_GLOBALREPLICATE_RMODE ON SysDef_GlobalReplicate (RMODE)
;
CREATE INDEX IX_SYSDEF_GLOBALREPLICATE_RUID ON SysDef_GlobalReplicate (RUID)
;
CREATE INDEX IX_SYSDEF_GLOBALREPLICATE_UID ON SysDef_GlobalReplicate (UID)
;
CREATE INDEX IX_SYSDEF_GLOBALREPLICATE_SID ON SysDef_GlobalReplicate (SID)
;
CREATE INDEX IX_SYSDEF_GLOBALREPLICATE_MANDANTID ON SysDef_GlobalReplicate (MANDANTID)
;
CREATE INDEX IX_SYSDEF_GLOBALREPLICATE_LDATE ON SysDef_GlobalReplicate (LDATE)
;
CREATE INDEX IX_SYSDEF_GLOBALREPLICATE_LTIME ON SysDef_GlobalReplicate (LTIME)
;
CREATE INDEX IX_SYSDEF_GLOBALREPLICATE_LUSER ON SysDef_GlobalReplicate (LUSER)
;
select tablename from pg_tables where schemaname=current_schema() order by tablename NULLS FIRST
;
CREATE TABLE SysDef_DataLink (ID Varchar(33), TABLENAME VarChar(50), FIELDNAME VarChar(50), LINKTABLENAME VarChar(50), LINKFIELDNAME VarChar(50), UID Varchar(33), SID Varchar(33), MANDANTID Varchar(40), LDATE Date, LTIME Varchar(10), LUSER VarChar(50))
;
select indexname from pg_indexes where schemaname=current_schema() and tablename='sysdef_datalink'
;
CREATE INDEX IX_SYSDEF_DATALINK_TABLENAME ON SysDef_DataLink (TABLENAME)
;
CREATE INDEX IX_SYSDEF_DATALINK_FIELDNAME ON SysDef_DataLink (FIELDNAME)
;
CREATE INDEX IX_SYSDEF_DATALINK_UID ON SysDef_DataLink (UID)
;
CREATE INDEX IX_SYSDEF_DATALINK_SID ON SysDef_DataLink (SID)
;
CREATE INDEX IX_SYSDEF_DATALINK_MANDANTID ON SysDef_DataLink (MANDANTID)
;
CREATE INDEX IX_SYSDEF_DATALINK_LDATE ON SysDef_DataLink (LDATE)
;
CREATE INDEX IX_SYSDEF_DATALINK_LTIME ON SysDef_DataLink (LTIME)
;
CREATE INDEX IX_SYSDEF_DATALINK_LUSER ON SysDef_DataLink (LUSER)
;
Delete from SysDef_DataLink
;
select tablename from pg_tables where schemaname=current_schema() order by tablename NULLS FIRST
;
CREATE TABLE USBRel64Data (ID Varchar(43), RVALUE Numeric(10,0), MANDANTID Varchar(40), UID Varchar(33), SID Varchar(33), LDATE Date, LTIME Varchar(10), LUSER VarChar(50))
;
select indexname from pg_indexes where schemaname=current_schema() and tablename='usbrel64data'
;
CREATE UNIQUE INDEX UX_USBREL64DATA_ID ON USBRel64Data (ID)
;
CREATE INDEX IX_USBREL64DATA_MANDANTID ON USBRel64Data (MANDANTID)
;
CREATE INDEX IX_USBREL64DATA_UID ON USBRel64Data (UID)
;
CREATE INDEX IX_USBREL64DATA_SID ON USBRel64Data (SID)
;
CREATE INDEX IX_USBREL64DATA_LDATE ON USBRel64Data (LDATE)
;
CREATE INDEX IX_USBREL64DATA_LTIME ON USBRel64Data (LTIME)
;
CREATE INDEX IX_USBREL64DATA_LUSER ON USBRel64Data (LUSER)
;
select tablename from pg_tables where schemaname=current_schema() order by tablename NULLS FIRST
;
CREATE TABLE USBRel64Settings (ID Varchar(43), RTYPE Numeric(10,0), RVALUE1 Numeric(10,0), RVALUE2 Numeric(10,0), CONTROLDATA VarChar(2000), MANDANTID Varchar(40), UID Varchar(33), SID Varchar(33), LDATE Date, LTIME Varchar(10), LUSER VarChar(50))
;
select indexname from pg_indexes where schemaname=current_schema() and tablename='usbrel64settings'
;
CREATE UNIQUE INDEX UX_USBREL64SETTINGS_ID ON USBRel64Settings (ID)
;
CREATE INDEX IX_USBREL64SETTINGS_MANDANTID ON USBRel64Settings (MANDANTID)
;
CREATE INDEX IX_USBREL64SETTINGS_UID ON USBRel64Settings (UID)
;
CREATE INDEX IX_USBREL64SETTINGS_SID ON USBRel64Settings (SID)
;
CREATE INDEX IX_USBREL64SETTINGS_LDATE ON USBRel64Settings (LDATE)
;
CREATE INDEX IX_USBREL64SETTINGS_LTIME ON USBRel64Settings (LTIME)
;
CREATE INDEX IX_USBREL64SETTINGS_LUSER ON USBRel64Settings (LUSER)
;
Insert into USBRel64Data (id,rvalue) values ('1',0)
;
Insert into USBRel64Data (id,rvalue) values ('2',0)
;
Insert into USBRel64Data (id,rvalue) values ('Last1',0)
;
Insert into USBRel64Data (id,rvalue) values ('Last2',0)
;
select tablename from pg_tables where schemaname=current_schema() order by tablename NULLS FIRST
;
CREATE TABLE LagerLog (ID Varchar(43), DATUM Date, UHRZEIT VarChar(10), BENUTZER VarChar(80), TABELLE VarChar(80), ART VarChar(80), ANZAHL Numeric(15,2), OLDCOUNTBESTAND Numeric(15,2), COUNTBESTAND Numeric(15,2), IDARTIKEL Varchar(33), PREIS Numeric(15,2), MODULNR VarChar(10), LLMODE Numeric(10,0), SOURCEMODE Numeric(10,0), KOSTENSTELLEIN VarChar(50), KOSTENSTELLEOUT VarChar(50), TSTAMP VarChar(20), MANDANTID Varchar(40), LDATE Date, LTIME Varchar(10), LUSER VarChar(50), UID Varchar(33), SID Varchar(33), LINKID Varchar(33), INCOUNTAVAIL Numeric(15,2), OUT_IDIN Varchar(33), IDBELEGNUMMER Numeric(10,0), IDBESTELLUNG Varchar(33), IDWARENEINGANG Varchar(33), IDEINGANGSRECHNUNG Varchar(33), IDAUSGABE Varchar(33), OUT_IDBELEGNUMMERIN Numeric(10,0))
;
select indexname from pg_indexes where schemaname=current_schema() and tablename='lagerlog'
;
CREATE INDEX IX_LAGERLOG_ID ON LagerLog (ID)
;
CREATE INDEX IX_LAGERLOG_MANDANTID ON LagerLog (MANDANTID)
;
CREATE INDEX IX_LAGERLOG_UID ON LagerLog (UID)
;
CREATE INDEX IX_LAGERLOG_SID ON LagerLog (SID)
;
CREATE INDEX LAGERLOGARTIKELIDX ON LagerLog (IDARTIKEL,INCOUNTAVAIL)
;
select tablename from pg_tables where schemaname=current_schema() order by tablename NULLS FIRST
;
CREATE TABLE LagerLogMonth (ID Varchar(43), IDARTIKEL Varchar(33), MONAT Numeric(10,0), JAHR Numeric(10,0), ANFANGSBESTAND Numeric(15,2), ENDBESTAND Numeric(15,2), ANFANGSDATE Date, ENDDATE Date, MANDANTID Varchar(40), LDATE Date, LTIME Varchar(10), LUSER VarChar(50), UID Varchar(33), SID Varchar(33))
;
select indexname from pg_indexes where schemaname=current_schema() and tablename='lagerlogmonth'
;
CREATE INDEX IX_LAGERLOGMONTH_ID ON LagerLogMonth (ID)
;
CREATE INDEX IX_LAGERLOGMONTH_MANDANTID ON LagerLogMonth (MANDANTID)
;
CREATE INDEX IX_LAGERLOGMONTH_UID ON LagerLogMonth (UID)
;
CREATE INDEX IX_LAGERLOGMONTH_SID ON LagerLogMonth (SID)
;
CREATE INDEX LAGERLOGMONTHARTIKELIDX ON LagerLogMonth (IDARTIKEL,JAHR,MONAT)
;
select tablename from pg_tables where schemaname=current_schema() order by tablename NULLS FIRST
;
CREATE TABLE OfficeTableMapping (ID Varchar(43), TABLENAME VarChar(40), FIELDNAME VarChar(40), OFFICENAME VarChar(20), TABLENO Numeric(10,0), FIELDNO Numeric(10,0), MANDANTID Varchar(40), LDATE Date, LTIME Varchar(10), LUSER VarChar(50), UID Varchar(33), SID Varchar(33))
;
select indexname from pg_indexes where schemaname=current_schema() and tablename='officetablemapping'
;
CREATE INDEX IX_OFFICETABLEMAPPING_ID ON OfficeTableMapping (ID)
;
CREATE INDEX IX_OFFICETABLEMAPPING_TABLENO ON OfficeTableMapping (TABLENO)
;
CREATE INDEX IX_OFFICETABLEMAPPING_FIELDNO ON OfficeTableMapping (FIELDNO)
;
CREATE INDEX IX_OFFICETABLEMAPPING_MANDANTID ON OfficeTableMapping (MANDANTID)
;
CREATE INDEX IX_OFFICETABLEMAPPING_UID ON OfficeTableMapping (UID)
;
CREATE INDEX IX_OFFICETABLEMAPPING_SID ON OfficeTableMapping (SID)
;
CREATE UNIQUE INDEX OFFICETABLEMAPPINGMAINIDX ON OfficeTableMapping (Tablename,Fieldname)
;
select tablename from pg_tables where schemaname=current_schema() order by tablename NULLS FIRST
;
CREATE TABLE BinaryData (ID Varchar(33), IDPARENT Varchar(33), TABLEPARENT VarChar(30), DATAFILTER VarChar(50), DATAFILENAME VarChar(200), DATAMD5 Varchar(33), DATA BYTEA, MANDANTID Varchar(40), LDATE Date, LTIME Varchar(10), LUSER VarChar(50), UID Varchar(33), SID Varchar(33))
;
select indexname from pg_indexes where schemaname=current_schema() and tablename='binarydata'
;
CREATE INDEX IX_BINARYDATA_ID ON BinaryData (ID)
;
CREATE INDEX IX_BINARYDATA_IDPARENT ON BinaryData (IDPARENT)
;
CREATE INDEX IX_BINARYDATA_MANDANTID ON BinaryData (MANDANTID)
;
CREATE INDEX IX_BINARYDATA_UID ON BinaryData (UID)
;
CREATE INDEX IX_BINARYDATA_SID ON BinaryData (SID)
;
