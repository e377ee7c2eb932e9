#pragma once
// The offscreen application and the scripted modal windows shared by the
// tests of the real main window.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QElapsedTimer>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>
#include <deque>
#include <memory>
#include <optional>

#include "principal/comandos.h"
#include "store/helpers.h"
#include "store/query.h"
#include "store/session.h"
#include "store/ui.h"
#include "support/esperar.h"
#include "support/test_base.h"
#include "windows/enlace_widget.h"
#include "windows/principal_window.h"
#include <functional>

namespace tesorel::testing
{

inline QApplication &app()
{
    static int argc = 1;
    static char name[] = "test_windows";
    static char *argv[] = {name, nullptr};
    // Never destroyed: tearing Qt's input devices down at exit crashes offscreen.
    static QApplication *instance = new QApplication(argc, argv);
    return *instance;
}

// Acts on the modal windows as they come up, in the order given. A window
// that nobody expected is closed, so that a wrong order fails instead of hanging.
class Guion
{
  public:
    using Accion = std::function<void(QWidget *)>;
    QStringList vistas;

    Guion()
    {
        reloj_.setInterval(5);
        QObject::connect(&reloj_, &QTimer::timeout, [this] { mirar(); });
        reloj_.start();
    }
    void luego(const QString &ventana, Accion accion) { pasos_.push_back({ventana, std::move(accion)}); }
    bool terminado() const { return pasos_.empty(); }

  private:
    struct Paso {
        QString ventana;
        Accion accion;
    };
    void mirar()
    {
        QWidget *w = QApplication::activeModalWidget();
        if (ocupado_ || !w) {
            espera_.invalidate();
            return;
        }
        if (pasos_.empty() || w->objectName() != pasos_.front().ventana) {
            if (!espera_.isValid())
                espera_.start();
            else if (espera_.elapsed() > 3000) {
                vistas << "inesperada:" + w->objectName();
                if (auto *d = qobject_cast<QDialog *>(w))
                    d->reject();
            }
            return;
        }
        espera_.invalidate();
        ocupado_ = true;
        Paso paso = pasos_.front();
        pasos_.pop_front();
        vistas << w->objectName();
        QPointer<QWidget> ventana = w;
        // Out of the timer's slot: an action may open a modal window of its own.
        QTimer::singleShot(0, [this, paso, ventana] {
            ocupado_ = false;
            if (ventana)
                paso.accion(ventana);
        });
    }

    std::deque<Paso> pasos_;
    QTimer reloj_;
    QElapsedTimer espera_;
    bool ocupado_ = false;
};

template <class T> T *hijo(QWidget *w, const QString &nombre)
{
    T *c = w->findChild<T *>(nombre);
    if (!c)
        ADD_FAILURE() << "no control " << nombre.toStdString();
    return c;
}

inline void tecla(QWidget *w, int key)
{
    QKeyEvent pulsar(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(w, &pulsar);
}

// A press of `boton` at `donde` and its release there, or at `suelta` after a drag to it,
// as the window system sends them.
inline void clic(QWidget *w, Qt::MouseButton boton, QPoint donde = {2, 2}, std::optional<QPoint> suelta = {})
{
    const QPointF local(donde), fin(suelta.value_or(donde));
    QMouseEvent pulsar(QEvent::MouseButtonPress, local, w->mapToGlobal(local), boton, boton, Qt::NoModifier);
    QApplication::sendEvent(w, &pulsar);
    if (suelta) {
        QMouseEvent mover(QEvent::MouseMove, fin, w->mapToGlobal(fin), Qt::NoButton, boton, Qt::NoModifier);
        QApplication::sendEvent(w, &mover);
    }
    QMouseEvent soltar(QEvent::MouseButtonRelease, fin, w->mapToGlobal(fin), boton, Qt::NoButton,
                       Qt::NoModifier);
    QApplication::sendEvent(w, &soltar);
}

// Chooses a user in the login window, types the password and presses Return.
inline Guion::Accion entrar(const QString &usuario, const QString &clave)
{
    return [usuario, clave](QWidget *login) {
        auto *lista = hijo<QListWidget>(login, "List1");
        const auto items = lista->findItems(usuario, Qt::MatchExactly);
        ASSERT_FALSE(items.isEmpty()) << usuario.toStdString();
        lista->setCurrentItem(items.first());
        auto *campo = hijo<QLineEdit>(login, "Clave");
        campo->setText(clave);
        tecla(campo, Qt::Key_Return);
    };
}

// The real main window on a copy of the sample base, logged in as demo.
// A test that replaces a command does it in `antesDeEntrar`.
struct VentanaDemo : ::testing::Test {
    QTemporaryDir dir;
    ScriptedUi ui;
    std::unique_ptr<Session> s;
    Comandos comandos;
    std::unique_ptr<PrincipalWindow> ventana;

    virtual void antesDeEntrar() {}

    void SetUp() override
    {
        app();
        const QString copia = dir.filePath("base1.mdb");
        ASSERT_TRUE(QFile::copy(TESOREL_BINARY_DIR "/sample/base1.mdb", copia));
        QFile::setPermissions(copia, QFile::ReadOwner | QFile::WriteOwner);
        s = std::make_unique<Session>(ui, dir.path());
        ventana = std::make_unique<PrincipalWindow>(*s, comandos, copia);
        antesDeEntrar();
        Guion guion;
        guion.luego("form4", entrar("demo", "demo"));
        ventana->mostrar();
        ASSERT_TRUE(guion.terminado()) << guion.vistas.join(",").toStdString();
        ASSERT_EQ(s->Nombre_Usuario, "demo");
    }
    void TearDown() override
    {
        if (ventana)
            ventana->close();
    }
    // A click on the entry of List1 whose text starts with `texto`.
    void elegir(const QString &texto)
    {
        auto *l = hijo<QListWidget>(ventana.get(), "List1");
        const auto items = l->findItems(texto, Qt::MatchStartsWith);
        ASSERT_FALSE(items.isEmpty()) << texto.toStdString();
        l->scrollToItem(items.first());
        clic(l->viewport(), Qt::LeftButton, l->visualItemRect(items.first()).center());
    }
};

// Saves a picture of the window as NOMBRE.png in the folder named by
// TESOREL_CAPTURAS, when it is set: the screenshots of the docs come from here.
inline void capturar(QWidget *ventana, const QString &nombre)
{
    const QString carpeta = qEnvironmentVariable("TESOREL_CAPTURAS");
    if (!carpeta.isEmpty())
        ventana->grab().save(carpeta + u'/' + nombre + QStringLiteral(".png"));
}

// The first cell of a statement on the session's base, null when it gives no row.
inline QVariant consulta(Session &s, const QString &sql)
{
    Query q(*s.Base_Datos, sql);
    return q.next() ? q.value(0) : QVariant();
}

// Types a text key by key, as a person does.
inline void escribir(QLineEdit *campo, const QString &texto)
{
    campo->setFocus();
    for (QChar c : texto) {
        QKeyEvent pulsar(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
        QApplication::sendEvent(campo, &pulsar);
    }
}

// Opens the combo's list with its arrow and clicks the entry.
inline void elegirEnCombo(QWidget *ventana, const QString &combo, const QString &entrada)
{
    auto *c = hijo<EnlaceWidget>(ventana, combo);
    hijo<QToolButton>(c, "Flecha")->click();
    // The open list hangs from the window, over the controls below the combo.
    QListWidget *lista = nullptr;
    for (auto *l : ventana->findChildren<QListWidget *>("List1"))
        if (l->isVisible())
            lista = l;
    ASSERT_NE(lista, nullptr);
    const auto items = lista->findItems(entrada, Qt::MatchExactly);
    ASSERT_FALSE(items.isEmpty()) << entrada.toStdString();
    lista->setCurrentItem(items.first());
    emit lista->itemClicked(items.first());
}

} // namespace tesorel::testing
