#include "windows/cotizaciones_form.h"
#include "windows/test_principal_support.h"

using namespace tesorel;
using namespace tesorel::testing;

namespace
{

// Texts that do not fit in their control, as "name: text".
QStringList recortados(QWidget *ventana)
{
    QStringList out;
    for (QLabel *l : ventana->findChildren<QLabel *>()) {
        if (!l->isVisible() || l->text().isEmpty() || l->textFormat() == Qt::RichText ||
            l->text().startsWith('<'))
            continue;
        if (l->fontMetrics().horizontalAdvance(l->text()) > l->contentsRect().width() - 2 * l->margin())
            out << l->objectName() + ": " + l->text();
    }
    for (QAbstractButton *b : ventana->findChildren<QAbstractButton *>())
        if (b->isVisible() && !b->text().isEmpty() && b->sizeHint().width() > b->width() + 1)
            out << b->objectName() + ": " + b->text();
    return out;
}

using CotizacionesVentana = VentanaDemo;

TEST_F(CotizacionesVentana, StepsSortsFitsTheScreenAndLandsOnTheChartOfARow)
{
    QString elegido;
    QStringList fallos;
    Guion guion;
    guion.luego("Cotizaciones", [&](QWidget *w) {
        auto *f = static_cast<CotizacionesForm *>(w);
        Cotizaciones &m = f->modelo();
        if (!esperarA([&] { return m.NumReg > 0; })) {
            fallos << "no rows drawn";
            f->reject();
            return;
        }
        // What the sort does is the model's (CotizacionesTest.HeadingClicksSortAndFlip).
        hijo<QPushButton>(f, "Image0_4")->click();
        if (m.Ordenar() != "Dif")
            fallos << "sort by Dif";
        for (const QSize tamano : {QSize(1280, 800), QSize(1920, 1080)}) {
            f->setGeometry(QRect(QPoint(0, 0), tamano));
            QApplication::processEvents();
            for (const QString &r : recortados(f))
                fallos << QString("%1x%2 %3").arg(tamano.width()).arg(tamano.height()).arg(r);
            capturar(f, QString("cotizaciones_%1x%2").arg(tamano.width()).arg(tamano.height()));
        }
        // The day before waits for the timer; then the value's own tab.
        const QString dia = m.Text1();
        hijo<QPushButton>(f, "Command1")->click();
        if (!esperarA([&] { return m.Text1() != dia; }))
            fallos << "day before not drawn";
        auto *pestanas = hijo<QTabBar>(f, QStringLiteral("pestaña"));
        emit pestanas->tabBarClicked(4);
        if (m.Valores() != "Valor")
            fallos << "value tab";
        emit pestanas->tabBarClicked(0);
        elegido = m.filas[1].Valor;
        clic(hijo<QLabel>(f, "Valor_2"), Qt::LeftButton);
    });
    hijo<QPushButton>(ventana.get(), "boton_cotizaciones")->click();
    ASSERT_TRUE(guion.terminado()) << guion.vistas.join(",").toStdString();
    EXPECT_TRUE(fallos.isEmpty()) << fallos.join("\n").toStdString();
    ASSERT_FALSE(elegido.isEmpty());
    // The row's abbreviation leads to the company now on show in the main window.
    const QString abreviatura = elegido.left(elegido.indexOf("  "));
    Query q(*s->Base_Datos, "select Abreviatura11 from codigo_empresas where nombre = ?");
    q.bind(1, ventana->modelo().Text1());
    ASSERT_TRUE(q.next());
    EXPECT_EQ(q.text(0), abreviatura);
}

} // namespace
