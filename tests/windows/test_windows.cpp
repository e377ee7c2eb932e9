#include <QCheckBox>

#include "windows/test_principal_support.h"

using namespace tesorel;
using namespace tesorel::testing;

// The font library keeps a cache for the life of the process; it is not ours to free.
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libfontconfig\n";
}

namespace
{

struct Ventanas : ::testing::Test {
    tesorel::testing::TestBase base;
    void SetUp() override
    {
        app();
        base.db->executeNative(
            "INSERT INTO Codigo_Empresas VALUES (10, 'ACERINOX', 'ACX', 'ACERINOX', 'acx'),"
            " (20, 'BANKINTER', 'BKT', 'BANKINTER', '');"
            "INSERT INTO bolsa (VALOR, FECHA, ULTIMO) VALUES (10, '2024-05-02', 9), (10, '2024-05-03', 9.5),"
            " (20, '2024-05-03', 6);"
            "INSERT INTO Usuario (clave, NOMBRE, Password, Configuracion, Maximo_dias) VALUES"
            " (1, 'ana', 'a1', '101103210', 200), (2, 'luis', 'l2', NULL, NULL), (3, 'eva', 'e3', '', 0);");
    }
};

// One start of the program on the fixture's base: its dialogs, session, commands and main window.
struct Programa {
    ScriptedUi ui;
    Session s;
    Comandos comandos;
    PrincipalWindow ventana;
    explicit Programa(const QString &carpeta, const QString &rutaBase = {})
        : s(ui, carpeta), ventana(s, comandos, rutaBase)
    {
    }
};

TEST_F(Ventanas, MissingBaseShowsNoHayAndNothingElse)
{
    Guion guion;
    guion.luego("NoHay", [&](QWidget *w) {
        EXPECT_EQ(hijo<QLabel>(w, "Directorio")->text(), base.folder() + " ");
        EXPECT_EQ(w->windowTitle(), "Base de datos ausente...");
        EXPECT_EQ(hijo<QLabel>(w, "Label1")->text(),
                  QStringLiteral("El programa no puede localizar el archivo base1.mdb imprescindible para la "
                                 "ejecución del programa."));
        hijo<QPushButton>(w, "Command1")->click();
    });
    Programa p(base.folder(), base.folder() + "/otra/base1.mdb");
    auto &ventana = p.ventana;
    ventana.mostrar();
    EXPECT_EQ(ventana.ventanasMostradas(), QStringList{"NoHay"});
    EXPECT_TRUE(p.ui.ended);
    EXPECT_FALSE(ventana.isVisible());
}

TEST_F(Ventanas, LoginKeys)
{
    Programa p(base.folder());
    auto &ventana = p.ventana;
    Guion guion;
    QList<int> filas;
    guion.luego("form4", [&](QWidget *w) {
        auto *lista = hijo<QListWidget>(w, "List1");
        auto *campo = hijo<QLineEdit>(w, "Clave");
        for (int k : {Qt::Key_Down, Qt::Key_Up}) {
            tecla(campo, k);
            filas << lista->currentRow();
        }
        tecla(campo, Qt::Key_Escape);
    });
    ventana.mostrar();
    EXPECT_EQ(filas, QList<int>({1, 0}));
    EXPECT_TRUE(p.ui.messages.empty());
    EXPECT_EQ(p.s.Usuario_Numero, 0);
    EXPECT_TRUE(p.ui.ended); // nobody logged in
    EXPECT_TRUE(ventana.modelo().Terminado);
}

TEST_F(Ventanas, NewUserSettingsComeBackAfterARestart)
{
    {
        Programa p(base.folder());
        auto &ventana = p.ventana;
        Guion guion;
        guion.luego("form4", [](QWidget *w) { hijo<QPushButton>(w, "nuevo_usuario")->click(); });
        guion.luego("NewUser", [](QWidget *w) {
            hijo<QLineEdit>(w, "NOMBRE")->setText("marta");
            hijo<QLineEdit>(w, "Clave1")->setText("m1234");
            hijo<QLineEdit>(w, "Clave2")->setText("m1234");
            hijo<QPushButton>(w, "Aceptar")->click();
        });
        guion.luego("form4", entrar("marta", "m1234"));
        ventana.mostrar();
        // What the login decides is the model's: here its forms come first, once, and the settings show.
        ASSERT_EQ(guion.vistas, QStringList({"form4", "NewUser", "form4"}));
        ASSERT_EQ(p.s.Nombre_Usuario, "marta");
        EXPECT_TRUE(ventana.isVisible());
        EXPECT_EQ(hijo<QLabel>(&ventana, "Version")->text(), QStringLiteral("Tesorel 2.007 - Revisión 0"));
        EXPECT_EQ(hijo<QComboBox>(&ventana, "Valores")->currentIndex(), 0); // a new user: "Todos"

        hijo<QCheckBox>(&ventana, "Check2_3")->click();
        hijo<QCheckBox>(&ventana, "Check2_5")->click();
        hijo<QCheckBox>(&ventana, "MostrarOperaciones")->click();
        auto *valores = hijo<QComboBox>(&ventana, "Valores");
        valores->setCurrentIndex(1);
        emit valores->activated(1);
        hijo<QTabBar>(&ventana, QStringLiteral("Pestañas"))->setCurrentIndex(4); // "Momentum"
        ventana.close();
        EXPECT_TRUE(p.ui.messages.empty());
    }
    Programa p(base.folder());
    auto &ventana = p.ventana;
    Guion guion;
    guion.luego("form4", entrar("marta", "m1234"));
    ventana.mostrar();
    EXPECT_EQ(ventana.modelo().grabar_configuracion(), "001011201");
    EXPECT_TRUE(hijo<QCheckBox>(&ventana, "Check2_3")->isChecked());
    EXPECT_FALSE(hijo<QCheckBox>(&ventana, "Check2_4")->isChecked());
    EXPECT_TRUE(hijo<QCheckBox>(&ventana, "Check2_5")->isChecked());
    EXPECT_TRUE(hijo<QCheckBox>(&ventana, "MostrarOperaciones")->isChecked());
    EXPECT_EQ(hijo<QComboBox>(&ventana, "Valores")->currentText(), "Ibex");
    ventana.close();
}

} // namespace
