// The web import window on screen: it runs once shown, fills its lists,
// and its button stops a run that waits on a silent server.
#include "windows/test_principal_support.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include "import/web_servidor.h"
#include "store/recordset.h"
#include "support/esperar.h"
#include "support/test_base.h"
#include "windows/importinet_dialog.h"

namespace tesorel::testing
{
namespace
{

struct VentanaWeb : ::testing::Test {
    SesionDePrueba p;
    void SetUp() override
    {
        app();
        p.base.db->executeNative(
            "insert into Codigo_Empresas (Codigo, NOMBRE, ABREVIATURA3) values (1, 'SAN', 'SAN');"
            "insert into bolsa (VALOR, FECHA, ULTIMO) values (1, '2024-03-04', 4.1);");
    }
};

TEST_F(VentanaWeb, RunsWhenShownAndShowsItsLists)
{
    ServidorWeb fuente;
    fuente.rutas["/cierres/240305.txt"] = {"SAN,20240305,4,4.3,4,4.2,1000\r\n"};
    p.s.hoyFijo = QDate(2024, 3, 6);
    FuentesCierres f;
    f.bases = {fuente.base(), ServidorWeb::puertoCerrado(), ServidorWeb::puertoCerrado()};
    int importar = 0;
    Importinet::Acciones a;
    a.Importar = [&] { ++importar; };
    ImportinetDialog v(p.s, f, a);
    v.show();
    esperarA([&] { return hijo<QPushButton>(&v, "Command1")->text() == "Aceptar"; });

    EXPECT_EQ(hijo<QLabel>(&v, "Label1")->text(), Importinet::TextoFin);
    EXPECT_EQ(hijo<QProgressBar>(&v, "Shape1")->value(), Importinet::Shape1_Width);
    EXPECT_EQ(hijo<QListWidget>(&v, "Ok")->item(0)->text(), "05/03/2024");
    EXPECT_EQ(hijo<QListWidget>(&v, "fallo")->item(0)->text(), "04/03/2024");
    EXPECT_FALSE(hijo<QWidget>(&v, "Ok")->isVisible());
    EXPECT_FALSE(hijo<QWidget>(&v, "Manual")->isVisible());
    hijo<QPushButton>(&v, "Label4")->click();
    EXPECT_TRUE(hijo<QWidget>(&v, "Ok")->isVisible());
    hijo<QPushButton>(&v, "Importar")->click();
    EXPECT_EQ(importar, 1);
    hijo<QPushButton>(&v, "Command1")->click();
    EXPECT_FALSE(v.isVisible());
}

TEST_F(VentanaWeb, CancelarStopsTheRunAfterTheRequestUnderWay)
{
    ServidorWeb silencioso;
    for (const char *ruta : {"/cierres/240304.txt", "/cierres/240305.txt", "/cierres/240306.txt"})
        silencioso.rutas[ruta] = {{}, ServidorWeb::Modo::Silencio};
    p.s.hoyFijo = QDate(2024, 3, 7);
    FuentesCierres f;
    f.bases = {silencioso.base(), ServidorWeb::puertoCerrado(), ServidorWeb::puertoCerrado()};
    f.limiteMs = 1000;
    ImportinetDialog v(p.s, f, {});
    QTimer::singleShot(300, &v, [&] { hijo<QPushButton>(&v, "Command1")->click(); });
    v.exec();
    EXPECT_TRUE(v.modelo().fallo.isEmpty());
    EXPECT_EQ(silencioso.pedidos.size(), 1); // the two days after it were never asked for
}

// The main window's Importar button on a base whose last day is past:
// the window works through the days served on loopback and they reach bolsa.
struct ImportarDesdeLaPrincipal : VentanaDemo {
};

TEST_F(ImportarDesdeLaPrincipal, TheNewDaysReachTheBase)
{
    ServidorWeb fuente;
    const QDate ultimo =
        s->Base_Datos->openRecordset("Select max(FECHA) as f from bolsa")->field("f").toDate();
    const QDate nuevo = ultimo.addDays(1);
    fuente.rutas["/cierres/" + nuevo.toString("yyMMdd").toLatin1() + ".txt"] = {
        "IBEX," + nuevo.toString("yyyyMMdd").toLatin1() + ",1,12000,11900,11950,100\r\n"};
    QFile ini(dir.filePath("fuentes.ini"));
    ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
    ini.write(
        ("[cierres]\nfuente1=" + fuente.base() + "\nfuente2=" + ServidorWeb::puertoCerrado() + "\nfuente3=\n")
            .toUtf8());
    ini.close();
    s->hoyFijo = ultimo.addDays(2);

    QStringList ok;
    Guion guion;
    QTimer mira;
    // The run goes on under the window's own events: the test looks in now and then.
    guion.luego("Importinet", [&](QWidget *v) {
        QObject::connect(&mira, &QTimer::timeout, v, [&, v] {
            if (hijo<QPushButton>(v, "Command1")->text() != "Aceptar")
                return;
            mira.stop();
            auto *lista = hijo<QListWidget>(v, "Ok");
            for (int i = 0; i < lista->count(); ++i)
                ok << lista->item(i)->text();
            hijo<QPushButton>(v, "Command1")->click();
        });
        mira.start(20);
    });
    hijo<QAbstractButton>(ventana.get(), "boton_Importar")->click();
    EXPECT_TRUE(guion.terminado()) << guion.vistas.join(",").toStdString();
    EXPECT_EQ(ok, QStringList({nuevo.toString("dd/MM/yyyy")}));
    auto fechas = s->Base_Datos->openRecordset("Select * from Fechas Order by Fecha");
    fechas->MoveLast();
    EXPECT_EQ(fechas->field("Fecha").toDate(), nuevo);
}

} // namespace
} // namespace tesorel::testing
