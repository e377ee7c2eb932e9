#include "windows/importar_dialog.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/nombres_comandos.h"
#include "principal/comandos.h"
#include "store/session.h"
#include "windows/estilo.h"
#include "windows/formulario.h"
#include "windows/guarded.h"

namespace tesorel
{

namespace
{
// The window's labels act as links: flat buttons with the label's name.
QPushButton *enlace(const QString &nombre, const QString &texto, QWidget *padre)
{
    auto *b = new QPushButton(texto, padre);
    b->setObjectName(nombre);
    b->setFlat(true);
    b->setAutoDefault(false);
    b->setCursor(Qt::PointingHandCursor);
    b->setStyleSheet(conPaleta("QPushButton { color: @marca; text-decoration: underline; border: none; }"));
    return b;
}
} // namespace

ImportarDialog::ImportarDialog(Session &s, const Comandos &comandos, QWidget *parent) : QDialog(parent), s_(s)
{
    setObjectName("Importar");
    setWindowTitle(QStringLiteral("Importar"));
    setModal(true);

    Importar::Acciones acciones;
    acciones.Examinar = [this]() -> std::optional<QString> {
        const QString carpeta =
            QFileDialog::getExistingDirectory(this, QStringLiteral("Examinar"), Text1_->text());
        if (carpeta.isEmpty())
            return std::nullopt;
        return carpeta;
    };
    acciones.ImportCorreo = [&comandos] {
        if (!comandos.registrado(comando::ImportCorreo))
            return false;
        comandos.ejecutar(comando::ImportCorreo);
        return true;
    };
    acciones.DatosUsuario = [&comandos] { comandos.ejecutar(comando::DatosUsuario); };
    acciones.Importinet = [&comandos] { comandos.ejecutar(comando::Importinet); };
    acciones.mostrar = [this] { mostrar(); };
    acciones.progreso = [this](int hechos, int total) {
        progreso_->setMaximum(total);
        progreso_->setValue(hechos);
    };
    modelo_ = std::make_unique<Importar>(s, std::move(acciones));

    Text1_ = new QLineEdit(this);
    Text1_->setObjectName("Text1");
    Text1_->installEventFilter(this);
    Label2_ = new QLabel(this);
    Label2_->setObjectName("Label2");
    Sobre_ = new QCheckBox(QStringLiteral("Sobreescribir datos"), this);
    Sobre_->setObjectName("Sobre");
    progreso_ = new QProgressBar(this);
    progreso_->setObjectName("progreso");
    progreso_->setValue(0);
    auto *Label4 = enlace("Label4", QStringLiteral("X"), this);

    auto *capa = new QVBoxLayout(this);
    auto *cabecera = new QHBoxLayout;
    auto *titulo = new QLabel(QStringLiteral("Importación de cotizaciones"), this);
    titulo->setStyleSheet(estiloRotulo());
    cabecera->addWidget(titulo);
    cabecera->addStretch();
    cabecera->addWidget(Label4);
    capa->addLayout(cabecera);
    auto *carpeta = new QHBoxLayout;
    carpeta->addWidget(Label2_);
    carpeta->addWidget(Text1_, 1);
    carpeta->addWidget(enlace("Label6", QStringLiteral("Examinar"), this));
    capa->addLayout(carpeta);
    capa->addWidget(Sobre_);
    auto *correo = new QHBoxLayout;
    correo->addWidget(enlace("Label7", QStringLiteral("E-Mail :"), this));
    correo->addWidget(enlace("Label8", QStringLiteral("Comprobar"), this));
    correo->addWidget(enlace("Label9", QStringLiteral("Configurar"), this));
    correo->addStretch();
    capa->addLayout(correo);
    auto *otras = new QHBoxLayout;
    otras->addWidget(enlace("Label12", QStringLiteral("Descargar datos 2.002"), this));
    otras->addWidget(enlace("Label13", QStringLiteral("AUTOMATICA"), this));
    otras->addStretch();
    capa->addLayout(otras);
    capa->addWidget(progreso_);
    auto *botones = new QHBoxLayout;
    botones->addStretch();
    auto *Aceptar1 = crearBoton("Aceptar1", QStringLiteral("Aceptar"), this);
    auto *Cancelar = crearBoton("Cancelar", QStringLiteral("Cancelar"), this);
    botones->addWidget(Aceptar1);
    botones->addWidget(Cancelar);
    capa->addLayout(botones);
    setMinimumWidth(560);
    Centrar(this);

    const std::pair<const char *, void (Importar::*)()> eventos[] = {
        {"Aceptar1", &Importar::Aceptar1_Click}, {"Cancelar", &Importar::Cancelar_Click},
        {"Label4", &Importar::Label4_Click},     {"Label6", &Importar::Label6_Click},
        {"Label7", &Importar::Label7_Click},     {"Label8", &Importar::Label8_Click},
        {"Label9", &Importar::Label9_Click},     {"Label12", &Importar::Label12_Click},
        {"Label13", &Importar::Label13_Click},
    };
    for (const auto &[nombre, evento] : eventos) {
        auto *b = findChild<QPushButton *>(QString::fromLatin1(nombre));
        connect(b, &QPushButton::clicked, this,
                [this, evento = evento] { alPulsar([&] { (*modelo_.*evento)(); }); });
    }
    guarded(s_, [this] { modelo_->Form_Load(); });
    mostrar();
    Text1_->setCursorPosition(int(Text1_->text().size()));
}

ImportarDialog::~ImportarDialog() = default;

void ImportarDialog::mostrar()
{
    if (Text1_->text() != modelo_->Text1)
        Text1_->setText(modelo_->Text1);
    Label2_->setText(modelo_->Label2);
    Sobre_->setChecked(modelo_->Sobre == 1);
}

void ImportarDialog::alPulsar(const std::function<void()> &evento)
{
    // A run yields to the window; a second run may not start inside it.
    if (trabajando_)
        return;
    trabajando_ = true;
    guarded(s_, [&] {
        modelo_->Text1 = Text1_->text();
        modelo_->Sobre = Sobre_->isChecked() ? 1 : 0;
        evento();
        mostrar();
    });
    trabajando_ = false;
    if (modelo_->Descargado)
        accept();
}

bool ImportarDialog::eventFilter(QObject *objeto, QEvent *evento)
{
    if (objeto == Text1_ && evento->type() == QEvent::KeyPress) {
        const int tecla = static_cast<QKeyEvent *>(evento)->key();
        if (tecla == Qt::Key_Return || tecla == Qt::Key_Enter) {
            alPulsar([this] { modelo_->Text1_Enter(); });
            return true;
        }
    }
    return QDialog::eventFilter(objeto, evento);
}

void ImportarDialog::done(int resultado)
{
    if (trabajando_)
        return; // the run in course ends first
    if (!cerrado_) {
        cerrado_ = true;
        guarded(s_, [this] { modelo_->Form_Unload(); });
    }
    QDialog::done(resultado);
}

} // namespace tesorel
