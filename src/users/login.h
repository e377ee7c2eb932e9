#pragma once
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

namespace tesorel
{

class Session;
class Recordset;

// Rows of Usuario that hold remembered login choices instead of a user,
// told apart by their password.
inline const QString ClaveUsuarioPredeterminado = QStringLiteral("738nomlib2");
inline const QString ClavePredeterminada = QStringLiteral("sinllav627");

// The login window.
class form4
{
  public:
    enum class Tecla { Return, Escape, Arriba, Abajo, Otra };

    // `ponerConfiguracion` receives the user's packed settings (the main
    // window's hidden Configuracion); `mostrarNewUser` shows that window modally.
    form4(Session &s, std::function<void(const QString &)> ponerConfiguracion,
          std::function<void()> mostrarNewUser = {});
    ~form4();

    QStringList List1;
    int List1_ListIndex = -1;
    QString Clave;
    int Check1 = 1; // "Permitir conexión a internet"
    bool ClaveConFoco = false;
    bool Descargado = false; // the window has unloaded itself

    QString nombreElegido() const;

    void Form_Load();
    void Listar();
    void Entrar_Click();
    void Clave_KeyDown(Tecla tecla);
    void List1_Click();
    void Check1_Click();
    void PredeUser_Click();
    void Label1_Click();
    void nuevo_usuario_Click();

  private:
    void predeterminar(const QString &clave, const QString &nombre);

    Session &s_;
    std::function<void(const QString &)> ponerConfiguracion_;
    std::function<void()> mostrarNewUser_;
    std::unique_ptr<Recordset> usuarios_;
};

// Adding a user.
class NewUser
{
  public:
    explicit NewUser(Session &s) : s_(s) {}
    QString NOMBRE, Clave1, Clave2;
    bool Descargado = false;

    void Aceptar_Click();
    void Cancelar_Click() { Descargado = true; }

  private:
    Session &s_;
};

// A mail provider that Combo1 of DatosUsuario knows. The installation's
// default is Yahoo's Spanish service.
struct ProveedorCorreo {
    QString nombre = QStringLiteral("Yahoo.es");
    QString servidorPop = QStringLiteral("pop.correo.yahoo.es");
    QString servidorSmtp = QStringLiteral("smtp.correo.yahoo.es");
    QString dominio = QStringLiteral("yahoo.es");
};

// The user's mail settings.
class DatosUsuario
{
  public:
    DatosUsuario(Session &s, ProveedorCorreo proveedor = {}) : s_(s), proveedor_(std::move(proveedor)) {}
    static inline const QString Caption = QStringLiteral("  Datos Correo Usuario... DCU.");

    QString NOMBRE, Direccion, email, Poblacion, CodigoPost;
    QStringList Combo1;
    bool Descargado = false;

    void Form_Load();
    void Aceptar_Click();
    void Cancelar_Click() { Descargado = true; }
    void Combo1_Click(const QString &elegido);

  private:
    Session &s_;
    ProveedorCorreo proveedor_;
};

} // namespace tesorel
