SELECT cislo, nazev, ulice, psc, mesto, ico, vystavena, splatna, celkem
FROM prehled_faktur
WHERE zaplacena IS NULL
ORDER BY splatna, cislo
