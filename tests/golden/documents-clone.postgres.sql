select tablename from pg_tables where schemaname=current_schema() order by tablename NULLS FIRST
;
Insert into Fahrzeug_Dokumente (ID,IDPARENT,BEZEICHNUNG,DOKUMENT,LDATE,LTIME,LUSER,MAINDOC) values ('<key1>','FZ-2','Alt','alt.pdf','2020-05-04','<time>','Kassenwart','1')
;
select ID from BinaryData where IDPARENT='d1' and TABLEPARENT='FAHRZEUG_DOKUMENTE'
;
Insert into Fahrzeug_Dokumente (ID,IDPARENT,BEZEICHNUNG,DOKUMENT,LDATE,LTIME,LUSER) values ('<key2>','FZ-2','Neu','neu.pdf','<today>','<time>','Wehrführer')
;
select ID from BinaryData where IDPARENT='d2' and TABLEPARENT='FAHRZEUG_DOKUMENTE'
;
