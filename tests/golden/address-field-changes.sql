Select Ort from Orte Where plz='60311'
;
Select Ort from Orte Where plz='64289'
;
Select Strasse from Orte Where plz='64289' and ort='Darmstadt'
;
Select Ort from Orte Where plz='64289'
;
Select Strasse from Orte Where plz='64289' and ort='Darmstadt'
;
Select Strasse from Orte Where plz='60311' and ort='Frankfurt am Main'
;
