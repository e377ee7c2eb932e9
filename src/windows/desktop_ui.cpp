#include "windows/desktop_ui.h"

#include <QApplication>
#include <QDesktopServices>
#include <QInputDialog>
#include <QMessageBox>
#include <QUrl>
#include <cstdio>
#include <cstdlib>

namespace tesorel
{

namespace
{
struct Boton {
    QMessageBox::StandardButton qt;
    int respuesta;
};

std::vector<Boton> botonesDe(int estilo)
{
    switch (estilo & 7) {
    case mb::OkCancel:
        return {{QMessageBox::Ok, mb::Ok}, {QMessageBox::Cancel, mb::Cancel}};
    case mb::AbortRetryIgnore:
        return {{QMessageBox::Abort, mb::Abort},
                {QMessageBox::Retry, mb::Retry},
                {QMessageBox::Ignore, mb::Ignore}};
    case mb::YesNoCancel:
        return {{QMessageBox::Yes, mb::Yes}, {QMessageBox::No, mb::No}, {QMessageBox::Cancel, mb::Cancel}};
    case mb::YesNo:
        return {{QMessageBox::Yes, mb::Yes}, {QMessageBox::No, mb::No}};
    case mb::RetryCancel:
        return {{QMessageBox::Retry, mb::Retry}, {QMessageBox::Cancel, mb::Cancel}};
    default:
        return {{QMessageBox::Ok, mb::Ok}};
    }
}

QMessageBox::Icon iconoDe(int estilo)
{
    switch (estilo & 0x70) {
    case mb::Critical:
        return QMessageBox::Critical;
    case mb::Question:
        return QMessageBox::Question;
    case mb::Exclamation:
        return QMessageBox::Warning;
    case mb::Information:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}
} // namespace

int DesktopUi::MsgBox(const QString &prompt, int style, const QString &title)
{
    QMessageBox box(iconoDe(style), title.isEmpty() ? QApplication::applicationName() : title, prompt,
                    QMessageBox::NoButton, QApplication::activeWindow());
    const auto botones = botonesDe(style);
    for (const Boton &b : botones)
        box.addButton(b.qt);
    box.exec();
    const auto pulsado = box.standardButton(box.clickedButton());
    for (const Boton &b : botones)
        if (b.qt == pulsado)
            return b.respuesta;
    // Closed without a button: the answer of Escape, the last button.
    return botones.back().respuesta;
}

QString DesktopUi::InputBox(const QString &prompt, const QString &title, const QString &deflt)
{
    bool ok = false;
    const QString texto =
        QInputDialog::getText(QApplication::activeWindow(), title, prompt, QLineEdit::Normal, deflt, &ok);
    return ok ? texto : QString();
}

void DesktopUi::Beep()
{
    QApplication::beep();
}

bool DesktopUi::OpenUrl(const QString &address)
{
    const QUrl url = QUrl::fromUserInput(address);
    return QDesktopServices::openUrl(url);
}

void DesktopUi::DoEvents()
{
    QCoreApplication::processEvents();
}

void DesktopUi::EndProgram()
{
    std::fflush(nullptr);
    std::_Exit(0);
}

} // namespace tesorel
