Select id from Mandanten where MANDANTID='B'
;
Select * from Mandanten_sub where idparent='2'
;
Select * from Mandanten_sub where idparent='3'
;
Select Count(idMandant) from User_GruppenMandantLink where idMandant='3' and  User_GruppenMandantLink.idParent in ( Select User_GruppenLink.Groupid From User_GruppenLink Where User_GruppenLink.Idparent='u1')
;
Select mandantId from Mandanten where ID='3'
;
Select Count(idMandant) from User_GruppenMandantLink where idMandant='2' and  User_GruppenMandantLink.idParent in ( Select User_GruppenLink.Groupid From User_GruppenLink Where User_GruppenLink.Idparent='u1')
;
Select mandantId from Mandanten where ID='2'
;
