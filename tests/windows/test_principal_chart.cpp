#include <QImage>

#include "charts/chart_interaction.h"
#include "windows/principal_charts.h"
#include "windows/test_principal_support.h"

using namespace tesorel;
using namespace tesorel::testing;

namespace
{

// The real main window with its real charts on a copy of the sample base.
struct Grafica : VentanaDemo {
    QString etiqueta(const QString &nombre) { return hijo<QLabel>(ventana.get(), nombre)->text(); }
    // How many pixels of the picture box carry a colour of the chart.
    int pixeles(const QString &picture, QRgb color)
    {
        const QImage img = hijo<QWidget>(ventana.get(), picture)->grab().toImage();
        int n = 0;
        for (int y = 0; y < img.height(); ++y)
            for (int x = 0; x < img.width(); ++x)
                n += (img.pixel(x, y) & 0xFFFFFF) == (color & 0xFFFFFF);
        return n;
    }
};

// The close line is drawn in 16719920, blue in the high byte: RGB 30 20 FF.
constexpr QRgb kCierre = 0x3020FF;

TEST_F(Grafica, AValueClickedDrawsItsChartAndHeadLabels)
{
    hijo<QAction>(ventana.get(), "menu_todos")->trigger();
    elegir("INDITEX");
    const std::string nombre = "INDUSTRIA DE DISEÑO TEXTIL";
    EXPECT_EQ(ventana->modelo().Text1().toStdString(), nombre);
    EXPECT_EQ(hijo<QLabel>(ventana.get(), "Titulo")->toolTip().toStdString(), nombre);
    EXPECT_TRUE(etiqueta("Fecha_Fin").contains('/')) << etiqueta("Fecha_Fin").toStdString();
    EXPECT_TRUE(etiqueta("Etiqueta_Maximo").contains(QStringLiteral("€")));
    EXPECT_GT(pixeles("Picture1", kCierre), 100);

    // Unticking the close takes its line away.
    auto *cierre = hijo<QWidget>(ventana.get(), "Check2_3");
    clic(cierre, Qt::LeftButton);
    EXPECT_EQ(pixeles("Picture1", kCierre), 0);
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(Grafica, ZoomTabsAndMeasuring)
{
    elegir("SANTANDER");
    s->Maximo_Dias_Sesion = 100;
    hijo<QPushButton>(ventana.get(), "Lupa_Mas")->click();
    EXPECT_EQ(s->Maximo_Dias_Sesion, 200);
    hijo<QPushButton>(ventana.get(), "Lupa_menos")->click();
    hijo<QPushButton>(ventana.get(), "Lupa_menos")->click();
    EXPECT_EQ(s->Maximo_Dias_Sesion, InteraccionGrafica::lupaMenos(100));

    // The indicator tabs choose the indicator that is drawn.
    auto *pestanas = hijo<QTabBar>(ventana.get(), QStringLiteral("Pestañas"));
    pestanas->setCurrentIndex(5);
    EXPECT_EQ(ventana->modelo().config.Indicador_Actual, "3");

    // Measuring: press, drag and let go on the price chart.
    QWidget *precio = hijo<QWidget>(ventana.get(), "Picture1");
    const QPoint a(precio->width() / 3, precio->height() / 2),
        b(precio->width() * 2 / 3, precio->height() / 3);
    clic(precio, Qt::LeftButton, a, b);
    const InteraccionGrafica &medir = ventana->graficas().interaccion;
    EXPECT_FALSE(medir.Inicio.caption.isEmpty());
    EXPECT_FALSE(medir.Fin.caption.isEmpty());
    EXPECT_TRUE(medir.Inicio.visible && medir.Fin.visible && medir.Circulo2.visible);
    // The marks stay through a redraw of the same value and go with a new title.
    hijo<QPushButton>(ventana.get(), "Lupa_Mas")->click();
    EXPECT_TRUE(medir.Inicio.visible);
    elegir("REPSOL");
    EXPECT_FALSE(medir.Inicio.visible || medir.Fin.visible || medir.Circulo1.visible ||
                 medir.Circulo2.visible);
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(Grafica, TheOperationsTabListsTheValuesLedgerAndItsButtonOpensIt)
{
    elegir("SANTANDER");
    auto *compraVen = hijo<QPushButton>(ventana.get(), "CompraVen");
    EXPECT_TRUE(compraVen->isHidden());
    hijo<QTabBar>(ventana.get(), QStringLiteral("Pestañas"))->setCurrentIndex(6);
    const QString texto = hijo<QPlainTextEdit>(ventana.get(), "Operaciones")->toPlainText();
    EXPECT_EQ(texto.count(QStringLiteral("SANTANDER")), 2) << texto.toStdString();
    EXPECT_TRUE(texto.endsWith(QStringLiteral("Quedan  500 compradas por  1341.5"))) << texto.toStdString();
    EXPECT_FALSE(compraVen->isHidden());
    EXPECT_FALSE(hijo<QWidget>(ventana.get(), "MostrarOperaciones")->isHidden());
    capturar(ventana.get(), "principal_operaciones");

    // From another tab the button opens the operations again.
    hijo<QTabBar>(ventana.get(), QStringLiteral("Pestañas"))->setCurrentIndex(1);
    compraVen->click();
    EXPECT_EQ(ventana->modelo().pestanaAbierta, 6);
    EXPECT_TRUE(ui.messages.empty());
}

} // namespace
