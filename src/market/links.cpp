#include "market/links.h"

#include "store/helpers.h"
#include "store/session.h"
#include "store/ui.h"

namespace tesorel
{

QString Enlace_Direccion(const QString &campo)
{
    QString direccion;
    bool dentro = false;
    for (const QChar c : campo) {
        if (c == QLatin1Char('#'))
            dentro = true;
        else if (dentro)
            direccion += c;
    }
    return direccion;
}

EnlacesValor Calcular_Enlaces(Session &s, double codigo)
{
    EnlacesValor e;
    s.paso([&] { e.direccionWeb = Enlace_Direccion(Web_Empresa(s, codigo)); });
    s.paso([&] { e.direccionLaBolsa = Url_La_Bolsa(s, codigo); });
    e.laWEB = !e.direccionWeb.isEmpty();
    e.BolsaMadrid = !e.direccionLaBolsa.isEmpty();
    e.Invertia = !s.Codigo_Invertia.isEmpty();
    return e;
}

// A browser that does not start is not reported.
void laWEB_Click(Session &s, const EnlacesValor &enlaces)
{
    s.ui.OpenUrl(enlaces.direccionWeb);
}

void BolsaMadrid_Click(Session &s, const EnlacesValor &enlaces)
{
    s.ui.OpenUrl(enlaces.direccionLaBolsa);
}

void Invertia_Click(Session &s, const AjustesEnlaces &ajustes)
{
    s.ui.OpenUrl(ajustes.hostInvertia + "/empresas/empresa.asp?idtel=" + s.Codigo_Invertia);
}

void titular_Click(Session &s, const AjustesEnlaces &ajustes)
{
    s.ui.OpenUrl(ajustes.webPrograma);
}

void Sugiere_Click(Session &s, const AjustesEnlaces &ajustes)
{
    s.ui.OpenUrl("mailto:" + ajustes.correoSugerencias);
}

} // namespace tesorel
