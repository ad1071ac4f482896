SELECT cislo, nazev, ulice, psc, mesto, printf('%08d', ico) AS ico, strftime('%d.%m.%Y', vystavena) AS vystavena,
       strftime('%d.%m.%Y', splatna) AS splatna, replace(printf('%.2f', celkem), '.', ',') AS celkem
FROM prehled_faktur
WHERE zaplacena IS NULL
ORDER BY splatna, cislo
