#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include "principal/comandos.h"
#include "principal/principal.h"
#include "store/database.h"
#include "store/recordset.h"
#include "store/session.h"
#include "store/ui.h"
#include "support/test_base.h"
#include "users/login.h"

using namespace tesorel;

namespace
{

// A base with two days of quotes for two companies and two users, and a
// command hub that records what the main window asked for.
struct Arranque : ::testing::Test, tesorel::testing::SesionDePrueba {
    Comandos comandos;
    QStringList pedidos;
    QString usuario = "ana", clave = "a1"; // what the login types; empty: Escape
    std::unique_ptr<Principal> p;

    void SetUp() override
    {
        s.Base_Datos.reset(); // the main window opens the base itself
        base.db->executeNative(
            "INSERT INTO Codigo_Empresas VALUES (10, 'ACERINOX', 'ACX', 'ACERINOX', 'acx'),"
            " (20, 'BANKINTER', 'BKT', 'BANKINTER', '');"
            "INSERT INTO bolsa (VALOR, FECHA, ULTIMO) VALUES (10, '2024-05-02', 9), (10, '2024-05-03', 9.5),"
            " (20, '2024-05-03', 6), (34001, '2024-05-03', 100);"
            "INSERT INTO Usuario (clave, NOMBRE, Password, Configuracion, Maximo_dias) VALUES"
            " (1, 'ana', 'a1', '101103210', 200), (2, 'luis', 'l2', NULL, NULL);");
        // The lists, notes and favourites are the main window's own: only the
        // commands of other subsystems are recorded.
        for (const char *nombre : {"DefinirGraficas", "DibujarGrafica", "Importinet", "QuitarVerOperaciones",
                                   "Yahoo", "VerOperaciones", "Generar_Serie_Cartera", "Historico"})
            comandos.registrar(nombre, [this, nombre] { pedidos << nombre; });
        comandos.registrar("NoHay", [this] {
            pedidos << "NoHay";
            p->NoHay_Aceptar();
        });
        comandos.registrar("form4", [this] {
            pedidos << "form4";
            form4 login(s, [this](const QString &t) { p->Configuracion = t; });
            login.Form_Load();
            if (usuario.isEmpty()) {
                login.Clave_KeyDown(form4::Tecla::Escape);
                return;
            }
            login.List1_ListIndex = login.List1.indexOf(usuario);
            login.Clave = clave;
            login.Entrar_Click();
        });
    }
    void arrancar(const QString &ruta = {})
    {
        p = std::make_unique<Principal>(s, comandos, ruta);
        p->Form_Load();
        p->Form_Activate();
    }
    QVariant campo(const QString &sql, const QString &nombre)
    {
        auto rs = base.db->openRecordset(sql);
        return rs->Eof() ? QVariant() : rs->field(nombre);
    }
};

TEST_F(Arranque, LoadThenLoginThenTheUsersSettings)
{
    arrancar();
    EXPECT_EQ(pedidos, QStringList({"DefinirGraficas", "QuitarVerOperaciones", "DibujarGrafica", "form4",
                                    "DibujarGrafica"}));
    // The user's list (index 3 of the combo) comes up right after the login.
    EXPECT_EQ(p->mercado.lista.Titul, "En Seguimiento");
    EXPECT_EQ(campo("select * from Usuario_Actual", "fecha_Actual").toDate(), QDate(2024, 5, 3));
    EXPECT_TRUE(p->Text1() == "ACERINOX" || p->Text1() == "BANKINTER") << p->Text1().toStdString();
    EXPECT_EQ(p->Codigo_Valor(), p->Text1() == "ACERINOX" ? 10 : 20);
    EXPECT_EQ(s.Usuario_Numero, 1);
    EXPECT_EQ(p->grabar_configuracion(), "101103210"); // the login's settings reach the window
    EXPECT_EQ(p->Pesta, "7");
    EXPECT_FALSE(p->Terminado);
    EXPECT_TRUE(QDir(base.folder() + "/tmp").exists());
    EXPECT_TRUE(QDir(base.folder() + "/mail").exists());
    EXPECT_TRUE(ui.messages.empty());
    // A second activation keeps the value and the user without a login.
    const QString valor = p->Text1();
    pedidos.clear();
    p->Form_Activate();
    EXPECT_FALSE(pedidos.contains("form4"));
    EXPECT_EQ(p->Text1(), valor);
    EXPECT_EQ(s.Usuario_Numero, 1);
}

TEST_F(Arranque, MissingBaseShowsNoHayBeforeAnyLogin)
{
    arrancar(base.folder() + "/no_existe.mdb");
    EXPECT_EQ(pedidos, QStringList({"DefinirGraficas", "NoHay"}));
    EXPECT_FALSE(p->Timer1_Enabled);
    EXPECT_TRUE(p->Terminado);
    EXPECT_TRUE(ui.ended);
    EXPECT_EQ(p->carpetaNoHay(), base.folder() + " ");
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(Arranque, NoQuotesOpensTheImportFirst)
{
    base.db->executeNative("DELETE FROM bolsa");
    comandos.registrar("Importinet", [this] {
        pedidos << "Importinet";
        // The import writes through the session's own connection.
        s.Base_Datos->executeNative("INSERT INTO bolsa (VALOR, FECHA, ULTIMO) VALUES (20, '2024-06-10', 7)");
    });
    s.Ubicacion_Error = 5; // any failure would show
    arrancar();
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(pedidos.mid(0, 2), QStringList({"DefinirGraficas", "Importinet"}));
    EXPECT_EQ(campo("select * from Usuario_Actual", "fecha_Actual").toDate(), QDate(2024, 6, 10));
    EXPECT_EQ(p->Text1(), "BANKINTER");
}

TEST_F(Arranque, NothingImportedLeavesTheDateAndGoesOn)
{
    base.db->executeNative("DELETE FROM bolsa; UPDATE Usuario_Actual SET fecha_Actual = '2020-01-01'");
    arrancar();
    EXPECT_TRUE(pedidos.contains("Importinet"));
    EXPECT_EQ(campo("select * from Usuario_Actual", "fecha_Actual").toDate(), QDate(2020, 1, 1));
    EXPECT_EQ(s.Usuario_Numero, 1);
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(Arranque, EscapeAtTheLoginEndsTheProgram)
{
    usuario.clear();
    arrancar();
    EXPECT_EQ(s.Usuario_Numero, 0);
    EXPECT_TRUE(p->Terminado);
    EXPECT_TRUE(ui.ended);
    p->Form_QueryUnload();
    EXPECT_FALSE(campo("select * from Usuario where clave = 2", "Configuracion").isValid());
}

TEST_F(Arranque, DoubleClickOnTituloLogsInAgainWithoutReloadingSettings)
{
    arrancar();
    const ConfiguracionVentana antes = p->config;
    usuario = "luis";
    clave = "l2";
    p->Titulo_DblClick();
    EXPECT_EQ(s.Usuario_Numero, 2);
    EXPECT_EQ(s.Nombre_Usuario, "luis");
    EXPECT_EQ(p->Configuracion, "");
    EXPECT_EQ(p->config.Check2, antes.Check2);
    EXPECT_EQ(p->config.Valores, antes.Valores);
    // Escape on the second login keeps the user.
    usuario.clear();
    p->Titulo_DblClick();
    EXPECT_EQ(s.Usuario_Numero, 2);
    EXPECT_FALSE(p->Terminado);
}

TEST_F(Arranque, ClosingAndTheExitMenusSaveTheSettingsOrNot)
{
    struct Caso {
        const char *nombre;
        void (Principal::*accion)();
        bool termina;
        QString guardado;
        int dias;
    } casos[] = {{"closing the window", &Principal::Form_QueryUnload, false, "111101310", 50},
                 {"menu_salir", &Principal::menu_salir_Click, true, "111101310", 50},
                 {"menu_encierra", &Principal::menu_encierra_Click, true, "101103210", 200}};
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.nombre);
        base.db->executeNative(
            "UPDATE Usuario SET Configuracion = '101103210', Maximo_dias = 200 WHERE clave = 1");
        ui.ended = false;
        arrancar();
        p->config.Check2[2] = 1;
        p->config.Valores = 1;
        p->DibuGrafi3(QStringLiteral("Estocástico"));
        s.Maximo_Dias_Sesion = 50;
        (p.get()->*c.accion)();
        EXPECT_EQ(ui.ended, c.termina);
        p->Form_QueryUnload(); // after a save or an end nothing more is saved
        EXPECT_EQ(campo("select * from Usuario where clave = 1", "Configuracion").toString(), c.guardado);
        EXPECT_EQ(campo("select * from Usuario where clave = 1", "Maximo_dias").toInt(), c.dias);
    }
}

TEST_F(Arranque, TimerTurnsTheConnectionOnWhateverTheAddress)
{
    arrancar();
    EXPECT_FALSE(s.Hay_Conexion); // the login tick was never touched
    for (const QString &direccion : {QStringLiteral("127.0.0.1"), QStringLiteral("192.168.1.7")}) {
        s.Permitir_Conexion = false;
        p->Timer1_Timer(direccion);
        EXPECT_TRUE(s.Hay_Conexion);
        EXPECT_EQ(p->LabelOnline, direccion);
        EXPECT_EQ(p->IndicadorOnline_BackColor, 65280);
        EXPECT_TRUE(p->Yahoo_Visible && p->Yahoono_Visible && p->YahooNoticias_Visible);
        EXPECT_FALSE(p->Noticias_Visible || p->Incidecaption_Visible);
    }
    // An activation copies the login tick, the next tick turns it on again.
    p->Form_Activate();
    EXPECT_FALSE(s.Hay_Conexion);
    p->Timer1_Timer("127.0.0.1");
    EXPECT_TRUE(s.Hay_Conexion);
}

TEST_F(Arranque, TabsDispatchAndChooseTheIndicator)
{
    base.db->executeNative(
        "INSERT INTO comentarios (codigo, Comentario) VALUES (10, 'vigilar el dividendo')");
    arrancar();
    p->setText1("ACERINOX");
    struct Caso {
        int pestana;
        QString pedido, indicador;
    } casos[] = {{0, "Yahoo", "2"},
                 {1, "", "2"}, // the note, read here
                 {3, "DibujarGrafica", "1"},
                 {5, "DibujarGrafica", "3"},
                 {2, "DibujarGrafica", "0"},
                 {6, "VerOperaciones", "0"},
                 {7, "", "0"},
                 {8, "", "0"}}; // the last tab
    for (const Caso &c : casos) {
        pedidos.clear();
        p->Pestanas_Click(c.pestana);
        EXPECT_EQ(p->Pesta, QString::number(c.pestana));
        EXPECT_EQ(pedidos, c.pedido.isEmpty() ? QStringList() : QStringList{c.pedido}) << c.pestana;
        EXPECT_EQ(p->config.Indicador_Actual, c.indicador) << c.pestana;
    }
    EXPECT_EQ(p->mercado.notas.Comentario, "vigilar el dividendo");
    pedidos.clear();
    p->DibuGrafi3("Otro");
    EXPECT_TRUE(pedidos.isEmpty());
    p->Pestanas_DblClick(); // the ledger window
    EXPECT_EQ(pedidos, QStringList{"Historico"});
}

TEST_F(Arranque, ASelectionRefreshesTheOpenTab)
{
    arrancar();
    pedidos.clear();
    p->Pestanas_Click(6);
    p->setText1(p->Text1() == "ACERINOX" ? "BANKINTER" : "ACERINOX");
    EXPECT_EQ(pedidos,
              QStringList({"VerOperaciones", "QuitarVerOperaciones", "DibujarGrafica", "VerOperaciones"}));
}

TEST_F(Arranque, CandleAndLinesKeepEachOtherConsistent)
{
    arrancar();
    auto &c = p->config;
    c.Check2 = {0, 0, 0, 0, 0, 0, 0};
    c.Candle = 1;
    p->Candle_Click();
    EXPECT_EQ(c.Check2[1] + c.Check2[2] + c.Check2[3] + c.Check2[6], 4);
    c.Check2[2] = 0;
    p->Check2_Click(2);
    EXPECT_EQ(c.Candle, 0);
    c.Check2[4] = 1;
    p->Check2_Click(4); // not one of the candle's series, but the sum is still short
    EXPECT_EQ(c.Candle, 0);
}

// What the lists, search, note and favourites do is the market browser's (tests/market); here
// only that the window's events and commands reach it, and that its hooks reach the hub. The
// ring buttons, the Ibex menu and the search box: tests/windows Mercado.*.
TEST_F(Arranque, ListClickSelectsTheEntryAndAsksTheHubForSeriesAndChart)
{
    arrancar();
    p->setText1("ACERINOX");
    p->ejecutar("menu_ENcartera");
    pedidos.clear();
    p->List1_Click(0);
    EXPECT_EQ(p->Text1(), "CARTERA ana");
    EXPECT_EQ(p->Codigo_Valor(), 34001);
    EXPECT_EQ(pedidos, QStringList({"Generar_Serie_Cartera", "QuitarVerOperaciones", "DibujarGrafica"}));
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(Arranque, ListControlsReachTheirListsAndNoneChangesTheCombo)
{
    arrancar();
    p->config.Valores = 1;
    const std::pair<const char *, const char *> casos[] = {
        {"menu_todos", "Todos"},
        {"menu_ENcartera", "En Cartera"},
        {"menu_massuben", "Los que más suben"},
        {"menu_seguimiento", "En Seguimiento"},
    };
    for (const auto &[control, titulo] : casos) {
        p->ejecutar(control);
        EXPECT_EQ(p->mercado.lista.Titul, QString::fromUtf8(titulo)) << control;
    }
    EXPECT_EQ(p->grabar_configuracion().mid(5, 1), "1"); // the risers' list is not remembered
    p->config.Valores = 0;
    p->Valores_Click();
    EXPECT_EQ(p->mercado.lista.Titul, "Todos");
}

TEST_F(Arranque, FavouriteCommandsReachTheButtonAndEveryDrawingSetsIt)
{
    arrancar();
    p->setText1("ACERINOX");
    const auto &boton = p->mercado.favoritos.Boton_Favorito;
    auto seguidos = [&] {
        return campo("select count(*) as n from faboritos where valor = 10 and usuario = 1", "n").toInt();
    };
    p->ejecutar("Boton_Favorito");
    EXPECT_EQ(seguidos(), 1);
    p->ejecutar("menu_popup_add");
    EXPECT_EQ(seguidos(), 2);
    p->ejecutar("menu_quitar_faboritos");
    EXPECT_EQ(seguidos(), 0);
    EXPECT_TRUE(boton[2]); // the menu leaves the button as it was
    p->Check2_Click(1);
    EXPECT_TRUE(boton[0]);
}

TEST_F(Arranque, DroppingTheLastDateDeletesThatDay)
{
    arrancar();
    ui.answers = {mb::Yes};
    p->Image1_DragDrop("Fecha_Fin", QDate(2024, 5, 2));
    EXPECT_EQ(campo("select count(*) as n from bolsa where fecha = '2024-05-02'", "n").toInt(), 0);
    EXPECT_EQ(ui.messages.size(), 1u);
}

TEST_F(Arranque, ErrorRoutineSpeaksOnlyPastTheMark)
{
    comandos.registrar("DefinirGraficas", [] { throw RuntimeError(13, "No coinciden los tipos"); });
    arrancar();
    EXPECT_TRUE(ui.messages.empty()); // the mark is 0 as the routine's
    EXPECT_FALSE(QFile::exists(base.folder() + "/error.txt"));

    // Past the mark a failing tab reaches the routine (its box and log: tests/store ErrorReporting).
    s.Ubicacion_Error = 200204;
    ui.answers = {mb::Ignore};
    comandos.registrar("DibujarGrafica", [] { throw RuntimeError(6, "Desbordamiento"); });
    p->Pestanas_Click(3);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].prompt, "6 Desbordamiento");
    EXPECT_FALSE(ui.ended);
}

TEST(Comandos, SharedControlsLeadToOneCommand)
{
    Comandos c;
    QStringList hechos;
    for (const char *nombre : {"Comprar", "Vender", "Importinet", "menu_add_faboritos"})
        c.registrar(nombre, [&hechos, nombre] { hechos << nombre; });
    // Controls sharing a command, a control named as its command, a command by its own name.
    const std::pair<const char *, const char *> casos[] = {
        {"boton_Comprar", "Comprar"},
        {"menu_popup_Comprar", "Comprar"},
        {"menu_importar", "Importinet"},
        {"menu_popup_vender", "Vender"},
        {"menu_popup_add", "menu_add_faboritos"},
        {"Importinet", "Importinet"},
    };
    for (const auto &[control, comando] : casos) {
        hechos.clear();
        EXPECT_FALSE(c.ejecutar(control).isValid());
        EXPECT_EQ(hechos, QStringList{comando}) << control;
    }
    hechos.clear();
    for (const char *nada : {"menu_intervalo", "bCartera", "Importar"}) // no handler, unregistered, unknown
        EXPECT_FALSE(c.ejecutar(nada).isValid());
    EXPECT_TRUE(hechos.isEmpty());
    c.registrarConResultado("qualquier_valor", [] { return QVariant(42.0); });
    EXPECT_EQ(c.ejecutar("qualquier_valor").toDouble(), 42.0);
    c.registrar("Comprar", [&hechos] { hechos << "otro"; }); // a later window replaces the handler
    c.ejecutar("boton_Comprar");
    EXPECT_EQ(hechos, QStringList{"otro"});
}

} // namespace
