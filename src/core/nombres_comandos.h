#pragma once
// The names of the main window's commands and of the controls that lead to
// them, in one place. The window names its buttons and menu entries with the
// control names, the alias table (comandos.cpp) maps each control to its
// command, and the windows register themselves under the command names.
// Write "Comprar" through comando::Comprar, never as a literal.

namespace tesorel
{

namespace comando
{
// No command: the entry has no handler and does nothing by design.
inline constexpr char Ninguno[] = "";

// Windows that the main window opens.
inline constexpr char Comprar[] = "Comprar";
inline constexpr char Vender[] = "Vender";
inline constexpr char cartera11[] = "cartera11";
inline constexpr char Cotizaciones[] = "Cotizaciones";
inline constexpr char Importinet[] = "Importinet";
inline constexpr char DepuraCotiza[] = "DepuraCotiza";
inline constexpr char AddEmpresa[] = "AddEmpresa";
inline constexpr char acercade[] = "acercade";
inline constexpr char form4[] = "form4";
inline constexpr char NoHay[] = "NoHay";
inline constexpr char DatosUsuario[] = "DatosUsuario";

// Windows that other windows open.
inline constexpr char ModifCartera[] = "ModifCartera";
inline constexpr char Historico[] = "Historico";
inline constexpr char operadoresform[] = "operadoresform";
inline constexpr char Importar[] = "Importar";
inline constexpr char ImportCorreo[] = "ImportCorreo";
inline constexpr char ImportarOp[] = "ImportarOp";

// The lists and their categories.
inline constexpr char todos[] = "todos";
inline constexpr char ibex[] = "ibex";
inline constexpr char Cartera[] = "Cartera";
inline constexpr char faboritos[] = "faboritos";
inline constexpr char LosqueSuben[] = "LosqueSuben";
inline constexpr char SiguienteCategoria[] = "SiguienteCategoria";
inline constexpr char AnteriorCategoria[] = "AnteriorCategoria";
inline constexpr char menu_categorias_Globales[] = "menu_categorias_Globales";
inline constexpr char menu_categorias_personales[] = "menu_categorias_personales";

// Favourites, notes and links of the value on show.
inline constexpr char menu_add_faboritos[] = "menu_add_faboritos";
inline constexpr char menu_quitar_faboritos[] = "menu_quitar_faboritos";
inline constexpr char Boton_Favorito[] = "Boton_Favorito";
inline constexpr char PonerQuitarF[] = "PonerQuitarF";
inline constexpr char CargarComentario[] = "CargarComentario";
inline constexpr char GrabarComentario[] = "GrabarComentario";
inline constexpr char laWEB[] = "laWEB";
inline constexpr char BolsaMadrid[] = "BolsaMadrid";
inline constexpr char Invertia[] = "Invertia";
inline constexpr char titular[] = "titular";
inline constexpr char Sugiere[] = "Sugiere";

// The charts, the tabs and the news.
inline constexpr char DefinirGraficas[] = "DefinirGraficas";
inline constexpr char DibujarGrafica[] = "DibujarGrafica";
inline constexpr char Generar_Serie_Cartera[] = "Generar_Serie_Cartera";
inline constexpr char VerOperaciones[] = "VerOperaciones";
inline constexpr char QuitarVerOperaciones[] = "QuitarVerOperaciones";
inline constexpr char Lupa_Mas[] = "Lupa_Mas";
inline constexpr char Lupa_menos[] = "Lupa_menos";
inline constexpr char Yahoo[] = "Yahoo";
} // namespace comando

// The main window's buttons and menu entries by their control names.
namespace control
{
inline constexpr char boton_Comprar[] = "boton_Comprar";
inline constexpr char boton_Vender[] = "boton_Vender";
inline constexpr char bCartera[] = "bCartera";
inline constexpr char boton_cotizaciones[] = "boton_cotizaciones";
inline constexpr char boton_Importar[] = "boton_Importar";
inline constexpr char boton_siguiente[] = "boton_siguiente";
inline constexpr char boton_anterior[] = "boton_anterior";
inline constexpr char Boton_Favorito[] = "Boton_Favorito";
inline constexpr char CorregirCotizaciones[] = "CorregirCotizaciones";
inline constexpr char acerca_de[] = "acerca_de";
inline constexpr char Sugiere[] = "Sugiere";
inline constexpr char titular[] = "titular";
inline constexpr char laWEB[] = "laWEB";
inline constexpr char BolsaMadrid[] = "BolsaMadrid";
inline constexpr char Invertia[] = "Invertia";
inline constexpr char cerrar[] = "cerrar";
inline constexpr char minimizar[] = "minimizar";
inline constexpr char Yahoo[] = "Yahoo";
inline constexpr char Yahoono[] = "Yahoono";
inline constexpr char Lupa_Mas[] = "Lupa_Mas";
inline constexpr char Lupa_menos[] = "Lupa_menos";

// Menu entries, menu by menu in their order.
inline constexpr char menu_importa[] = "menu_importa";
inline constexpr char Menu_salir[] = "Menu_salir";
inline constexpr char menu_cotizaciones_base[] = "menu_cotizaciones_base";
inline constexpr char menu_cotizaciones[] = "menu_cotizaciones";
inline constexpr char menu_intervalo[] = "menu_intervalo";
inline constexpr char menu_importar[] = "menu_importar";
inline constexpr char menu_explorar[] = "menu_explorar";
inline constexpr char menu_encierra[] = "menu_encierra";
inline constexpr char menu_todos[] = "menu_todos";
inline constexpr char menu_massuben[] = "menu_massuben";
inline constexpr char menu_ibex[] = "menu_ibex";
inline constexpr char menu_ENcartera[] = "menu_ENcartera";
inline constexpr char menu_seguimiento[] = "menu_seguimiento";
inline constexpr char menu_categorias_personales[] = "menu_categorias_personales";
inline constexpr char menu_categorias_Globales[] = "menu_categorias_Globales";
inline constexpr char menu_config[] = "menu_config";
inline constexpr char menu_Litado[] = "menu_Litado";
inline constexpr char Menu_Cartera[] = "Menu_Cartera";
inline constexpr char Menu_Cartera_2[] = "Menu_Cartera_2";
inline constexpr char menu_historico[] = "menu_historico";
inline constexpr char menu_comprar[] = "menu_comprar";
inline constexpr char menu_vender[] = "menu_vender";
inline constexpr char menu_config2[] = "menu_config2";
inline constexpr char menu_config_faboritos[] = "menu_config_faboritos";
inline constexpr char menu_add_faboritos[] = "menu_add_faboritos";
inline constexpr char menu_quitar_faboritos[] = "menu_quitar_faboritos";
inline constexpr char menu_sabia[] = "menu_sabia";
inline constexpr char menu_acerca[] = "menu_acerca";
inline constexpr char menu_grafico[] = "menu_grafico";
inline constexpr char menu_ampliar[] = "menu_ampliar";
inline constexpr char menu_popup_Comprar[] = "menu_popup_Comprar";
inline constexpr char menu_popup_vender[] = "menu_popup_vender";
inline constexpr char menu_popup_add[] = "menu_popup_add";
inline constexpr char menu_popup_quitar[] = "menu_popup_quitar";
} // namespace control

} // namespace tesorel
