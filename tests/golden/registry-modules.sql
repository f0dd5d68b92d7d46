select name from sqlite_master where type='table' and name not like 'sqlite_%' order by name
;
select name from pragma_table_info('SYSDef_Module') order by cid
;
select name from sqlite_master where type='index' and lower(tbl_name)=lower('SYSDef_Module')
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
