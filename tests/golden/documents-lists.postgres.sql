Select * from Fahrzeug_Dokumente Where idparent='FZ-1'
Order by Bezeichnung NULLS FIRST
;
Select * from Fahrzeug_Dokumente Where idparent='FZ-9'
Order by Bezeichnung NULLS FIRST
;
Select * from Mat_Dokumente
Where idParent='A'
Or idParent='B'
Or idParent='X'
Order By BEZEICHNUNG NULLS FIRST
;
Select Count(*) from Mat_Dokumente
Where idParent='A'
Or idParent='C'
Or idParent='X'
;
