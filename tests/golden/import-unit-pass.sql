Insert Into IMP_UNIT
(
ID
)
Values
(
'<key1>'
)
;
Update IMP_UNIT set
TYP='LF'
Where id ='<key1>'
;
Update IMP_UNIT set
FUNKRUFNAME='Florian 1'
Where id ='<key1>'
;
Update IMP_UNIT set
BUNDESLAND='HE'
Where id ='<key1>'
;
Update IMP_UNIT set
KREIS='DA'
Where id ='<key1>'
;
Insert Into IMP_UNIT
(
ID
)
Values
(
'<key2>'
)
;
Update IMP_UNIT set
TYP='x'
Where id ='<key2>'
;
Update IMP_UNIT set
FUNKRUFNAME='y'
Where id ='<key2>'
;
Update IMP_UNIT set
BUNDESLAND='z'
Where id ='<key2>'
;
Update IMP_UNIT set
KREIS='w'
Where id ='<key2>'
;
Update IMP_UNIT set
OPTA_KENNZEICHNUNG='K'
Where id ='<key2>'
;
Update IMP_UNIT set
OPTA_FUNKTIONSZUORDN='ELW'
Where id ='<key2>'
;
Update IMP_UNIT set
OPTA_FUNKRUFNAME='Florian 2'
Where id ='<key2>'
;
Update IMP_UNIT set
OPTA_BUNDESLAND='BY'
Where id ='<key2>'
;
Select * from IMP_UNIT
;
Update IMP_UNIT set 
Einheit='LF Florian 1 (HE-DA)'
Where id='<key1>'
;
Update IMP_UNIT set 
Einheit='ELW Florian 2 (BY)'
Where id='<key2>'
;
