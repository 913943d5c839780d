-- The template of a new club's database: the base tables only. Everything else, and the fields
-- the later releases added to these tables, comes from the upgrade at the first start, exactly as
-- it does for a database of any older release. Keep this in step with the declaration in
-- src/core/Schema.cpp (the schema tests compare the two).

CREATE TABLE jr (
    jrID INTEGER PRIMARY KEY AUTOINCREMENT,
    jrSukunimi VARCHAR(50) CHECK (length(jrSukunimi) <= 50),
    jrEtunimi VARCHAR(50) CHECK (length(jrEtunimi) <= 50),
    jrOsoite VARCHAR(50) CHECK (length(jrOsoite) <= 50),
    jrPostinumero VARCHAR(5) CHECK (length(jrPostinumero) <= 5),
    jrPostitoimipaikka VARCHAR(50) CHECK (length(jrPostitoimipaikka) <= 50),
    jrPuhelin VARCHAR(30) CHECK (length(jrPuhelin) <= 30),
    jrMatkapuhelin VARCHAR(30) CHECK (length(jrMatkapuhelin) <= 30),
    jrEmail VARCHAR(50) CHECK (length(jrEmail) <= 50),
    jrJasennumero VARCHAR(10) CHECK (length(jrJasennumero) <= 10),
    jrJasenmaksu BOOLEAN CHECK (jrJasenmaksu IS NULL OR jrJasenmaksu IN (0, 1))
);
CREATE UNIQUE INDEX jr_jrJasennumeroidx ON jr (jrJasennumero);

CREATE TABLE jm (
    jmID INTEGER PRIMARY KEY AUTOINCREMENT,
    jmjrID INTEGER CHECK (jmjrID IS NULL OR (typeof(jmjrID) = 'integer' AND jmjrID BETWEEN -2147483648 AND 2147483647)),
    jmmeID INTEGER CHECK (jmmeID IS NULL OR (typeof(jmmeID) = 'integer' AND jmmeID BETWEEN -2147483648 AND 2147483647)),
    jmLaskunumero INTEGER CHECK (jmLaskunumero IS NULL OR (typeof(jmLaskunumero) = 'integer' AND jmLaskunumero BETWEEN -2147483648 AND 2147483647)),
    jmLaskupaiva DATE CHECK (jmLaskupaiva IS NULL OR date(jmLaskupaiva, '+0 days') IS jmLaskupaiva OR datetime(jmLaskupaiva, '+0 days') IS jmLaskupaiva),
    jmErapaiva DATE CHECK (jmErapaiva IS NULL OR date(jmErapaiva, '+0 days') IS jmErapaiva OR datetime(jmErapaiva, '+0 days') IS jmErapaiva),
    jmViitenumero VARCHAR(50) CHECK (length(jmViitenumero) <= 50),
    jmHinta CURRENCY INTEGER CHECK (typeof(jmHinta) IN ('integer', 'null')),
    jmTeksti VARCHAR(255) CHECK (length(jmTeksti) <= 255),
    jmOtsake VARCHAR(50) CHECK (length(jmOtsake) <= 50),
    jmMaksettu BOOLEAN CHECK (jmMaksettu IS NULL OR jmMaksettu IN (0, 1))
);
CREATE INDEX jm_jmjrIDidx ON jm (jmjrID);

CREATE TABLE jmhist (
    jmhID INTEGER PRIMARY KEY AUTOINCREMENT,
    jmhjmID INTEGER CHECK (jmhjmID IS NULL OR (typeof(jmhjmID) = 'integer' AND jmhjmID BETWEEN -2147483648 AND 2147483647)),
    jmhjmjrID INTEGER CHECK (jmhjmjrID IS NULL OR (typeof(jmhjmjrID) = 'integer' AND jmhjmjrID BETWEEN -2147483648 AND 2147483647)),
    jmhjmmeID INTEGER CHECK (jmhjmmeID IS NULL OR (typeof(jmhjmmeID) = 'integer' AND jmhjmmeID BETWEEN -2147483648 AND 2147483647)),
    jmhjmLaskunumero INTEGER CHECK (jmhjmLaskunumero IS NULL OR (typeof(jmhjmLaskunumero) = 'integer' AND jmhjmLaskunumero BETWEEN -2147483648 AND 2147483647)),
    jmhjmLaskupaiva DATE CHECK (jmhjmLaskupaiva IS NULL OR date(jmhjmLaskupaiva, '+0 days') IS jmhjmLaskupaiva OR datetime(jmhjmLaskupaiva, '+0 days') IS jmhjmLaskupaiva),
    jmhjmErapaiva DATE CHECK (jmhjmErapaiva IS NULL OR date(jmhjmErapaiva, '+0 days') IS jmhjmErapaiva OR datetime(jmhjmErapaiva, '+0 days') IS jmhjmErapaiva),
    jmhjmViitenumero VARCHAR(50) CHECK (length(jmhjmViitenumero) <= 50),
    jmhjmHinta CURRENCY INTEGER CHECK (typeof(jmhjmHinta) IN ('integer', 'null')),
    jmhjmTeksti VARCHAR(255) CHECK (length(jmhjmTeksti) <= 255),
    jmhjmOtsake VARCHAR(50) CHECK (length(jmhjmOtsake) <= 50),
    jmhjmMaksettu BOOLEAN CHECK (jmhjmMaksettu IS NULL OR jmhjmMaksettu IN (0, 1))
);
CREATE INDEX jmhist_jmhjmLaskunumeroidx ON jmhist (jmhjmLaskunumero);
CREATE INDEX jmhist_jmhjmViitenumeroidx ON jmhist (jmhjmViitenumero);
CREATE INDEX jmhist_jmhjmjrIDidx ON jmhist (jmhjmjrID);

CREATE TABLE lt (
    ltID INTEGER PRIMARY KEY AUTOINCREMENT,
    ltNimi VARCHAR(50) CHECK (length(ltNimi) <= 50)
);

CREATE TABLE me (
    meID INTEGER PRIMARY KEY AUTOINCREMENT,
    meTeksti TEXT
);

CREATE TABLE pi (
    piID INTEGER PRIMARY KEY AUTOINCREMENT,
    piNimi VARCHAR(50) CHECK (length(piNimi) <= 50),
    piKuvaus VARCHAR(255) CHECK (length(piKuvaus) <= 255),
    piEnbldCurrency BOOLEAN CHECK (piEnbldCurrency IS NULL OR piEnbldCurrency IN (0, 1)),
    piEnbldDate BOOLEAN CHECK (piEnbldDate IS NULL OR piEnbldDate IN (0, 1)),
    piEnbldLong BOOLEAN CHECK (piEnbldLong IS NULL OR piEnbldLong IN (0, 1)),
    piEnbldMemo BOOLEAN CHECK (piEnbldMemo IS NULL OR piEnbldMemo IN (0, 1)),
    piCurrency CURRENCY INTEGER CHECK (typeof(piCurrency) IN ('integer', 'null')),
    piDate DATE CHECK (piDate IS NULL OR date(piDate, '+0 days') IS piDate OR datetime(piDate, '+0 days') IS piDate),
    piLong INTEGER CHECK (piLong IS NULL OR (typeof(piLong) = 'integer' AND piLong BETWEEN -2147483648 AND 2147483647)),
    piMemo TEXT
);

CREATE TABLE pt (
    ptID INTEGER PRIMARY KEY AUTOINCREMENT,
    ptjrID INTEGER CHECK (ptjrID IS NULL OR (typeof(ptjrID) = 'integer' AND ptjrID BETWEEN -2147483648 AND 2147483647)),
    ptpiID INTEGER CHECK (ptpiID IS NULL OR (typeof(ptpiID) = 'integer' AND ptpiID BETWEEN -2147483648 AND 2147483647)),
    ptValCurrency CURRENCY INTEGER CHECK (typeof(ptValCurrency) IN ('integer', 'null')),
    ptValDate DATE CHECK (ptValDate IS NULL OR date(ptValDate, '+0 days') IS ptValDate OR datetime(ptValDate, '+0 days') IS ptValDate),
    ptValLong INTEGER CHECK (ptValLong IS NULL OR (typeof(ptValLong) = 'integer' AND ptValLong BETWEEN -2147483648 AND 2147483647)),
    ptValMemo TEXT
);
CREATE INDEX pt_ptjrIDidx ON pt (ptjrID);
CREATE INDEX pt_ptpiIDidx ON pt (ptpiID);

CREATE TABLE mt (
    mtID INTEGER PRIMARY KEY AUTOINCREMENT,
    mtpiID INTEGER CHECK (mtpiID IS NULL OR (typeof(mtpiID) = 'integer' AND mtpiID BETWEEN -2147483648 AND 2147483647)),
    mtjrID INTEGER CHECK (mtjrID IS NULL OR (typeof(mtjrID) = 'integer' AND mtjrID BETWEEN -2147483648 AND 2147483647)),
    mtTeksti VARCHAR(255) CHECK (length(mtTeksti) <= 255)
);

-- Headings offered for a new invoice.
INSERT INTO lt (ltNimi) VALUES ('Jäsenmaksu');
INSERT INTO lt (ltNimi) VALUES ('Kannatusmaksu');
INSERT INTO lt (ltNimi) VALUES ('Lasku');
