Select Id from AAO Where ALARMKUERZEL='B2' and (AlarmObjekt='Rathaus' or AlarmObjekt='' or Alarmobjekt is null) and (EINSATZORT='Neudorf' or EINSATZORT='' or (EINSATZORT is null) or ( id in (select idparent from AAO_Orte Where EINSATZORT='Neudorf') )  ) and (  (   EXTENDEDSETTINGS=1 and ES_Mi=1   and (ES_FROMTIME<='12:00:00' or ES_FROMTIME='' or ES_FROMTIME is Null)   and (ES_TOTIME>='12:00:00' or ES_TOTIME='' or ES_TOTIME is Null)   and (ES_FromDate<='2026-11-25' or ES_FromDate is Null)   and (ES_ToDate>='2026-11-25' or ES_FromDate is Null)  )  or  (   (EXTENDEDSETTINGS=0 or EXTENDEDSETTINGS is Null)  ) ) order by EXTENDEDSETTINGS desc NULLS LAST, es_Fromdate NULLS FIRST,es_fromTime NULLS FIRST,es_fromTime NULLS FIRST,es_toTime NULLS FIRST,AlarmObjekt desc NULLS LAST,EINSATZORT desc NULLS LAST
;
Select Id from AAO Where ALARMKUERZEL='B2' and (1=2 or AlarmObjekt='' or Alarmobjekt is null) and (1=2 or EINSATZORT='' or (EINSATZORT is null) or ( id in (select idparent from AAO_Orte Where 1=2) )  ) and (  (   EXTENDEDSETTINGS=1 and ES_<day>=1   and (ES_FROMTIME<='<time>' or ES_FROMTIME='' or ES_FROMTIME is Null)   and (ES_TOTIME>='<time>' or ES_TOTIME='' or ES_TOTIME is Null)   and (ES_FromDate<='<today>' or ES_FromDate is Null)   and (ES_ToDate>='<today>' or ES_FromDate is Null)  )  or  (   (EXTENDEDSETTINGS=0 or EXTENDEDSETTINGS is Null)  ) ) order by EXTENDEDSETTINGS desc NULLS LAST, es_Fromdate NULLS FIRST,es_fromTime NULLS FIRST,es_fromTime NULLS FIRST,es_toTime NULLS FIRST,AlarmObjekt desc NULLS LAST,EINSATZORT desc NULLS LAST
;
select 
  ORTSTEIL 
from 
  ORTE 
where 
  SELECTPLZ = '64287' and   SELECTORT = 'MUSTERSTADT' and 
  SELECTSTRASSE = 'EICHENWEG7' 
;
select 
  ORTSTEIL 
from 
  ORTE 
where 
  SELECTPLZ = '64287' and   SELECTORT = 'MUSTERSTADT' and 
  SELECTSTRASSE = 'EICHENWEG' and 
  HNRUVON <= 7 and 
  HNRUBIS >= 7 
;
select 
  ORTSTEIL 
from 
  ORTE 
where 
  SELECTPLZ = '64287' and   SELECTORT = 'MUSTERSTADT' and 
  SELECTSTRASSE = 'EICHENWEG' and 
  7 >= COALESCE(HNRUVON, HNRGVON, 0) and 
  7 <= COALESCE(HNRUBIS, HNRGBIS, 10000) and 
  (HNRGVON is null or HNRGBIS is null)
;
select 
  count(*) 
from 
  ORTE 
where 
  SELECTPLZ = '64287' and   SELECTORT = 'MUSTERSTADT' and 
  SELECTSTRASSE = 'EICHENWEG'
;
Select count (p1) from sysparam where p1 = 'FMSMonitor_<host>'
;
Select count (p1) from sysparam where p1 = 'Lumiron_<host>'
;
