select trim(rdb$field_name) from rdb$relation_fields where rdb$relation_name='AAA_ERSTE' order by rdb$field_position
;
Select max(TableNO) from OfficeTableMapping
;
Select ID from OfficeTableMapping where Tablename='AAA_ERSTE' and Fieldname='ID'
;
Select max(FIELDNO) from OfficeTableMapping where Tablename='AAA_ERSTE'
;
insert into  OfficeTableMapping (ID, TABLENAME, FIELDNAME,TABLENO,FIELDNO,OFFICENAME) values('<key1>', 'AAA_ERSTE', 'ID', 1, 1, 'T1_F1')
;
Select ID from OfficeTableMapping where Tablename='AAA_ERSTE' and Fieldname='NAME'
;
Select max(FIELDNO) from OfficeTableMapping where Tablename='AAA_ERSTE'
;
insert into  OfficeTableMapping (ID, TABLENAME, FIELDNAME,TABLENO,FIELDNO,OFFICENAME) values('<key2>', 'AAA_ERSTE', 'NAME', 1, 2, 'T1_F2')
;
select trim(rdb$field_name) from rdb$relation_fields where rdb$relation_name='BINARYDATA' order by rdb$field_position
;
