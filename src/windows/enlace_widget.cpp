#include "windows/enlace_widget.h"

#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalBlocker>
#include <QToolButton>

namespace tesorel
{

namespace
{
constexpr int AltoLista = 160;
}

EnlaceWidget::EnlaceWidget(QWidget *parent)
    : QWidget(parent), text1_(new QLineEdit(this)), flecha_(new QToolButton(this)),
      list1_(new QListWidget(this)), editar_(new QCheckBox(this))
{
    text1_->setObjectName("Text1");
    flecha_->setObjectName("Flecha");
    list1_->setObjectName("List1");
    editar_->setObjectName("Editar");
    flecha_->setArrowType(Qt::DownArrow);
    flecha_->setFocusPolicy(Qt::NoFocus);
    editar_->hide();
    list1_->hide();

    text1_->installEventFilter(this);
    list1_->installEventFilter(this);

    model_.alEvento = [this](int evento) {
        render();
        if (evento == Enlace::ListaAbierta)
            emit evento1();
        else if (evento == Enlace::Elegido)
            emit evento2();
        else if (evento == Enlace::ListaOculta)
            emit evento3();
    };

    connect(flecha_, &QToolButton::clicked, this, [this] {
        model_.Flecha_Click();
        render();
    });
    // Edits that are not plain keys (paste, delete) while the list is open.
    connect(text1_, &QLineEdit::textEdited, this, [this](const QString &text) {
        model_.Text1_Change(text);
        if (model_.ListaVisible())
            model_.buscar();
        render();
    });
    connect(list1_, &QListWidget::itemClicked, this, [this](QListWidgetItem *item) {
        model_.setListindex(list1_->row(item));
        model_.List1_Click();
        render();
    });
    connect(list1_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (!rendering_)
            model_.setListindex(row);
    });
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) { focoCambiado(now); });
}

EnlaceWidget::~EnlaceWidget()
{
    // The open list may hang from the window rather than from the control.
    if (list1_->parentWidget() != this)
        delete list1_;
}

void EnlaceWidget::focoCambiado(QWidget *now)
{
    if (rendering_ || now == nullptr || now == text1_ || now == list1_ || now == flecha_)
        return;
    if (model_.ListaVisible()) {
        model_.LostFocus();
        render();
    }
}

bool EnlaceWidget::buscar()
{
    const bool found = model_.buscar();
    render();
    return found;
}

void EnlaceWidget::cerrar()
{
    model_.cerrar();
    render();
}

void EnlaceWidget::Additem(const QString &item)
{
    model_.Additem(item);
    render();
}

void EnlaceWidget::Clear()
{
    model_.Clear();
    render();
}

void EnlaceWidget::setText(const QString &text)
{
    model_.setText(text);
    render();
}

void EnlaceWidget::setListindex(int index)
{
    model_.setListindex(index);
    render();
}

void EnlaceWidget::setEdita(bool edita)
{
    model_.Edita = edita;
    resizeEvent(nullptr);
}

QSize EnlaceWidget::sizeHint() const
{
    const QSize box = text1_->sizeHint();
    return {box.width() + box.height(), box.height()};
}

void EnlaceWidget::resizeEvent(QResizeEvent *)
{
    const int h = height();
    // An editable control leaves the arrow a little more room.
    const int arrow = model_.Edita ? h + 4 : h;
    text1_->setGeometry(0, 0, qMax(0, width() - arrow), h);
    flecha_->setGeometry(width() - arrow, 0, arrow, h);
    if (model_.ListaVisible())
        colocarLista();
}

void EnlaceWidget::colocarLista()
{
    // The list hangs under the control, over whatever the window shows there.
    QWidget *top = window();
    if (list1_->parentWidget() != top)
        list1_->setParent(top);
    const QPoint at = mapTo(top, QPoint(0, height()));
    list1_->setGeometry(at.x(), at.y(), width(), AltoLista);
    list1_->raise();
}

void EnlaceWidget::render()
{
    rendering_ = true;
    if (text1_->text() != model_.Text())
        text1_->setText(model_.Text());

    QStringList shown;
    for (int i = 0; i < list1_->count(); ++i)
        shown << list1_->item(i)->text();
    if (shown != model_.List1()) {
        const QSignalBlocker block(list1_);
        list1_->clear();
        list1_->addItems(model_.List1());
    }
    {
        const QSignalBlocker block(list1_);
        list1_->setCurrentRow(model_.Listindex());
    }

    if (model_.ListaVisible()) {
        colocarLista();
        list1_->show();
        if (model_.ListaConFoco())
            list1_->setFocus();
    } else if (list1_->isVisible()) {
        const bool tenia = list1_->hasFocus();
        list1_->hide();
        if (tenia)
            text1_->setFocus();
    }
    rendering_ = false;
}

bool EnlaceWidget::teclaEnText1(QKeyEvent *key)
{
    switch (key->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        model_.Text1_KeyDown(Enlace::Tecla::Return);
        return true;
    case Qt::Key_Up:
        model_.Text1_KeyDown(Enlace::Tecla::Arriba);
        return true;
    case Qt::Key_Down:
        model_.Text1_KeyDown(Enlace::Tecla::Abajo);
        return true;
    case Qt::Key_Backspace:
        model_.Text1_KeyPress(QLatin1Char('\b'));
        return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Escape:
        return false;
    default:
        break;
    }
    const QString text = key->text();
    if (text.size() == 1 && text[0].isPrint()) {
        model_.Text1_KeyPress(text[0]);
        return true;
    }
    // Other edits (delete, paste) are thrown away while the list is closed.
    if (!model_.ListaVisible() && (key->key() == Qt::Key_Delete || key->matches(QKeySequence::Paste) ||
                                   key->matches(QKeySequence::Cut)))
        return true;
    return false;
}

bool EnlaceWidget::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == text1_) {
        if (event->type() == QEvent::KeyPress) {
            const bool taken = teclaEnText1(static_cast<QKeyEvent *>(event));
            if (taken)
                render();
            return taken;
        }
        if (event->type() == QEvent::FocusIn && !rendering_)
            model_.Text1_GotFocus();
    } else if (watched == list1_ && event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
            model_.List1_KeyPress(QLatin1Char('\r'));
            render();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace tesorel
