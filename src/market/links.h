#pragma once
#include <QString>

namespace tesorel
{

class Session;

// Where the links of a value and of the program point. They are settings:
// the desktop program keeps these defaults, tests point them at loopback.
struct AjustesEnlaces {
    QString hostInvertia = QStringLiteral("https://www.invertia.com");    // the Invertia site
    QString webPrograma = QStringLiteral("https://www.tesorel.es");       // the `titular` label
    QString correoSugerencias = QStringLiteral("sugerencias@tesorel.es"); // the `Sugiere` label
};

// The link labels of the value on show: their addresses and whether each is shown.
struct EnlacesValor {
    QString direccionWeb;     // the company's own site, out of its hyperlink field
    QString direccionLaBolsa; // the value at the La Bolsa site
    bool laWEB = false;
    bool BolsaMadrid = false;
    bool Invertia = false;
};

// The address out of a hyperlink field stored as display text "#" address
// "#": every character after the first "#", leaving out every later "#".
// A text without "#" has no address. (Named apart from the control `Enlace`.)
QString Enlace_Direccion(const QString &campo);

// Works out the three links of a value and which of them are shown. The
// Invertia link follows the identifier that the last Codigo_De left.
EnlacesValor Calcular_Enlaces(Session &s, double codigo);

// The clicks of the link labels, handed to the desktop.
void laWEB_Click(Session &s, const EnlacesValor &enlaces);
void BolsaMadrid_Click(Session &s, const EnlacesValor &enlaces);
void Invertia_Click(Session &s, const AjustesEnlaces &ajustes);
void titular_Click(Session &s, const AjustesEnlaces &ajustes);
void Sugiere_Click(Session &s, const AjustesEnlaces &ajustes);

} // namespace tesorel
