#pragma once
// The windows that the main window opens through its commands. Each
// subsystem's forms register their commands in their own file, so that the
// main window does not depend on them and a new window touches only its own.

namespace tesorel
{

class Comandos;
class PrincipalWindow;
class Session;

// Buying, selling, brokers, the portfolio, the ledger (cartera_ventanas.cpp).
void registrarVentanasCartera(PrincipalWindow &principal, Session &s, Comandos &comandos);
// Quote files, web closes, mail, broker statements, companies (importacion_ventanas.cpp).
void registrarVentanasImportacion(PrincipalWindow &principal, Session &s, Comandos &comandos);
// The quotes table (cotizaciones_ventana.cpp).
void registrarVentanaCotizaciones(PrincipalWindow &principal, Session &s, Comandos &comandos);

} // namespace tesorel
