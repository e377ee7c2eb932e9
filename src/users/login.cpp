#include "users/login.h"

#include "core/numbers.h"
#include "store/database.h"
#include "store/helpers.h"
#include "store/recordset.h"
#include "store/session.h"
#include "store/ui.h"

namespace tesorel
{

form4::form4(Session &s, std::function<void(const QString &)> ponerConfiguracion,
             std::function<void()> mostrarNewUser)
    : s_(s), ponerConfiguracion_(std::move(ponerConfiguracion)), mostrarNewUser_(std::move(mostrarNewUser))
{
}

form4::~form4() = default;

QString form4::nombreElegido() const
{
    return List1_ListIndex >= 0 && List1_ListIndex < List1.size() ? List1.at(List1_ListIndex) : QString();
}

void form4::Form_Load()
{
    Listar();
}

void form4::Listar()
{
    List1.clear();
    List1_ListIndex = -1;
    QString buscado;
    s_.paso([&] { usuarios_ = s_.Base_Datos->openRecordset("select * from Usuario"); });
    s_.paso([&] {
        if (!usuarios_)
            return;
        for (; !usuarios_->Eof(); usuarios_->MoveNext()) {
            const QString clave = Texto_Nulo(usuarios_->field("Password"));
            const QString nombre = Texto_Nulo(usuarios_->field("NOMBRE"));
            if (clave == ClaveUsuarioPredeterminado)
                buscado = nombre;
            else if (clave == ClavePredeterminada)
                Clave = nombre;
            else
                List1 << nombre;
        }
    });
    List1_ListIndex = List1.indexOf(buscado);
    if (List1_ListIndex < 0 && !List1.isEmpty())
        List1_ListIndex = 0;
}

void form4::Entrar_Click()
{
    // Names and passwords go into the criterion as typed: an apostrophe
    // breaks it, and the outcome of the last search stands.
    s_.paso(
        [&] { usuarios_->FindFirst("nombre = '" + nombreElegido() + "' AND password = '" + Clave + "'"); });
    bool sinUsuario = true;
    s_.paso([&] { sinUsuario = usuarios_->NoMatch(); });
    if (sinUsuario) {
        s_.ui.MsgBox(QStringLiteral("Clave incorrecta, intentelo de nuevo"), mb::Information,
                     QStringLiteral("Información"));
        return;
    }
    s_.paso([&] {
        const QString configuracion = Texto_Nulo(usuarios_->field("Configuracion"));
        if (ponerConfiguracion_)
            ponerConfiguracion_(configuracion);
    });
    s_.paso([&] { s_.Nombre_Usuario = nombreElegido(); });
    s_.paso([&] { s_.Usuario_Numero = usuarios_->field("clave").toDouble(); });
    s_.paso([&] {
        const QVariant dias = usuarios_->field("Maximo_dias");
        if (!dias.isValid())
            throw RuntimeError(err::InvalidUseOfNull, QStringLiteral("Uso no válido de Null"));
        s_.Maximo_Dias_Sesion = Numero_Val(dias.toString());
    });
    s_.paso([&] {
        auto rs = s_.Base_Datos->openRecordset("select * from Usuario_actual");
        rs->Edit();
        rs->setField("usuario_actual", s_.Usuario_Numero);
        rs->Update();
    });
    Descargado = true;
}

void form4::Clave_KeyDown(Tecla tecla)
{
    switch (tecla) {
    case Tecla::Return:
        Entrar_Click();
        break;
    case Tecla::Escape:
        Descargado = true;
        break;
    case Tecla::Arriba:
        if (List1_ListIndex > 0)
            --List1_ListIndex;
        break;
    case Tecla::Abajo:
        if (List1_ListIndex < List1.size() - 1)
            ++List1_ListIndex;
        break;
    case Tecla::Otra:
        break;
    }
}

void form4::List1_Click()
{
    ClaveConFoco = true;
}

void form4::Check1_Click()
{
    if (Check1 == 0) {
        s_.ui.MsgBox(QStringLiteral("Utilice un cortafuegos para inabilitar la conexión"), mb::Information,
                     QStringLiteral("Atención"));
        Check1 = 1;
    }
    s_.Permitir_Conexion = Check1 == 1;
}

void form4::predeterminar(const QString &clave, const QString &nombre)
{
    s_.paso([&] {
        usuarios_->FindFirst("password = '" + clave + "'");
        if (usuarios_->NoMatch()) {
            usuarios_->AddNew();
            usuarios_->setField("Password", clave);
        } else {
            usuarios_->Edit();
        }
        usuarios_->setField("NOMBRE", nombre);
        usuarios_->Update();
    });
}

void form4::PredeUser_Click()
{
    predeterminar(ClaveUsuarioPredeterminado, nombreElegido());
}

void form4::Label1_Click()
{
    predeterminar(ClavePredeterminada, Clave);
}

void form4::nuevo_usuario_Click()
{
    if (mostrarNewUser_)
        mostrarNewUser_();
    Listar();
}

void NewUser::Aceptar_Click()
{
    const QString atencion = QStringLiteral("Atención");
    bool existe = false;
    s_.paso([&] {
        s_.Tabla_Actual = s_.Base_Datos->openRecordset("select * from Usuario");
        s_.Tabla_Actual->FindFirst("nombre = '" + NOMBRE + "'");
        existe = !s_.Tabla_Actual->NoMatch();
    });
    if (existe) {
        s_.ui.MsgBox(QStringLiteral("Ya existe un usuario con ese nombre, intentelo de nuevo"),
                     mb::Information, atencion);
        return;
    }
    if (NOMBRE.size() < 2) {
        s_.ui.MsgBox(QStringLiteral("El nombre no tiene longitud suficiente"), mb::Information, atencion);
        return;
    }
    if (Clave1.size() < 4) {
        s_.ui.MsgBox(QStringLiteral("El clave no tiene longitud suficiente"), mb::Information, atencion);
        return;
    }
    if (Clave1 != Clave2) {
        s_.ui.MsgBox(QStringLiteral("La claves no coinciden. "), mb::Information, atencion);
        return;
    }
    s_.paso([&] {
        s_.Tabla_Actual->AddNew();
        s_.Tabla_Actual->setField("NOMBRE", NOMBRE);
        s_.Tabla_Actual->setField("Password", Clave1);
        s_.Tabla_Actual->Update();
    });
    Descargado = true;
}

void DatosUsuario::Form_Load()
{
    Combo1 = QStringList{QString(), proveedor_.nombre};
    s_.paso([&] {
        s_.Tabla_Actual = s_.Base_Datos->openRecordset("Select * from usuario where clave = " +
                                                       Numero_Sql(s_.Usuario_Numero));
    });
    s_.paso([&] { NOMBRE = Texto_Nulo(s_.Tabla_Actual->field("NOMBRE")); });
    s_.paso([&] { Direccion = Texto_Nulo(s_.Tabla_Actual->field("Direccion")); });
    s_.paso([&] { email = Texto_Nulo(s_.Tabla_Actual->field("email")); });
    s_.paso([&] { Poblacion = Texto_Nulo(s_.Tabla_Actual->field("Poblacion")); });
    s_.paso([&] { CodigoPost = Texto_Nulo(s_.Tabla_Actual->field("CodigoPost")); });
}

void DatosUsuario::Aceptar_Click()
{
    s_.paso([&] {
        s_.Tabla_Actual->Edit();
        s_.Tabla_Actual->setField("NOMBRE", NOMBRE);
        s_.Tabla_Actual->setField("Direccion", Direccion);
        s_.Tabla_Actual->setField("email", email);
        s_.Tabla_Actual->setField("Poblacion", Poblacion);
        s_.Tabla_Actual->setField("CodigoPost", CodigoPost);
        s_.Tabla_Actual->Update();
    });
    Descargado = true;
}

void DatosUsuario::Combo1_Click(const QString &elegido)
{
    if (elegido.isEmpty())
        return;
    if (elegido != proveedor_.nombre) {
        s_.ui.MsgBox(QStringLiteral("Opcion desconocida"), mb::Critical, QStringLiteral("Atencion"));
        return;
    }
    if (!email.contains(proveedor_.dominio)) {
        s_.ui.MsgBox(QStringLiteral("Formato de correo no reconocido."), mb::Critical,
                     QStringLiteral("Atención"));
        return;
    }
    Direccion = proveedor_.servidorPop;
    Poblacion = proveedor_.servidorSmtp;
    CodigoPost = email.left(email.indexOf('@'));
}

} // namespace tesorel
