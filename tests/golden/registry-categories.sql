Insert Into SYSDef_Kats (Id,ModulNr,ModulName,ModulMainTable,ModulKatsTable,ModulFields) Values ('<key1>',7010,'Fahrzeuge','FAHRZEUG','FAHRZEUG_KATS','KENNZEICHEN,TYP')
;
select name from sqlite_master where type='table' and name not like 'sqlite_%' order by name
;
select name from pragma_table_info('FAHRZEUG_KATS') order by cid
;
select name from sqlite_master where type='index' and lower(tbl_name)=lower('FAHRZEUG_KATS')
;
Insert into SysDef_DataLink (ID,Tablename,Fieldname,LinkTablename,Linkfieldname) Values ('<key2>','FAHRZEUG','ID','FAHRZEUG_KATS','IDPARENT')
;
Insert into SysDef_DataLink (ID,Tablename,Fieldname,LinkTablename,Linkfieldname) Values ('<key3>','KATS','TREEID','FAHRZEUG_KATS','TREEID')
;
Insert Into SYSDEF_MODULE (ID,ModulId,Modulname,ModulTablename,ModulisMainTable) Values
('<key4>',7010,'Fahrzeuge','FAHRZEUG_KATS',0)
;
