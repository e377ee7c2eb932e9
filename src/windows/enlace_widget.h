#pragma once
#include <QWidget>

#include "market/enlace.h"

class QCheckBox;
class QLineEdit;
class QListWidget;
class QToolButton;

namespace tesorel
{

// The incremental combo `Enlace` as a widget: the box `Text1` that shows
// the choice, the arrow `Flecha` that opens the list `List1` under the
// control, and the hidden tick `Editar`. All behaviour is in the model;
// the holding window listens to evento1/2/3 (evento2: a value was chosen).
class EnlaceWidget : public QWidget
{
    Q_OBJECT
  public:
    explicit EnlaceWidget(QWidget *parent = nullptr);
    ~EnlaceWidget() override;

    Enlace &modelo() { return model_; }

    // The control's interface, for the holding windows.
    bool buscar();
    void cerrar();
    void Additem(const QString &item);
    void Clear();
    QString Text() const { return model_.Text(); }
    void setText(const QString &text);
    int Listindex() const { return model_.Listindex(); }
    void setListindex(int index);
    QString Tabla() const { return model_.Tabla; }
    void setTabla(const QString &tabla) { model_.Tabla = tabla; }
    bool Edita() const { return model_.Edita; }
    void setEdita(bool edita);

    QSize sizeHint() const override;

  signals:
    void evento1();
    void evento2();
    void evento3();

  protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

  private:
    void render();
    void colocarLista();
    void focoCambiado(QWidget *now);
    bool teclaEnText1(class QKeyEvent *key);

    Enlace model_;
    QLineEdit *text1_;
    QToolButton *flecha_;
    QListWidget *list1_;
    QCheckBox *editar_;
    bool rendering_ = false;
};

} // namespace tesorel
