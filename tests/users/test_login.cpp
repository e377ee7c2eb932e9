#include <gtest/gtest.h>

#include "store/database.h"
#include "store/recordset.h"
#include "store/session.h"
#include "store/ui.h"
#include "support/test_base.h"
#include "users/login.h"

using namespace tesorel;

namespace
{

struct LoginTest : ::testing::Test, tesorel::testing::SesionDePrueba {
    QString configuracion = "sin escribir";
    void usuarios(const QString &valores)
    {
        base.db->executeNative(
            "INSERT INTO Usuario (clave, NOMBRE, Password, Configuracion, Maximo_dias) VALUES " + valores);
    }
    std::unique_ptr<form4> abrir()
    {
        auto f = std::make_unique<form4>(s, [this](const QString &t) { configuracion = t; });
        f->Form_Load();
        return f;
    }
    QVariant usuarioActual()
    {
        return base.db->openRecordset("select * from Usuario_Actual")->field("USUARIO_ACTUAL");
    }
};

TEST_F(LoginTest, PresetRowsAreHiddenAndChooseUserAndPassword)
{
    struct Caso {
        QString filas;
        QStringList lista;
        int elegido;
        QString clave;
    } casos[] = {
        {"(1,'ana','a1','',0),(2,'luis','l2','',0)", {"ana", "luis"}, 0, ""},
        {"(1,'ana','a1','',0),(2,'luis','l2','',0),(3,'luis','738nomlib2',NULL,NULL),(4,'l2','sinllav627',"
         "NULL,NULL)",
         {"ana", "luis"},
         1,
         "l2"},
        // The remembered user is gone: the first entry.
        {"(1,'ana','a1','',0),(3,'pepe','738nomlib2',NULL,NULL)", {"ana"}, 0, ""},
        // A real user whose password is the marker is taken for the marker.
        {"(1,'ana','a1','',0),(2,'eva','738nomlib2','',0)", {"ana"}, 0, ""},
        {"(3,'pepe','738nomlib2',NULL,NULL)", {}, -1, ""},
    };
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.filas.toStdString());
        base.db->executeNative("DELETE FROM Usuario");
        usuarios(c.filas);
        auto f = abrir();
        EXPECT_EQ(f->List1, c.lista);
        EXPECT_EQ(f->List1_ListIndex, c.elegido);
        EXPECT_EQ(f->Clave, c.clave);
    }
}

TEST_F(LoginTest, RightPasswordStartsTheSession)
{
    usuarios("(1,'ana','a1','101',0),(2,'luis','l2','110103210',150)");
    auto f = abrir();
    f->List1_ListIndex = 1;
    f->Clave = "l2";
    f->Clave_KeyDown(form4::Tecla::Return);
    EXPECT_TRUE(f->Descargado);
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(configuracion, "110103210");
    EXPECT_EQ(s.Nombre_Usuario, "luis");
    EXPECT_EQ(s.Usuario_Numero, 2);
    EXPECT_EQ(s.Maximo_Dias_Sesion, 150);
    EXPECT_EQ(usuarioActual().toInt(), 2);
}

TEST_F(LoginTest, WrongPasswordOrEmptyListRefuses)
{
    struct Caso {
        QString filas, clave;
    } casos[] = {
        {"(1,'ana','a1','',0)", "a2"}, {"(1,'ana','a1','',0)", ""}, {"(5,'x','738nomlib2','',0)", "a1"}};
    for (const Caso &c : casos) {
        base.db->executeNative("DELETE FROM Usuario");
        usuarios(c.filas);
        ui.messages.clear();
        auto f = abrir();
        f->Clave = c.clave;
        f->Entrar_Click();
        EXPECT_FALSE(f->Descargado);
        ASSERT_EQ(ui.messages.size(), 1u);
        EXPECT_EQ(ui.messages[0].prompt, "Clave incorrecta, intentelo de nuevo");
        EXPECT_EQ(ui.messages[0].title, QStringLiteral("Información"));
        EXPECT_EQ(ui.messages[0].style, 64);
        EXPECT_EQ(s.Usuario_Numero, 0);
        EXPECT_EQ(configuracion, "sin escribir");
    }
}

TEST_F(LoginTest, ApostropheLeavesTheLastSearchStanding)
{
    usuarios("(1,'ana','a1','',0),(2,'luis','l2','',0)");
    auto f = abrir();
    f->Clave = "x";
    f->Entrar_Click(); // no match
    f->Clave = "l'2";
    f->Entrar_Click(); // the criterion fails; "no match" stands
    EXPECT_FALSE(f->Descargado);
    EXPECT_EQ(ui.messages.size(), 2u);
    EXPECT_EQ(s.Usuario_Numero, 0);
}

TEST_F(LoginTest, KeysMoveInTheListAndEscapeLeaves)
{
    usuarios("(1,'a','1111','',0),(2,'b','2222','',0),(3,'c','3333','',0)");
    auto f = abrir();
    using T = form4::Tecla;
    const std::pair<T, int> pasos[] = {{T::Arriba, 0}, {T::Abajo, 1},  {T::Abajo, 2},
                                       {T::Abajo, 2},  {T::Arriba, 1}, {T::Otra, 1}};
    for (const auto &[tecla, indice] : pasos) {
        f->Clave_KeyDown(tecla);
        EXPECT_EQ(f->List1_ListIndex, indice);
    }
    EXPECT_FALSE(f->Descargado);
    f->Clave_KeyDown(T::Escape);
    EXPECT_TRUE(f->Descargado);
    EXPECT_EQ(s.Usuario_Numero, 0);
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(LoginTest, InternetTickCannotStayOff)
{
    auto f = abrir();
    f->Check1 = 1;
    f->Check1_Click();
    EXPECT_TRUE(s.Permitir_Conexion);
    EXPECT_TRUE(ui.messages.empty());
    s.Permitir_Conexion = false;
    f->Check1 = 0;
    f->Check1_Click();
    EXPECT_EQ(f->Check1, 1);
    EXPECT_TRUE(s.Permitir_Conexion);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].prompt, QStringLiteral("Utilice un cortafuegos para inabilitar la conexión"));
    EXPECT_EQ(ui.messages[0].title, QStringLiteral("Atención"));
    EXPECT_EQ(ui.messages[0].style, 64);
}

TEST_F(LoginTest, PresettingIsRememberedForTheNextLogin)
{
    usuarios("(1,'ana','a1','',0),(2,'luis','l2','',0)");
    auto f = abrir();
    f->List1_ListIndex = 1;
    f->Clave = "l2";
    f->PredeUser_Click();
    f->Label1_Click();
    f->List1_ListIndex = 0; // a second time edits the same rows
    f->PredeUser_Click();
    f->List1_ListIndex = 1;
    f->PredeUser_Click();
    auto g = abrir();
    EXPECT_EQ(g->List1, QStringList({"ana", "luis"}));
    EXPECT_EQ(g->List1_ListIndex, 1);
    EXPECT_EQ(g->Clave, "l2");
    EXPECT_EQ(base.db->openRecordset("select count(*) as n from Usuario")->field("n").toInt(), 4);
    g->Entrar_Click();
    EXPECT_EQ(s.Usuario_Numero, 2);
}

TEST_F(LoginTest, NewUserRefusesInOrderAndAddsTheRow)
{
    usuarios("(1,'ana','a1','101',0)");
    struct Caso {
        QString nombre, clave1, clave2, mensaje;
    } casos[] = {
        // The existing name is told first, even with everything else wrong.
        {"ana", "x", "y", "Ya existe un usuario con ese nombre, intentelo de nuevo"},
        {"ANA", "x", "y", "Ya existe un usuario con ese nombre, intentelo de nuevo"},
        {"b", "x", "y", "El nombre no tiene longitud suficiente"},
        {"bo", "abc", "y", "El clave no tiene longitud suficiente"},
        {"bo", "abcd", "abce", "La claves no coinciden. "},
    };
    for (const Caso &c : casos) {
        ui.messages.clear();
        NewUser n(s);
        n.NOMBRE = c.nombre;
        n.Clave1 = c.clave1;
        n.Clave2 = c.clave2;
        n.Aceptar_Click();
        EXPECT_FALSE(n.Descargado);
        ASSERT_EQ(ui.messages.size(), 1u);
        EXPECT_EQ(ui.messages[0].prompt, c.mensaje);
        EXPECT_EQ(ui.messages[0].title, QStringLiteral("Atención"));
        EXPECT_EQ(ui.messages[0].style, 64);
    }
    ui.messages.clear();
    NewUser n(s);
    n.NOMBRE = "bo";
    n.Clave1 = n.Clave2 = "abcd";
    n.Aceptar_Click();
    EXPECT_TRUE(n.Descargado);
    EXPECT_TRUE(ui.messages.empty());
    auto rs = base.db->openRecordset("select * from Usuario where NOMBRE = 'bo'");
    ASSERT_FALSE(rs->Eof());
    EXPECT_EQ(rs->field("Password").toString(), "abcd");
    EXPECT_FALSE(rs->field("Configuracion").isValid());
    EXPECT_GT(rs->field("clave").toInt(), 1);
}

TEST_F(LoginTest, MailSettingsAndProviderAutofill)
{
    usuarios("(4,'eva','e1','',0)");
    s.Usuario_Numero = 4;
    ProveedorCorreo proveedor{"Correo.test", "pop.correo.test", "smtp.correo.test", "correo.test"};
    DatosUsuario d(s, proveedor);
    d.Form_Load();
    EXPECT_EQ(d.NOMBRE, "eva");
    EXPECT_EQ(d.Combo1, QStringList({"", "Correo.test"}));

    struct Caso {
        QString email, eleccion, mensaje, titulo;
        int estilo;
        QString pop;
    } casos[] = {
        {"eva@otro.es", "", "", "", 0, ""},
        {"eva@otro.es", "Correo.test", "Formato de correo no reconocido.", QStringLiteral("Atención"), 16,
         ""},
        {"eva@correo.test", "Yahoo.es", "Opcion desconocida", "Atencion", 16, ""},
        {"eva.g@correo.test", "Correo.test", "", "", 0, "pop.correo.test"},
    };
    for (const Caso &c : casos) {
        ui.messages.clear();
        d.email = c.email;
        d.Direccion.clear();
        d.Combo1_Click(c.eleccion);
        EXPECT_EQ(d.Direccion, c.pop);
        if (c.mensaje.isEmpty()) {
            EXPECT_TRUE(ui.messages.empty());
        } else {
            ASSERT_EQ(ui.messages.size(), 1u);
            EXPECT_EQ(ui.messages[0].prompt, c.mensaje);
            EXPECT_EQ(ui.messages[0].title, c.titulo);
            EXPECT_EQ(ui.messages[0].style, c.estilo);
        }
    }
    EXPECT_EQ(d.Poblacion, "smtp.correo.test");
    EXPECT_EQ(d.CodigoPost, "eva.g");
    d.Aceptar_Click();
    EXPECT_TRUE(d.Descargado);
    auto rs = base.db->openRecordset("select * from Usuario where clave = 4");
    EXPECT_EQ(rs->field("Direccion").toString(), "pop.correo.test");
    EXPECT_EQ(rs->field("CodigoPost").toString(), "eva.g");
    EXPECT_EQ(rs->field("email").toString(), "eva.g@correo.test");
}

} // namespace
