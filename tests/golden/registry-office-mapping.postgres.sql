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
select column_name from information_schema.columns where table_schema=current_schema() and table_name='binarydata' order by ordinal_position NULLS FIRST
;
