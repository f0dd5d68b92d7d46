select tablename from pg_tables where schemaname=current_schema() order by tablename NULLS FIRST
;
select column_name from information_schema.columns where table_schema=current_schema() and table_name='sysdef_module' order by ordinal_position NULLS FIRST
;
select indexname from pg_indexes where schemaname=current_schema() and tablename='sysdef_module'
;
Delete from SYSDef_Module
;
Insert Into SYSDEF_MODULE (ID,ModulId,Modulname,ModulTablename,ModulisMainTable) Values
('<key1>',0002,'Lager Ölwehr','ARTIKEL_LAGER',1)
;
Insert Into SYSDEF_MODULE (Id,ModulId,Modulname,ModulTablename,ModulisMainTable) Values
('<key2>',7010,'Fahrzeuge','FAHRZEUG',1)
;
Insert Into SYSDEF_MODULE (Id,ModulId,Modulname,ModulTablename,ModulisMainTable) Values
('<key3>',7010,'Fahrzeuge','FAHRZEUG_GERAETE',0)
;
Insert Into SYSDEF_MODULE (Id,ModulId,Modulname,ModulTablename,ModulisMainTable) Values
('<key4>',7010,'Fahrzeuge','FAHRZEUG_PRUEFUNG',0)
;
Insert Into SYSDEF_MODULE (Id,ModulId,Modulname,ModulTablename,ModulisMainTable) Values
('<key5>',7010,'Fahrzeuge','FAHRZEUG_PRUEFUNG',0)
;
Insert Into SYSDEF_MODULE (Id,ModulId,Modulname,ModulTablename,ModulisMainTable) Values
('<key6>',7010,'Fahrzeuge','PRUEFUNG_DETAIL',0)
;
