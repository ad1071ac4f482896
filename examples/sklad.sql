-- A small stock and invoice database of an invented ironmonger: the data of the demonstration and of the manual's
-- examples. Every name is invented; company numbers (ico) have a wrong check digit, so that they are nobody's, and bar
-- codes are of the range that shops number themselves. The result is the same each time that the file is run.

BEGIN;

DROP VIEW IF EXISTS prehled_faktur;
DROP TABLE IF EXISTS polozky;
DROP TABLE IF EXISTS faktury;
DROP TABLE IF EXISTS zbozi;
DROP TABLE IF EXISTS odberatele;

CREATE TABLE odberatele (
  cislo      INTEGER PRIMARY KEY,
  nazev      VARCHAR(60) NOT NULL,
  ulice      VARCHAR(60),
  mesto      VARCHAR(40),
  psc        CHAR(6),
  ico        DOUBLE,
  dic        VARCHAR(14),
  platce_dph BOOLEAN NOT NULL,
  sleva      SINGLE NOT NULL,         -- percent
  zalozen    DATE,
  email      VARCHAR(80),
  poznamka   MEMO
);

CREATE TABLE zbozi (
  kod        CHAR(6) PRIMARY KEY,
  nazev      VARCHAR(80) NOT NULL,
  jednotka   VARCHAR(8) NOT NULL,
  cena       CURRENCY NOT NULL,       -- without VAT
  sazba_dph  TINYINT NOT NULL,        -- percent
  zasoba     DECIMAL(10,2),           -- NULL: not kept in stock
  hmotnost   DOUBLE,                  -- kilograms
  pocet      SMALLINT NOT NULL,       -- labels to print, 0 for goods that carry none
  ean        CHAR(13) NOT NULL,
  vyrazeno   BOOLEAN NOT NULL,
  popis      MEMO
);

CREATE TABLE faktury (
  cislo      CHAR(10) PRIMARY KEY,
  odberatel  INTEGER NOT NULL REFERENCES odberatele (cislo),
  vystavena  DATE NOT NULL,
  splatna    DATE NOT NULL,
  zaplacena  DATETIME,                -- NULL: not yet
  uhrada     VARCHAR(20) NOT NULL,
  zaklad     CURRENCY NOT NULL,       -- sum of the items
  dph        CURRENCY NOT NULL,
  celkem     CURRENCY NOT NULL,
  poznamka   MEMO
);

CREATE TABLE polozky (
  faktura    CHAR(10) NOT NULL REFERENCES faktury (cislo),
  radek      SMALLINT NOT NULL,
  zbozi      CHAR(6) NOT NULL REFERENCES zbozi (kod),
  pocet      SMALLINT NOT NULL,
  cena       CURRENCY NOT NULL,       -- of one, less the customer's discount
  castka     CURRENCY NOT NULL,
  sazba_dph  TINYINT NOT NULL,
  PRIMARY KEY (faktura, radek)
);

INSERT INTO odberatele VALUES
(1, 'Truhlářství Březina a syn', 'Lipová 12', 'Jihlava', '586 01', 27143053, 'CZ27143053', 1, 5, '2011-03-14', 'objednavky@odberatel01.example', 'Odběr vždy v pátek; vykládka ze dvora.'),
(2, 'Zahradnictví U Šípku', 'Nádražní 345/7', 'Žďár nad Sázavou', '591 01', 412079, 'CZ00412079', 1, 2.5, '2009-09-01', 'objednavky@odberatel02.example', NULL),
(3, 'Pekařství Žofie Ďurišové', 'Náměstí Míru 3', 'Třebíč', '674 01', 61904886, 'CZ61904886', 1, 0, '2015-02-27', NULL, 'Platí hotově.'),
(4, 'Autodílna Křížek s.r.o.', 'Průmyslová 1180', 'Havlíčkův Brod', '580 01', 25588138, 'CZ25588138', 1, 10, '2004-11-08', 'objednavky@odberatel04.example', 'Rámcová smlouva "A-17"; sleva jen na nářadí.' || char(13, 10) || 'Kontakt: mistr Křížek ml.'),
(5, 'Obec Dolní Žleby', 'Dolní Žleby 1', 'Dolní Žleby', '588 12', 286112, NULL, 0, 0, '2012-05-30', 'objednavky@odberatel05.example', 'Fakturovat na obecní úřad.'),
(6, 'Základní škola Pod Kaštany', 'Školní 77', 'Polná', '588 13', 70992546, NULL, 0, 5, '2010-08-25', 'objednavky@odberatel06.example', NULL),
(7, 'Květinářství Růžena Šťastná', 'Palackého 19', 'Humpolec', '396 01', 13457905, NULL, 0, 0, '2018-04-03', 'objednavky@odberatel07.example', NULL),
(8, 'Stavby Vysočan a.s.', 'Okružní 2200/4', 'Jihlava', '586 01', 26301771, 'CZ26301771', 1, 12.5, '2001-01-15', 'objednavky@odberatel08.example', 'Splatnost 30 dní.
Stavby vyzvedává vlastní vůz;
osoba oprávněná k převzetí: "vedoucí směny".'),
(9, 'Hostinec U Tří řek', 'Nábřežní 8', 'Týn nad Vltavou', '375 01', 74820367, 'CZ74820367', 1, 0, '2019-06-21', 'objednavky@odberatel09.example', 'Závoz do 10 hodin!'),
(10, 'Kovářství Jan Ohnivec', 'Kovářská 5', 'Telč', '588 56', 7309215, NULL, 0, 2.5, '2006-10-11', NULL, NULL),
(11, 'Mlékárna Bílý Potok, družstvo', 'Mlýnská 401', 'Pelhřimov', '393 01', 118537, 'CZ00118537', 1, 7.5, '2000-02-02', 'objednavky@odberatel11.example', 'Objednávky jen písemně: "mlekarna / sklad 2".'),
(12, 'Lesy pod Javořicí s.r.o.', 'Lesní 60', 'Mrákotín', '588 54', 28155624, 'CZ28155624', 1, 10, '2008-12-01', 'objednavky@odberatel12.example', NULL),
(13, 'Penzion Stará Fara', 'Farní 2', 'Slavonice', '378 81', NULL, NULL, 0, 0, '2020-07-09', 'objednavky@odberatel13.example', NULL),
(14, 'Ing. Štěpán Úlehla', 'V Zahrádkách 14', 'Brno', '602 00', 66438700, 'CZ66438700', 1, 5, '2013-01-31', 'objednavky@odberatel14.example', 'Projektant; posílat i technické listy.'),
(15, 'Elektro Čapek & Dvořáčková', 'Husova 251/33', 'Brno', '602 00', 29200479, 'CZ29200479', 1, 10, '2005-05-05', 'objednavky@odberatel15.example', NULL),
(16, 'Mateřská škola Sluníčko', 'Komenského 9', 'Velké Meziříčí', '594 01', 71344026, NULL, 0, 5, '2011-09-12', 'objednavky@odberatel16.example', NULL),
(17, 'Farma Ořechov', 'Ořechov 18', 'Ořechov', '594 52', 3655186, 'CZ03655186', 1, 2.5, '2016-03-18', NULL, NULL),
(18, 'Tiskárna Písmák s.r.o.', 'Dlouhá 1024', 'Olomouc', '779 00', 24776097, 'CZ24776097', 1, 7.5, '2003-06-17', 'objednavky@odberatel18.example', NULL),
(19, 'Řeznictví Vaněk', 'Masarykova 41', 'Moravské Budějovice', '676 02', 10293846, 'CZ10293846', 1, 0, '2017-11-29', 'objednavky@odberatel19.example', NULL),
(20, 'Vinařství Pod Hájem', 'Sklepní 6', 'Mikulov', '692 01', 45560719, 'CZ45560719', 1, 5, '2014-10-10', 'objednavky@odberatel20.example', '"Bílý dům" vedle kostela; zvonit u vrat.'),
(21, 'Klempířství Žáček', 'Zámecká 88', 'Náměšť nad Oslavou', '675 71', 69811258, NULL, 0, 0, '2009-04-22', 'objednavky@odberatel21.example', NULL),
(22, 'Kavárna Na Růžku', 'Růžová 1', 'Jindřichův Hradec', '377 01', 80166496, NULL, 0, 0, '2021-02-15', 'objednavky@odberatel22.example', NULL),
(23, 'Pila Hrůza a Němec', 'U Pily 300', 'Počátky', '394 64', 27339186, 'CZ27339186', 1, 12.5, '2002-08-19', 'objednavky@odberatel23.example', 'Palety vratné.'),
(24, 'Sdružení zahrádkářů Třešť', 'Zahradní 15', 'Třešť', '589 01', 577329, NULL, 0, 2.5, '2010-03-03', NULL, NULL),
(25, 'Optika Jasný zrak', 'Kosmákova 27', 'Třebíč', '674 01', 25613400, 'CZ25613400', 1, 0, '2012-12-12', 'objednavky@odberatel25.example', NULL),
(26, 'Domov pro seniory Pohoda', 'Lipky 500', 'Nové Město na Moravě', '592 31', 844263, NULL, 0, 7.5, '2007-07-30', 'objednavky@odberatel26.example', 'Objednává sl. O''Haraová, linka 24.'),
(27, 'Cyklo Šlápota', 'Riegrovo náměstí 4', 'Kroměříž', '767 01', 33708156, 'CZ33708156', 1, 5, '2018-05-14', 'objednavky@odberatel27.example', NULL),
(28, 'Rybářství U Sumce', 'Rybniční 11', 'Žďár nad Sázavou', '591 02', 26049508, 'CZ26049508', 1, 2.5, '2005-09-27', 'objednavky@odberatel28.example', NULL),
(29, 'Krejčovství Božena Nitková', 'Úzká 3', 'Znojmo', '669 02', 16832073, NULL, 0, 0, '2015-10-05', 'objednavky@odberatel29.example', NULL),
(30, 'Transport Ďas s.r.o.', 'Dálniční 999', 'Humpolec', '396 01', 28907634, 'CZ28907634', 1, 10, '2013-06-06', 'objednavky@odberatel30.example', 'Faktury na dispečink; kopie řidiči.'),
(31, 'Pivovar Starý Kocour', 'Pivovarská 24', 'Poděbrady', '290 01', 24195388, 'CZ24195388', 1, 7.5, '2009-01-20', NULL, NULL),
(32, 'Sklárna Křišťálek', 'Sklářská 70', 'Nový Bor', '473 01', 25055849, 'CZ25055849', 1, 5, '2004-04-16', 'objednavky@odberatel32.example', NULL),
(33, 'Lékárna U Zlaté váhy', 'Žižkovo náměstí 9', 'Tábor', '390 01', 62770416, 'CZ62770416', 1, 0, '2016-08-08', 'objednavky@odberatel33.example', NULL),
(34, 'Čistírna Bělostná', 'Prádelní 2', 'České Budějovice', '370 01', 46933161, 'CZ46933161', 1, 0, '2019-01-14', 'objednavky@odberatel34.example', NULL),
(35, 'Restaurace Žíznivý jelen', 'Jelení 13', 'Český Krumlov', '381 01', 51019286, 'CZ51019286', 1, 2.5, '2020-09-23', 'objednavky@odberatel35.example', NULL),
(36, 'Malíř pokojů Luboš Štětina', 'Barevná 16', 'Prachatice', '383 01', NULL, NULL, 0, 5, '2014-03-25', 'objednavky@odberatel36.example', NULL),
(37, 'Sportovní klub Vrchovina', 'Stadion 1', 'Bystřice nad Pernštejnem', '593 01', 166990, NULL, 0, 0, '2011-11-11', 'objednavky@odberatel37.example', NULL),
(38, 'Knihkupectví Pod Věží', 'Věžní 30', 'Plzeň', '301 00', 28511748, 'CZ28511748', 1, 0, '2017-02-08', NULL, NULL),
(39, 'Zámečnictví Klíčník', 'Hradební 55', 'Hradec Králové', '500 03', 13908621, 'CZ13908621', 1, 10, '2006-06-28', 'objednavky@odberatel39.example', NULL),
(40, 'Řemeslný dvůr Černá Hůrka z.s.', 'Černá Hůrka 7', 'Dačice', '380 01', 90455210, NULL, 0, 2.5, '2022-04-19', 'objednavky@odberatel40.example', 'První objednávka na zkoušku.');

INSERT INTO zbozi VALUES
('Z01010', 'Kladivo tesařské 600 g', 'ks', 289, 21, 34, 0.82, 2, '2000000041070', 0, NULL),
('Z01020', 'Kladivo zámečnické 300 g', 'ks', 149.5, 21, 51, 0.41, 1, '2000000041148', 0, NULL),
('Z01030', 'Kleště kombinované 180 mm', 'ks', 219, 21, 28, 0.29, 1, '2000000041216', 0, NULL),
('Z01040', 'Kleště štípací boční 160 mm', 'ks', 235.9, 21, 17, 0.24, 1, '2000000041285', 0, NULL),
('Z01050', 'Šroubovák křížový PH2', 'ks', 79, 21, 120, 0.11, 3, '2000000041353', 0, NULL),
('Z01060', 'Šroubovák plochý 5,5 mm', 'ks', 69, 21, 96, 0.1, 3, '2000000041421', 0, NULL),
('Z01070', 'Sada bitů 32 dílů', 'sada', 399, 21, 22, 0.36, 1, '2000000041490', 0, 'Bity z oceli S2, v krabičce s magnetickým držákem.'),
('Z01080', 'Metr svinovací 5 m', 'ks', 129, 21, 75, 0.21, 2, '2000000041568', 0, NULL),
('Z01090', 'Vodováha hliníková 80 cm', 'ks', 459, 21, 13, 0.74, 1, '2000000041636', 0, 'Tři libely; jedna otočná.'),
('Z01100', 'Pila ocaska 450 mm', 'ks', 345, 21, 19, 0.55, 1, '2000000041704', 0, NULL),
('Z01110', 'Pilový kotouč 190 × 30 mm', 'ks', 528.4, 21, 9, 0.48, 1, '2000000041773', 0, NULL),
('Z01120', 'Vrták do kovu 6 mm', 'ks', 42.5, 21, 210, 0.03, 5, '2000000041841', 0, NULL),
('Z01130', 'Vrták do zdiva 8 mm', 'ks', 55, 21, 164, 0.05, 5, '2000000041919', 0, NULL),
('Z01140', 'Vruty do dřeva 4 × 40, 200 ks', 'bal', 118, 21, 88, 0.62, 4, '2000000041988', 0, NULL),
('Z01150', 'Hřebíky stavební 90 mm, 1 kg', 'bal', 74.9, 21, 140, 1, 4, '2000000042053', 0, NULL),
('Z01160', 'Matice M8 pozinkovaná, 100 ks', 'bal', 96, 21, 63, 0.55, 2, '2000000042121', 0, NULL),
('Z01170', 'Podložka M8, 200 ks', 'bal', 58, 21, 71, 0.39, 2, '2000000042190', 0, NULL),
('Z01180', 'Závitová tyč M10, 1 m', 'ks', 47, 21, 150, 0.49, 0, '2000000042268', 0, NULL),
('Z01190', 'Hmoždinky 8 × 40, 100 ks', 'bal', 89, 21, 104, 0.16, 3, '2000000042336', 0, NULL),
('Z01200', 'Lepidlo na dřevo 750 g', 'ks', 185, 21, 36, 0.8, 1, '2000000042404', 0, 'Zpracovat při teplotě nad 10 °C.'),
('Z01210', 'Silikon sanitární bílý 280 ml', 'ks', 139, 21, 58, 0.33, 2, '2000000042473', 0, NULL),
('Z01220', 'Montážní pěna 750 ml', 'ks', 199, 21, 47, 0.85, 2, '2000000042541', 0, 'Obsahuje "izokyanáty"; dbejte návodu.'),
('Z01230', 'Barva na kov šedá 0,75 l', 'ks', 329, 21, 21, 1.1, 1, '2000000042619', 0, NULL),
('Z01240', 'Lazura na dřevo ořech 2,5 l', 'ks', 789, 21, 14, 2.7, 1, '2000000042688', 0, NULL),
('Z01250', 'Ředidlo syntetické 1 l', 'ks', 119, 21, 33, 0.9, 1, '2000000042756', 0, NULL),
('Z01260', 'Štětec plochý 50 mm', 'ks', 64, 21, 92, 0.07, 3, '2000000042824', 0, NULL),
('Z01270', 'Váleček malířský 25 cm', 'ks', 98, 21, 45, 0.18, 2, '2000000042893', 0, NULL),
('Z01280', 'Páska krycí 38 mm × 50 m', 'ks', 75, 21, 81, 0.15, 2, '2000000042961', 0, NULL),
('Z01290', 'Brusný papír P120, 10 archů', 'bal', 88, 21, 57, 0.12, 2, '2000000043036', 0, NULL),
('Z01300', 'Rukavice pracovní kožené', 'pár', 169, 21, 66, 0.2, 2, '2000000043104', 0, NULL),
('Z01310', 'Rukavice zahradní dámské', 'pár', 89, 21, 38, 0.08, 1, '2000000043173', 0, NULL),
('Z01320', 'Brýle ochranné čiré', 'ks', 95, 21, 29, 0.06, 1, '2000000043241', 0, NULL),
('Z01330', 'Respirátor FFP2, 10 ks', 'bal', 149, 21, 40, 0.07, 1, '2000000043319', 0, NULL),
('Z01340', 'Přilba ochranná žlutá', 'ks', 259, 21, 11, 0.38, 1, '2000000043388', 0, NULL),
('Z01350', 'Lopata s násadou', 'ks', 415, 21, 16, 1.9, 1, '2000000043456', 0, NULL),
('Z01360', 'Rýč zahradní', 'ks', 489, 21, 12, 2.1, 1, '2000000043524', 0, NULL),
('Z01370', 'Hrábě kovové 14 zubů', 'ks', 279, 21, 18, 1.3, 1, '2000000043593', 0, NULL),
('Z01380', 'Motyka 16 cm', 'ks', 239, 21, 15, 1.1, 1, '2000000043661', 0, NULL),
('Z01390', 'Konev pozinkovaná 10 l', 'ks', 549, 21, 8, 1.6, 1, '2000000043739', 0, NULL),
('Z01400', 'Hadice zahradní 1/2", 25 m', 'ks', 699, 21, 10, 3.4, 1, '2000000043807', 0, 'Tlak nejvýše 8 bar.'),
('Z01410', 'Nůžky zahradní dvousečné', 'ks', 369, 21, 20, 0.3, 1, '2000000043876', 0, NULL),
('Z01420', 'Kolečko stavební 80 l', 'ks', 1890, 21, 5, 13.5, 1, '2000000043944', 0, 'Dodává se v rozloženém stavu:
– korba,
– rám s kolem,
– spojovací materiál.'),
('Z01430', 'Substrát zahradnický 50 l', 'pytel', 159, 12, 95, 18, 0, '2000000044019', 0, NULL),
('Z01440', 'Hnojivo trávníkové 10 kg', 'pytel', 439, 12, 24, 10, 0, '2000000044088', 0, NULL),
('Z01450', 'Osivo trávní směs 1 kg', 'bal', 219, 12, 37, 1, 1, '2000000044156', 0, NULL),
('Z01460', 'Cibule sazečka 0,5 kg', 'bal', 49, 12, 60, 0.5, 1, '2000000044224', 1, NULL),
('Z01470', 'Cement 25 kg', 'pytel', 145, 21, 180, 25, 0, '2000000044293', 0, NULL),
('Z01480', 'Malta zdicí 25 kg', 'pytel', 99, 21, 220, 25, 0, '2000000044361', 0, NULL),
('Z01490', 'Sádra rychlá 5 kg', 'pytel', 109, 21, 42, 5, 1, '2000000044439', 0, NULL),
('Z01500', 'Prkno smrkové 4 m', 'ks', 189.9, 21, 130, 9.2, 0, '2000000044507', 0, NULL),
('Z01510', 'Lať střešní 4 m', 'ks', 84.5, 21, 260, 4.4, 0, '2000000044576', 0, NULL),
('Z01520', 'Kabel CYKY 3 × 1,5', 'm', 18.9, 21, 1250, 0.14, 0, '2000000044644', 0, 'Cena za metr; řeže se na míru.'),
('Z01530', 'Zásuvka dvojitá bílá', 'ks', 129, 21, 73, 0.12, 2, '2000000044712', 0, NULL),
('Z01540', 'Vypínač jednopólový', 'ks', 94, 21, 68, 0.09, 2, '2000000044781', 0, NULL),
('Z01550', 'Žárovka LED E27 9 W', 'ks', 79, 21, 145, 0.05, 4, '2000000044859', 0, NULL),
('Z01560', 'Prodlužovací šňůra 5 m', 'ks', 249, 21, 31, 0.6, 1, '2000000044927', 0, NULL),
('Z01570', 'Baterie AA, 4 ks', 'bal', 99, 21, 110, 0.1, 5, '2000000044996', 0, NULL),
('Z01580', 'Zámek visací 50 mm', 'ks', 315, 21, 26, 0.42, 1, '2000000045061', 0, 'Tři klíče.'),
('Z01590', 'Kalendář "Řemeslo" na zeď', 'ks', 129, 12, NULL, 0.35, 0, '2000000045139', 1, 'Vychází v říjnu.'),
('Z01600', 'Učebnice Ruční obrábění dřeva', 'ks', 385, 0, 6, 0.71, 0, '2000000045207', 0, 'Kniha;' || char(13, 10) || 'autor: "mistr truhlář".');

-- 120 invoices from January 2024 on, one every six days or so; the last ones are not paid yet.
WITH RECURSIVE cisla (n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM cisla WHERE n < 120),
dny (n, den) AS (SELECT n, date('2024-01-04', (n * 6 + n * n % 5) || ' days') FROM cisla)
INSERT INTO faktury
SELECT strftime('%Y', den) || printf('%06d', n),
       1 + n * 23 % 40,
       den,
       date(den, CASE WHEN n * 23 % 40 = 7 THEN '30 days' ELSE '14 days' END),
       CASE WHEN n > 108 OR n % 17 = 0 THEN NULL
            ELSE datetime(den, CASE n % 5 WHEN 0 THEN 0 ELSE n * 11 % 19 END || ' days', (8 * 60 + n * 37 % 540) || ' minutes') END,
       CASE n % 5 WHEN 0 THEN 'hotově' WHEN 3 THEN 'kartou' ELSE 'převodem' END,
       0, 0, 0,
       CASE WHEN n % 24 = 5 THEN 'Dodáno na dvakrát; zbytek "příští týden".' || char(13, 10) || 'Dopravu účtujeme zvlášť.'
            WHEN n % 10 = 7 THEN 'Děkujeme za včasnou úhradu.'
            WHEN n % 31 = 0 THEN 'Zboží přebral: O''Hara; číslo dodacího listu ' || (5000 + n) END
FROM dny;

-- One to six items each, of different goods.
WITH RECURSIVE radky (j) AS (SELECT 1 UNION ALL SELECT j + 1 FROM radky WHERE j < 6),
vyber AS (
  SELECT f.cislo AS faktura, j AS radek, f.odberatel AS odberatel,
         'Z' || printf('%05d', 1010 + 10 * ((f.rowid * 13 + j * 17) % 60)) AS kod,
         1 + (f.rowid * 3 + j * 5) % 12 AS pocet
  FROM faktury AS f JOIN radky ON j <= 1 + f.rowid * 7 % 6
)
INSERT INTO polozky
SELECT v.faktura, v.radek, v.kod, v.pocet, round(z.cena * (100 - o.sleva) / 100.0, 2), 0, z.sazba_dph
FROM vyber AS v JOIN zbozi AS z ON z.kod = v.kod JOIN odberatele AS o ON o.cislo = v.odberatel
ORDER BY v.faktura, v.radek;

UPDATE polozky SET castka = round(pocet * cena, 2);
UPDATE faktury SET
  zaklad = (SELECT round(sum(castka), 2) FROM polozky WHERE faktura = cislo),
  dph = (SELECT round(sum(castka * sazba_dph) / 100.0, 2) FROM polozky WHERE faktura = cislo);
UPDATE faktury SET celkem = round(zaklad + dph, 2);

CREATE VIEW prehled_faktur AS
SELECT f.cislo, f.vystavena, f.splatna, f.zaplacena, f.celkem, o.nazev, o.ulice, o.psc, o.mesto, o.ico
FROM faktury AS f JOIN odberatele AS o ON o.cislo = f.odberatel;

COMMIT;
