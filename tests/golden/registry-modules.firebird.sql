select trim(rdb$relation_name) from rdb$relations where coalesce(rdb$system_flag,0)=0 and rdb$view_blr is null order by 1
;
select trim(rdb$field_name) from rdb$relation_fields where rdb$relation_name='SYSDEF_MODULE' order by rdb$field_position
;
select trim(rdb$index_name) from rdb$indices where rdb$relation_name='SYSDEF_MODULE'
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
