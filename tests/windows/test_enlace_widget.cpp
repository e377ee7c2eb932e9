// The incremental combo's widget: keys and clicks reach its model, the list
// opens under the control and the choice comes back to the text box. What
// the model does with them is tested on the model.

#include "test_principal_support.h"

namespace tesorel::testing
{
namespace
{

struct EnlaceWidgetTest : ::testing::Test {
    QWidget ventana;
    EnlaceWidget *combo = nullptr;
    QLineEdit *text1 = nullptr;
    int eventos[4] = {0, 0, 0, 0};

    static void SetUpTestSuite() { app(); }
    void SetUp() override
    {
        ventana.resize(300, 300);
        combo = new EnlaceWidget(&ventana);
        combo->setGeometry(10, 10, 200, 24);
        for (const char *item : {"BBVA", "IBERDROLA", "REPSOL", "SANTANDER", "TELEFONICA"})
            combo->Additem(item);
        QObject::connect(combo, &EnlaceWidget::evento1, [this] { ++eventos[1]; });
        QObject::connect(combo, &EnlaceWidget::evento2, [this] { ++eventos[2]; });
        ventana.show();
        text1 = hijo<QLineEdit>(&ventana, "Text1");
    }
    QListWidget *list1() { return hijo<QListWidget>(&ventana, "List1"); }
};

TEST_F(EnlaceWidgetTest, KeysAreThrownAwayUntilTheArrowOpensTheListThenReturnChooses)
{
    combo->setText("BBVA");
    escribir(text1, "xy");
    EXPECT_EQ(text1->text(), "BBVA");
    EXPECT_FALSE(list1()->isVisible());

    hijo<QToolButton>(&ventana, "Flecha")->click();
    ASSERT_TRUE(list1()->isVisible());
    EXPECT_EQ(eventos[1], 1);
    EXPECT_GE(list1()->mapTo(&ventana, QPoint(0, 0)).y(), 10 + 24); // under the control
    combo->setText("");
    escribir(text1, "re");
    EXPECT_EQ(text1->text(), "re");
    EXPECT_EQ(list1()->currentRow(), 2);
    tecla(text1, Qt::Key_Down);
    EXPECT_EQ(list1()->currentRow(), 3);
    EXPECT_EQ(eventos[2], 0);
    tecla(text1, Qt::Key_Return);
    EXPECT_EQ(eventos[2], 1);
    EXPECT_EQ(combo->Text(), "SANTANDER");
    EXPECT_EQ(text1->text(), "SANTANDER");
    EXPECT_FALSE(list1()->isVisible());
}

} // namespace
} // namespace tesorel::testing
