#include "portfolio/libro_demo.h"

#include "core/numbers.h"
#include "store/query.h"

#include <QDate>
#include <QMap>
#include <algorithm>
#include <cmath>

namespace tesorel
{

namespace
{

struct OperacionDemo {
    const char *ticker;
    QDate dia;
    double acciones; // negative for a sale
    int operador;
};

const OperacionDemo kLibro[] = {
    {"SAN", QDate(2024, 2, 12), 300, 1}, {"ITX", QDate(2025, 7, 14), 150, 2},
    {"IBE", QDate(2024, 9, 16), 500, 1}, {"SAN", QDate(2025, 1, 13), 200, 1},
    {"TEF", QDate(2025, 4, 7), 1000, 4}, {"IBE", QDate(2025, 9, 15), -200, 1},
    {"REP", QDate(2026, 3, 16), 100, 2},
};

// A position as the buy and sell windows keep it: the price averaged
// without costs, the cost with them, a sale taking its share of the cost.
struct Posicion {
    double acciones = 0, precio = 0, coste = 0;
    QDate comprada;

    void comprar(double cuantas, double aPrecio, double total, const QDate &dia)
    {
        precio = acciones == 0 ? aPrecio : (acciones * precio + cuantas * aPrecio) / (acciones + cuantas);
        acciones += cuantas;
        coste += total;
        comprada = dia;
    }
    void vender(double cuantas)
    {
        const double quedan = acciones - cuantas;
        coste = quedan * (coste / acciones);
        acciones = quedan;
    }
};

double codigoDeTicker(Database &db, const QString &ticker)
{
    Query q(db, "select Codigo from Codigo_Empresas where ABREVIATURA3 = ?");
    q.bind(1, ticker);
    return q.next() ? q.number(0) : 0;
}

// The first close above 0 on or after `dia`, and its day; none: a null day.
std::pair<double, QDate> cierreDesde(Database &db, double valor, const QDate &dia)
{
    Query q(db, "select ULTIMO, FECHA from bolsa where VALOR = ? and FECHA >= ? and ULTIMO > 0 "
                "order by FECHA limit 1");
    q.bind(1, valor).bind(2, dia);
    if (!q.next())
        return {0, QDate()};
    return {q.number(0), q.date(1)};
}

QString abreviaturaDe(Database &db, double valor, const char *ticker)
{
    Query q(db, "select ABREVIATURA11 from Codigo_Empresas where Codigo = ?");
    q.bind(1, valor);
    return q.next() ? q.text(0) : QString::fromLatin1(ticker);
}

void escribirPosiciones(Database &db, double usuario, const QMap<double, Posicion> &posiciones)
{
    Query q(db, "insert into cartera (Usuario, VALOR, Cantidad, Precio_Compra, Fecha_Compra, Total_Compra) "
                "values (?, ?, ?, ?, ?, ?)");
    for (auto it = posiciones.cbegin(); it != posiciones.cend(); ++it) {
        if (it->acciones <= 0)
            continue;
        q.bind(1, usuario).bind(2, it.key()).bind(3, it->acciones).bind(4, it->precio);
        q.bind(5, it->comprada).bind(6, it->coste).exec();
    }
}

} // namespace

double comisionDeBandas(Database &db, double operador, double importe)
{
    double enlazado = -1;
    {
        Query enlace(db, "select o.codigo from comisiones c join operadores o on o.NOMBRE = c.NOMBRE "
                         "where c.Entidad = ? order by c.rowid limit 1");
        enlace.bind(1, operador);
        if (enlace.next())
            enlazado = enlace.number(0);
    }
    Query bandas(db, "select Tanto, minimo from comisiones where (Entidad = ? or Entidad = ?) "
                     "and desde <= ? and Hasta >= ? order by rowid");
    bandas.bind(1, operador).bind(2, enlazado).bind(3, importe).bind(4, importe);
    double total = 0;
    while (bandas.next()) {
        const double tanto = bandas.number(0), minimo = bandas.number(1);
        if (tanto == 0 && minimo == 0)
            continue; // a link row charges nothing itself
        total += std::round(std::max(importe * tanto / 100, minimo) * 100) / 100;
    }
    return total;
}

void apuntarLibroDemo(Database &db, double usuario)
{
    Transaction t(db);
    Query apunte(db,
                 "insert into historico (Usuario, Cantidad, VALOR, operacionNum, Operacion, Entidad, "
                 "precio_operacion, Fecha_operacion, Total_operacion) values (?, ?, ?, ?, ?, ?, ?, ?, ?)");
    QMap<double, Posicion> posiciones;
    for (const OperacionDemo &op : kLibro) {
        const double valor = codigoDeTicker(db, QString::fromLatin1(op.ticker));
        const auto [precio, dia] = cierreDesde(db, valor, op.dia);
        if (!dia.isValid())
            continue; // no quote on or after that day in this history
        const QString nombre = abreviaturaDe(db, valor, op.ticker);
        const double acciones = std::abs(op.acciones), bruto = acciones * precio;
        const bool venta = op.acciones < 0;
        const double comision = comisionDeBandas(db, op.operador, bruto);
        const double total = venta ? bruto - comision : bruto + comision;
        const QString texto = dia.toString("dd/MM/yyyy") + (venta ? ": Venta de " : ": Compra de ") +
                              CStr(acciones) + " " + nombre + " por " + CStr(total);
        apunte.bind(1, usuario).bind(2, op.acciones).bind(3, valor).bind(4, venta ? 4 : 2).bind(5, texto);
        apunte.bind(6, op.operador).bind(7, precio).bind(8, dia).bind(9, venta ? -total : total).exec();
        if (venta)
            posiciones[valor].vender(acciones);
        else
            posiciones[valor].comprar(acciones, precio, total, dia);
    }
    escribirPosiciones(db, usuario, posiciones);
    t.commit();
}

} // namespace tesorel
