// The web import window on screen: its button stops a run that waits on a silent server; opened
// from the main window it runs once shown and fills its lists.
#include "windows/test_principal_support.h"

#include <QProgressBar>

#include "import/web_servidor.h"
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

// The main window's Importar button on a base whose last day is past: the window runs once shown,
// shows its lists, offers the import of files, and the days served on loopback reach bolsa.
struct ImportarDesdeLaPrincipal : VentanaDemo {
    int importar = 0;
    void antesDeEntrar() override
    {
        comandos.registrar("Importar", [this] { ++importar; });
    }
};

TEST_F(ImportarDesdeLaPrincipal, TheNewDaysReachTheBase)
{
    ServidorWeb fuente;
    const QDate ultimo = consulta(*s, "select max(FECHA) from bolsa").toDate();
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

    QStringList ok, fallo;
    Guion guion;
    QTimer mira;
    // The run goes on under the window's own events: the test looks in now and then.
    guion.luego("Importinet", [&](QWidget *v) {
        QObject::connect(&mira, &QTimer::timeout, v, [&, v] {
            if (hijo<QPushButton>(v, "Command1")->text() != "Aceptar")
                return;
            mira.stop();
            EXPECT_EQ(hijo<QLabel>(v, "Label1")->text(), Importinet::TextoFin);
            EXPECT_EQ(hijo<QProgressBar>(v, "Shape1")->value(), Importinet::Shape1_Width);
            EXPECT_FALSE(hijo<QWidget>(v, "Ok")->isVisible());
            EXPECT_FALSE(hijo<QWidget>(v, "Manual")->isVisible());
            hijo<QPushButton>(v, "Label4")->click();
            EXPECT_TRUE(hijo<QWidget>(v, "Ok")->isVisible());
            for (const char *nombre : {"Ok", "fallo"}) {
                auto *lista = hijo<QListWidget>(v, nombre);
                for (int i = 0; i < lista->count(); ++i)
                    (lista->objectName() == "Ok" ? ok : fallo) << lista->item(i)->text();
            }
            hijo<QPushButton>(v, "Importar")->click();
            hijo<QPushButton>(v, "Command1")->click();
        });
        mira.start(20);
    });
    hijo<QAbstractButton>(ventana.get(), "boton_Importar")->click();
    EXPECT_TRUE(guion.terminado()) << guion.vistas.join(",").toStdString();
    EXPECT_EQ(ok, QStringList({nuevo.toString("dd/MM/yyyy")}));
    EXPECT_EQ(fallo, QStringList({ultimo.toString("dd/MM/yyyy")}));
    EXPECT_EQ(importar, 1);
    EXPECT_EQ(consulta(*s, "select max(Fecha) from Fechas").toDate(), nuevo);
}

} // namespace
} // namespace tesorel::testing
