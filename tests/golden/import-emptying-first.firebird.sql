Delete from IMP_MAIN
;
select count(*) from rdb$generators where rdb$generator_name='GEN_IMP_MAIN_ID'
;
CREATE SEQUENCE GEN_IMP_MAIN_ID
;
ALTER SEQUENCE GEN_IMP_MAIN_ID RESTART WITH 1
;
Delete from IMP_POS
;
select count(*) from rdb$generators where rdb$generator_name='GEN_IMP_POS_ID'
;
CREATE SEQUENCE GEN_IMP_POS_ID
;
ALTER SEQUENCE GEN_IMP_POS_ID RESTART WITH 1
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
