#include "booking_fixture.h"
#include "portfolio/apunte.h"
#include "portfolio/comprar.h"
#include "portfolio/vender.h"

namespace tesorel::testing
{
namespace
{

struct Apuntes : SesionDeApuntes {
    Apuntes() { s.hoyFijo = QDate(2026, 11, 23); }
    EntornoCompraVenta entorno{[] { return QStringLiteral("TELEFONICA SA"); }, {}};

    // Opens the purchase on broker "Fijo" and types the fields in the order
    // given: "P" price, "C" quantity.
    void teclear(Comprar &c, const QString &orden, const QString &precio, const QString &cantidad)
    {
        c.Form_Load();
        c.Combo2 = "Fijo";
        c.Combo2_Evento(2);
        // With no amount yet the commission's conversions fail (reported, as always).
        EXPECT_EQ(errores.mid(errores.size() - 2), QStringList({"3075", "13"}));
        errores.clear();
        for (QChar campo : orden)
            campo == 'P' ? c.setPrecio(precio) : c.setCantidad(cantidad);
    }
    void comprar(const QString &orden, const QString &precio, const QString &cantidad)
    {
        Comprar c(s, entorno);
        teclear(c, orden, precio, cantidad);
        c.Aceptar_Click();
    }
    void vender(const QString &cantidad, const QString &precio)
    {
        Vender v(s, entorno);
        v.Form_Load();
        v.Combo2 = "Fijo";
        v.Combo2_Evento(2);
        v.setCantidad(cantidad);
        v.setPrecio(precio);
        v.Aceptar_Click();
    }
    double cartera(const char *campo) { return numero(QStringLiteral("select %1 from cartera").arg(campo)); }
};

TEST(Comprar, CadenaConLasDosReglasDeLectura)
{
    struct Caso {
        const char *orden, *precio, *cantidad, *bruto, *total;
    };
    // The quantity typed last reads the price by the point rule; the price
    // typed last reads both by the locale rule.
    const Caso casos[] = {
        {"PC", "12,5", "10", "120", "126"},
        {"CP", "12,5", "10", "125", "131"},
        {"CP", "20,0035", "100", "2000,35", "2006,35"},
        {"CP", "10", "", "0", "6"},
    };
    for (const Caso &c : casos) {
        Apuntes f;
        Comprar v(f.s, f.entorno);
        f.teclear(v, c.orden, c.precio, c.cantidad);
        EXPECT_EQ(v.Combo1, "TELEFONICA");
        EXPECT_EQ(v.Fecha, "23/11/26");
        EXPECT_EQ(v.Precio_total(), c.bruto) << c.orden << c.precio;
        EXPECT_EQ(v.Total(), c.total) << c.orden << c.precio;
    }
}

TEST(Comprar, PrimeraCompraFusionYComaDecimal)
{
    Apuntes f;
    f.comprar("CP", "10", "100");
    EXPECT_EQ(f.cartera("Cantidad"), 100);
    EXPECT_EQ(f.cartera("Precio_Compra"), 10);
    EXPECT_EQ(f.cartera("Total_Compra"), 1006);
    EXPECT_EQ(f.uno("select Operacion from historico"), "23/11/26: Compra de 100 TELEFONICA por 1006");
    EXPECT_EQ(f.numero("select Entidad from historico"), 5);

    f.comprar("CP", "20", "100");
    EXPECT_EQ(f.cartera("Cantidad"), 200);
    EXPECT_EQ(f.cartera("Precio_Compra"), 15);
    EXPECT_EQ(f.cartera("Total_Compra"), 1006 + 2006);

    // The merge takes the total by the point rule; the ledger by the locale rule.
    f.comprar("CP", "20,0035", "100");
    EXPECT_EQ(f.cartera("Total_Compra"), 1006 + 2006 + 2006);
    EXPECT_EQ(f.numero("select max(Total_operacion) from historico"), 2006.35);
    EXPECT_EQ(f.numero("select count(*) from cartera"), 1);
    EXPECT_EQ(f.numero("select count(*) from historico where operacionNum = 2"), 3);
    EXPECT_TRUE(f.errores.isEmpty()) << f.errores.join(',').toStdString();
}

TEST(Comprar, FechaQueNoEsFechaSeApuntaIgualmente)
{
    Apuntes f;
    Comprar c(f.s, f.entorno);
    c.Form_Load();
    c.Fecha = "31/02/26";
    c.setPrecio("10");
    c.setCantidad("5");
    c.Aceptar_Click();
    EXPECT_EQ(f.errores, QStringList({"13", "13"})); // cartera's date, then the ledger's
    EXPECT_TRUE(f.uno("select Fecha_Compra from cartera").isNull());
    EXPECT_EQ(f.numero("select Total_operacion from historico"), 50); // no broker chosen: no commission
}

TEST(Vender, ParcialExactaYRechazos)
{
    struct Caso {
        const char *nombre, *cantidad;
        double quedan, coste; // -1: no row
        const char *mensaje;
        int lineas;
    };
    // "sinPosicion" sells a value never bought.
    const Caso casos[] = {
        {"parcial", "40", 60, 603.6, nullptr, 2},
        {"exacta", "100", -1, 0, nullptr, 2},
        {"unaDeMas", "101", 100, 1006, "Sólo constan 100 acciones de TELEFONICA, apunte rechazado", 1},
        {"sinPosicion", "10", -1, 0, "Valor no encontrado, apunte rechazado", 0},
    };
    for (const Caso &c : casos) {
        Apuntes f;
        if (c.lineas > 0)
            f.comprar("CP", "10", "100");
        f.vender(c.cantidad, "12");
        if (c.quedan < 0) {
            EXPECT_EQ(f.numero("select count(*) from cartera"), 0) << c.nombre;
        } else {
            EXPECT_DOUBLE_EQ(f.cartera("Cantidad"), c.quedan) << c.nombre;
            EXPECT_DOUBLE_EQ(f.cartera("Total_Compra"), c.coste) << c.nombre;
            EXPECT_EQ(f.cartera("Precio_Compra"), 10) << c.nombre;
        }
        EXPECT_EQ(f.numero("select count(*) from historico"), c.lineas) << c.nombre;
        if (c.mensaje) {
            ASSERT_EQ(f.ui.messages.size(), 1u) << c.nombre;
            EXPECT_EQ(f.ui.messages[0].prompt, c.mensaje);
            EXPECT_EQ(f.ui.messages[0].title, "Atención");
        } else {
            const double vendidas = QString(c.cantidad).toDouble();
            EXPECT_EQ(f.numero("select Cantidad from historico where operacionNum = 4"), -vendidas);
            EXPECT_EQ(f.numero("select Total_operacion from historico where operacionNum = 4"),
                      -(vendidas * 12 - 6));
            EXPECT_EQ(f.numero("select precio_operacion from historico where operacionNum = 4"), 12);
        }
    }
}

} // namespace
} // namespace tesorel::testing
