SELECT kod, nazev, cena
FROM zbozi
WHERE NOT vyrazeno
ORDER BY nazev
