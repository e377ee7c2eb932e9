// The mail window waits on its socket without blocking: while the server
// keeps silent the window repaints and answers clicks, and "cerrar" closes it.
#include "test_principal_support.h"

#include "import/import_correo.h"
#include "import/pop3_pares.h"
#include "windows/import_correo_dialog.h"

namespace tesorel::testing
{
namespace
{

TEST(VentanaCorreo, SinRespuestaSigueVivaYCierraConCerrar)
{
    app();
    SesionDePrueba sp;
    correo::PeerPop3 peer;
    peer.responder = [](const QByteArray &l) {
        return l.startsWith("USER") ? correo::PeerPop3::Respuesta{}
                                    : correo::PeerPop3::Respuesta{{"+OK\r\n"}};
    };
    ImportCorreoDialog ventana(sp.s);
    ventana.modelo().txtHost = peer.host();
    ventana.modelo().txtUserName = "demo";
    ventana.modelo().txtPassword = "x";
    auto *espere = hijo<QLabel>(&ventana, "espere");

    bool esperaVisible = false;
    int vueltas = 0;
    QTimer reloj;
    QObject::connect(&reloj, &QTimer::timeout, [&] {
        ++vueltas; // the loop turns while the server keeps silent
        if (vueltas == 1)
            hijo<QPushButton>(&ventana, "cmdCheckMail")->click();
        if (vueltas == 15) {
            esperaVisible = espere->isVisible();
            hijo<QPushButton>(&ventana, "cerrar")->click();
        }
    });
    reloj.start(20);
    ventana.exec();
    EXPECT_TRUE(esperaVisible);
    EXPECT_TRUE(ventana.modelo().Descargado);
    EXPECT_EQ(peer.recibidos, QList<QByteArray>({"USER demo"}));
    EXPECT_TRUE(sp.ui.messages.empty());
}

} // namespace
} // namespace tesorel::testing
