#pragma once
// The program's colours, in one place for the charts, the models and the forms.

namespace tesorel::paleta
{

// Colours as the program stores and draws them: 24 bits, blue in the high byte.
inline constexpr int Negro = 0x000000;
inline constexpr int Blanco = 0xFFFFFF;
inline constexpr int AzulOscuro = 0x800000;  // the charts' colour 1
inline constexpr int VerdeOscuro = 0x008000; // the charts' colour 2; purchases and gains
inline constexpr int RojoOscuro = 0x000080;  // the charts' colour 4
inline constexpr int Granate = 0x0000C0;     // sales and losses
inline constexpr int Verde = 0x00FF00;       // the connection light, on
inline constexpr int Rojo = 0x0000FF;        // the connection light, off
inline constexpr int CuadriculaPrecio = 6332608;
inline constexpr int CuadriculaVolumen = 8437952;
inline constexpr int MarcaMes = 3158064; // added to the grid colour for the month marks
// The price chart's sets 1 to 8: close, high, low, first average, two unused,
// second average, the day's mean. The ticks under the chart wear them too.
inline constexpr int LineasPrecio[8] = {16719920, 1127423,  192,     6736930,
                                        16777215, 16777215, 4504439, 14729328};
inline constexpr int BarrasVolumen = 16724787;

// The forms' colours, as the style sheets name them ("@marca"), in the usual
// red-green-blue order of the sheets.
struct ColorDeFormulario {
    const char *nombre;
    unsigned rgb;
};
inline constexpr ColorDeFormulario Formularios[] = {
    {"marca", 0x16325c}, // headers, titles, selected rows
    {"marcaHover", 0x24477d},   {"texto", 0x1d2733},   {"fondo", 0xeef2f7},      {"panel", 0xdde5f0},
    {"blanco", 0xffffff},       {"borde", 0xc9d3e0},   {"bordePanel", 0xc3cfde}, {"bordeBoton", 0xb9c7da},
    {"bordeLista", 0xd3dce8},   {"resalte", 0xe6f0ff}, {"acento", 0x5b8bd6},     {"claroCabecera", 0xe8eef8},
    {"tenue", 0xbcd0ee},        {"gris", 0x6b7a8d},    {"oro", 0xffd37a},        {"filaPar", 0xeef3fa},
    {"pestanaTexto", 0x757575}, {"pestana", 0xe8ecf2}, {"vacio", 0xd8dde6},      {"enlace", 0xcfe0ff},
    {"cerrar", 0xc0392b},       {"baja", 0xb02a2a},    {"aviso", 0x8b0000},      {"repite", 0x333333},
    {"lleno", 0x2e7d32},        {"sube", 0x1b7a1b},    {"menuSel", 0x2d5699},    {"barra", 0x1f3f70},
};

} // namespace tesorel::paleta
