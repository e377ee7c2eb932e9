-- The database of Tesorel: every table and stored query the program reads.
-- Dates are ISO text 'YYYY-MM-DD'; texts compare without regard to case, as
-- the statements of the program spell names in any case.

-- Market data ---------------------------------------------------------------

CREATE TABLE Codigo_Empresas (
    Codigo INTEGER PRIMARY KEY,
    NOMBRE TEXT COLLATE NOCASE,
    ABREVIATURA3 TEXT COLLATE NOCASE,
    ABREVIATURA11 TEXT COLLATE NOCASE,
    Invertia TEXT COLLATE NOCASE
);
CREATE INDEX Codigo_Empresas_NOMBRE ON Codigo_Empresas (NOMBRE);
CREATE INDEX Codigo_Empresas_ABREVIATURA3 ON Codigo_Empresas (ABREVIATURA3);
CREATE INDEX Codigo_Empresas_ABREVIATURA11 ON Codigo_Empresas (ABREVIATURA11);

-- (VALOR, FECHA) is the logical key but not a unique one: a bad line of a
-- quote file repeats the value before it, and bringing a portfolio series up
-- to date writes its last day once more. Both must be stored.
CREATE TABLE bolsa (
    VALOR INTEGER,
    FECHA DATE,
    ANTERIOR DOUBLE,
    ULTIMO DOUBLE,
    DIF DOUBLE,
    VOLUMEN DOUBLE,
    MAXIMO DOUBLE,
    MINIMO DOUBLE,
    EFECT DOUBLE
);
-- The index of a value's series carries every field, so that a chart reads
-- its rows from the index alone, in date order, without one table lookup a
-- day.
CREATE INDEX bolsa_VALOR_FECHA ON bolsa (VALOR, FECHA, ANTERIOR, ULTIMO, DIF, VOLUMEN, MAXIMO, MINIMO, EFECT);
CREATE INDEX bolsa_FECHA ON bolsa (FECHA);

CREATE TABLE ibex (VALOR INTEGER);
CREATE INDEX ibex_VALOR ON ibex (VALOR);

CREATE TABLE www (
    Campo2 TEXT COLLATE NOCASE,
    Campo3 TEXT,
    Web TEXT
);
CREATE INDEX www_Campo2 ON www (Campo2);

CREATE TABLE NombreCategorias (
    usuario INTEGER,
    Categoria TEXT COLLATE NOCASE
);

-- Column order matters: the lists show the second field of a row.
CREATE TABLE categoriastodo (
    usuario INTEGER,
    categoria TEXT COLLATE NOCASE,
    Valor INTEGER
);
CREATE INDEX categoriastodo_usuario_categoria ON categoriastodo (usuario, categoria);

CREATE TABLE comentarios (
    codigo INTEGER PRIMARY KEY,
    Comentario TEXT
);

CREATE TABLE noticias (
    VALOR INTEGER,
    FECHA DATE,
    Titular TEXT,
    Enlace TEXT
);
CREATE INDEX noticias_VALOR ON noticias (VALOR);

-- Users and session ---------------------------------------------------------

CREATE TABLE Usuario (
    clave INTEGER PRIMARY KEY,
    NOMBRE TEXT COLLATE NOCASE,
    Password TEXT COLLATE NOCASE,
    Configuracion TEXT,
    Maximo_dias DOUBLE,
    email TEXT,
    Direccion TEXT,
    Poblacion TEXT,
    CodigoPost TEXT
);

CREATE TABLE Usuario_Actual (
    USUARIO_ACTUAL INTEGER,
    fecha_Actual DATE,
    fecha_inicial DATE,
    fecha_final DATE
);
INSERT INTO Usuario_Actual (USUARIO_ACTUAL, fecha_Actual, fecha_inicial, fecha_final)
VALUES (0, NULL, NULL, NULL);

CREATE TABLE intervalo (
    usuario INTEGER PRIMARY KEY,
    FechaInicial DATE,
    FechaFinal DATE
);

CREATE TABLE faboritos (
    Usuario INTEGER,
    VALOR INTEGER
);
CREATE INDEX faboritos_Usuario_VALOR ON faboritos (Usuario, VALOR);

-- Portfolio -----------------------------------------------------------------

CREATE TABLE cartera (
    Usuario INTEGER,
    VALOR INTEGER,
    Cantidad DOUBLE,
    Precio_Compra DOUBLE,
    Fecha_Compra DATE,
    Total_Compra DOUBLE
);
CREATE INDEX cartera_Usuario ON cartera (Usuario, VALOR);

CREATE TABLE cartera1 (
    Cantidad DOUBLE,
    Valor INTEGER,
    Valor_Actual DOUBLE,
    coste_total DOUBLE,
    Precio_Compra DOUBLE,
    Diferencial DOUBLE,
    Ultimo DOUBLE,
    Beneficio DOUBLE,
    Fecha DATE,
    porcentage DOUBLE
);

CREATE TABLE historico (
    Usuario INTEGER,
    Cantidad DOUBLE,
    VALOR INTEGER,
    operacionNum INTEGER,
    Operacion TEXT,
    Entidad INTEGER,
    precio_operacion DOUBLE,
    Fecha_operacion DATE,
    Total_operacion DOUBLE
);
-- A value's ledger in date order, as the lots are replayed, without a sort.
CREATE INDEX historico_Usuario_VALOR ON historico (Usuario, VALOR, Fecha_operacion);
CREATE INDEX historico_Usuario_Fecha ON historico (Usuario, Fecha_operacion);

CREATE TABLE operadores (
    codigo INTEGER PRIMARY KEY,
    NOMBRE TEXT COLLATE NOCASE
);

CREATE TABLE comisiones (
    Entidad INTEGER,
    NOMBRE TEXT COLLATE NOCASE,
    Tanto DOUBLE,
    minimo DOUBLE,
    desde DOUBLE,
    Hasta DOUBLE
);
CREATE INDEX comisiones_Entidad ON comisiones (Entidad);

-- Stored queries ------------------------------------------------------------

-- The distinct days, found by hopping along the FECHA index from one day to
-- the next: a few thousand seeks instead of a walk over every quote.
CREATE VIEW Fechas AS
WITH RECURSIVE dias(Fecha) AS (
    SELECT MIN(FECHA) FROM bolsa
    UNION ALL
    SELECT (SELECT MIN(b.FECHA) FROM bolsa b WHERE b.FECHA > dias.Fecha)
    FROM dias WHERE dias.Fecha IS NOT NULL
)
SELECT Fecha FROM dias WHERE Fecha IS NOT NULL;

CREATE VIEW primerdia AS
SELECT MIN(FECHA) AS Fecha FROM bolsa;

CREATE VIEW Ultimodia AS
SELECT MAX(FECHA) AS "Máxdefecha" FROM bolsa;

CREATE VIEW bolsa_de_un_dia AS
SELECT b.VALOR AS VALOR, b.FECHA AS FECHA, b.ANTERIOR AS ANTERIOR, b.ULTIMO AS ULTIMO, b.DIF AS DIF,
       b.VOLUMEN AS VOLUMEN, b.MAXIMO AS MAXIMO, b.MINIMO AS MINIMO, b.EFECT AS EFECT
FROM bolsa b
WHERE b.FECHA = (SELECT fecha_Actual FROM Usuario_Actual LIMIT 1);

-- One row a value over fecha_inicial..fecha_final: the previous close of the
-- first day, the close of the last day, the change between those two, the
-- shares and money of all the days, the highest high and the lowest low.
CREATE VIEW Valores_intervalo AS
WITH dias AS (
    SELECT b.VALOR AS VALOR, MIN(b.FECHA) AS dia_primero, MAX(b.FECHA) AS dia_final,
           SUM(b.VOLUMEN) AS VOLUMEN, MAX(b.MAXIMO) AS MAXIMO, MIN(b.MINIMO) AS MINIMO,
           SUM(b.EFECT) AS EFECT
    FROM bolsa b, (SELECT fecha_inicial, fecha_final FROM Usuario_Actual LIMIT 1) u
    WHERE b.FECHA >= u.fecha_inicial AND b.FECHA <= u.fecha_final
    GROUP BY b.VALOR
),
extremos AS (
    SELECT d.*,
           (SELECT a.ANTERIOR FROM bolsa a WHERE a.VALOR = d.VALOR AND a.FECHA = d.dia_primero LIMIT 1) AS ANTERIOR,
           (SELECT z.ULTIMO FROM bolsa z WHERE z.VALOR = d.VALOR AND z.FECHA = d.dia_final LIMIT 1) AS ULTIMO
    FROM dias d
)
SELECT VALOR, ANTERIOR, ULTIMO,
       CASE WHEN ANTERIOR <> 0 THEN (ULTIMO - ANTERIOR) * 100.0 / ANTERIOR ELSE 0.0 END AS DIF,
       VOLUMEN, MAXIMO, MINIMO, EFECT
FROM extremos;

-- The values of the current date, the greatest rise first; the lists show
-- the second field, the day's change.
CREATE VIEW "Los que mas suben" AS
SELECT VALOR AS Valor, DIF, ANTERIOR, ULTIMO, VOLUMEN, MAXIMO, MINIMO, EFECT, FECHA
FROM bolsa_de_un_dia
WHERE VALOR < 34000
ORDER BY DIF DESC, VALOR;

CREATE VIEW CARTERA_actual AS
SELECT DISTINCT c.VALOR AS VALOR
FROM cartera c
WHERE c.Usuario = (SELECT USUARIO_ACTUAL FROM Usuario_Actual LIMIT 1);

CREATE VIEW Faboritos_actual AS
SELECT DISTINCT f.VALOR AS VALOR
FROM faboritos f
WHERE f.Usuario = (SELECT USUARIO_ACTUAL FROM Usuario_Actual LIMIT 1);

-- The current user's portfolio on the current date, as one quote row in
-- thousands: the shares held are those of the ledger up to that day, valued
-- at the day's quotes. Anterior is yesterday's holdings at the previous
-- closes plus the money put in that day, so that buying moves Anterior and
-- Ultimo alike. No row when nothing held is quoted that day.
CREATE VIEW Cartera_Flotante_Total AS
WITH sesion AS (
    SELECT USUARIO_ACTUAL AS usuario, fecha_Actual AS dia FROM Usuario_Actual LIMIT 1
),
tenencia AS (
    SELECT h.VALOR AS VALOR,
           SUM(h.Cantidad) AS hoy,
           SUM(CASE WHEN h.Fecha_operacion < s.dia THEN h.Cantidad ELSE 0 END) AS ayer
    FROM historico h, sesion s
    WHERE h.Usuario = s.usuario AND h.Fecha_operacion <= s.dia
    GROUP BY h.VALOR
),
dinero AS (
    SELECT COALESCE(SUM(h.Total_operacion), 0) AS puesto
    FROM historico h, sesion s
    WHERE h.Usuario = s.usuario AND h.Fecha_operacion = s.dia
),
valorado AS (
    SELECT SUM(t.hoy * b.ULTIMO) AS v,
           SUM(t.ayer * b.ANTERIOR) AS v_ayer,
           SUM(t.hoy * b.MAXIMO) AS maximo,
           SUM(t.hoy * b.MINIMO) AS minimo,
           SUM(b.VOLUMEN) AS volumen,
           COUNT(*) AS cotizados
    FROM tenencia t
    JOIN bolsa b ON b.VALOR = t.VALOR AND b.FECHA = (SELECT dia FROM sesion)
    WHERE t.hoy > 0
)
SELECT (SELECT dia FROM sesion) AS Fecha,
       CASE WHEN valorado.v_ayer + dinero.puesto <> 0 THEN (valorado.v_ayer + dinero.puesto) / 1000.0
            ELSE valorado.v / 1000.0 END AS Anterior,
       valorado.v / 1000.0 AS Ultimo,
       CAST(valorado.volumen / valorado.cotizados AS INTEGER) AS Volumen,
       valorado.maximo / 1000.0 AS Maximo,
       valorado.minimo / 1000.0 AS minimo,
       CAST(valorado.volumen / valorado.cotizados AS INTEGER) * valorado.v / 1000000.0 AS Efect
FROM valorado, dinero
WHERE valorado.cotizados > 0 AND valorado.v <> 0;

-- The current user's operations up to the current date.
CREATE VIEW total_operaciones AS
SELECT COUNT(h.Usuario) AS Operaciones,
       COALESCE(SUM(h.Total_operacion), 0) AS Total_operacion
FROM historico h, (SELECT USUARIO_ACTUAL AS usuario, fecha_Actual AS dia FROM Usuario_Actual LIMIT 1) s
WHERE h.Usuario = s.usuario AND h.Fecha_operacion <= s.dia;
