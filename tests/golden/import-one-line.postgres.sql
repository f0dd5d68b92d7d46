Select id from IMP_MAIN
Where NR = 'N1'
;
CREATE SEQUENCE IF NOT EXISTS GEN_IMP_MAIN_LFD MINVALUE 0 START 1
;
select nextval('GEN_IMP_MAIN_LFD')
;
select setval('GEN_IMP_MAIN_LFD', 100)
;
Insert Into IMP_MAIN
(
ID,
LFD
)
Values
(
'<key1>',
100
)
;
Update IMP_MAIN set
NR='N1'
Where id ='<key1>'
;
Update IMP_MAIN set
NAME='ab'
Where id ='<key1>'
;
Update IMP_MAIN set
BETRAG=12.5
Where id ='<key1>'
;
Update IMP_MAIN set
DATUM='2026-12-31'
Where id ='<key1>'
;
Insert Into IMP_POS
(
ID,
IDParent
)
Values
(
'<key2>',
'<key1>'
)
;
Commit
;
Update IMP_POS set
TEXT='Teil eins'
Where id ='<key2>'
;
