#include "windows/ventanas.h"

#include <QApplication>
#include <QTabBar>

#include "core/nombres_comandos.h"
#include "principal/comandos.h"
#include "store/session.h"
#include "windows/guarded.h"
#include "windows/historico_form.h"
#include "windows/principal_window.h"

namespace tesorel
{

void registrarVentanasHistorico(PrincipalWindow &principal, Session &s, Comandos &comandos)
{
    // Opened from the portfolio window and from the main window's tabs.
    comandos.registrar(comando::Historico, [&principal, &s] {
        QWidget *encima = QApplication::activeModalWidget();
        HistoricoDialog ventana(s, encima ? encima : &principal);
        ventana.exec();
    });
    // A double click on the main window's tabs opens the ledger.
    if (auto *pestanas = principal.findChild<QTabBar *>(QStringLiteral("Pestañas")))
        QObject::connect(pestanas, &QTabBar::tabBarDoubleClicked, pestanas, [&s, &comandos](int) {
            guarded(s, [&] { comandos.ejecutar(comando::Historico); });
        });
}

} // namespace tesorel
