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
                                   "Yahoo", "VerOperaciones", "Generar_Serie_Cartera"})
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
    EXPECT_TRUE(p->mercado.lista.marcas.menu_seguimiento);
    EXPECT_EQ(campo("select * from Usuario_Actual", "fecha_Actual").toDate(), QDate(2024, 5, 3));
    EXPECT_TRUE(p->Text1() == "ACERINOX" || p->Text1() == "BANKINTER") << p->Text1().toStdString();
    EXPECT_EQ(p->Codigo_Valor(), p->Text1() == "ACERINOX" ? 10 : 20);
    EXPECT_EQ(s.Usuario_Numero, 1);
    EXPECT_EQ(s.Maximo_Dias_Sesion, 200);
    EXPECT_EQ(p->config.Valores, 3);
    EXPECT_EQ(p->config.Indicador_Actual, "2");
    EXPECT_EQ(p->config.Check2[1], 1);
    EXPECT_EQ(p->config.Check2[2], 0);
    EXPECT_EQ(p->config.Candle, 1);
    EXPECT_EQ(p->Version, QStringLiteral("Tesorel 2.007 - Revisión 0"));
    EXPECT_EQ(p->Pesta, "7");
    EXPECT_FALSE(p->Terminado);
    EXPECT_TRUE(QDir(base.folder() + "/tmp").exists());
    EXPECT_TRUE(QDir(base.folder() + "/mail").exists());
    EXPECT_TRUE(ui.messages.empty());
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

TEST_F(Arranque, SecondActivationKeepsValueAndUserWithoutLogin)
{
    arrancar();
    const QString valor = p->Text1();
    pedidos.clear();
    p->Form_Activate();
    EXPECT_FALSE(pedidos.contains("form4"));
    EXPECT_EQ(p->Text1(), valor);
    EXPECT_EQ(s.Usuario_Numero, 1);
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

TEST_F(Arranque, ClosingSavesSettingsAndDaysOfTheUser)
{
    arrancar();
    p->config.Check2[3] = 1;
    p->config.Valores = 1;
    p->DibuGrafi3(QStringLiteral("Estocástico"));
    s.Maximo_Dias_Sesion = 50;
    p->Form_QueryUnload();
    EXPECT_EQ(campo("select * from Usuario where clave = 1", "Configuracion").toString(), "101101310");
    EXPECT_EQ(campo("select * from Usuario where clave = 1", "Maximo_dias").toDouble(), 50);
}

TEST_F(Arranque, RisersListIsNotRemembered)
{
    arrancar();
    p->config.Valores = 1;
    p->ejecutar("menu_massuben");
    EXPECT_EQ(p->mercado.lista.Titul, QStringLiteral("Los que más suben"));
    EXPECT_TRUE(p->mercado.lista.marcas.menu_massuben);
    EXPECT_EQ(p->grabar_configuracion().mid(5, 1), "1");
}

TEST_F(Arranque, ExitMenusSaveOrNot)
{
    struct Caso {
        bool salir; // menu_salir, else menu_encierra
        QString guardado;
    } casos[] = {{true, "111103210"}, {false, "101103210"}};
    for (const Caso &c : casos) {
        base.db->executeNative("UPDATE Usuario SET Configuracion = '101103210' WHERE clave = 1");
        ui.ended = false;
        arrancar();
        p->config.Check2[2] = 1;
        c.salir ? p->menu_salir_Click() : p->menu_encierra_Click();
        EXPECT_TRUE(ui.ended);
        p->Form_QueryUnload(); // the window's close path after the end saves nothing more
        EXPECT_EQ(campo("select * from Usuario where clave = 1", "Configuracion").toString(), c.guardado);
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
                 {4, "DibujarGrafica", "2"},
                 {5, "DibujarGrafica", "3"},
                 {2, "DibujarGrafica", "0"},
                 {6, "VerOperaciones", "0"},
                 {7, "", "0"},
                 {8, "", "0"}};
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
}

TEST_F(Arranque, ARegisteredTabProcedureTakesOverTheTabs)
{
    arrancar();
    comandos.registrar("Pesta", [this] { pedidos << "Pesta:" + p->Pesta; });
    pedidos.clear();
    p->Pestanas_Click(1);
    p->setText1(p->Text1() == "ACERINOX" ? "BANKINTER" : "ACERINOX"); // a selection refreshes the open tab
    EXPECT_EQ(pedidos, QStringList({"Pesta:1", "QuitarVerOperaciones", "DibujarGrafica", "Pesta:1"}));
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

TEST_F(Arranque, ListClickSavesTheNoteAndSelectsTheEntrysValue)
{
    arrancar();
    p->mercado.lista.List1.entradas = {{"ACERINOX  (ACX)", 10}, {"BANKINTER  (BKT)", 20}};
    p->setText1("ACERINOX"); // whatever value the start drew
    p->mercado.notas.Comentario = "comprar bajo 9";
    pedidos.clear();
    p->List1_Click(1);
    EXPECT_EQ(p->Text1(), "BANKINTER");
    EXPECT_EQ(p->Codigo_Valor(), 20);
    EXPECT_FALSE(p->mercado.seleccion.enlaces.Invertia);
    EXPECT_EQ(pedidos, QStringList({"QuitarVerOperaciones", "DibujarGrafica"}));
    EXPECT_EQ(campo("select * from comentarios where codigo = 10", "Comentario").toString(),
              "comprar bajo 9");
    p->List1_Click(0);
    EXPECT_TRUE(p->mercado.seleccion.enlaces.Invertia);
    p->List1_Click(-1); // no entry: skipped
    EXPECT_EQ(p->Text1(), "ACERINOX");
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(Arranque, PortfolioEntryMakesTheSeriesFirst)
{
    arrancar();
    p->ejecutar("menu_ENcartera");
    ASSERT_EQ(p->mercado.lista.List1.ListCount(), 1);
    pedidos.clear();
    p->List1_Click(0);
    EXPECT_EQ(p->Text1(), "CARTERA ana"); // the series bears its user's name
    EXPECT_EQ(pedidos, QStringList({"Generar_Serie_Cartera", "QuitarVerOperaciones", "DibujarGrafica"}));
}

TEST_F(Arranque, ButtonsAndMenusReachTheLists)
{
    arrancar();
    // The controls of the left side, by their names, and the list each leaves on show.
    const std::pair<const char *, const char *> casos[] = {
        {"menu_todos", "Todos"},
        {"boton_siguiente", "Los que más suben"},
        {"boton_siguiente", "Ibex"},
        {"boton_anterior", "Los que más suben"},
        {"boton_anterior", "Todos"},
        {"boton_anterior", "En Cartera"},
        {"menu_seguimiento", "En Seguimiento"},
        {"menu_ibex", "Ibex"},
    };
    for (const auto &[control, titulo] : casos) {
        p->ejecutar(control);
        EXPECT_EQ(p->mercado.lista.Titul, QString::fromUtf8(titulo)) << control;
    }
    p->config.Valores = 0;
    p->Valores_Click();
    EXPECT_EQ(p->mercado.lista.Titul, "Todos");
    EXPECT_EQ(p->Sql_Lista(), p->mercado.lista.Sql_Lista);
    QStringList entradas;
    for (const auto &e : p->mercado.lista.List1.entradas)
        entradas << e.texto;
    EXPECT_EQ(entradas, QStringList({"ACERINOX  (ACX)", "BANKINTER  (BKT)"}));
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(Arranque, FavouriteButtonFollowsTheValueOnShow)
{
    arrancar();
    p->setText1("ACERINOX");
    p->ejecutar("menu_seguimiento");
    const auto &boton = p->mercado.favoritos.Boton_Favorito;
    auto seguidos = [&] {
        return campo("select count(*) as n from faboritos where valor = 10 and usuario = 1", "n").toInt();
    };
    EXPECT_TRUE(boton[0]);
    p->ejecutar("Boton_Favorito");
    EXPECT_EQ(seguidos(), 1);
    EXPECT_TRUE(boton[2]);
    EXPECT_EQ(p->mercado.lista.List1.ListCount(), 1); // the followed list is rebuilt
    p->ejecutar("menu_popup_add");                    // the menu makes no test: a second row
    EXPECT_EQ(seguidos(), 2);
    p->ejecutar("Boton_Favorito"); // one removal takes both
    EXPECT_EQ(seguidos(), 0);
    EXPECT_TRUE(boton[0]);
    // A drawing sets the button for the value on show.
    p->ejecutar("menu_add_faboritos");
    p->Check2_Click(1);
    EXPECT_TRUE(boton[2]);
}

TEST_F(Arranque, SearchSelectsOrListsAndAnEmptyBoxBringsTheListBack)
{
    base.db->executeNative("INSERT INTO Codigo_Empresas VALUES (30, 'BANCO SABADELL', 'SAB', 'SABADELL', ''),"
                           " (40, 'BANCO SANTANDER', 'SAN', 'SANTANDER', '')");
    arrancar();
    p->setText1("ACERINOX");
    p->ejecutar("menu_todos");
    p->buscar_Change("SAN");
    p->buscar_Return();
    EXPECT_EQ(p->Text1(), "BANCO SANTANDER");
    EXPECT_EQ(p->mercado.busqueda.buscar(), ""); // a selection empties the box
    p->buscar_Change("BANCO");
    p->buscar_GotFocus();
    EXPECT_EQ(p->mercado.busqueda.SelLength, 5);
    p->buscar_Return();
    EXPECT_EQ(p->mercado.lista.Titul, "Resultados");
    EXPECT_EQ(p->mercado.lista.List1.ListCount(), 2);
    p->buscar_Change("");
    EXPECT_EQ(p->mercado.lista.Titul, "Todos");
    p->buscar_Change("O'B"); // the apostrophe fails the statement alone
    p->buscar_Return();
    EXPECT_EQ(p->mercado.lista.Titul, "Todos");
    EXPECT_EQ(p->Text1(), "BANCO SANTANDER");
}

TEST_F(Arranque, DroppingTheLastDateDeletesThatDay)
{
    arrancar();
    const QDate dia(2024, 5, 2);
    struct Caso {
        QString origen;
        int respuesta;
        int quedan;
    } casos[] = {{"Fecha_Inicio", mb::Yes, 1}, {"Fecha_Fin", mb::No, 1}, {"Fecha_Fin", mb::Yes, 0}};
    for (const Caso &c : casos) {
        ui.answers = {c.respuesta};
        p->Image1_DragDrop(c.origen, dia);
        EXPECT_EQ(campo("select count(*) as n from bolsa where fecha = '2024-05-02'", "n").toInt(), c.quedan)
            << c.origen.toStdString();
    }
    ASSERT_EQ(ui.messages.size(), 2u);
    EXPECT_EQ(ui.messages[0].prompt, QStringLiteral("¿ Deseas borrar cotizaciones del día 02/05/2024 ?"));
}

TEST_F(Arranque, ErrorRoutineSpeaksOnlyPastTheMark)
{
    comandos.registrar("DefinirGraficas", [] { throw RuntimeError(13, "No coinciden los tipos"); });
    arrancar();
    EXPECT_TRUE(ui.messages.empty()); // the mark is 0 as the routine's
    EXPECT_FALSE(QFile::exists(base.folder() + "/error.txt"));

    s.Ubicacion_Error = 200204;
    ui.answers = {mb::Ignore};
    p->Pestanas_Click(3);
    p->Pestanas_Click(7);
    comandos.registrar("DibujarGrafica", [] { throw RuntimeError(6, "Desbordamiento"); });
    p->Pestanas_Click(3);
    p->Pestanas_Click(4);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].prompt, "6 Desbordamiento");
    EXPECT_EQ(ui.messages[0].title, QStringLiteral("Atención"));
    EXPECT_EQ(ui.messages[0].style, 18);
    QFile log(base.folder() + "/error.txt");
    ASSERT_TRUE(log.open(QIODevice::ReadOnly));
    const QString registro = QString::fromUtf8(log.readAll());
    EXPECT_TRUE(registro.contains(",6,\"Desbordamiento\",200204")) << registro.toStdString();
    EXPECT_FALSE(ui.ended);
}

TEST(Comandos, SharedControlsLeadToOneCommand)
{
    Comandos c;
    QStringList hechos;
    for (const char *nombre :
         {"Comprar", "Vender", "Importinet", "Cotizaciones", "todos", "menu_add_faboritos"})
        c.registrar(nombre, [&hechos, nombre] { hechos << nombre; });
    const std::pair<const char *, const char *> casos[] = {
        {"boton_Comprar", "Comprar"},
        {"menu_comprar", "Comprar"},
        {"menu_popup_Comprar", "Comprar"},
        {"boton_Vender", "Vender"},
        {"menu_popup_vender", "Vender"},
        {"boton_Importar", "Importinet"},
        {"menu_importa", "Importinet"},
        {"menu_importar", "Importinet"},
        {"boton_cotizaciones", "Cotizaciones"},
        {"menu_todos", "todos"},
        {"menu_popup_add", "menu_add_faboritos"},
        {"menu_add_faboritos", "menu_add_faboritos"},
    };
    for (const auto &[control, comando] : casos) {
        hechos.clear();
        EXPECT_FALSE(c.ejecutar(control).isValid());
        EXPECT_EQ(hechos, QStringList{comando}) << control;
    }
    hechos.clear();
    for (const char *nada : {"menu_intervalo", "menu_explorar", "menu_config", "bCartera", "Importar"})
        EXPECT_FALSE(c.ejecutar(nada).isValid());
    EXPECT_TRUE(hechos.isEmpty());
    c.registrarConResultado("qualquier_valor", [] { return QVariant(42.0); });
    EXPECT_EQ(c.ejecutar("qualquier_valor").toDouble(), 42.0);
    c.registrar("Comprar", [&hechos] { hechos << "otro"; }); // a later window replaces the handler
    c.ejecutar("boton_Comprar");
    EXPECT_EQ(hechos, QStringList{"otro"});
}

} // namespace
