SELECT kod, nazev, jednotka, zasoba, cena, replace(replace(popis, char(13), ''), char(10), ' ') AS popis
FROM zbozi
WHERE NOT vyrazeno
ORDER BY nazev
