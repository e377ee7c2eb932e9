#include "windows/noticias_vista.h"

#include <QApplication>
#include <QCheckBox>
#include <QFontDatabase>
#include <QListWidget>
#include <QPointer>

#include "core/nombres_comandos.h"
#include "online/noticias.h"
#include "principal/comandos.h"
#include "windows/guarded.h"

namespace tesorel
{

namespace
{
// The model beside its widgets; a child of the list, so it goes with it.
class NoticiasVista : public QObject
{
  public:
    NoticiasVista(Session &s, const AjustesOnline &ajustes, QCheckBox *Yahoono, QListWidget *lista)
        : QObject(lista), s_(s), modelo_(s, ajustes), Yahoono_(Yahoono), lista_(lista)
    {
        modelo_.alCambiar = [this] { pintar(); };
    }

    void Yahoo_Click()
    {
        modelo_.Yahoono = Yahoono_ && Yahoono_->isChecked();
        guarded(s_, [this] { modelo_.Yahoo_Click(); });
        pintar();
    }
    void DblClick(int fila)
    {
        guarded(s_, [&] { modelo_.YahooNoticias_DblClick(fila); });
    }

  private:
    void pintar()
    {
        lista_->clear();
        lista_->addItems(modelo_.YahooNoticias);
        lista_->repaint();
        if (modelo_.Espera != enEspera_) {
            enEspera_ = modelo_.Espera;
            if (enEspera_)
                QApplication::setOverrideCursor(Qt::WaitCursor);
            else
                QApplication::restoreOverrideCursor();
        }
    }

    Session &s_;
    Noticias modelo_;
    QPointer<QCheckBox> Yahoono_;
    QListWidget *lista_;
    bool enEspera_ = false;
};
} // namespace

void conectarNoticias(Session &s, Comandos &comandos, const AjustesOnline &ajustes, QCheckBox *Yahoono,
                      QListWidget *YahooNoticias)
{
    // A fixed-pitch font; the window's style sheet names the family, so the list's own does too.
    YahooNoticias->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    YahooNoticias->setStyleSheet(QStringLiteral("font-family: \"DejaVu Sans Mono\";"));
    QPointer<NoticiasVista> vista = new NoticiasVista(s, ajustes, Yahoono, YahooNoticias);
    comandos.registrar(comando::Yahoo, [vista] {
        if (vista)
            vista->Yahoo_Click();
    });
    QObject::connect(
        YahooNoticias, &QListWidget::itemDoubleClicked, vista,
        [vista, YahooNoticias](QListWidgetItem *item) { vista->DblClick(YahooNoticias->row(item)); });
}

} // namespace tesorel
