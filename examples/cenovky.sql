SELECT nazev, cena, jednotka, kod, ean, pocet
FROM zbozi
WHERE NOT vyrazeno
ORDER BY nazev
