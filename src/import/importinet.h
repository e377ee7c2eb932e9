#pragma once
#include <QDate>
#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

#include "import/fuentes_cierres.h"
#include "import/importa_net.h"

namespace tesorel
{

class Session;

// The web import window: the missing days, each fetched from the first of
// the three sources that has it, then loaded into bolsa. The lists Ok and
// fallo are its report.
class Importinet
{
  public:
    static inline const QString Label2 =
        QStringLiteral("  I m p o r t a c i ó n      A u t o m á t i c a.            (I n t e r n e t)");
    static inline const QString TextoInicio =
        QStringLiteral(" E s t a b l e c i e n d o     C o n e x i ó n . . .");
    static inline const QString TextoDescarga =
        QStringLiteral(" R e c u p e r a n d o    I n f o r m a c i ó n . . . ");
    static inline const QString TextoCarga = QStringLiteral(" I m p o r t a n d o    D a t o s ...");
    static inline const QString TextoFin = QStringLiteral(" I m p o r t a c i ó n    F i n a l i z a d a.");
    static inline const QString TextoTodoFallo =
        QStringLiteral(" N o   s e   e n c u e n t r a n    d a t o s    n u e v o s.");
    static inline const QString TextoNada =
        QStringLiteral(" N o   s e   e n c u e n t r a n   d a t o s   n u e v o s");
    static inline const QString Cancelar = QStringLiteral("C A N C E L A R");
    static constexpr int Shape1_Width = 1000;

    struct Entrada {
        QString texto; // the day as "DD/MM/YYYY"
        QDate dia;
        int ItemData = 0; // 2: no source had it
    };

    struct Acciones {
        // AddEmpresa, modal, with the ticker in its ABREVIATURA3 field.
        std::function<void(const QString &ticker)> AddEmpresa;
        // The quote-file import window.
        std::function<void()> Importar;
        // The window shows the model's state (the form renders; the command line prints).
        std::function<void()> mostrar;
        // A day fetched from a source (1..3).
        std::function<void(int fuente, const QDate &dia)> descargado;
    };

    Importinet(Session &s, FuentesCierres fuentes, Acciones acciones);

    // Controls.
    QString Label1, DIA, site;
    std::vector<Entrada> List1;
    QStringList Ok, fallo;
    bool Manual_Visible = false; // on view only when there is no day to fetch
    QString FechaIn, FechaFin, Label3;
    QString Command1 = Cancelar;
    bool sape1 = false, sape2 = false, sape3 = false;
    int Shape2_Width = 0;
    bool Reloj = false;    // the hourglass pointer
    bool Detalles = false; // the window as tall as Limitebajo: the lists on view
    QString Foco;          // the control that takes the focus
    bool Descargado = false;

    bool enCurso() const { return enCurso_; }

    void Form_Load();
    void Importando();
    bool Importa_txt_inet(const QString &ruta, const QDate &dia);
    void Command1_Click();
    void Command2_Click();
    void Label4_Click() { Detalles = true; }
    void Importar_Click();
    // A second way of listing the days, which the run does not use: the
    // trading days of one share's price table that the base lacks.
    void Comentario1Importando();

    // The day file of a day in the working folder.
    QString rutaDelDia(const QDate &dia) const;

  private:
    void refrescar();
    void progreso(size_t lugar);
    bool descargar(const QDate &dia);

    Session &s_;
    FuentesCierres fuentes_;
    Acciones acciones_;
    ImportaNet importaNet_;
    bool enCurso_ = false;
    bool cancelado_ = false;
};

} // namespace tesorel
