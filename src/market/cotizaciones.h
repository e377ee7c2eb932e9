#pragma once
#include <QString>
#include <QStringList>
#include <array>
#include <functional>
#include <vector>

namespace tesorel
{

class Session;

// The marks of a heading: the one the table is sorted by wears an arrow.
enum class ImagenOrden { Ninguna, Descendente, Ascendente };

// One row of the table: the texts of its cells as the labels hold them.
struct FilaCotizacion {
    QString SubeBaja;           // "5" up, "0" level, "6" down: characters of a symbol font
    int SubeBaja_ForeColor = 0; // 24-bit colour, blue in the high byte
    QString Valor, Anterior, Ultimo, Dif, Volumen, Maximo, minimo, Efectivo;
    double Tag = 0; // the row's code
    bool Visible = false;
};

// The market table of a day or an interval, without its widgets. Every
// choice lives in a hidden text; setting one to a new text redraws the
// table through dibujar, setting it to the text it holds does nothing.
class Cotizaciones
{
  public:
    static constexpr int MaximoFilas = 200;
    static constexpr int PestanaValor = 15; // the tab of the value on show
    static const QStringList Cabeceras;     // the eight headings, 1..8 (0 empty)

    explicit Cotizaciones(Session &s);

    // Hidden texts.
    const QString &Intervalo() const { return Intervalo_; }
    const QString &Valores() const { return Valores_; }
    const QString &Ordenar() const { return Ordenar_; }
    const QString &desc() const { return desc_; }
    const QString &Text1() const { return Text1_; }
    QString Fecha; // the day as the day buttons move it, "dd-mm-yyyy"
    void setIntervalo(const QString &texto);
    void setValores(const QString &texto);
    void setOrdenar(const QString &texto);
    void setDesc(const QString &texto);
    void setText1(const QString &texto);

    // Visible state.
    QString Caption = QStringLiteral("Cotizaciones Mercado Continuo");
    std::array<QString, PestanaValor + 1> pestana_Caption; // 1..4 and 15
    double codigoPestanaValor = 0;
    QString filtro;                      // kept, though no statement reads it
    int Option2 = 1;                     // the sort option that is on: 1, 4, 5 or 8
    int Check1 = 1;                      // 1: descending
    std::array<ImagenOrden, 9> Image0{}; // 1..8
    QString Suben, Bajan, Repiten;
    QString FechaIn, FechaFin;
    bool menu_ultimo_dia_Checked = true, menu_intervalo_Checked = false;
    int VScroll1_Max = 1;
    int filasPorPagina = 20;           // rows on the screen without scrolling; the form sets it
    int NumReg = 0;                    // rows created so far
    std::vector<FilaCotizacion> filas; // 1..NumReg at [0..NumReg-1]
    bool Visible = true;

    // What the window asks of others.
    std::function<void(const QString &)> mostrarValor; // writes Principal.Text1
    std::function<void()> AddEmpresa;

    // Events.
    // `valorPrincipal` is the name on show in the main window.
    void Form_Load(const QString &valorPrincipal);
    void pestana_Click(int indice);
    void Image0_Click(int indice);
    void Option2_Click(int indice);
    void Check1_Click();
    void Command1_Click(); // the day before
    void Command2_Click(); // the day after
    // A tick of the 50 ms timer; true when it redrew the table.
    bool Timer1_Timer();
    void menu_ultimo_dia_Click() { setIntervalo(QStringLiteral("1")); }
    void menu_intervalo_Click();
    void menu_seleccionar_intervalo_Click();
    void Valor_Click(int fila); // 1-based row
    void AddVal_Click();

    void dibujar();
    // Clamps in place to 1..200 and returns the result.
    static double MinUno(double &numero);
    static QString visualizar(const QString &tipo, double numero);
    // The text colour of the mark for a change (24-bit colour).
    static int colorDe(double dif);

  private:
    void Intervalo_Change();
    void Text1_Change();
    void Picturar();
    void rellenar_grid();
    void ultimo_dia_Nuevo();
    void ponerFechaDelCursor();

    Session &s_;
    QString Intervalo_ = QStringLiteral("1"), Valores_ = QStringLiteral("Bolsa");
    QString Ordenar_ = QStringLiteral("Valor"), desc_ = QStringLiteral("desc"), Text1_;
    QString fechaVista_; // the last text of Fecha the timer saw
    int ticks_ = 0;
};

} // namespace tesorel
