SELECT nazev, ulice, psc, mesto
FROM odberatele
ORDER BY nazev
