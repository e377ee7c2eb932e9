#include <gtest/gtest.h>

#include "store/database.h"
#include "store/recordset.h"
#include "store/session.h"
#include "store/ui.h"
#include "store/usuario.h"
#include "support/test_base.h"

using namespace tesorel;

namespace
{

struct UsuarioTest : ::testing::Test, tesorel::testing::SesionDePrueba {
    void SetUp() override
    {
        base.db->executeNative(
            "INSERT INTO bolsa (VALOR, FECHA, ULTIMO) VALUES (1, '2024-01-02', 10),"
            "(1, '2024-03-28', 11), (2, '2024-02-15', 5);"
            "INSERT INTO Usuario (clave, NOMBRE, Password, email, Direccion, Poblacion, CodigoPost)"
            " VALUES (3, 'ana', 'clave', 'ana@yahoo.es', 'pop.x', 'smtp.x', 'ana');");
        s.Usuario_Numero = 3;
    }
};

TEST_F(UsuarioTest, IntervalFallsBackToTheQuotesEnds)
{
    const QDate primero(2024, 1, 2), ultimo(2024, 3, 28), propio(2024, 2, 1);
    struct Caso {
        const char *fila; // the user's interval row, or none
        QDate inicial, final_;
        bool primerDiaAbierto, ultimoDiaAbierto;
    } casos[] = {
        {nullptr, primero, ultimo, true, true},
        {"INSERT INTO intervalo VALUES (3, NULL, NULL)", primero, ultimo, true, true},
        {"INSERT INTO intervalo VALUES (3, '2024-02-01', NULL)", propio, ultimo, false, true},
        {"INSERT INTO intervalo VALUES (3, NULL, '2024-02-01')", primero, propio, true, false},
        {"INSERT INTO intervalo VALUES (3, 'no es fecha', 'tampoco')", primero, ultimo, true, true},
        // Another user's row is not this user's interval.
        {"INSERT INTO intervalo VALUES (4, '2024-02-01', '2024-02-01')", primero, ultimo, true, true},
    };
    for (const Caso &c : casos) {
        base.db->executeNative("DELETE FROM intervalo");
        if (c.fila)
            base.db->executeNative(c.fila);
        Usuario u(s);
        SCOPED_TRACE(c.fila ? c.fila : "no row");
        EXPECT_EQ(u.FechaInicial(), c.inicial);
        EXPECT_EQ(u.FechaFinal(), c.final_);
        EXPECT_EQ(u.PrimerDia(), c.primerDiaAbierto);
        EXPECT_EQ(u.Ultimodia(), c.ultimoDiaAbierto);
    }
}

TEST_F(UsuarioTest, WritingAnEndAddsTheRowOnceAndThenEditsIt)
{
    Usuario u(s);
    u.setFechaFinal(QDate(2024, 2, 10));
    EXPECT_EQ(u.FechaFinal(), QDate(2024, 2, 10));
    EXPECT_TRUE(u.PrimerDia());
    u.setFechaInicial(QDate(2024, 1, 15));
    u.setFechaFinal(QDate(2024, 2, 20));
    EXPECT_EQ(u.FechaInicial(), QDate(2024, 1, 15));
    EXPECT_EQ(u.FechaFinal(), QDate(2024, 2, 20));
    auto rs = base.db->openRecordset("select count(*) as n from intervalo");
    EXPECT_EQ(rs->field("n").toInt(), 1);
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(UsuarioTest, NumeroDoesNotChooseTheUser)
{
    Usuario u(s);
    u.setNumero(99);
    u.Update();
    EXPECT_EQ(u.email(), "ana@yahoo.es");
    EXPECT_EQ(u.Pop(), "pop.x");
    EXPECT_EQ(u.Smtp(), "smtp.x");
    EXPECT_EQ(u.UsuarioPop(), "ana");
    s.Usuario_Numero = 7; // nobody
    u.Update();
    EXPECT_EQ(u.email(), "");
    EXPECT_EQ(u.Pop(), "");
    EXPECT_EQ(u.UsuarioPop(), "");
}

} // namespace
