#include "charts/quote_loader.h"

#include "core/numbers.h"
#include "store/database.h"
#include "store/field_values.h"
#include "store/helpers.h"
#include "store/jet_sql.h"
#include "store/quote_cursor.h"

#include <QVariant>
#include <cmath>
#include <sqlite3.h>
#include <vector>

namespace tesorel
{

QString sentenciaSerie(double codigo)
{
    return QStringLiteral("Select * from bolsa where valor = ") + CStr(codigo) +
           QStringLiteral(" order by fecha");
}

namespace
{

// The field value that the recordset hands over for a column.
QVariant variantDe(sqlite3_stmt *st, int col)
{
    return columnValue(st, col, columnKind(sqlite3_column_decltype(st, col)));
}

// Numero_Cdbl(Texto_Nulo(field)) of the fill. A number whose text of 15
// digits reads back as itself skips the text: a whole number below 1e15,
// or one of at most four decimals that is the nearest double to them.
double lecturaLocal(sqlite3_stmt *st, int col)
{
    // One look at the column's value: its type and number without the
    // statement's bookkeeping for each.
    sqlite3_value *valor = sqlite3_column_value(st, col);
    const int type = sqlite3_value_type(valor);
    if (type == SQLITE_INTEGER) {
        const sqlite3_int64 n = sqlite3_value_int64(valor);
        if (n > -1000000000000000LL && n < 1000000000000000LL)
            return double(n);
    } else if (type == SQLITE_FLOAT) {
        const double v = sqlite3_value_double(valor);
        if (std::fabs(v) < 1e10) {
            // Rounded to the nearest whole number, ties to even, without a
            // library call: exact below 2^52, and |v * 10000| < 1e14.
            const double m = v * 10000, dos52 = std::copysign(4503599627370496.0, m);
            const double n = (m + dos52) - dos52;
            if (n / 10000 == v)
                return v;
        }
    }
    return Numero_Cdbl(Texto_Nulo(variantDe(st, col)));
}

// Numero_Val(Texto_Nulo(field)): the screen's text stops the point rule
// at its decimal comma, so a fraction is dropped.
double lecturaPunto(sqlite3_stmt *st, int col)
{
    sqlite3_value *valor = sqlite3_column_value(st, col);
    const int type = sqlite3_value_type(valor);
    if (type == SQLITE_FLOAT) {
        const double v = sqlite3_value_double(valor);
        const double a = std::fabs(v);
        if (a < 1e15 && v == std::trunc(v))
            return v;
        // Below a million the 15 digits keep nine decimals: the rounding
        // of the text cannot carry the number to the next whole one.
        const double frac = a - std::trunc(a);
        if (a >= 0.1 && a < 1e6 && frac > 1e-9 && frac < 1 - 1e-9)
            return std::trunc(v);
    } else if (type == SQLITE_INTEGER) {
        const sqlite3_int64 n = sqlite3_value_int64(valor);
        if (n > -1000000000000000LL && n < 1000000000000000LL)
            return double(n);
    }
    return Numero_Val(Texto_Nulo(variantDe(st, col)));
}

int digitos(const unsigned char *p, int n)
{
    int v = 0;
    for (int i = 0; i < n; ++i) {
        if (p[i] < '0' || p[i] > '9')
            return -1;
        v = v * 10 + (p[i] - '0');
    }
    return v;
}

// The store keeps dates as ISO text; anything else goes the recordset's way.
QDate fechaDe(sqlite3_stmt *st, int col)
{
    sqlite3_value *valor = sqlite3_column_value(st, col);
    if (sqlite3_value_type(valor) == SQLITE_TEXT && sqlite3_value_bytes(valor) >= 10) {
        const unsigned char *t = sqlite3_value_text(valor);
        if (t[4] == '-' && t[7] == '-') {
            const int y = digitos(t, 4), m = digitos(t + 5, 2), d = digitos(t + 8, 2);
            const QDate day = (y >= 0 && m >= 0 && d >= 0) ? QDate(y, m, d) : QDate();
            if (day.isValid())
                return day;
        }
    }
    const QVariant v = variantDe(st, col);
    return Texto_Nulo(v).isEmpty() ? QDate() : v.toDate();
}

struct Columnas {
    int fecha = -1, dif = -1, ultimo = -1, volumen = -1, efect = -1, valor = -1, anterior = -1, maximo = -1,
        minimo = -1;
};

Columnas columnasDe(sqlite3_stmt *st)
{
    Columnas c;
    const struct {
        const char *name;
        int Columnas::*slot;
    } names[] = {
        {"Fecha", &Columnas::fecha},       {"Dif", &Columnas::dif},       {"Ultimo", &Columnas::ultimo},
        {"Volumen", &Columnas::volumen},   {"Efect", &Columnas::efect},   {"Valor", &Columnas::valor},
        {"Anterior", &Columnas::anterior}, {"Maximo", &Columnas::maximo}, {"minimo", &Columnas::minimo}};
    for (int i = 0; i < sqlite3_column_count(st); ++i)
        for (const auto &n : names)
            if (c.*n.slot < 0 && sqlite3_stricmp(sqlite3_column_name(st, i), n.name) == 0)
                c.*n.slot = i;
    return c;
}

} // namespace

void cargarSerie(Database &db, double codigo, RecordSeto &cursor)
{
    const QString sql = jet::translate(sentenciaSerie(codigo));
    sqlite3_stmt *st = db.prepareCached(sql);
    struct Reset {
        sqlite3_stmt *st;
        ~Reset() { sqlite3_reset(st); }
    } reset{st};

    // The engine's rows are gathered first: the cursor is sized by the count.
    struct Fila {
        QDate fecha;
        double v[8];
    };
    std::vector<Fila> filas;
    filas.reserve(4096);
    Columnas c;
    bool first = true;
    int rc;
    while ((rc = sqlite3_step(st)) == SQLITE_ROW) {
        if (first) {
            c = columnasDe(st);
            if (c.fecha < 0 || c.dif < 0 || c.ultimo < 0 || c.volumen < 0 || c.efect < 0 || c.valor < 0 ||
                c.anterior < 0 || c.maximo < 0 || c.minimo < 0)
                db.raiseEngineError(sql);
            first = false;
        }
        Fila f;
        if (sqlite3_column_type(st, c.fecha) != SQLITE_NULL)
            f.fecha = fechaDe(st, c.fecha);
        sqlite3_value *dif = sqlite3_column_value(st, c.dif);
        const int tDif = sqlite3_value_type(dif);
        f.v[0] = (tDif == SQLITE_FLOAT || tDif == SQLITE_INTEGER) ? sqlite3_value_double(dif)
                                                                  : variantDe(st, c.dif).toDouble();
        f.v[1] = lecturaLocal(st, c.ultimo);
        f.v[2] = lecturaPunto(st, c.volumen);
        f.v[3] = lecturaPunto(st, c.efect);
        f.v[4] = lecturaLocal(st, c.valor);
        f.v[5] = lecturaLocal(st, c.anterior);
        f.v[6] = lecturaLocal(st, c.maximo);
        f.v[7] = lecturaLocal(st, c.minimo);
        filas.push_back(f);
    }
    if (rc != SQLITE_DONE)
        db.raiseEngineError(sql);

    cursor.setRecordcount(double(filas.size()));
    cursor.Movefirst();
    for (const Fila &f : filas) {
        if (f.fecha.isValid())
            cursor.setFecha(f.fecha);
        cursor.setDif(f.v[0]);
        cursor.setUltimo(f.v[1]);
        cursor.setVolumen(f.v[2]);
        cursor.setEfect(f.v[3]);
        cursor.setValor(f.v[4]);
        cursor.setAnterior(f.v[5]);
        cursor.setMaximo(f.v[6]);
        cursor.setminimo(f.v[7]);
        cursor.Movenext();
    }
}

} // namespace tesorel
