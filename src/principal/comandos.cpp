#include "principal/comandos.h"
#include "core/nombres_comandos.h"

namespace tesorel
{

namespace
{
// Each control of the main window and the command it runs. Controls that
// lead to the same window share one name; entries without a handler lead to
// no command, so that nothing registered later can give them one.
const QHash<QString, QString> &alias()
{
    using namespace comando;
    namespace c = control;
    static const QHash<QString, QString> tabla{
        {c::boton_Comprar, Comprar},
        {c::menu_comprar, Comprar},
        {c::menu_popup_Comprar, Comprar},
        {c::boton_Vender, Vender},
        {c::menu_vender, Vender},
        {c::menu_popup_vender, Vender},
        {c::bCartera, cartera11},
        {c::boton_cotizaciones, Cotizaciones},
        {c::menu_cotizaciones, Cotizaciones},
        {c::boton_Importar, Importinet},
        {c::menu_importa, Importinet},
        {c::menu_importar, Importinet},
        {c::CorregirCotizaciones, DepuraCotiza},
        {c::acerca_de, acercade},
        {c::menu_add_faboritos, menu_add_faboritos},
        {c::menu_quitar_faboritos, menu_quitar_faboritos},
        {c::menu_popup_add, menu_add_faboritos},
        {c::menu_popup_quitar, menu_quitar_faboritos},
        {c::Boton_Favorito, Boton_Favorito},
        {c::boton_siguiente, SiguienteCategoria},
        {c::boton_anterior, AnteriorCategoria},
        {c::menu_todos, todos},
        {c::menu_massuben, LosqueSuben},
        {c::menu_ibex, ibex},
        {c::menu_ENcartera, Cartera},
        {c::menu_seguimiento, faboritos},
        {c::menu_categorias_personales, menu_categorias_personales},
        {c::menu_categorias_Globales, menu_categorias_Globales},
        {c::laWEB, laWEB},
        {c::BolsaMadrid, BolsaMadrid},
        {c::Invertia, Invertia},
        {c::titular, titular},
        {c::Sugiere, Sugiere},
        {c::Yahoo, Yahoo},
        {c::Yahoono, Yahoo},
        {c::Lupa_Mas, Lupa_Mas},
        {c::Lupa_menos, Lupa_menos},
        // Entries without a handler.
        {c::menu_cotizaciones_base, Ninguno},
        {c::menu_intervalo, Ninguno},
        {c::menu_explorar, Ninguno},
        {c::menu_config, Ninguno},
        {c::menu_Litado, Ninguno},
        {c::Menu_Cartera, Ninguno},
        {c::Menu_Cartera_2, Ninguno},
        {c::menu_historico, Ninguno},
        {c::menu_config2, Ninguno},
        {c::menu_config_faboritos, Ninguno},
        {c::menu_sabia, Ninguno},
        {c::menu_acerca, Ninguno},
        {c::menu_grafico, Ninguno},
        {c::menu_ampliar, Ninguno},
    };
    return tabla;
}
} // namespace

void Comandos::registrarConResultado(const QString &nombre, Manejador manejador)
{
    if (nombre.isEmpty())
        return;
    manejadores_.insert(nombre, std::move(manejador));
}

void Comandos::registrar(const QString &nombre, std::function<void()> manejador)
{
    if (nombre.isEmpty())
        return;
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

QStringList Comandos::controles()
{
    return alias().keys();
}

QVariant Comandos::ejecutar(const QString &controlOComando) const
{
    const auto it = manejadores_.constFind(comandoDe(controlOComando));
    if (it == manejadores_.constEnd() || !*it)
        return {};
    return (*it)();
}

} // namespace tesorel
