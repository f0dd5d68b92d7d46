Insert into SysDef_DataLink (ID,Tablename,Fieldname,LinkTablename,Linkfieldname) Values ('<key1>','GERAET','ID','FAHRZEUG','GERAETID')
;
Insert into SysDef_DataLink (ID,Tablename,Fieldname,LinkTablename,Linkfieldname) Values ('<key2>','FAHRZEUG','ID','FAHRZEUG_PRUEFUNG','IDPARENT')
;
Insert into SysDef_DataLink (ID,Tablename,Fieldname,LinkTablename,Linkfieldname) Values ('<key3>','FAHRZEUG_PRUEFUNG','ID','PRUEFUNG_DETAIL','IDPARENT')
;
Insert into SysDef_DataLink (ID,Tablename,Fieldname,LinkTablename,Linkfieldname) Values ('<key4>','PRUEFER','ID','PRUEFUNG_DETAIL','PRUEFERID')
;
