SELECT DISTINCT PLZ from Orte
Where 1=1
order by PLZ NULLS FIRST
;
SELECT DISTINCT PLZ from Orte
Where 1=1
and ORT='Darmstadt'
order by PLZ NULLS FIRST
;
SELECT DISTINCT ORT from Orte
Where 1=1
and PLZ='60311'
order by ORT NULLS FIRST
;
SELECT DISTINCT Strasse from Orte
Where 1=1
and Ort='Darmstadt'
and PLZ='64287'
order by Strasse NULLS FIRST
;
SELECT DISTINCT Hausnummer from Orte
Where 1=1
and Strasse='Hauptstraße'
and PLZ='64287'
order by Hausnummer NULLS FIRST
;
SELECT DISTINCT Hausnummer from Orte
Where 1=1
and Strasse='Hauptstraße'
order by Hausnummer NULLS FIRST
;
