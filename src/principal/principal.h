#pragma once
#include <QHash>
#include <QString>
#include <QStringList>
#include <array>
#include <memory>
#include <vector>

#include "store/configuracion.h"

namespace tesorel
{

class Comandos;
class Session;
class Usuario;

// The main window without its widgets: the start-up and the closing of the
// session, the network indicator, the configuration panel, the tab strip,
// and the value selector Text1. Whatever belongs to another subsystem
// (lists, charts, notes, the other windows) is reached through the commands.
class Principal
{
  public:
    // `rutaBase` is the base file; empty means base1.mdb in the application folder.
    Principal(Session &s, Comandos &comandos, QString rutaBase = {});
    ~Principal();

    static const QStringList Pestanas_Caption; // the nine tabs, by index
    static const QStringList Valores_Entradas; // the lists of the combo
    static const QString NoHay_Caption, NoHay_Mensaje, NoHay_EtiquetaDirectorio, NoHay_Donde;

    // Controls, by name.
    QString Text1;         // the value on show (its NOMBRE)
    QString Configuracion; // the packed settings between the login and the window
    QString Titul, Titulo, buscar, Version, LabelOnline, Pesta;
    int IndicadorOnline_BackColor = 255;
    bool Yahoo_Visible = false, Yahoono_Visible = false, YahooNoticias_Visible = false;
    bool Noticias_Visible = true, Incidecaption_Visible = true;
    bool laWEB_Visible = false, BolsaMadrid_Visible = false, Invertia_Visible = false;
    QString urlWeb, urlLaBolsa;  // the links of the value on show
    ConfiguracionVentana config; // Check2, Valores, Indicador_Actual, Candle, MostrarOperaciones
    int Logaritmica = 0;
    int Splita = 0;
    std::array<QString, 3> Mediat{QString(), QStringLiteral("30"), QStringLiteral("9")};
    bool Timer1_Enabled = true;
    // List1: the text of each entry and its datum, the value's code.
    struct EntradaLista {
        QString texto;
        double dato = 0;
    };
    std::vector<EntradaLista> List1;
    int List1_ListIndex = -1;
    // The check marks of the five list menu entries (menu_todos ...).
    QHash<QString, bool> Checked;
    int pestanaAbierta = -1;

    // Members that other windows reach.
    double Codigo_Valor = 0;
    QString Sql_Lista;
    double Primera_Activacion_Hecha = 0;
    std::unique_ptr<Usuario> Usuario_Sesion;

    bool Terminado = false; // the program has been ended
    QString carpetaNoHay() const;

    // Events.
    void Form_Load();
    void Form_Activate();
    void Form_QueryUnload(); // saves the user's settings; once per session
    void setText1(const QString &texto);
    void Text1_Change();
    void Timer1_Timer(const QString &direccionLocal);
    void menu_salir_Click();
    void menu_encierra_Click();
    void Titulo_DblClick();
    void List1_Click();
    void Valores_Click();
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
    void dibujar();
    void terminar();
    QVariant qualquierValorDelDia();

    Session &s_;
    Comandos &comandos_;
    QString rutaBase_;
    bool guardado_ = false;
    bool marcandoVelas_ = false; // Candle ticks the four series it needs
};

} // namespace tesorel
