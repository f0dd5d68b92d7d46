Select id from IMP_MAIN
Where NR = 'N1'
;
select count(*) from rdb$generators where rdb$generator_name='GEN_IMP_MAIN_LFD'
;
select gen_id(GEN_IMP_MAIN_LFD, 1) from rdb$database
;
ALTER SEQUENCE GEN_IMP_MAIN_LFD RESTART WITH 100
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
