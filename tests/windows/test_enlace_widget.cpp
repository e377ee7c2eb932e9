#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QToolButton>
#include <memory>

#include "windows/enlace_widget.h"

using namespace tesorel;

namespace
{

// The application lives from before the first test to after the last, and
// goes before the exit handlers of the process run.
class AppEnvironment : public ::testing::Environment
{
  public:
    void SetUp() override
    {
        if (!QCoreApplication::instance())
            owned_ = std::make_unique<QApplication>(argc_, argv_);
    }
    void TearDown() override { owned_.reset(); }

  private:
    int argc_ = 1;
    char name_[19] = "test_enlace_widget";
    char *argv_[2] = {name_, nullptr};
    std::unique_ptr<QApplication> owned_;
};
[[maybe_unused]] auto *const appEnvironment = ::testing::AddGlobalTestEnvironment(new AppEnvironment);

void pulsar(QWidget *target, int key, const QString &text = {})
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(target, &press);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(target, &release);
}

void teclear(QWidget *target, const QString &text)
{
    for (QChar c : text)
        pulsar(target, c.toUpper().unicode(), c); // Latin keys have their capital's code
}

class EnlaceWidgetTest : public ::testing::Test
{
  protected:
    std::unique_ptr<QWidget> owner;
    QWidget &window = *owner;
    EnlaceWidget *combo = nullptr;
    QLineEdit *text1 = nullptr;
    QToolButton *flecha = nullptr;
    int eventos[4] = {0, 0, 0, 0};

    EnlaceWidgetTest() : owner(std::make_unique<QWidget>()) {}

    void SetUp() override
    {
        window.resize(300, 300);
        combo = new EnlaceWidget(&window);
        combo->setGeometry(10, 10, 200, 24);
        for (const char *item : {"BBVA", "IBERDROLA", "REPSOL", "SANTANDER", "TELEFONICA"})
            combo->Additem(item);
        QObject::connect(combo, &EnlaceWidget::evento1, [this] { ++eventos[1]; });
        QObject::connect(combo, &EnlaceWidget::evento2, [this] { ++eventos[2]; });
        QObject::connect(combo, &EnlaceWidget::evento3, [this] { ++eventos[3]; });
        window.show();
        text1 = window.findChild<QLineEdit *>("Text1");
        flecha = window.findChild<QToolButton *>("Flecha");
        ASSERT_TRUE(text1 && flecha);
    }
    QListWidget *list1() const { return window.findChild<QListWidget *>("List1"); }
};

TEST_F(EnlaceWidgetTest, TypingWithTheListClosedChangesNothing)
{
    combo->setText("BBVA");
    teclear(text1, "xy");
    EXPECT_EQ(text1->text(), "BBVA");
    EXPECT_FALSE(list1()->isVisible());
    EXPECT_EQ(eventos[2], 0);
}

TEST_F(EnlaceWidgetTest, OpenWithTheArrowTypeAndReturnChooses)
{
    flecha->click();
    ASSERT_TRUE(list1()->isVisible());
    EXPECT_EQ(eventos[1], 1);
    EXPECT_GE(list1()->mapTo(&window, QPoint(0, 0)).y(), 10 + 24); // under the control

    teclear(text1, "re");
    EXPECT_EQ(text1->text(), "re");
    EXPECT_EQ(list1()->currentRow(), 2);
    pulsar(text1, Qt::Key_Down);
    EXPECT_EQ(list1()->currentRow(), 3);

    pulsar(text1, Qt::Key_Return);
    EXPECT_EQ(eventos[2], 1);
    EXPECT_EQ(combo->Text(), "SANTANDER");
    EXPECT_EQ(text1->text(), "SANTANDER");
    EXPECT_FALSE(list1()->isVisible());
}

TEST_F(EnlaceWidgetTest, AClickOnAnEntryChooses)
{
    flecha->click();
    QListWidget *list = list1();
    emit list->itemClicked(list->item(1));
    EXPECT_EQ(text1->text(), "IBERDROLA");
    EXPECT_EQ(eventos[2], 1);
    EXPECT_FALSE(list->isVisible());
}

} // namespace
