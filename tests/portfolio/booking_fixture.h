#pragma once
#include "../support/test_base.h"
#include "core/runtime_error.h"
#include "store/helpers.h"
#include "store/query.h"

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

// A session of user 1 on a fresh base with three values, and brokers:
// 1 "Uno" (one band 0..1000 at 0.35 % with a minimum of 6, and 1000..5000
// at 0.2 % minimum 0), 2 "Enlazado" (a link row to "Canon" and its own
// band), 3 "Canon" (a flat 2.5 and a link to "Uno" that is not followed),
// 4 "Cinco" (five bands of minimums 1 to 5), 5 "Fijo" (6 on any amount).
struct SesionDeApuntes : SesionDePrueba {
    QStringList errores;

    SesionDeApuntes()
    {
        s.Usuario_Numero = 1;
        s.alRegistrarError = [this](const RuntimeError &e) { errores << QString::number(e.number()); };
        auto &db = *s.Base_Datos;
        Query e(
            db,
            "insert into Codigo_Empresas (codigo, NOMBRE, ABREVIATURA11, ABREVIATURA3) values (?, ?, ?, ?)");
        e.bind(1, 10)
            .bind(2, QStringLiteral("TELEFONICA SA"))
            .bind(3, QStringLiteral("TELEFONICA"))
            .bind(4, QStringLiteral("TEF"))
            .exec();
        e.bind(1, 11)
            .bind(2, QStringLiteral("REPSOL SA"))
            .bind(3, QStringLiteral("REPSOL"))
            .bind(4, QStringLiteral("REP"))
            .exec();
        e.bind(1, 12)
            .bind(2, QStringLiteral("BANCO SA"))
            .bind(3, QStringLiteral("BANCO"))
            .bind(4, QStringLiteral("SAN"))
            .exec();
        Query o(db, "insert into operadores (codigo, NOMBRE) values (?, ?)");
        o.bind(1, 1).bind(2, QStringLiteral("Uno")).exec();
        o.bind(1, 2).bind(2, QStringLiteral("Enlazado")).exec();
        o.bind(1, 3).bind(2, QStringLiteral("Canon")).exec();
        o.bind(1, 4).bind(2, QStringLiteral("Cinco")).exec();
        banda(1, "Corretaje", 0.35, 6, 0, 1000);
        banda(1, "Tramo alto", 0.2, 0, 1000, 5000);
        banda(2, "Canon", 0, 0, 0, 1e9);
        banda(2, "Propia", 0.1, 1, 0, 1e9);
        banda(3, "Plano", 0, 2.5, 0, 1e9);
        banda(3, "Uno", 0, 0, 0, 1e9);
        o.bind(1, 5).bind(2, QStringLiteral("Fijo")).exec();
        banda(5, "Fijo", 0, 6, 0, 1e9);
        for (int i = 1; i <= 5; ++i)
            banda(4, "B" + QString::number(i), 0, i, 0, 1e9);
        Abrir_Empresas(s);
    }

    void banda(int entidad, const QString &nombre, double tanto, double minimo, double desde, double hasta)
    {
        Query b(*s.Base_Datos, "insert into comisiones (Entidad, NOMBRE, Tanto, minimo, desde, Hasta) values "
                               "(?, ?, ?, ?, ?, ?)");
        b.bind(1, entidad)
            .bind(2, nombre)
            .bind(3, tanto)
            .bind(4, minimo)
            .bind(5, desde)
            .bind(6, hasta)
            .exec();
    }

    QVariant uno(const QString &sql)
    {
        Query q(*s.Base_Datos, sql);
        return q.next() ? q.value(0) : QVariant();
    }
    double numero(const QString &sql) { return uno(sql).toDouble(); }
};

} // namespace tesorel::testing
