SELECT IDNUMMER,ANZAHL,COUNTLAGER,id FROM LAGERBELEG_POS
WHERE IDPARENT='WE-1'
AND ANZAHL<>COUNTLAGER
AND IDNUMMER<>999999
AND (NOT (IDNUMMER IS NULL))
;
Select Bestand From Artikel Where idnummer=11
;
UPDATE Artikel SET COUNTLAGER=COUNTLAGER+5
, BESTAND=COUNTBESTAND+COUNTLAGER
WHERE IDNUMMER=11
;
UPDATE ARTIKEL SET BESTAND=COUNTBESTAND+COUNTLAGER
WHERE IDNUMMER=11
;
Select id from Bestellungen Where id in (Select distinct idparent from Bestellungen_artikel Where id='<key1>')
;
Select Bestand From Artikel Where idnummer=11
;
SELECT ID FROM ARTIKEL WHERE IDNUMMER=11
;
Select Netto From LAGERBELEG_POS Where id='<key1>'
;
Insert into LagerLog (id,Datum,Uhrzeit,Benutzer,TABELLE,Art,OLDCOUNTBESTAND,COUNTBESTAND,Anzahl,idArtikel,modulnr,llmode,sourcemode,TStamp,Preis,linkid,idbelegnummer,OUT_IDIN,INCOUNTAVAIL) values ('<key2>','2026-03-02','<time>','Prüfer','LAGERBELEG_POS','Lager Eingang',1,6,5,'<key3>','7010',0,0,'20260302<clock>',10,'<key1>','1','',5)
;
Select id,ANFANGSBESTAND,ANFANGSDATE from LagerLogMonth
Where IdArtikel='<key3>'
and Monat=<month>
and Jahr=<year>
;
Insert into LagerLogMonth (id,IDARTIKEL,MONAT,JAHR,ANFANGSBESTAND,ENDBESTAND,ANFANGSDATE,ENDDATE) values ('<key4>','<key3>',<month>,<year>,1,6,'<today>','<today>')
;
UPDATE LAGERBELEG_POS SET COUNTLAGER=ANZAHL WHERE IDPARENT='WE-1'
;
SELECT IDNUMMER,ANZAHL,COUNTLAGER,id FROM LAGERBELEG_POS
WHERE IDPARENT='WE-2'
AND ANZAHL<>COUNTLAGER
AND IDNUMMER<>999999
AND (NOT (IDNUMMER IS NULL))
;
Select Bestand From Artikel Where idnummer=11
;
UPDATE Artikel SET COUNTLAGER=COUNTLAGER+4
, BESTAND=COUNTBESTAND+COUNTLAGER
WHERE IDNUMMER=11
;
UPDATE ARTIKEL SET BESTAND=COUNTBESTAND+COUNTLAGER
WHERE IDNUMMER=11
;
Select id from Bestellungen Where id in (Select distinct idparent from Bestellungen_artikel Where id='<key5>')
;
Select Bestand From Artikel Where idnummer=11
;
SELECT ID FROM ARTIKEL WHERE IDNUMMER=11
;
Select Netto From LAGERBELEG_POS Where id='<key5>'
;
Insert into LagerLog (id,Datum,Uhrzeit,Benutzer,TABELLE,Art,OLDCOUNTBESTAND,COUNTBESTAND,Anzahl,idArtikel,modulnr,llmode,sourcemode,TStamp,Preis,linkid,idbelegnummer,OUT_IDIN,INCOUNTAVAIL) values ('<key6>','2026-03-03','<time>','Prüfer','LAGERBELEG_POS','Lager Eingang',6,10,4,'<key3>','7010',0,0,'20260303<clock>',11,'<key5>','2','',4)
;
Select id,ANFANGSBESTAND,ANFANGSDATE from LagerLogMonth
Where IdArtikel='<key3>'
and Monat=<month>
and Jahr=<year>
;
Update LagerLogMonth set IDARTIKEL='<key3>',MONAT=<month>,JAHR=<year>,ANFANGSBESTAND=1,ENDBESTAND=10,ANFANGSDATE='<today>',ENDDATE='<today>' Where id='<key4>'
;
UPDATE LAGERBELEG_POS SET COUNTLAGER=ANZAHL WHERE IDPARENT='WE-2'
;
SELECT IDNUMMER,ANZAHL,COUNTLAGER,id FROM LAGERBELEG_POS
WHERE IDPARENT='AUS-1'
AND ANZAHL<>COUNTLAGER
AND IDNUMMER<>999999
AND (NOT (IDNUMMER IS NULL))
;
Select Bestand From Artikel Where idnummer=11
;
UPDATE Artikel SET COUNTLAGER=COUNTLAGER-7
, BESTAND=COUNTBESTAND+COUNTLAGER
WHERE IDNUMMER=11
;
UPDATE ARTIKEL SET BESTAND=COUNTBESTAND+COUNTLAGER
WHERE IDNUMMER=11
;
Select id from Bestellungen Where id in (Select distinct idparent from Bestellungen_artikel Where id='<key7>')
;
Select Bestand From Artikel Where idnummer=11
;
SELECT ID FROM ARTIKEL WHERE IDNUMMER=11
;
Select Netto From LAGERBELEG_POS Where id='<key7>'
;
Select * from LagerLog Where INCOUNTAVAIL>0 and idArtikel = '<key3>' and datum<='2026-03-04' order by datum NULLS FIRST,uhrzeit NULLS FIRST
;
Update Lagerlog set INCOUNTAVAIL=0 where id ='<key2>'
;
Insert into LagerLog (id,Datum,Uhrzeit,Benutzer,TABELLE,Art,OLDCOUNTBESTAND,COUNTBESTAND,Anzahl,idArtikel,modulnr,llmode,sourcemode,TStamp,Preis,linkid,OUT_IDIN,INCOUNTAVAIL,OUT_IDBELEGNUMMERIN) values ('<key8>','2026-03-04','<time>','Prüfer','LAGERBELEG_POS','Lager Ausgang',10,5,5,'<key3>','7010',1,1,'20260304<clock>',10,'<key7>','<key2>',0,1)
;
Select * from LagerLog Where INCOUNTAVAIL>0 and idArtikel = '<key3>' and datum<='2026-03-04' order by datum NULLS FIRST,uhrzeit NULLS FIRST
;
Update Lagerlog set INCOUNTAVAIL=2 where id ='<key6>'
;
Insert into LagerLog (id,Datum,Uhrzeit,Benutzer,TABELLE,Art,OLDCOUNTBESTAND,COUNTBESTAND,Anzahl,idArtikel,modulnr,llmode,sourcemode,TStamp,Preis,linkid,OUT_IDIN,INCOUNTAVAIL,OUT_IDBELEGNUMMERIN) values ('<key9>','2026-03-04','<time>','Prüfer','LAGERBELEG_POS','Lager Ausgang',5,3,2,'<key3>','7010',1,1,'20260304<clock>',11,'<key7>','<key6>',0,2)
;
Select id,ANFANGSBESTAND,ANFANGSDATE from LagerLogMonth
Where IdArtikel='<key3>'
and Monat=<month>
and Jahr=<year>
;
Update LagerLogMonth set IDARTIKEL='<key3>',MONAT=<month>,JAHR=<year>,ANFANGSBESTAND=1,ENDBESTAND=3,ANFANGSDATE='<today>',ENDDATE='<today>' Where id='<key4>'
;
UPDATE LAGERBELEG_POS SET COUNTLAGER=ANZAHL WHERE IDPARENT='AUS-1'
;
SELECT IDNUMMER,ANZAHL,COUNTLAGER,id FROM LAGERBELEG_POS
WHERE IDPARENT='KORR-1'
AND ANZAHL<>COUNTLAGER
AND IDNUMMER<>999999
AND (NOT (IDNUMMER IS NULL))
;
Select Bestand From Artikel Where idnummer=11
;
UPDATE Artikel SET COUNTLAGER=COUNTLAGER+1.5
, BESTAND=COUNTBESTAND+COUNTLAGER
WHERE IDNUMMER=11
;
UPDATE ARTIKEL SET BESTAND=COUNTBESTAND+COUNTLAGER
WHERE IDNUMMER=11
;
Select id from Bestellungen Where id in (Select distinct idparent from Bestellungen_artikel Where id='<key10>')
;
Select Bestand From Artikel Where idnummer=11
;
SELECT ID FROM ARTIKEL WHERE IDNUMMER=11
;
Select Netto From LAGERBELEG_POS Where id='<key10>'
;
Insert into LagerLog (id,Datum,Uhrzeit,Benutzer,TABELLE,Art,OLDCOUNTBESTAND,COUNTBESTAND,Anzahl,idArtikel,modulnr,llmode,sourcemode,TStamp,Preis,linkid,OUT_IDIN,INCOUNTAVAIL) values ('<key11>','2026-03-05','<time>','Prüfer','LAGERBELEG_POS','Bestandskorrektur (+)',3,4.5,1.5,'<key3>','7010',0,2,'20260305<clock>',13,'<key10>','',1.5)
;
Select id,ANFANGSBESTAND,ANFANGSDATE from LagerLogMonth
Where IdArtikel='<key3>'
and Monat=<month>
and Jahr=<year>
;
Update LagerLogMonth set IDARTIKEL='<key3>',MONAT=<month>,JAHR=<year>,ANFANGSBESTAND=1,ENDBESTAND=4.5,ANFANGSDATE='<today>',ENDDATE='<today>' Where id='<key4>'
;
UPDATE LAGERBELEG_POS SET COUNTLAGER=ANZAHL WHERE IDPARENT='KORR-1'
;
SELECT IDNUMMER,ANZAHL,COUNTLAGER,id FROM LAGERBELEG_POS
WHERE IDPARENT='KORR-2'
AND ANZAHL<>COUNTLAGER
AND IDNUMMER<>999999
AND (NOT (IDNUMMER IS NULL))
;
Select Bestand From Artikel Where idnummer=11
;
UPDATE Artikel SET COUNTLAGER=COUNTLAGER+-0.5
, BESTAND=COUNTBESTAND+COUNTLAGER
WHERE IDNUMMER=11
;
UPDATE ARTIKEL SET BESTAND=COUNTBESTAND+COUNTLAGER
WHERE IDNUMMER=11
;
Select id from Bestellungen Where id in (Select distinct idparent from Bestellungen_artikel Where id='<key12>')
;
Select Bestand From Artikel Where idnummer=11
;
SELECT ID FROM ARTIKEL WHERE IDNUMMER=11
;
Select Netto From LAGERBELEG_POS Where id='<key12>'
;
Select * from LagerLog Where INCOUNTAVAIL>0 and idArtikel = '<key3>' and datum<='2026-03-05' order by datum NULLS FIRST,uhrzeit NULLS FIRST
;
Update Lagerlog set INCOUNTAVAIL=1.5 where id ='<key6>'
;
Insert into LagerLog (id,Datum,Uhrzeit,Benutzer,TABELLE,Art,OLDCOUNTBESTAND,COUNTBESTAND,Anzahl,idArtikel,modulnr,llmode,sourcemode,TStamp,Preis,linkid,OUT_IDIN,INCOUNTAVAIL,OUT_IDBELEGNUMMERIN) values ('<key13>','2026-03-05','<time>','Prüfer','LAGERBELEG_POS','Bestandskorrektur (-)',4.5,4,0.5,'<key3>','7010',1,2,'20260305<clock>',11,'<key12>','<key6>',0,2)
;
Select id,ANFANGSBESTAND,ANFANGSDATE from LagerLogMonth
Where IdArtikel='<key3>'
and Monat=<month>
and Jahr=<year>
;
Update LagerLogMonth set IDARTIKEL='<key3>',MONAT=<month>,JAHR=<year>,ANFANGSBESTAND=1,ENDBESTAND=4,ANFANGSDATE='<today>',ENDDATE='<today>' Where id='<key4>'
;
UPDATE LAGERBELEG_POS SET COUNTLAGER=ANZAHL WHERE IDPARENT='KORR-2'
;
SELECT IDNUMMER,ANZAHL,COUNTLAGER,id FROM LAGERBELEG_POS
WHERE IDPARENT='INV-1'
AND ANZAHL<>COUNTLAGER
AND IDNUMMER<>999999
AND (NOT (IDNUMMER IS NULL))
;
Select Bestand From Artikel Where idnummer=11
;
UPDATE Artikel SET COUNTLAGER=COUNTLAGER+2
, BESTAND=COUNTBESTAND+COUNTLAGER
WHERE IDNUMMER=11
;
UPDATE ARTIKEL SET BESTAND=COUNTBESTAND+COUNTLAGER
WHERE IDNUMMER=11
;
Select id from Bestellungen Where id in (Select distinct idparent from Bestellungen_artikel Where id='<key14>')
;
Select Bestand From Artikel Where idnummer=11
;
SELECT ID FROM ARTIKEL WHERE IDNUMMER=11
;
Select Netto From LAGERBELEG_POS Where id='<key14>'
;
Insert into LagerLog (id,Datum,Uhrzeit,Benutzer,TABELLE,Art,OLDCOUNTBESTAND,COUNTBESTAND,Anzahl,idArtikel,modulnr,llmode,sourcemode,TStamp,Preis,linkid,OUT_IDIN,INCOUNTAVAIL) values ('<key15>','2026-03-06','<time>','Prüfer','LAGERBELEG_POS','Inventur',4,6,2,'<key3>','7010',0,3,'20260306<clock>',15,'<key14>','',2)
;
Select id,ANFANGSBESTAND,ANFANGSDATE from LagerLogMonth
Where IdArtikel='<key3>'
and Monat=<month>
and Jahr=<year>
;
Update LagerLogMonth set IDARTIKEL='<key3>',MONAT=<month>,JAHR=<year>,ANFANGSBESTAND=1,ENDBESTAND=6,ANFANGSDATE='<today>',ENDDATE='<today>' Where id='<key4>'
;
UPDATE LAGERBELEG_POS SET COUNTLAGER=ANZAHL WHERE IDPARENT='INV-1'
;
select ID from LAGERBELEG_POS where IDPARENT='WE-1' and IDNUMMER=11
;
update LAGERBELEG_POS set ANZAHL=3 where ID='<key1>'
;
SELECT IDNUMMER,ANZAHL,COUNTLAGER,id FROM LAGERBELEG_POS
WHERE IDPARENT='WE-1'
AND ANZAHL<>COUNTLAGER
AND IDNUMMER<>999999
AND (NOT (IDNUMMER IS NULL))
;
Select Bestand From Artikel Where idnummer=11
;
UPDATE Artikel SET COUNTLAGER=COUNTLAGER+-2
, BESTAND=COUNTBESTAND+COUNTLAGER
WHERE IDNUMMER=11
;
UPDATE ARTIKEL SET BESTAND=COUNTBESTAND+COUNTLAGER
WHERE IDNUMMER=11
;
Select id from Bestellungen Where id in (Select distinct idparent from Bestellungen_artikel Where id='<key1>')
;
Select Bestand From Artikel Where idnummer=11
;
SELECT ID FROM ARTIKEL WHERE IDNUMMER=11
;
Select Netto From LAGERBELEG_POS Where id='<key1>'
;
Insert into LagerLog (id,Datum,Uhrzeit,Benutzer,TABELLE,Art,OLDCOUNTBESTAND,COUNTBESTAND,Anzahl,idArtikel,modulnr,llmode,sourcemode,TStamp,Preis,linkid,OUT_IDIN,INCOUNTAVAIL) values ('<key16>','2026-03-07','<time>','Prüfer','LAGERBELEG_POS','Lager Eingang',6,4,-2,'<key3>','7010',0,0,'20260307<clock>',10,'<key1>','',-2)
;
Select id,ANFANGSBESTAND,ANFANGSDATE from LagerLogMonth
Where IdArtikel='<key3>'
and Monat=<month>
and Jahr=<year>
;
Update LagerLogMonth set IDARTIKEL='<key3>',MONAT=<month>,JAHR=<year>,ANFANGSBESTAND=1,ENDBESTAND=4,ANFANGSDATE='<today>',ENDDATE='<today>' Where id='<key4>'
;
UPDATE LAGERBELEG_POS SET COUNTLAGER=ANZAHL WHERE IDPARENT='WE-1'
;
select ID from LAGERBELEG_POS where IDPARENT='AUS-1' and IDNUMMER=11
;
update LAGERBELEG_POS set ANZAHL=6 where ID='<key7>'
;
SELECT IDNUMMER,ANZAHL,COUNTLAGER,id FROM LAGERBELEG_POS
WHERE IDPARENT='AUS-1'
AND ANZAHL<>COUNTLAGER
AND IDNUMMER<>999999
AND (NOT (IDNUMMER IS NULL))
;
Select Bestand From Artikel Where idnummer=11
;
UPDATE Artikel SET COUNTLAGER=COUNTLAGER+1
, BESTAND=COUNTBESTAND+COUNTLAGER
WHERE IDNUMMER=11
;
UPDATE ARTIKEL SET BESTAND=COUNTBESTAND+COUNTLAGER
WHERE IDNUMMER=11
;
Select id from Bestellungen Where id in (Select distinct idparent from Bestellungen_artikel Where id='<key7>')
;
Select Bestand From Artikel Where idnummer=11
;
SELECT ID FROM ARTIKEL WHERE IDNUMMER=11
;
Select Netto From LAGERBELEG_POS Where id='<key7>'
;
Select * from LagerLog Where INCOUNTAVAIL>0 and idArtikel = '<key3>' and datum<='2026-03-07' order by datum NULLS FIRST,uhrzeit NULLS FIRST
;
Update Lagerlog set INCOUNTAVAIL=0.5 where id ='<key6>'
;
Insert into LagerLog (id,Datum,Uhrzeit,Benutzer,TABELLE,Art,OLDCOUNTBESTAND,COUNTBESTAND,Anzahl,idArtikel,modulnr,llmode,sourcemode,TStamp,Preis,linkid,OUT_IDIN,INCOUNTAVAIL,OUT_IDBELEGNUMMERIN) values ('<key17>','2026-03-07','<time>','Prüfer','LAGERBELEG_POS','Lager Ausgang',4,3,1,'<key3>','7010',1,1,'20260307<clock>',11,'<key7>','<key6>',0,2)
;
Select id,ANFANGSBESTAND,ANFANGSDATE from LagerLogMonth
Where IdArtikel='<key3>'
and Monat=<month>
and Jahr=<year>
;
Update LagerLogMonth set IDARTIKEL='<key3>',MONAT=<month>,JAHR=<year>,ANFANGSBESTAND=1,ENDBESTAND=5,ANFANGSDATE='<today>',ENDDATE='<today>' Where id='<key4>'
;
UPDATE LAGERBELEG_POS SET COUNTLAGER=ANZAHL WHERE IDPARENT='AUS-1'
;
SELECT IDNUMMER,ANZAHL,COUNTLAGER,id FROM LAGERBELEG_POS
WHERE IDPARENT='KORR-2'
AND IDNUMMER<>999999
AND (NOT (IDNUMMER IS NULL))
;
Select Bestand From Artikel Where idnummer=11
;
UPDATE Artikel SET COUNTLAGER=COUNTLAGER-(-0.5)
, BESTAND=COUNTBESTAND+COUNTLAGER
WHERE IDNUMMER=11
;
UPDATE ARTIKEL SET BESTAND=COUNTBESTAND+COUNTLAGER
WHERE IDNUMMER=11
;
Select id from Bestellungen Where id in (Select distinct idparent from Bestellungen_artikel Where id='<key12>')
;
Select Bestand From Artikel Where idnummer=11
;
SELECT ID FROM ARTIKEL WHERE IDNUMMER=11
;
Select Netto From LAGERBELEG_POS Where id='<key12>'
;
Select * from LagerLog Where INCOUNTAVAIL>0 and idArtikel = '<key3>' and datum<='2026-03-07' order by datum NULLS FIRST,uhrzeit NULLS FIRST
;
Update Lagerlog set INCOUNTAVAIL=0 where id ='<key6>'
;
Insert into LagerLog (id,Datum,Uhrzeit,Benutzer,TABELLE,Art,OLDCOUNTBESTAND,COUNTBESTAND,Anzahl,idArtikel,modulnr,llmode,sourcemode,TStamp,Preis,linkid,OUT_IDIN,INCOUNTAVAIL,OUT_IDBELEGNUMMERIN) values ('<key18>','2026-03-07','<time>','Prüfer','LAGERBELEG_POS','Bestandskorrektur (-)',5,4.5,0.5,'<key3>','7010',1,2,'20260307<clock>',11,'<key12>','<key6>',0,2)
;
Select id,ANFANGSBESTAND,ANFANGSDATE from LagerLogMonth
Where IdArtikel='<key3>'
and Monat=<month>
and Jahr=<year>
;
Update LagerLogMonth set IDARTIKEL='<key3>',MONAT=<month>,JAHR=<year>,ANFANGSBESTAND=1,ENDBESTAND=5.5,ANFANGSDATE='<today>',ENDDATE='<today>' Where id='<key4>'
;
UPDATE LAGERBELEG_POS SET COUNTLAGER=ANZAHL WHERE IDPARENT='KORR-2'
;
SELECT IDNUMMER,ANZAHL,COUNTLAGER,id FROM LAGERBELEG_POS
WHERE IDPARENT='WE-2'
AND IDNUMMER<>999999
AND (NOT (IDNUMMER IS NULL))
;
Select Bestand From Artikel Where idnummer=11
;
UPDATE Artikel SET COUNTLAGER=COUNTLAGER-4
, BESTAND=COUNTBESTAND+COUNTLAGER
WHERE IDNUMMER=11
;
UPDATE ARTIKEL SET BESTAND=COUNTBESTAND+COUNTLAGER
WHERE IDNUMMER=11
;
Select id from Bestellungen Where id in (Select distinct idparent from Bestellungen_artikel Where id='<key5>')
;
Select Bestand From Artikel Where idnummer=11
;
SELECT ID FROM ARTIKEL WHERE IDNUMMER=11
;
Select Netto From LAGERBELEG_POS Where id='<key5>'
;
Insert into LagerLog (id,Datum,Uhrzeit,Benutzer,TABELLE,Art,OLDCOUNTBESTAND,COUNTBESTAND,Anzahl,idArtikel,modulnr,llmode,sourcemode,TStamp,Preis,linkid,OUT_IDIN,INCOUNTAVAIL) values ('<key19>','2026-03-07','<time>','Prüfer','LAGERBELEG_POS','Lager Eingang',5.5,1.5,4,'<key3>','7010',0,0,'20260307<clock>',11,'<key5>','',4)
;
Select id,ANFANGSBESTAND,ANFANGSDATE from LagerLogMonth
Where IdArtikel='<key3>'
and Monat=<month>
and Jahr=<year>
;
Update LagerLogMonth set IDARTIKEL='<key3>',MONAT=<month>,JAHR=<year>,ANFANGSBESTAND=1,ENDBESTAND=1.5,ANFANGSDATE='<today>',ENDDATE='<today>' Where id='<key4>'
;
UPDATE LAGERBELEG_POS SET COUNTLAGER=ANZAHL WHERE IDPARENT='WE-2'
;
SELECT IDNUMMER,ANZAHL,COUNTLAGER,id FROM LAGERBELEG_POS
WHERE IDPARENT='AUS-1'
AND IDNUMMER<>999999
AND (NOT (IDNUMMER IS NULL))
;
Select Bestand From Artikel Where idnummer=11
;
UPDATE Artikel SET COUNTLAGER=COUNTLAGER+6
, BESTAND=COUNTBESTAND+COUNTLAGER
WHERE IDNUMMER=11
;
UPDATE ARTIKEL SET BESTAND=COUNTBESTAND+COUNTLAGER
WHERE IDNUMMER=11
;
Select id from Bestellungen Where id in (Select distinct idparent from Bestellungen_artikel Where id='<key7>')
;
Select Bestand From Artikel Where idnummer=11
;
SELECT ID FROM ARTIKEL WHERE IDNUMMER=11
;
Select Netto From LAGERBELEG_POS Where id='<key7>'
;
Select * from LagerLog Where INCOUNTAVAIL>0 and idArtikel = '<key3>' and datum<='2026-03-07' order by datum NULLS FIRST,uhrzeit NULLS FIRST
;
Update Lagerlog set INCOUNTAVAIL=0 where id ='<key11>'
;
Insert into LagerLog (id,Datum,Uhrzeit,Benutzer,TABELLE,Art,OLDCOUNTBESTAND,COUNTBESTAND,Anzahl,idArtikel,modulnr,llmode,sourcemode,TStamp,Preis,linkid,OUT_IDIN,INCOUNTAVAIL,OUT_IDBELEGNUMMERIN) values ('<key20>','2026-03-07','<time>','Prüfer','LAGERBELEG_POS','Lager Ausgang',1.5,0,1.5,'<key3>','7010',1,1,'20260307<clock>',13,'<key7>','<key11>',0,0)
;
Select * from LagerLog Where INCOUNTAVAIL>0 and idArtikel = '<key3>' and datum<='2026-03-07' order by datum NULLS FIRST,uhrzeit NULLS FIRST
;
Update Lagerlog set INCOUNTAVAIL=0 where id ='<key15>'
;
Insert into LagerLog (id,Datum,Uhrzeit,Benutzer,TABELLE,Art,OLDCOUNTBESTAND,COUNTBESTAND,Anzahl,idArtikel,modulnr,llmode,sourcemode,TStamp,Preis,linkid,OUT_IDIN,INCOUNTAVAIL,OUT_IDBELEGNUMMERIN) values ('<key21>','2026-03-07','<time>','Prüfer','LAGERBELEG_POS','Lager Ausgang',0,-2,2,'<key3>','7010',1,1,'20260307<clock>',15,'<key7>','<key15>',0,0)
;
Select * from LagerLog Where INCOUNTAVAIL>0 and idArtikel = '<key3>' and datum<='2026-03-07' order by datum NULLS FIRST,uhrzeit NULLS FIRST
;
Update Lagerlog set INCOUNTAVAIL=1.5 where id ='<key19>'
;
Insert into LagerLog (id,Datum,Uhrzeit,Benutzer,TABELLE,Art,OLDCOUNTBESTAND,COUNTBESTAND,Anzahl,idArtikel,modulnr,llmode,sourcemode,TStamp,Preis,linkid,OUT_IDIN,INCOUNTAVAIL,OUT_IDBELEGNUMMERIN) values ('<key22>','2026-03-07','<time>','Prüfer','LAGERBELEG_POS','Lager Ausgang',-2,-4.5,2.5,'<key3>','7010',1,1,'20260307<clock>',11,'<key7>','<key19>',0,0)
;
Select id,ANFANGSBESTAND,ANFANGSDATE from LagerLogMonth
Where IdArtikel='<key3>'
and Monat=<month>
and Jahr=<year>
;
Update LagerLogMonth set IDARTIKEL='<key3>',MONAT=<month>,JAHR=<year>,ANFANGSBESTAND=1,ENDBESTAND=7.5,ANFANGSDATE='<today>',ENDDATE='<today>' Where id='<key4>'
;
UPDATE LAGERBELEG_POS SET COUNTLAGER=ANZAHL WHERE IDPARENT='AUS-1'
;
SELECT IDNUMMER,ANZAHL,COUNTLAGER,HASCHARGE,CHARGEID,id FROM LAGERBELEG_POS
WHERE IDPARENT='CH-1'
AND ANZAHL<>COUNTLAGER
AND IDNUMMER<>999999
AND (NOT (IDNUMMER IS NULL))
;
UPDATE ARTIKEL_CHARGE SET
ANZAHLAUSGEGEBEN=ANZAHLAUSGEGEBEN-3,
ANZAHLVERFUEGBAR=ANZAHLVERFUEGBAR+3
WHERE ID='<key23>'
;
Update Artikel set CountCharge=CountCharge+3
, Bestand=CountBestand+CountLager+CountCharge
Where Idnummer=12
;
Update Artikel set Bestand=CountBestand+CountLager+CountCharge
Where Idnummer=12
;
UPDATE LAGERBELEG_POS SET COUNTLAGER=ANZAHL WHERE IDPARENT='CH-1'
;
SELECT IDNUMMER,ANZAHL,COUNTLAGER,HASCHARGE,CHARGEID,id FROM LAGERBELEG_POS
WHERE IDPARENT='CH-1'
AND ANZAHL<>COUNTLAGER
AND IDNUMMER<>999999
AND (NOT (IDNUMMER IS NULL))
;
UPDATE LAGERBELEG_POS SET COUNTLAGER=ANZAHL WHERE IDPARENT='CH-1'
;
SELECT IDNUMMER,ANZAHL,COUNTLAGER,HASCHARGE,CHARGEID,id FROM LAGERBELEG_POS
WHERE IDPARENT='CH-1'
AND IDNUMMER<>999999
AND (NOT (IDNUMMER IS NULL))
;
UPDATE ARTIKEL_CHARGE SET
ANZAHLAUSGEGEBEN=ANZAHLAUSGEGEBEN+3,
ANZAHLVERFUEGBAR=ANZAHLVERFUEGBAR-3
WHERE ID='<key23>'
;
Update Artikel set CountCharge=CountCharge-3
, Bestand=CountBestand+CountLager+CountCharge
Where Idnummer=12
;
Update Artikel set Bestand=CountBestand+CountLager+CountCharge
Where Idnummer=12
;
UPDATE LAGERBELEG_POS SET COUNTLAGER=ANZAHL WHERE IDPARENT='CH-1'
;
SELECT IDNUMMER,ANZAHL,COUNTLAGER,HASCHARGE,CHARGEID,id FROM LAGERBELEG_POS
WHERE IDPARENT='CH-1'
AND IDNUMMER<>999999
AND (NOT (IDNUMMER IS NULL))
;
UPDATE ARTIKEL_CHARGE SET
ANZAHLAUSGEGEBEN=ANZAHLAUSGEGEBEN-3,
ANZAHLVERFUEGBAR=ANZAHLVERFUEGBAR+3
WHERE ID='<key23>'
;
Update Artikel set CountCharge=CountCharge+3
, Bestand=CountBestand+CountLager+CountCharge
Where Idnummer=12
;
Update Artikel set Bestand=CountBestand+CountLager+CountCharge
Where Idnummer=12
;
UPDATE LAGERBELEG_POS SET COUNTLAGER=ANZAHL WHERE IDPARENT='CH-1'
;
SELECT IDNUMMER,ANZAHL,COUNTLAGER,id,LagerID FROM LAGERBELEG_POS
WHERE IDPARENT='ML-1'
AND ANZAHL<>COUNTLAGER
AND IDNUMMER<>999999
AND (NOT (IDNUMMER IS NULL))
;
Select id From Artikel Where idnummer=13
;
Select Bestand From Artikel_Lager Where idParent='<key24>' and LagerId='HAUPT'
;
UPDATE Artikel_Lager SET COUNTLAGER=COUNTLAGER+6
, BESTAND=COUNTBESTAND+COUNTLAGER
WHERE idParent='<key24>' and LagerId='HAUPT'
;
UPDATE ARTIKEL SET BESTAND=COUNTBESTAND+COUNTLAGER
WHERE idParent='<key24>' and LagerId='HAUPT'
;
Select id from Bestellungen Where id in (Select distinct idparent from Bestellungen_artikel Where id='<key25>')
;
Select Bestand From Artikel Where idnummer=13
;
SELECT ID FROM ARTIKEL WHERE IDNUMMER=13
;
Select Netto From LAGERBELEG_POS Where id='<key25>'
;
Insert into LagerLog (id,Datum,Uhrzeit,Benutzer,TABELLE,Art,OLDCOUNTBESTAND,COUNTBESTAND,Anzahl,idArtikel,modulnr,llmode,sourcemode,TStamp,Preis,linkid,OUT_IDIN,INCOUNTAVAIL) values ('<key26>','2026-03-02','<time>','Prüfer','LAGERBELEG_POS','Lager Eingang',0,0,6,'<key24>','7010',0,0,'20260302<clock>',0,'<key25>','',6)
;
Select id,ANFANGSBESTAND,ANFANGSDATE from LagerLogMonth
Where IdArtikel='<key24>'
and Monat=<month>
and Jahr=<year>
;
Insert into LagerLogMonth (id,IDARTIKEL,MONAT,JAHR,ANFANGSBESTAND,ENDBESTAND,ANFANGSDATE,ENDDATE) values ('<key27>','<key24>',<month>,<year>,0,0,'<today>','<today>')
;
UPDATE LAGERBELEG_POS SET COUNTLAGER=ANZAHL WHERE IDPARENT='ML-1'
;
SELECT IDNUMMER,ANZAHL,COUNTBESTELLT FROM BESTELLUNGEN_ARTIKEL
WHERE IDPARENT='<key28>'
AND ANZAHL<>COUNTBESTELLT
AND IDNUMMER<>999999
AND (NOT (IDNUMMER IS NULL))
;
UPDATE ARTIKEL SET COUNTBESTELLT=COUNTBESTELLT+8
WHERE IDNUMMER=11
;
UPDATE ARTIKEL SET COUNTBESTELLT=0 WHERE COUNTBESTELLT<0
;
UPDATE BESTELLUNGEN_ARTIKEL SET COUNTBESTELLT=ANZAHL WHERE IDPARENT='<key28>'
;
SELECT IDNUMMER,ANZAHL,COUNTBESTELLT FROM BESTELLUNGEN_ARTIKEL
WHERE IDPARENT='<key28>'
AND ANZAHL<>COUNTBESTELLT
AND IDNUMMER<>999999
AND (NOT (IDNUMMER IS NULL))
;
UPDATE ARTIKEL SET COUNTBESTELLT=0 WHERE COUNTBESTELLT<0
;
UPDATE BESTELLUNGEN_ARTIKEL SET COUNTBESTELLT=ANZAHL WHERE IDPARENT='<key28>'
;
SELECT IDNUMMER,ANZAHL,COUNTBESTELLT FROM BESTELLUNGEN_ARTIKEL
WHERE IDPARENT='<key28>'
AND IDNUMMER<>999999
AND (NOT (IDNUMMER IS NULL))
;
UPDATE ARTIKEL SET COUNTBESTELLT=COUNTBESTELLT-8
WHERE IDNUMMER=11
;
UPDATE ARTIKEL SET COUNTBESTELLT=0 WHERE COUNTBESTELLT<0
;
UPDATE BESTELLUNGEN_ARTIKEL SET COUNTBESTELLT=ANZAHL WHERE IDPARENT='<key28>'
;
SELECT IDNUMMER,ANZAHL,COUNTBESTELLT FROM BESTELLUNGEN_ARTIKEL
WHERE IDPARENT='<key28>'
AND IDNUMMER<>999999
AND (NOT (IDNUMMER IS NULL))
;
UPDATE ARTIKEL SET COUNTBESTELLT=COUNTBESTELLT+8
WHERE IDNUMMER=11
;
UPDATE ARTIKEL SET COUNTBESTELLT=0 WHERE COUNTBESTELLT<0
;
UPDATE BESTELLUNGEN_ARTIKEL SET COUNTBESTELLT=ANZAHL WHERE IDPARENT='<key28>'
;
Select Bestand from Artikel where id='<key3>' and (IgnoreBestand=0 or IgnoreBestand is null)
;
Select Bestand from Artikel where id='<key24>' and (IgnoreBestand=0 or IgnoreBestand is null)
;
