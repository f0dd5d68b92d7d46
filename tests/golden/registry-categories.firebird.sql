Insert Into SYSDef_Kats (Id,ModulNr,ModulName,ModulMainTable,ModulKatsTable,ModulFields) Values ('<key1>',7010,'Fahrzeuge','FAHRZEUG','FAHRZEUG_KATS','KENNZEICHEN,TYP')
;
select trim(rdb$relation_name) from rdb$relations where coalesce(rdb$system_flag,0)=0 and rdb$view_blr is null order by 1
;
select trim(rdb$field_name) from rdb$relation_fields where rdb$relation_name='FAHRZEUG_KATS' order by rdb$field_position
;
select trim(rdb$index_name) from rdb$indices where rdb$relation_name='FAHRZEUG_KATS'
;
Insert into SysDef_DataLink (ID,Tablename,Fieldname,LinkTablename,Linkfieldname) Values ('<key2>','FAHRZEUG','ID','FAHRZEUG_KATS','IDPARENT')
;
Insert into SysDef_DataLink (ID,Tablename,Fieldname,LinkTablename,Linkfieldname) Values ('<key3>','KATS','TREEID','FAHRZEUG_KATS','TREEID')
;
Insert Into SYSDEF_MODULE (ID,ModulId,Modulname,ModulTablename,ModulisMainTable) Values
('<key4>',7010,'Fahrzeuge','FAHRZEUG_KATS',0)
;
