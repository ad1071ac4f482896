SELECT kod, nazev, replace(printf('%.2f', cena), '.', ',') AS cena
FROM zbozi
WHERE NOT vyrazeno
ORDER BY nazev
