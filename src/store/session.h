#pragma once
#include <QDate>
#include <QHash>
#include <QString>
#include <array>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "core/runtime_error.h"
#include "store/error_routine.h"

namespace tesorel
{

class Database;
class Recordset;
class Ui;
class Usuario;

// One row of Codigo_Empresas as the lookups need it.
struct Empresa {
    double codigo = 0;
    QString nombre, abreviatura3, abreviatura11, invertia;
};

// The companies in memory, so that a lookup per list row costs a hash
// probe and not a search of the table. Rebuilt by Abrir_Empresas.
struct IndiceEmpresas {
    std::vector<Empresa> filas; // in table order
    QHash<qint64, int> porCodigo;
    QHash<QString, int> porNombre, porAbreviatura11, porAbreviatura3; // case-folded keys
    // The outcome of the last search, which a lookup of an unknown kind repeats.
    int ultima = -1;

    void clear();
    void add(const Empresa &e);
    // Searches and remembers the outcome; -1 when nothing matches.
    int buscar(const QHash<QString, int> &index, const QString &key);
    int buscarCodigo(double code);
};

// The logged-in user: its number and name, and the object that reads its
// interval and mail settings (made by the main window's Load).
struct UsuarioDeSesion {
    double Usuario_Numero = 0;
    std::unique_ptr<Usuario> Usuario_Sesion;
    QString Nombre_Usuario;
    double Maximo_Dias_Sesion = 0; // the days a chart shows
};

// The value on show and the days the windows work on.
struct ValorYFechas {
    QString Codigo_Invertia;
    QString Abreviatura_Actual;
    double Valor_Cartera_Edicion = 0;
    std::array<QDate, 2> Fechas_Serie; // last day of the portfolio series, last stored quote
    // The main window's "Logaritmica" tick, read by the chart scale.
    bool Logaritmica = false;

    // The machine's date wherever a window reads the clock; a fixed day
    // stands for it when set (the command line's --today, tests).
    std::optional<QDate> hoyFijo;
    QDate Hoy() const { return hoyFijo ? *hoyFijo : QDate::currentDate(); }
};

// Where a failure is reported: the mark of the step that runs, the routine
// that shows and files it, and who else is told.
struct EstadoDeErrores {
    double Ubicacion_Error = 0;
    ErrorRoutine errores;
    // Told of every failure reported, whether or not the routine shows its
    // dialog (the command line prints them all).
    std::function<void(const RuntimeError &)> alRegistrarError;
};

// What the program is set to: its folder, the connection, the hosts of the
// links and downloads (settings, never hard-wired in code).
struct AjustesDeSesion {
    QString carpeta; // the application folder: base, error.txt, tmp, mail
    bool Hay_Conexion = false;
    bool Permitir_Conexion = false;
    QString hostLaBolsa = "https://www.labolsa.com";
};

// All state that the windows share, in typed parts that a function can take
// alone when it needs no more (a report needs the errors, a link the
// settings): the user, the value and days, the error state and the settings,
// plus the open base and its companies. One per program; tests make as many
// as they like.
class Session : public UsuarioDeSesion, public ValorYFechas, public EstadoDeErrores, public AjustesDeSesion
{
  public:
    Session(Ui &ui, const QString &carpetaAplicacion);
    ~Session();
    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;

    Ui &ui;

    // The open base, its recordsets and the companies in memory.
    std::shared_ptr<Database> Base_Datos;
    std::unique_ptr<Recordset> Tabla_Empresas;
    std::unique_ptr<Recordset> Tabla_Actual;
    std::unique_ptr<Recordset> Fechas_rs, Usuario_Actual_rs, Historico_rs;
    IndiceEmpresas empresas;
    bool Examinar_Cancelado = false;

    // Reports a failure through the error routine with the current mark.
    void Registrar_Error(const RuntimeError &error);
    void Registrar_Error(const std::exception &error);

    // Runs one step of a procedure that goes on after a failure: a
    // failure is reported and the step is skipped. True when it ran.
    template <class Step> bool paso(Step &&step) noexcept
    {
        try {
            step();
            return true;
        } catch (const RuntimeError &e) {
            reportSafely(e);
        } catch (const std::exception &e) {
            reportSafely(RuntimeError(err::EngineError, QString::fromUtf8(e.what())));
        } catch (...) {
            reportSafely(RuntimeError(err::EngineError, QStringLiteral("Error desconocido")));
        }
        return false;
    }

    // Opens the base file of the application folder (or the one given).
    void abrirBase(const QString &path = {});

  private:
    void reportSafely(const RuntimeError &e) noexcept;
};

} // namespace tesorel
