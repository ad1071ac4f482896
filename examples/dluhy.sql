SELECT d.cislo, nazev, ulice, psc, mesto, ico, vystavena, splatna, celkem
FROM dluhy AS d JOIN dluznici AS o ON o.cislo = d.odberatel
ORDER BY splatna, d.cislo
