#pragma once
// The windows that the main window opens through its commands. Each
// subsystem's forms register their commands in their own file, so that the
// main window does not depend on them and a new window touches only its own.

namespace tesorel
{

class Comandos;
class PrincipalWindow;
class Session;

// Buying, selling and the brokers (compraventa_ventanas.cpp).
void registrarVentanasCompraVenta(PrincipalWindow &principal, Session &s, Comandos &comandos);
// The ledger and its editor (historico_ventanas.cpp).
void registrarVentanasHistorico(PrincipalWindow &principal, Session &s, Comandos &comandos);
// The portfolio and its editor (cartera_ventanas.cpp).
void registrarVentanasCartera(PrincipalWindow &principal, Session &s, Comandos &comandos);
// Quote files and the company table (importacion_ventanas.cpp).
void registrarVentanasImportacion(PrincipalWindow &principal, Session &s, Comandos &comandos);
// Closing prices from the web (internet_ventanas.cpp).
void registrarVentanasInternet(PrincipalWindow &principal, Session &s, Comandos &comandos);
// Mail and broker statements (correo_ventanas.cpp).
void registrarVentanasCorreo(PrincipalWindow &principal, Session &s, Comandos &comandos);
// The quotes table (cotizaciones_ventana.cpp).
void registrarVentanaCotizaciones(PrincipalWindow &principal, Session &s, Comandos &comandos);
// The About window (acercade_ventana.cpp).
void registrarVentanaAcercade(PrincipalWindow &principal, Session &s, Comandos &comandos);

} // namespace tesorel
