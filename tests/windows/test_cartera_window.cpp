#include "test_principal_support.h"

#include <algorithm>

#include "core/numbers.h"

namespace tesorel::testing
{
namespace
{

using CarteraVentana = VentanaDemo;

std::vector<double> columna(QWidget *w, const QString &nombre)
{
    std::vector<double> r;
    for (int i = 1;; ++i) {
        auto *l = w->findChild<QLabel *>(QString("%1_%2").arg(nombre).arg(i));
        if (!l || l->text().trimmed().isEmpty())
            return r;
        r.push_back(Numero_Cdbl(l->text().trimmed()));
    }
}

// Sort, currency and values are the model's (Valoracion.*): here the buttons reach it.
TEST_F(CarteraVentana, OpensFromTheMainWindowSortsAndSwitchesCurrency)
{
    Guion guion;
    std::vector<double> euros, pesetas, beneficios;
    guion.luego("cartera11", [&](QWidget *w) {
        hijo<QRadioButton>(w, "SSOption3")->click();
        hijo<QRadioButton>(w, "SSOption6")->click();
        beneficios = columna(w, "Beneficio");
        euros = columna(w, "ValorActual");
        hijo<QRadioButton>(w, "pesetas")->click();
        pesetas = columna(w, "ValorActual");
        hijo<QPushButton>(w, "Command1_4")->click();
        qobject_cast<QDialog *>(w)->reject();
    });
    hijo<QPushButton>(ventana.get(), "bCartera")->click();
    ASSERT_TRUE(guion.terminado()) << guion.vistas.join(",").toStdString();
    ASSERT_EQ(beneficios.size(), 5u) << "the demo user's five positions";
    EXPECT_TRUE(std::is_sorted(beneficios.begin(), beneficios.end())) << "worst first";
    ASSERT_EQ(pesetas.size(), euros.size());
    EXPECT_NEAR(pesetas[0], euros[0] * 166.386, 1.0);
    ASSERT_FALSE(ui.messages.empty());
    EXPECT_EQ(ui.messages.back().prompt, "Disponible en breve");
}

// The series is the model's (Serie.*): here the main window builds it; its chart goes to the docs.
TEST_F(CarteraVentana, ShowingThePortfolioValueBringsItsSeriesUpToDate)
{
    auto filas = [this] { return consulta(*s, "select count(*) from bolsa where VALOR = 34001").toInt(); };
    ASSERT_EQ(filas(), 0);
    ventana->modelo().setText1("CARTERA");
    ventana->resize(1280, 800);
    hijo<QTabBar>(ventana.get(), QStringLiteral("Pestañas"))->setCurrentIndex(2); // MaCD under the chart
    capturar(ventana.get(), "principal_cartera_macd");
    EXPECT_GT(filas(), 100);
}

TEST_F(CarteraVentana, BooksAPurchaseThroughItsBuyButton)
{
    s->hoyFijo = QDate(2026, 11, 23);
    Guion guion;
    std::vector<double> despues;
    guion.luego("cartera11", [&](QWidget *w) {
        hijo<QPushButton>(w, "Command1_1")->click();
        despues = columna(w, "Titulos");
        qobject_cast<QDialog *>(w)->reject();
    });
    guion.luego("Comprar", [&](QWidget *w) {
        elegirEnCombo(w, "Combo1", "ACERINOX");
        elegirEnCombo(w, "Combo2", "Bankinter");
        escribir(hijo<QLineEdit>(w, "Precio"), "10");
        escribir(hijo<QLineEdit>(w, "Cantidad"), "40");
        hijo<QPushButton>(w, "Aceptar")->click();
    });
    hijo<QPushButton>(ventana.get(), "bCartera")->click();
    ASSERT_TRUE(guion.terminado()) << guion.vistas.join(",").toStdString();
    ASSERT_EQ(despues.size(), 6u) << "the window is rebuilt with the new position";
    EXPECT_EQ(std::count(despues.begin(), despues.end(), 40.0), 1);
    EXPECT_EQ(consulta(*s, "select count(*) from historico where usuario = 1 and cantidad = 40").toInt(), 1)
        << "booked in the ledger";
}

} // namespace
} // namespace tesorel::testing
