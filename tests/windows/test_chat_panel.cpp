// The chat panel driven through its widgets offscreen.

#include "test_principal_support.h"
#include "windows/chat_panel.h"

namespace tesorel::testing
{
namespace
{

TEST(ChatPanel, ABlankNickIsRefusedAndTheUpArrowRecalls)
{
    app();
    SesionDePrueba p;
    p.s.Hay_Conexion = true;
    ChatPanel panel(
        p.s, {}, [] { return QStringLiteral("v"); }, nullptr);
    EXPECT_EQ(hijo<QPlainTextEdit>(&panel, "Chat")->toPlainText(), "Sin Conexión ...");
    hijo<QLineEdit>(&panel, "Nickchat")->setText("   ");
    hijo<QPushButton>(&panel, "EntrarAlChat")->click();
    ASSERT_EQ(p.ui.messages.size(), 1u);
    EXPECT_EQ(p.ui.messages[0].prompt, "Debe especificar un Nick");

    auto *Charla = hijo<QLineEdit>(&panel, "Charla");
    panel.modelo().ultimaLinea = "otra vez";
    Charla->setText("escribiendo");
    tecla(Charla, Qt::Key_Up);
    EXPECT_EQ(Charla->text(), "escribiendo");
    Charla->clear();
    tecla(Charla, Qt::Key_Up);
    EXPECT_EQ(Charla->text(), "otra vez");
    EXPECT_EQ(Charla->cursorPosition(), 8);
    hijo<QLineEdit>(&panel, "Nickchat")->setFocus();
    tecla(hijo<QLineEdit>(&panel, "Nickchat"), Qt::Key_Return); // moves on, does not connect
    EXPECT_EQ(p.ui.messages.size(), 1u);
}

} // namespace
} // namespace tesorel::testing
