SELECT z.kod, z.nazev AS zbozi, z.jednotka, z.cena, z.zasoba, z.zasoba * z.cena AS hodnota, z.vyrazeno, z.popis
FROM zbozi AS z
ORDER BY z.nazev
