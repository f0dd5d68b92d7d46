Select ID from gSchlussel_Ereignisse where idParent='S' and ( Upper(Ereignis)='BRAND')
;
Select * from gSchlussel_Runden where idParent='S'
order by BisMinuten NULLS FIRST
;
Select * from gSchlussel_Kosten where idEreignis='<key1>'
;
Select * from gSchlussel_FKZulagen Where idParent='<cost row>' and CalcMinuten<90 order by CalcMinuten DESC NULLS LAST
;
Select * from gSchlussel_VKNach Where idParent='<cost row>' and CalcMinuten<90 order by CalcMinuten DESC NULLS LAST
;
Select * from gSchlussel_VKZulagen Where idParent='<cost row>' and CalcMinuten<90 order by CalcMinuten DESC NULLS LAST
;
Select ID from gSchlussel_Ereignisse where idParent='S' and ( Upper(Ereignis)='XY')
;
Select ID from gSchlussel_Ereignisse where idParent='S' and (Upper(Ereignis)='VORGABE')
;
Select * from gSchlussel_Kosten where idEreignis='<key2>'
;
Select * from gSchlussel_FKZulagen Where idParent='<key3>' and Anzahl<2.5 order by Anzahl DESC NULLS LAST
;
Select * from gSchlussel_VKNach Where idParent='<key3>' and Anzahl<2.5 order by Anzahl DESC NULLS LAST
;
Select * from gSchlussel_VKZulagen Where idParent='<key3>' and Anzahl<2.5 order by Anzahl DESC NULLS LAST
;
