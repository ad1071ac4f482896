SELECT * FROM (
  SELECT f.cislo, o.nazev, o.ulice, o.psc, o.mesto, o.ico, o.dic, f.vystavena, f.splatna, f.uhrada, f.zaklad, f.dph, f.celkem,
         f.poznamka,
         group_concat(p.zbozi, char(13, 10)) AS polozky_kod,
         group_concat(z.nazev, char(13, 10)) AS polozky_nazev,
         group_concat(p.pocet || ' ' || z.jednotka, char(13, 10)) AS polozky_pocet,
         group_concat(replace(printf('%.2f', p.cena), '.', ','), char(13, 10)) AS polozky_cena,
         group_concat(replace(printf('%.2f', p.castka), '.', ','), char(13, 10)) AS polozky_castka
  FROM odberatele o
  JOIN faktury f ON f.cislo = (SELECT max(cislo) FROM faktury WHERE odberatel = o.cislo)
  JOIN (SELECT * FROM polozky ORDER BY faktura, radek) p ON p.faktura = f.cislo
  JOIN zbozi z ON z.kod = p.zbozi
  GROUP BY f.cislo
)
ORDER BY nazev
