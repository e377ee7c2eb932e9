#include "windows/formulario.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "windows/guarded.h"

namespace tesorel
{

QPushButton *crearBoton(const QString &nombre, const QString &texto, QWidget *padre)
{
    auto *b = new QPushButton(texto, padre);
    b->setObjectName(nombre);
    b->setAutoDefault(false);
    b->setCursor(Qt::PointingHandCursor);
    return b;
}

QLineEdit *crearCampo(const QString &nombre, QWidget *padre, bool secreto)
{
    auto *e = new QLineEdit(padre);
    e->setObjectName(nombre);
    if (secreto)
        e->setEchoMode(QLineEdit::Password);
    return e;
}

QLabel *crearEtiqueta(const QString &nombre, const QString &texto, QWidget *padre)
{
    auto *l = new QLabel(texto, padre);
    l->setObjectName(nombre);
    return l;
}

void formularioConBotones(QDialog *ventana, QLayout *formulario, QPushButton *aceptar, QPushButton *cancelar)
{
    auto *botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(aceptar);
    botones->addWidget(cancelar);
    auto *capa = new QVBoxLayout(ventana);
    capa->addLayout(formulario);
    capa->addLayout(botones);
}

void EventosDeFormulario::operator()(const std::function<void()> &evento)
{
    if (mostrando_)
        return;
    guarded(s_, [&] {
        if (copiar_)
            copiar_();
        evento();
    });
    mostrar();
}

void EventosDeFormulario::mostrar()
{
    if (!mostrar_ || mostrando_)
        return;
    mostrando_ = true;
    guarded(s_, mostrar_);
    mostrando_ = false;
}

void EventosDeFormulario::alPulsar(QAbstractButton *boton, const std::function<void()> &evento)
{
    QObject::connect(boton, &QAbstractButton::clicked, boton, [this, evento] { (*this)(evento); });
}

} // namespace tesorel
