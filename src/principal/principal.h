#pragma once
#include <QDate>
#include <QString>
#include <QStringList>
#include <array>
#include <memory>

#include "market/market_browser.h"
#include "users/configuracion.h"

namespace tesorel
{

class Comandos;
class Session;

// The main window without its widgets: the start-up and the closing of the
// session, the network indicator, the configuration panel and the tab strip.
// The left side (lists, the value on show, search, note, favourite button,
// links) is the market browser it owns; the chart and the other windows are
// reached through the commands.
class Principal
{
  public:
    // `rutaBase` is the base file; empty means base1.mdb in the application folder.
    Principal(Session &s, Comandos &comandos, QString rutaBase = {});
    ~Principal();

    static const QStringList Pestanas_Caption; // the nine tabs, by index
    static const QStringList Valores_Entradas; // the lists of the combo
    static const QString NoHay_Caption, NoHay_Mensaje, NoHay_EtiquetaDirectorio, NoHay_Donde;

    // The left side of the window: the one place where the list, the value
    // on show and its links live.
    NavegadorValores mercado;

    // Controls, by name.
    QString Configuracion; // the packed settings between the login and the window
    QString Titulo, Version, LabelOnline, Pesta;
    int IndicadorOnline_BackColor = 255;
    bool Yahoo_Visible = false, Yahoono_Visible = false, YahooNoticias_Visible = false;
    bool Noticias_Visible = true, Incidecaption_Visible = true;
    ConfiguracionVentana config; // Check2, Valores, Indicador_Actual, Candle, MostrarOperaciones
    int Logaritmica = 0;
    int Splita = 0;
    std::array<QString, 3> Mediat{QString(), QStringLiteral("30"), QStringLiteral("9")};
    bool Timer1_Enabled = true;
    int pestanaAbierta = -1;

    // Members that other windows reach.
    const QString &Text1() const { return mercado.seleccion.Text1(); } // the value on show (its NOMBRE)
    double Codigo_Valor() const { return mercado.seleccion.Codigo_Valor; }
    const QString &Sql_Lista() const { return mercado.lista.Sql_Lista; }
    double Primera_Activacion_Hecha = 0;

    bool Terminado = false; // the program has been ended
    QString carpetaNoHay() const;

    // Events.
    void Form_Load();
    void Form_Activate();
    void Form_QueryUnload(); // saves the user's settings; once per session
    void setText1(const QString &texto);
    void Timer1_Timer(const QString &direccionLocal);
    void menu_salir_Click();
    void menu_encierra_Click();
    void Titulo_DblClick();
    // A double click on the tabs opens the ledger window.
    void Pestanas_DblClick();
    // A click on the entry `indice` of List1 (-1: none selected).
    void List1_Click(int indice);
    void Valores_Click();
    void buscar_Change(const QString &texto);
    void buscar_Return();
    void buscar_GotFocus();
    void Image1_DragDrop(const QString &origen, const QDate &fecha);
    void Check2_Click(int indice);
    void Candle_Click();
    void MostrarOperaciones_Click() {}
    void Logaritmica_Click();
    void Pestanas_Click(int indice);
    void setPesta(const QString &texto);
    void Pesta_Change();
    void DibuGrafi3(const QString &nombre);
    void NoHay_Aceptar();
    // Runs a control's command (buttons, menu entries, links).
    void ejecutar(const QString &control);

    void Cargar_configuracion();
    QString grabar_configuracion() const;

  private:
    template <class Step> void pasoDeCarga(Step &&step);
    void registrarMercado();
    void dibujar();
    void terminar();

    Session &s_;
    Comandos &comandos_;
    QString rutaBase_;
    bool guardado_ = false;
    bool marcandoVelas_ = false; // Candle ticks the four series it needs
};

} // namespace tesorel
