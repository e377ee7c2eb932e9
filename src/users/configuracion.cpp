#include "users/configuracion.h"

#include "core/numbers.h"

namespace tesorel
{

namespace
{
int digito(const QString &texto, int posicion)
{
    return static_cast<int>(Numero_Val(texto.mid(posicion - 1, 1)));
}
// A tick box takes 0, 1 or 2 (greyed); any other value is refused and the
// box keeps what it had.
void ponerTick(int &tick, int valor)
{
    if (valor >= 0 && valor <= 2)
        tick = valor;
}
} // namespace

void Cargar_configuracion(ConfiguracionVentana &c, const QString &texto,
                          const std::function<void()> &alCambiarValores, const std::function<void()> &dibujar)
{
    c.Cargando = true;
    for (int i = 1; i <= 5; ++i)
        ponerTick(c.Check2[i], digito(texto, i));
    // The combo has four entries; an index past them is refused.
    const int lista = digito(texto, 6);
    if (lista >= 0 && lista <= 3) {
        c.Valores = lista;
        if (alCambiarValores)
            alCambiarValores();
    }
    c.Indicador_Actual = QString::number(digito(texto, 7));
    ponerTick(c.Candle, digito(texto, 8));
    ponerTick(c.MostrarOperaciones, digito(texto, 9));
    c.Cargando = false;
    if (dibujar)
        dibujar();
}

QString grabar_configuracion(const ConfiguracionVentana &c)
{
    QString texto;
    for (int i = 1; i <= 5; ++i)
        texto += QString::number(c.Check2[i]).trimmed();
    texto += c.Valores >= 0 ? QString::number(c.Valores) : QStringLiteral("0");
    texto += c.Indicador_Actual;
    texto += QString::number(c.Candle) + QString::number(c.MostrarOperaciones);
    return texto;
}

} // namespace tesorel
