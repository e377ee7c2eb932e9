// tesorel-cli quotes: the quotes table of a day or an interval, as the
// window draws it, one line a row and the market's breadth at the end.
#include "cli_session.h"
#include "commands.h"

#include "core/runtime_error.h"
#include "market/cotizaciones.h"
#include "store/usuario.h"

#include <QHash>

namespace tesorel::cli
{

namespace
{

QDate diaIso(const QString &texto)
{
    return QDate::fromString(texto, Qt::ISODate);
}

int quotesCommand(const QStringList &args)
{
    const QHash<QString, int> pestanas{
        {"bolsa", 1}, {"ibex", 2}, {"cartera", 3}, {"seguimiento", 4}, {"valor", Cotizaciones::PestanaValor}};
    const QHash<QString, int> cabeceras{{"valor", 1}, {"dif", 4}, {"volumen", 5}, {"efect", 8}};
    Argumentos a;
    if (!a.leer(args, opcionesDeSesion({{"--date", 1},
                                        {"--interval", 2},
                                        {"--set", 1},
                                        {"--value", 1},
                                        {"--sort", 1},
                                        {"--asc", 0}})) ||
        a.libres.size() != 1)
        return usage();
    const QString set = a.valor("--set", "bolsa"), orden = a.valor("--sort", "valor");
    const QStringList intervalo = a.valores("--interval");
    const QDate dia = diaIso(a.valor("--date"));
    if (!pestanas.contains(set) || !cabeceras.contains(orden) || (a.tiene("--date") && !dia.isValid()) ||
        (a.tiene("--interval") &&
         (!diaIso(intervalo.value(0)).isValid() || !diaIso(intervalo.value(1)).isValid())))
        return usage();

    try {
        SesionCli sesion(a, a.libres[0]);
        Session &s = sesion.s();
        Cotizaciones c(s);
        c.Form_Load(a.valor("--value"));
        c.pestana_Click(pestanas.value(set));
        // The sort heading, then the direction: descending unless --asc.
        const int cabecera = cabeceras.value(orden);
        if (c.Option2 != cabecera) {
            c.Option2 = cabecera;
            c.Option2_Click(cabecera);
        }
        const int descendente = a.tiene("--asc") ? 0 : 1;
        if (c.Check1 != descendente) {
            c.Check1 = descendente;
            c.Check1_Click();
        }
        // The day as the timer would hand it over, or the interval of the menu.
        c.setText1(dia.isValid() ? dia.toString(QStringLiteral("dd-MM-yyyy")) : c.Fecha);
        if (a.tiene("--interval")) {
            s.Usuario_Sesion->setFechaInicial(diaIso(intervalo[0]));
            s.Usuario_Sesion->setFechaFinal(diaIso(intervalo[1]));
            c.menu_intervalo_Click();
        }
        for (const FilaCotizacion &f : c.filas) {
            if (!f.Visible)
                continue;
            QStringList celdas{f.SubeBaja, f.Valor,  f.Anterior, f.Ultimo,  f.Dif,
                               f.Volumen,  f.Maximo, f.minimo,   f.Efectivo};
            for (QString &celda : celdas)
                celda = celda.trimmed();
            imprimirLinea(celdas);
        }
        imprimirLinea({QStringLiteral("suben"), c.Suben.trimmed()});
        imprimirLinea({QStringLiteral("bajan"), c.Bajan.trimmed()});
        imprimirLinea({QStringLiteral("repiten"), c.Repiten.trimmed()});
    } catch (const RuntimeError &e) {
        return reportFailure(e.number(), e.description());
    }
    return kOk;
}

const CommandRegistration registro{{"quotes",
                                    "quotes BASE --user N [--date YYYY-MM-DD] [--interval FROM TO] "
                                    "[--set bolsa|ibex|cartera|seguimiento|valor] [--value NAME] [--sort "
                                    "valor|dif|volumen|efect] [--asc] [--today D]   "
                                    "the quotes table of a day or an interval",
                                    quotesCommand}};

} // namespace
} // namespace tesorel::cli
