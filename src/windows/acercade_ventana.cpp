// The About window: the program's name and version. The system information
// tool that it could start has no counterpart on this platform.
#include "windows/ventanas.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/nombres_comandos.h"
#include "principal/comandos.h"
#include "windows/principal_window.h"

namespace tesorel
{

void registrarVentanaAcercade(PrincipalWindow &principal, Session &, Comandos &comandos)
{
    comandos.registrar(comando::acercade, [&principal] {
        QDialog ventana(&principal);
        ventana.setObjectName("acercade");
        ventana.setWindowTitle(QStringLiteral("Acerca de Tesorel"));
        auto *capa = new QVBoxLayout(&ventana);
        auto *nombre = new QLabel(QStringLiteral("<b>Tesorel</b>"), &ventana);
        auto *version = new QLabel(principal.modelo().Version, &ventana);
        version->setObjectName("Version");
        auto *aceptar = new QPushButton(QStringLiteral("Aceptar"), &ventana);
        aceptar->setObjectName("Aceptar");
        QObject::connect(aceptar, &QPushButton::clicked, &ventana, &QDialog::accept);
        capa->addWidget(nombre);
        capa->addWidget(version);
        auto *botones = new QHBoxLayout;
        botones->addStretch();
        botones->addWidget(aceptar);
        capa->addLayout(botones);
        ventana.exec();
    });
}

} // namespace tesorel
