select NAME, ORT from PERSONEN order by ID NULLS FIRST
;
Select Officename from OfficeTableMapping where Tablename='PERSONEN' and Fieldname='NAME'
;
Select Officename from OfficeTableMapping where Tablename='PERSONEN' and Fieldname='ORT'
;
Select Officename from OfficeTableMapping where Tablename='PERSONEN' and Fieldname='NAME'
;
Select Officename from OfficeTableMapping where Tablename='PERSONEN' and Fieldname='ORT'
;
