#include <gtest/gtest.h>

#include "store/helpers.h"
#include "store/recordset.h"
#include "store/session.h"
#include "store/ui.h"
#include "support/test_base.h"

using namespace tesorel;

namespace
{

class Lookups : public ::testing::Test, protected tesorel::testing::SesionDePrueba
{
  protected:
    void SetUp() override
    {
        base.db->execute(
            "insert into codigo_empresas (codigo, nombre, abreviatura3, abreviatura11, invertia) "
            "values (1, 'BANCO SANTANDER', 'SAN', 'SANTANDER', 'RV011SANTANDER'), "
            "(2, 'TELEFONICA', 'TEF', 'TELEFONICA', 'RV011TELEFONICA'), "
            "(3, 'CARTERA INDUSTRIAL', 'CIN', 'CARTERA IND', null)");
        base.db->execute(
            "insert into www (campo2, campo3, web) values ('TELEFONICA', "
            "'tef#http://quotes.example/tef#', 'www.telefonica.com#http://www.telefonica.com#')");
        base.db->execute("insert into faboritos (usuario, valor) values (1, 2)");
        Abrir_Empresas(s);
    }
};

TEST_F(Lookups, CodigoDeSearchesEachKindAndLeavesSideInformation)
{
    EXPECT_EQ(Codigo_De(s, "TELEFONICA", BuscarPor::Nombre), 2);
    EXPECT_EQ(s.Codigo_Invertia, "RV011TELEFONICA");
    EXPECT_EQ(s.Abreviatura_Actual, "TEF");

    EXPECT_EQ(Codigo_De(s, "santander", BuscarPor::Abreviatura11), 1); // names compare without case
    EXPECT_EQ(s.Abreviatura_Actual, "SAN");
    EXPECT_EQ(Codigo_De(s, "TEF", BuscarPor::Ticker), 2);

    // Not found: 0, and the side information stays from before.
    EXPECT_EQ(Codigo_De(s, "REPSOL", BuscarPor::Nombre), 0);
    EXPECT_EQ(s.Abreviatura_Actual, "TEF");
    EXPECT_EQ(s.Codigo_Invertia, "RV011TELEFONICA");
}

TEST_F(Lookups, CodigoDeOfAnUnknownKindRepeatsTheLastSearch)
{
    Codigo_De(s, "SAN", BuscarPor::Ticker);
    EXPECT_EQ(Codigo_De(s, "whatever", BuscarPor(7)), 1);
    Codigo_De(s, "NOBODY", BuscarPor::Nombre);
    EXPECT_EQ(Codigo_De(s, "whatever", BuscarPor(0)), 0);
}

TEST_F(Lookups, CodigoDeOfCarteraIsThePortfolioSeriesEvenWhenACompanyIsCalledSo)
{
    s.Usuario_Numero = 5;
    EXPECT_EQ(Codigo_De(s, "CARTERA INDUSTRIAL", BuscarPor::Nombre), 34005);
    EXPECT_EQ(Codigo_De(s, "cartera", BuscarPor::Nombre), 34005);
    EXPECT_EQ(Codigo_De(s, "Carter", BuscarPor::Nombre), 0);
}

TEST_F(Lookups, CodigoDeWithAQuoteFailsTheSearchAndKeepsTheOutcomeBefore)
{
    s.Ubicacion_Error = 7; // makes the failure visible
    EXPECT_EQ(Codigo_De(s, "TEF", BuscarPor::Ticker), 2);
    EXPECT_EQ(Codigo_De(s, "O'BRIEN", BuscarPor::Nombre), 2);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].title, "Atención");
}

TEST_F(Lookups, NamesAndAbbreviations)
{
    s.Nombre_Usuario = "ana";
    EXPECT_EQ(Nombre_De(s, 2.0), "TELEFONICA");
    EXPECT_EQ(Nombre_De(s, 34001.0), "CARTERA ana");
    EXPECT_EQ(Nombre_De(s, 34000.0), ""); // looked up, and not found
    EXPECT_EQ(Nombre_De(s, QVariant()), "");
    EXPECT_EQ(Nombre_De(s, QString()), "");
    EXPECT_EQ(Nombre_De(s, 99.0), "");

    EXPECT_EQ(Abreviatura3_De(s, 1), "SAN");
    EXPECT_EQ(Abreviatura11_De(s, 1), "SANTANDER");
    EXPECT_EQ(Abreviatura11_De(s, 34001), ""); // the portfolio has no abbreviation
    EXPECT_EQ(Abreviatura3_De(s, 42), "");
}

TEST_F(Lookups, AltaEmpresaAddsTheNextCodeAndTheIndexSeesIt)
{
    EXPECT_EQ(Alta_Empresa(s, "NUEVA SA"), 4);
    EXPECT_EQ(Codigo_De(s, "NUEVA SA", BuscarPor::Nombre), 4);
    EXPECT_EQ(Codigo_De(s, "NUEVA SA", BuscarPor::Abreviatura11), 4);
    EXPECT_EQ(Abreviatura3_De(s, 4), "");

    auto rs = base.db->openRecordset("select * from codigo_empresas where codigo = 4");
    ASSERT_FALSE(rs->Eof());
    EXPECT_EQ(rs->field("ABREVIATURA11").toString(), "NUEVA SA");
    EXPECT_FALSE(rs->field("ABREVIATURA3").isValid() && !rs->field("ABREVIATURA3").isNull());

    Abrir_Empresas(s); // rebuilt from the table, the same answer
    EXPECT_EQ(Nombre_De(s, 4.0), "NUEVA SA");
}

TEST_F(Lookups, FavouritesAndLinks)
{
    s.Usuario_Numero = 1;
    EXPECT_TRUE(Es_Favorito(s, 2));
    EXPECT_FALSE(Es_Favorito(s, 1));
    s.Usuario_Numero = 2;
    EXPECT_FALSE(Es_Favorito(s, 2));

    EXPECT_EQ(Web_Empresa(s, 2), "www.telefonica.com#http://www.telefonica.com#");
    EXPECT_EQ(Web_Empresa(s, 1), "");

    s.hostLaBolsa = "http://127.0.0.1:8080";
    EXPECT_EQ(Url_La_Bolsa(s, 2), "http://127.0.0.1:8080/mercado/?s=TEF");
}

} // namespace
