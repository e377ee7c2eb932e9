#pragma once
#include "../support/test_base.h"
#include "core/runtime_error.h"
#include "store/helpers.h"
#include "store/query.h"

#include <QDate>
#include <QStringList>
#include <gtest/gtest.h>

QT_BEGIN_NAMESPACE
inline void PrintTo(const QString &s, std::ostream *os)
{
    *os << '"' << s.toStdString() << '"';
}
QT_END_NAMESPACE

namespace tesorel::testing
{

// A session of user 1 on a fresh base, the numbers of the errors it reports,
// and the rows a test writes: companies, quotes, positions, ledger lines, bands.
struct LibroDePrueba : SesionDePrueba {
    QStringList errores;
    Database &db = *s.Base_Datos;

    LibroDePrueba()
    {
        s.Usuario_Numero = 1;
        s.alRegistrarError = [this](const RuntimeError &e) { errores << QString::number(e.number()); };
    }
    // Runs a statement with the values bound in order.
    template <typename... V> void escribir(const QString &sql, const V &...valores)
    {
        Query q(db, sql);
        int i = 0;
        (q.bind(++i, valores), ...);
        q.exec();
    }
    void empresa(int codigo, const QString &abrev)
    {
        escribir(
            "insert into Codigo_Empresas (Codigo, NOMBRE, ABREVIATURA3, ABREVIATURA11) values (?, ?, ?, ?)",
            codigo, abrev + " SA", abrev.left(3), abrev);
        Abrir_Empresas(s);
    }
    void cotizacion(int valor, QDate dia, double ultimo, double anterior = 0, double volumen = 0)
    {
        escribir("insert into bolsa (VALOR, FECHA, ANTERIOR, ULTIMO, VOLUMEN, MAXIMO, MINIMO, EFECT) "
                 "values (?, ?, ?, ?, ?, ?, ?, 0)",
                 valor, dia, anterior, ultimo, volumen, ultimo, ultimo);
    }
    void posicion(int valor, double cantidad, double precio, double total, QDate compra)
    {
        escribir("insert into cartera (Usuario, VALOR, Cantidad, Precio_Compra, Fecha_Compra, Total_Compra) "
                 "values (?, ?, ?, ?, ?, ?)",
                 s.Usuario_Numero, valor, cantidad, precio, compra, total);
    }
    // A positive quantity is a purchase, a negative one a sale.
    void apunte(int valor, QDate dia, double cantidad, double total, int entidad = 0)
    {
        escribir("insert into historico (Usuario, Cantidad, VALOR, operacionNum, Operacion, Entidad, "
                 "precio_operacion, Fecha_operacion, Total_operacion) values (?, ?, ?, ?, '', ?, ?, ?, ?)",
                 s.Usuario_Numero, cantidad, valor, cantidad > 0 ? 2 : 4, entidad,
                 cantidad != 0 ? std::abs(total / cantidad) : 0.0, dia, total);
    }
    void diaActual(QDate dia)
    {
        escribir("update Usuario_Actual set USUARIO_ACTUAL = ?, fecha_Actual = ?", s.Usuario_Numero, dia);
    }
    void banda(int entidad, const QString &nombre, double tanto, double minimo, double desde, double hasta)
    {
        escribir(
            "insert into comisiones (Entidad, NOMBRE, Tanto, minimo, desde, Hasta) values (?, ?, ?, ?, ?, ?)",
            entidad, nombre, tanto, minimo, desde, hasta);
    }
    QVariant uno(const QString &sql)
    {
        Query q(db, sql);
        return q.next() ? q.value(0) : QVariant();
    }
    double numero(const QString &sql) { return uno(sql).toDouble(); }
};

// The same as a test fixture.
struct CarteraBase : ::testing::Test, LibroDePrueba {
};

// Three values (10 TELEFONICA, 11 REPSOL, 12 BANCO) and brokers:
// 1 "Uno" (one band 0..1000 at 0.35 % with a minimum of 6, and 1000..5000
// at 0.2 % minimum 0), 2 "Enlazado" (a link row to "Canon" and its own
// band), 3 "Canon" (a flat 2.5 and a link to "Uno" that is not followed),
// 4 "Cinco" (five bands of minimums 1 to 5), 5 "Fijo" (6 on any amount).
struct SesionDeApuntes : LibroDePrueba {
    SesionDeApuntes()
    {
        empresa(10, "TELEFONICA");
        empresa(11, "REPSOL");
        empresa(12, "BANCO");
        int codigo = 0;
        for (const char *nombre : {"Uno", "Enlazado", "Canon", "Cinco", "Fijo"})
            escribir("insert into operadores (codigo, NOMBRE) values (?, ?)", ++codigo, QString(nombre));
        banda(1, "Corretaje", 0.35, 6, 0, 1000);
        banda(1, "Tramo alto", 0.2, 0, 1000, 5000);
        banda(2, "Canon", 0, 0, 0, 1e9);
        banda(2, "Propia", 0.1, 1, 0, 1e9);
        banda(3, "Plano", 0, 2.5, 0, 1e9);
        banda(3, "Uno", 0, 0, 0, 1e9);
        banda(5, "Fijo", 0, 6, 0, 1e9);
        for (int i = 1; i <= 5; ++i)
            banda(4, "B" + QString::number(i), 0, i, 0, 1e9);
    }
};

} // namespace tesorel::testing
