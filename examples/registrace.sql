SELECT * FROM (
  SELECT cislo, cislo AS kod, nazev, ulice, mesto, replace(psc, ' ', '') AS psc, ico, dic, zalozen, email, platce_dph,
         CASE WHEN sleva >= 10 THEN 'na fakturu se splatností 30 dní' WHEN sleva > 0 THEN 'převodem' ELSE 'hotově' END AS uhrada,
         sleva, poznamka
  FROM odberatele
)
ORDER BY cislo
