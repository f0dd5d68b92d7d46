Insert Into SYSDef_Kats (Id,ModulNr,ModulName,ModulMainTable,ModulKatsTable,ModulFields) Values ('<key1>',7010,'Fahrzeuge','FAHRZEUG','FAHRZEUG_KATS','KENNZEICHEN,TYP')
;
select tablename from pg_tables where schemaname=current_schema() order by tablename NULLS FIRST
;
select column_name from information_schema.columns where table_schema=current_schema() and table_name='fahrzeug_kats' order by ordinal_position NULLS FIRST
;
select indexname from pg_indexes where schemaname=current_schema() and tablename='fahrzeug_kats'
;
Insert into SysDef_DataLink (ID,Tablename,Fieldname,LinkTablename,Linkfieldname) Values ('<key2>','FAHRZEUG','ID','FAHRZEUG_KATS','IDPARENT')
;
Insert into SysDef_DataLink (ID,Tablename,Fieldname,LinkTablename,Linkfieldname) Values ('<key3>','KATS','TREEID','FAHRZEUG_KATS','TREEID')
;
Insert Into SYSDEF_MODULE (ID,ModulId,Modulname,ModulTablename,ModulisMainTable) Values
('<key4>',7010,'Fahrzeuge','FAHRZEUG_KATS',0)
;
