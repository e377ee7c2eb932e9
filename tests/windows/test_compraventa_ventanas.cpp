#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QToolButton>

#include "store/query.h"
#include "windows/enlace_widget.h"
#include "windows/test_principal_support.h"

using namespace tesorel;
using namespace tesorel::testing;

namespace
{

// Types a text key by key, as a person does.
void escribir(QLineEdit *campo, const QString &texto)
{
    campo->setFocus();
    for (QChar c : texto) {
        QKeyEvent pulsar(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
        QApplication::sendEvent(campo, &pulsar);
    }
}

// Opens the combo's list with its arrow and clicks the entry.
void elegirEnCombo(QWidget *ventana, const QString &combo, const QString &entrada)
{
    auto *c = hijo<EnlaceWidget>(ventana, combo);
    hijo<QToolButton>(c, "Flecha")->click();
    // The open list hangs from the window, over the controls below the combo.
    QListWidget *lista = nullptr;
    for (auto *l : ventana->findChildren<QListWidget *>("List1"))
        if (l->isVisible())
            lista = l;
    ASSERT_NE(lista, nullptr);
    const auto items = lista->findItems(entrada, Qt::MatchExactly);
    ASSERT_FALSE(items.isEmpty()) << entrada.toStdString();
    lista->setCurrentItem(items.first());
    emit lista->itemClicked(items.first());
}

double numero(Session &s, const QString &sql)
{
    Query q(*s.Base_Datos, sql);
    return q.next() ? q.number(0) : -1;
}

struct CompraVentaVentanas : VentanaDemo {
};

TEST_F(CompraVentaVentanas, CompraYVentaConLosControles)
{
    elegir("TELEFONICA");
    s->hoyFijo = QDate(2026, 11, 23);
    QString total, lote;
    Guion guion;
    guion.luego("Comprar", [&](QWidget *w) {
        EXPECT_EQ(hijo<EnlaceWidget>(w, "Combo1")->Text(), "TELEFONICA");
        elegirEnCombo(w, "Combo2", "Bankinter");
        escribir(hijo<QLineEdit>(w, "Precio"), "4,5");
        escribir(hijo<QLineEdit>(w, "Cantidad"), "100");
        total = hijo<QLineEdit>(w, "Total")->text();
        EXPECT_EQ(hijo<QLabel>(w, "Importe_2")->text().trimmed(), "2,50");
        hijo<QPushButton>(w, "Aceptar")->click();
    });
    guion.luego("Vender", [&](QWidget *w) {
        hijo<QToolButton>(hijo<EnlaceWidget>(w, "Combo1"), "Flecha")->click(); // offers the whole position
        EXPECT_EQ(hijo<QLineEdit>(w, "Cantidad")->text(), "1100");
        elegirEnCombo(w, "Combo2", "Bankinter");
        auto *cantidad = hijo<QLineEdit>(w, "Cantidad");
        cantidad->clear();
        escribir(cantidad, "600");
        escribir(hijo<QLineEdit>(w, "Precio"), "5");
        hijo<QPushButton>(w, "Mostrar")->click();
        EXPECT_TRUE(hijo<QWidget>(w, "PanelLotes")->isVisible());
        lote = hijo<QLabel>(w, "Vendidas_0")->text();
        hijo<QPushButton>(w, "Label3")->click();
    });
    comandos.ejecutar("boton_Comprar");
    comandos.ejecutar("boton_Vender");
    EXPECT_TRUE(guion.terminado()) << guion.vistas.join(",").toStdString();
    EXPECT_EQ(total, "408,5"); // the quantity typed last reads "4,5" as 4: 400, then 6 and 2.50
    EXPECT_EQ(lote, "-600");
    EXPECT_EQ(numero(*s, "select Cantidad from cartera where valor = 108"), 500);
    EXPECT_EQ(numero(*s, "select Total_operacion from historico where operacionNum = 4 and valor = 108"),
              -2991.5);
}

} // namespace
