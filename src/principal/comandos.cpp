#include "principal/comandos.h"

namespace tesorel
{

namespace
{
// Controls that lead to the same window or routine.
const QHash<QString, QString> &alias()
{
    static const QHash<QString, QString> tabla{
        {"boton_Comprar", "Comprar"},
        {"menu_comprar", "Comprar"},
        {"menu_popup_Comprar", "Comprar"},
        {"boton_Vender", "Vender"},
        {"menu_vender", "Vender"},
        {"menu_popup_vender", "Vender"},
        {"bCartera", "cartera11"},
        {"boton_cotizaciones", "Cotizaciones"},
        {"menu_cotizaciones", "Cotizaciones"},
        {"boton_Importar", "Importinet"},
        {"menu_importa", "Importinet"},
        {"menu_importar", "Importinet"},
        {"CorregirCotizaciones", "DepuraCotiza"},
        {"acerca_de", "acercade"},
        {"menu_popup_add", "menu_add_faboritos"},
        {"menu_popup_quitar", "menu_quitar_faboritos"},
        {"boton_siguiente", "SiguienteCategoria"},
        {"boton_anterior", "AnteriorCategoria"},
        {"menu_todos", "todos"},
        {"menu_massuben", "LosqueSuben"},
        {"menu_ibex", "ibex"},
        {"menu_ENcartera", "Cartera"},
        {"menu_seguimiento", "faboritos"},
    };
    return tabla;
}
} // namespace

void Comandos::registrarConResultado(const QString &nombre, Manejador manejador)
{
    manejadores_.insert(nombre, std::move(manejador));
}

void Comandos::registrar(const QString &nombre, std::function<void()> manejador)
{
    manejadores_.insert(nombre, [m = std::move(manejador)] {
        m();
        return QVariant();
    });
}

bool Comandos::registrado(const QString &nombre) const
{
    return manejadores_.contains(comandoDe(nombre));
}

QString Comandos::comandoDe(const QString &control)
{
    return alias().value(control, control);
}

QVariant Comandos::ejecutar(const QString &controlOComando) const
{
    const auto it = manejadores_.constFind(comandoDe(controlOComando));
    if (it == manejadores_.constEnd() || !*it)
        return {};
    return (*it)();
}

} // namespace tesorel
