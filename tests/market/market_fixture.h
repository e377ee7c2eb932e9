#pragma once
#include <gtest/gtest.h>

#include <QStringList>

#include "market/market_browser.h"
#include "store/database.h"
#include "store/helpers.h"
#include "store/recordset.h"
#include "store/session.h"
#include "store/ui.h"
#include "support/test_base.h"

namespace tesorel::testing
{

// A small market: three values quoted on the current day (15 March 2024),
// one Ibex member without a quote that day, a portfolio series row, user 1
// with two holdings and two followed values.
class MarketTest : public ::testing::Test, protected SesionDePrueba
{
  protected:
    std::unique_ptr<NavegadorValores> nav;

    void SetUp() override
    {
        s.hostLaBolsa = "http://127.0.0.1:9";
        base.db->executeNative(
            "insert into codigo_empresas values (1, 'IBEX 35', 'IBEX', 'IBEX 35', null),"
            " (10, 'BANCO SANTANDER', 'SAN', 'SANTANDER', 'RV011SAN'), (11, 'TELEFONICA', 'TEF', "
            "'TELEFONICA', 'RV011TEF'),"
            " (12, 'REPSOL', 'REP', 'REPSOL', null), (13, 'BANCO SABADELL', 'SAB', 'SABADELL', 'RV011SAB'),"
            " (15, 'BANCA MARCH', 'BAN', 'MARCH', null);"
            "insert into www values ('TELEFONICA', 'tef#http://quotes.test/tef#',"
            " 'www.telefonica.com#http://www.telefonica.test#');"
            "insert into bolsa (valor, fecha, anterior, ultimo, dif, volumen) values"
            " (10, '2024-03-15', 4.4, 4.5, 2.4, 100), (11, '2024-03-15', 3.8, 3.75, -1.2, 200),"
            " (12, '2024-03-15', 13.3, 14, 5.6, 300), (34001, '2024-03-15', 1, 1.1, 10, 1),"
            " (13, '2024-03-14', 2, 2.1, 5, 400), (10, '2024-03-14', 4.3, 4.4, 2.3, 90);"
            "insert into ibex values (10), (11), (13);"
            "insert into cartera (usuario, valor, cantidad) values (1, 12, 100), (1, 11, 250);"
            "insert into faboritos (usuario, valor) values (1, 10), (1, 13), (1, 34001), (2, 11);");
        base.db->execute("update usuario_actual set usuario_actual = 1, fecha_actual = #03-15-2024#");
        Abrir_Empresas(s);
        s.Usuario_Numero = 1;
        s.Nombre_Usuario = "ana";
        nav = std::make_unique<NavegadorValores>(s);
        nav->lista.aleatorio = [] { return 0.0; };
    }

    QStringList textos() const
    {
        QStringList out;
        for (const auto &e : nav->lista.List1.entradas)
            out << e.texto;
        return out;
    }
    QList<double> datos() const
    {
        QList<double> out;
        for (const auto &e : nav->lista.List1.entradas)
            out << e.dato;
        return out;
    }
    long cuenta(const QString &statement)
    {
        auto rs = base.db->openRecordset(statement);
        return rs->field(0).toLongLong();
    }
    void click(int index)
    {
        nav->lista.List1.ListIndex = index;
        nav->seleccion.List1_Click();
    }
};

} // namespace tesorel::testing
