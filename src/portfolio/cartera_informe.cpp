// The portfolio report: a copy of the window's grid and totals, in the
// currency and order on show, not a reading of the base.
#include "core/dates.h"
#include "core/format.h"
#include "core/numbers.h"
#include "portfolio/cartera_valoracion.h"
#include "portfolio/informe_html.h"
#include "store/session.h"
#include "store/ui.h"

namespace tesorel
{

namespace
{

void escribirInforme(Session &s, InformeHtml &f, const cartera11 &v)
{
    aperturaInforme(f);
    f.linea(QStringLiteral("<P><FONT SIZE=\"2\">Cartera : ") + s.Nombre_Usuario + QStringLiteral(" a ") +
            Format(s.Hoy(), QStringLiteral("dd/mm/yyyy")) + QStringLiteral("&nbsp;</FONT></P>"));
    aperturaTabla(f);
    static const std::pair<const char *, const char *> cabeceras[] = {
        {"Fecha Compra", "10%"},
        {"T&iacute;tulos", "4%"},
        {"Valor", "16%"},
        {"% Cartera", "8%"},
        {"P. Compra", "8%"},
        {"&Uacute;ltimo", "8%"},
        {"Coste Inversi&oacute;n", "10%"},
        {"Valor actual", "10%"},
        {"Beneficio", "10%"},
        {"%", "8%"},
    };
    for (const auto &[texto, ancho] : cabeceras)
        Cabecera(f, QString::fromLatin1(texto), QString::fromLatin1(ancho));
    f.linea(QStringLiteral("</TR>"));
    for (size_t i = 0; i < v.cartera1.size() && i < v.filas.size(); ++i) {
        const FilaCartera &fila = v.filas[i];
        f.linea(QStringLiteral("<TR>"));
        // A cell that fails (a row without a date) is left out and reported.
        s.paso([&] {
            celda(f, Celda::Fecha, Format(CDate(fila.FechaCompra.trimmed()), QStringLiteral("dd/mm/yy")));
        });
        celda(f, Celda::Derecha, fila.Titulos);
        celda(f, Celda::Texto, fila.Valor);
        celda(f, Celda::Tanto, fila.TantoCartera);
        for (const QString *t : {&fila.PrecioCompra, &fila.Ultimo, &fila.CosteInversion, &fila.ValorActual,
                                 &fila.Beneficio, &fila.TantoGanancia})
            celda(f, Celda::Numero, *t);
        f.linea(QStringLiteral("</TR>"));
    }
    f.linea(QStringLiteral(" </TABLE><P>"));
    f.linea(QStringLiteral("<TABLE ALIGN \"CENTER\" FRAME=\"BORDER\" CELLSPACING=\"0\" CELLPADDING=\"1\" "
                           "WIDTH=\"55%\" BORDER=\"1\">"));
    f.linea(QStringLiteral("<TR>"));
    Cabecera(f, QStringLiteral("Coste Inversi&oacute;n"), QStringLiteral("10%"));
    Cabecera(f, QStringLiteral("Valor Actual"), QStringLiteral("10%"));
    Cabecera(f,
             Numero_Cdbl(v.Label1_800.trimmed()) >= 0 ? QStringLiteral("Plusvalias Latentes")
                                                      : QStringLiteral("Minusvalias Latentes"),
             QStringLiteral("10%"));
    Cabecera(f, QStringLiteral("% "), QStringLiteral("8%"));
    f.linea(QStringLiteral("</TR>"));
    f.linea(QStringLiteral("<TR>"));
    for (const QString *t : {&v.Label1_1300, &v.Label1_1400, &v.Label1_800, &v.Label1_700})
        celda(f, Celda::Numero, *t);
    f.linea(QStringLiteral("</TR>"));
    f.linea(QStringLiteral("</TABLE></BODY></HTML>"));
}

} // namespace

void cartera11::informeHtml(const QString &ruta, bool abrir)
{
    InformeHtml f;
    s_.paso([&] { f.abrir(ruta); });
    s_.paso([&] { escribirInforme(s_, f, *this); });
    f.cerrar();
    if (abrir)
        s_.paso([&] { s_.ui.OpenUrl(ruta); });
}

void cartera11::html_Click()
{
    informeHtml(s_.carpeta + QStringLiteral("/cartera.htm"), true);
}

} // namespace tesorel
