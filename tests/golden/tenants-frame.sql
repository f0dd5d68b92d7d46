Select HMANDANT from User_User Where Id='<user>'
;
Select HMANDANTID from User_User Where Id='<user>'
;
Select Name1,Name2,Name3,ID,Mandantid from Mandanten
Where Mandantid in ('FFM','FFM-N','FFM-S')
;
