#pragma once
#include <QDialog>

#include "portfolio/historico.h"
#include "portfolio/modif_historico.h"
#include "windows/formulario.h"

class QComboBox;
class QLineEdit;
class QRadioButton;
class QTableWidget;

namespace tesorel
{

// The ledger window over its model: the filter combo, the two sort
// options, one sentence a row with its Editar and Borrar buttons, and the
// buttons of the reports, the series and the tax export.
class HistoricoDialog : public QDialog
{
    Q_OBJECT
  public:
    explicit HistoricoDialog(Session &s, QWidget *parent = nullptr);
    Historico &modelo() { return modelo_; }

  private:
    void copiar();
    void mostrar();

    Session &s_;
    Historico modelo_;
    EventosDeFormulario eventos_;
    QComboBox *Filtro_;
    QRadioButton *Option1_[2];
    QLineEdit *letra_;
    QTableWidget *Rejilla_;
};

// The editor of one ledger line.
class ModifHistoricoDialog : public QDialog
{
    Q_OBJECT
  public:
    explicit ModifHistoricoDialog(Session &s, QWidget *parent = nullptr);
    ModifHistorico &modelo() { return modelo_; }

  private:
    void copiar();
    void mostrar();

    ModifHistorico modelo_;
    EventosDeFormulario eventos_;
    QLineEdit *Fecha_, *Cantidad_, *Precio_, *Importe_, *Descripcion_;
    QComboBox *Operacion_, *Valor_, *Entidad_;
};

} // namespace tesorel
