#include "portfolio/serie_cartera.h"

#include <QHash>
#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <vector>

#include "store/database.h"
#include "store/helpers.h"
#include "store/query.h"
#include "store/session.h"
#include "store/ui.h"
#include "store/valor.h"

namespace tesorel
{

namespace
{

// Days travel as whole day numbers: the engine turns the ISO text into one
// far quicker than a date object per quote row would.
const QString kDiaFecha = QStringLiteral("cast(julianday(FECHA) + 0.5 as integer)");

struct Cotizacion {
    qint64 dia, fila;
    double ultimo, maximo, minimo, volumen;
};

// A value's quotes from the first date of the run, walked once in step with the dates.
struct Cotizaciones {
    std::vector<Cotizacion> filas;
    size_t cursor = 0;

    const Cotizacion *del(qint64 dia)
    {
        while (cursor < filas.size() && filas[cursor].dia < dia)
            ++cursor;
        return cursor < filas.size() && filas[cursor].dia == dia ? &filas[cursor] : nullptr;
    }
};

struct Apunte {
    qint64 dia;
    double valor, cantidad, total;
    size_t fecha; // the date of the run on which this line is replayed
};

struct Hueco {
    double codigo = 0, cantidad = 0;
    int cotizaciones = -1;
};

struct FilaSerie {
    QDate fecha;
    double anterior, ultimo, volumen, maximo, minimo, efect;
};

class RelojDeArena
{
  public:
    explicit RelojDeArena(const std::function<void(bool)> &f) : f_(f)
    {
        if (f_)
            f_(true);
    }
    ~RelojDeArena()
    {
        if (f_)
            f_(false);
    }

  private:
    const std::function<void(bool)> &f_;
};

QDate deDia(qint64 dia)
{
    return QDate::fromJulianDay(dia);
}

// The stored dates from `desde` on, hopping along the FECHA index from one
// day to the next.
std::vector<qint64> fechasDesde(Database &db, const QDate &desde)
{
    Query q(db, "with recursive dias(d) as (select ?"
                " union all select (select min(b.FECHA) from bolsa b where b.FECHA > dias.d) from dias "
                "where dias.d is not null) "
                "select cast(julianday(d) + 0.5 as integer) from dias where d is not null");
    q.bind(1, desde);
    std::vector<qint64> dias;
    while (q.next())
        dias.push_back(q.whole(0));
    return dias;
}

void borrarSerie(Database &db, double codigo)
{
    Query(db, QStringLiteral("delete * from bolsa where (valor = ?)")).bind(1, codigo).exec();
}

// The ledger lines up to the last date, each on the date of the run whose
// interval holds it; the first date takes all the past. In the ledger's own order.
std::vector<Apunte> apuntesHasta(Database &db, double usuario, const std::vector<qint64> &dias)
{
    std::vector<Apunte> apuntes;
    Query q(db, "select cast(julianday(Fecha_operacion) + 0.5 as integer), VALOR, Cantidad, Total_operacion "
                "from historico where usuario = ? and fecha_operacion <= ? order by rowid");
    q.bind(1, usuario).bind(2, deDia(dias.back()));
    while (q.next()) {
        const qint64 dia = q.whole(0);
        const size_t k = size_t(std::lower_bound(dias.begin(), dias.end(), dia) - dias.begin());
        apuntes.push_back({dia, q.number(1), q.number(2), q.number(3), k});
    }
    std::stable_sort(apuntes.begin(), apuntes.end(),
                     [](const Apunte &a, const Apunte &b) { return a.fecha < b.fecha; });
    return apuntes;
}

// The quotes of every value the ledger names, read once from the first date on.
struct CotizacionesDeValores {
    QHash<qint64, int> indice; // value code -> series
    std::vector<Cotizaciones> series;

    void leer(Database &db, const std::vector<Apunte> &apuntes, const QDate &desde)
    {
        for (const Apunte &a : apuntes) {
            const qint64 clave = qint64(a.valor);
            if (double(clave) != a.valor || indice.contains(clave))
                continue;
            indice.insert(clave, int(series.size()));
            Cotizaciones &c = series.emplace_back();
            Query q(db,
                    "select " + kDiaFecha +
                        ", ULTIMO, MAXIMO, MINIMO, VOLUMEN, rowid from bolsa where VALOR = ? and FECHA >= ? "
                        "order by FECHA");
            q.bind(1, double(clave)).bind(2, desde);
            while (q.next()) {
                const Cotizacion fila{q.whole(0),  q.whole(5),  q.number(1),
                                      q.number(2), q.number(3), q.number(4)};
                // Two rows of a value on one day: the day's first row counts.
                if (!c.filas.empty() && c.filas.back().dia == fila.dia) {
                    if (fila.fila < c.filas.back().fila)
                        c.filas.back() = fila;
                } else
                    c.filas.push_back(fila);
            }
        }
    }
};

// The holdings while the ledger is replayed: at most 50 slots, a slot freed
// when its value is sold out and taken again by the next new value.
class Huecos
{
  public:
    explicit Huecos(Session &s, CotizacionesDeValores &cotizaciones) : s_(s), cotizaciones_(cotizaciones) {}

    void apuntar(const Apunte &a)
    {
        int igual = -1, libre = -1;
        for (int h = enUso_ - 1; h >= 0; --h) {
            if (huecos_[size_t(h)].codigo == a.valor)
                igual = h;
            else if (huecos_[size_t(h)].codigo == 0)
                libre = h;
        }
        int h = igual >= 0 ? igual : libre;
        if (h < 0) {
            if (enUso_ == MaximoValoresSerie) {
                s_.Registrar_Error(
                    RuntimeError(err::SubscriptOutOfRange, QStringLiteral("Subíndice fuera del intervalo")));
                return;
            }
            h = enUso_++;
        }
        Hueco &hueco = huecos_[size_t(h)];
        hueco.codigo = a.valor;
        hueco.cantidad += a.cantidad;
        hueco.cotizaciones = cotizaciones_.indice.value(qint64(a.valor), -1);
        if (hueco.cantidad == 0)
            hueco.codigo = 0;
    }

    // The day's row of the series, none when nothing held has a quote that
    // day. `acumulado` goes in as the day before's worth plus the day's money
    // and comes out as the day's worth.
    std::optional<FilaSerie> valorar(qint64 dia, double &acumulado)
    {
        double v = 0, maximo = 0, minimo = 0, volumen = 0;
        int cotizados = 0;
        for (int h = 0; h < enUso_; ++h) {
            const Hueco &hueco = huecos_[size_t(h)];
            if (hueco.cantidad <= 0 || hueco.cotizaciones < 0)
                continue;
            // A holding without a quote that day is left out of the day's value.
            const Cotizacion *c = cotizaciones_.series[size_t(hueco.cotizaciones)].del(dia);
            if (!c)
                continue;
            ++cotizados;
            v += hueco.cantidad * c->ultimo;
            maximo += hueco.cantidad * c->maximo;
            minimo += hueco.cantidad * c->minimo;
            volumen += c->volumen;
        }
        if (v == 0)
            return std::nullopt;
        const double vol = std::floor(volumen / cotizados);
        const FilaSerie fila{deDia(dia),       (acumulado == 0 ? v : acumulado) / 1000,
                             v / 1000,         vol,
                             maximo / 1000,    minimo / 1000,
                             vol * v / 1000000};
        acumulado = v;
        return fila;
    }

  private:
    Session &s_;
    CotizacionesDeValores &cotizaciones_;
    std::array<Hueco, MaximoValoresSerie> huecos_{};
    int enUso_ = 0;
};

// Mode 0's delete and every row in one transaction: a rebuild never leaves half a series.
void escribirSerie(Database &db, Int16 modo, double codigo, const std::vector<FilaSerie> &filas)
{
    Transaction t(db);
    if (modo == 0)
        borrarSerie(db, codigo);
    Query ins(db,
              QStringLiteral("insert into bolsa (VALOR, FECHA, ANTERIOR, ULTIMO, VOLUMEN, MAXIMO, MINIMO, "
                             "EFECT) values (?, ?, ?, ?, ?, ?, ?, ?)"));
    for (const FilaSerie &f : filas) {
        ins.bind(1, codigo).bind(2, f.fecha).bind(3, f.anterior).bind(4, f.ultimo).bind(5, f.volumen);
        ins.bind(6, f.maximo).bind(7, f.minimo).bind(8, f.efect).exec();
    }
    t.commit();
}

} // namespace

void Generar_Serie_Cartera(Session &s, Int16 modo, const AvisosSerie &avisos)
{
    Database &db = *s.Base_Datos;
    const double codigo = valor::codigoCartera(s.Usuario_Numero);
    auto &fechas = s.Fechas_Serie;
    RelojDeArena reloj(avisos.relojDeArena);

    if (modo == 1) {
        // Nothing new can have come since this session saw the series reach the last day.
        if (fechas[0].isValid() && fechas[0] == fechas[1])
            return;
        fechas[0] = QDate(1900, 1, 1);
        s.paso([&] {
            Query q(db, QStringLiteral("select max(fecha) as Maximo from bolsa where (valor = ?)"));
            q.bind(1, codigo);
            if (q.next() && !q.isNull(0))
                fechas[0] = q.date(0);
        });
    }

    // The last stored day, and the day the run starts on: the first date when
    // it is stored, else the first stored day.
    QDate primera;
    s.paso([&] {
        // Two statements: the engine finds each end on the FECHA index, but not both in one.
        Query q(db, QStringLiteral("select max(FECHA) from bolsa"));
        if (q.next() && !q.isNull(0)) {
            fechas[1] = q.date(0);
            Query p(db, QStringLiteral("select min(FECHA) from bolsa"));
            if (p.next())
                primera = p.date(0);
        }
    });
    if (!primera.isValid()) {
        if (modo == 0)
            s.paso([&] { borrarSerie(db, codigo); });
        s.ui.MsgBox(QStringLiteral("error generando cartera"), mb::Exclamation, QStringLiteral("Atención"));
        return;
    }
    s.paso([&] {
        if (!fechas[0].isValid())
            return;
        Query q(db, QStringLiteral("select FECHA from bolsa where FECHA = ? limit 1"));
        q.bind(1, fechas[0]);
        if (q.next())
            primera = fechas[0];
    });
    std::vector<qint64> dias;
    s.paso([&] { dias = fechasDesde(db, primera); });
    if (dias.empty())
        return;

    std::vector<Apunte> apuntes;
    s.paso([&] { apuntes = apuntesHasta(db, s.Usuario_Numero, dias); });
    CotizacionesDeValores cotizaciones;
    s.paso([&] { cotizaciones.leer(db, apuntes, deDia(dias.front())); });

    // Every row is worked out first, yielding at each date; nothing is written meanwhile.
    Huecos huecos(s, cotizaciones);
    double acumulado = 0; // the close of the day before plus the day's money
    std::vector<FilaSerie> filas;
    filas.reserve(dias.size());
    size_t siguiente = 0;
    for (size_t k = 0; k < dias.size(); ++k) {
        s.ui.DoEvents();
        if (avisos.progreso)
            avisos.progreso(int(k + 1), int(dias.size()));
        for (; siguiente < apuntes.size() && apuntes[siguiente].fecha == k; ++siguiente) {
            acumulado += apuntes[siguiente].total;
            huecos.apuntar(apuntes[siguiente]);
        }
        if (const auto fila = huecos.valorar(dias[k], acumulado))
            filas.push_back(*fila);
    }
    s.paso([&] { escribirSerie(db, modo, codigo, filas); });
}

} // namespace tesorel
