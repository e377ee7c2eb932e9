#include "store/session.h"

#include "store/database.h"
#include "store/recordset.h"
#include "store/ui.h"
#include "store/usuario.h"

namespace tesorel
{

namespace
{
QString fold(const QString &text)
{
    return text.toCaseFolded();
}
} // namespace

void IndiceEmpresas::clear()
{
    filas.clear();
    porCodigo.clear();
    porNombre.clear();
    porAbreviatura11.clear();
    porAbreviatura3.clear();
    ultima = -1;
}

void IndiceEmpresas::add(const Empresa &e)
{
    const int row = static_cast<int>(filas.size());
    filas.push_back(e);
    // The first row in table order wins, as a search from the top finds it.
    porCodigo.insert(static_cast<qint64>(e.codigo), row);
    if (!e.nombre.isEmpty() && !porNombre.contains(fold(e.nombre)))
        porNombre.insert(fold(e.nombre), row);
    if (!e.abreviatura11.isEmpty() && !porAbreviatura11.contains(fold(e.abreviatura11)))
        porAbreviatura11.insert(fold(e.abreviatura11), row);
    if (!e.abreviatura3.isEmpty() && !porAbreviatura3.contains(fold(e.abreviatura3)))
        porAbreviatura3.insert(fold(e.abreviatura3), row);
}

int IndiceEmpresas::buscar(const QHash<QString, int> &index, const QString &key)
{
    ultima = index.value(fold(key), -1);
    return ultima;
}

int IndiceEmpresas::buscarCodigo(double code)
{
    const qint64 whole = static_cast<qint64>(code);
    ultima = (static_cast<double>(whole) == code) ? porCodigo.value(whole, -1) : -1;
    return ultima;
}

Session::Session(Ui &ui_, const QString &carpetaAplicacion) : ui(ui_)
{
    carpeta = carpetaAplicacion;
}

Session::~Session() = default;

void Session::abrirBase(const QString &path)
{
    Base_Datos = Database::open(path.isEmpty() ? carpeta + "/base1.mdb" : path);
}

void Session::Registrar_Error(const RuntimeError &error)
{
    if (alRegistrarError)
        alRegistrarError(error);
    errores.registrar(ui, carpeta, Ubicacion_Error, error);
}

void Session::Registrar_Error(const std::exception &error)
{
    if (auto *runtime = dynamic_cast<const RuntimeError *>(&error))
        Registrar_Error(*runtime);
    else
        Registrar_Error(RuntimeError(err::EngineError, QString::fromUtf8(error.what())));
}

void Session::reportSafely(const RuntimeError &e) noexcept
{
    try {
        Registrar_Error(e);
    } catch (...) {
        // The routine itself failing must not take the program down.
    }
}

} // namespace tesorel
