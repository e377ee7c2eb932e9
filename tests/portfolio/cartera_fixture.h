#pragma once
// A session on a fresh base with a few companies, quotes, positions and
// ledger lines written by the test.
#include <gtest/gtest.h>

#include <QDate>

#include "store/helpers.h"
#include "store/query.h"
#include "support/test_base.h"

namespace tesorel::testing
{

struct CarteraBase : ::testing::Test {
    SesionDePrueba t;
    Session &s = t.s;
    Database &db = *t.s.Base_Datos;

    void SetUp() override { s.Usuario_Numero = 1; }

    void empresa(int codigo, const QString &abrev)
    {
        Query(db,
              "insert into Codigo_Empresas (Codigo, NOMBRE, ABREVIATURA3, ABREVIATURA11) values (?, ?, ?, ?)")
            .bind(1, codigo)
            .bind(2, abrev + " SA")
            .bind(3, abrev.left(3))
            .bind(4, abrev)
            .exec();
        Abrir_Empresas(s);
    }
    void cotizacion(int valor, QDate dia, double ultimo, double anterior = 0, double volumen = 0)
    {
        Query(db, "insert into bolsa (VALOR, FECHA, ANTERIOR, ULTIMO, VOLUMEN, MAXIMO, MINIMO, EFECT) "
                  "values (?, ?, ?, ?, ?, ?, ?, 0)")
            .bind(1, valor)
            .bind(2, dia)
            .bind(3, anterior)
            .bind(4, ultimo)
            .bind(5, volumen)
            .bind(6, ultimo)
            .bind(7, ultimo)
            .exec();
    }
    void posicion(int valor, double cantidad, double precio, double total, QDate compra)
    {
        Query(db, "insert into cartera (Usuario, VALOR, Cantidad, Precio_Compra, Fecha_Compra, Total_Compra) "
                  "values (?, ?, ?, ?, ?, ?)")
            .bind(1, s.Usuario_Numero)
            .bind(2, valor)
            .bind(3, cantidad)
            .bind(4, precio)
            .bind(5, compra)
            .bind(6, total)
            .exec();
    }
    void apunte(int valor, QDate dia, double cantidad, double total)
    {
        Query(db, "insert into historico (Usuario, Cantidad, VALOR, operacionNum, Operacion, Entidad, "
                  "precio_operacion, Fecha_operacion, Total_operacion) values (?, ?, ?, ?, '', 0, ?, ?, ?)")
            .bind(1, s.Usuario_Numero)
            .bind(2, cantidad)
            .bind(3, valor)
            .bind(4, cantidad > 0 ? 2 : 4)
            .bind(5, cantidad != 0 ? std::abs(total / cantidad) : 0.0)
            .bind(6, dia)
            .bind(7, total)
            .exec();
    }
    void diaActual(QDate dia)
    {
        Query(db, "update Usuario_Actual set USUARIO_ACTUAL = ?, fecha_Actual = ?")
            .bind(1, s.Usuario_Numero)
            .bind(2, dia)
            .exec();
    }
};

} // namespace tesorel::testing
