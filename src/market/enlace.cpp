#include "market/enlace.h"

namespace tesorel
{

namespace
{
// The list is kept in alphabetical order without regard to case, and the
// person types in either case.
int comparar(const QString &a, const QString &b)
{
    return QString::compare(a, b, Qt::CaseInsensitive);
}
} // namespace

void Enlace::avisar(int evento)
{
    if (alEvento)
        alEvento(evento);
}

bool Enlace::buscar()
{
    if (lista_.isEmpty())
        return false;
    // A linear walk: the entries are few, and it runs on each key.
    const int last = static_cast<int>(lista_.size()) - 1;
    int i = 0;
    while (i < last && comparar(lista_[i], text1_) < 0)
        ++i;
    // Selecting from here is no click of the person: nothing is chosen.
    listIndex_ = i;
    return comparar(lista_[i], text1_) == 0;
}

void Enlace::cerrar()
{
    listaVisible_ = false;
    listaConFoco_ = false;
    if (cambiado_) {
        cambiado_ = false; // told once
        avisar(Elegido);
    }
}

void Enlace::Additem(const QString &item)
{
    lista_.append(item);
}

void Enlace::setText(const QString &text)
{
    if (text == text1_)
        return;
    Text1_Change(text);
}

void Enlace::setListindex(int index)
{
    listIndex_ = (index >= 0 && index < lista_.size()) ? index : -1;
}

void Enlace::Clear()
{
    lista_.clear();
    listIndex_ = -1;
}

bool Enlace::Text1_KeyPress(QChar c)
{
    // The box only shows the choice: the list has to be opened first.
    if (!listaVisible_)
        return false;
    if (c == QLatin1Char('\r') || c == QLatin1Char('\n')) {
        elegir();
        return true;
    }
    QString text = text1_;
    if (c == QLatin1Char('\b'))
        text.chop(1);
    else if (c.isPrint())
        text += c;
    else
        return false;
    Text1_Change(text);
    buscar();
    return true;
}

bool Enlace::Text1_KeyDown(Tecla tecla)
{
    if (!listaVisible_)
        return false;
    switch (tecla) {
    case Tecla::Return:
        elegir();
        break;
    case Tecla::Arriba:
        if (listIndex_ > 0)
            --listIndex_;
        break;
    case Tecla::Abajo:
        if (listIndex_ + 1 < lista_.size())
            ++listIndex_;
        break;
    }
    return true;
}

void Enlace::Text1_Change(const QString &text)
{
    text1_ = text;
    cambiado_ = true;
}

void Enlace::Text1_GotFocus()
{
    cambiado_ = false;
    listaConFoco_ = false;
}

void Enlace::Flecha_Click()
{
    abiertaConFlecha_ = true;
    buscar();
    listaVisible_ = true;
    listaConFoco_ = true;
    avisar(ListaAbierta);
}

void Enlace::List1_Click()
{
    elegir();
}

void Enlace::List1_KeyPress(QChar c)
{
    if (c == QLatin1Char('\r') || c == QLatin1Char('\n'))
        elegir();
}

void Enlace::LostFocus()
{
    const bool estaba = listaVisible_;
    listaVisible_ = false;
    listaConFoco_ = false;
    abiertaConFlecha_ = false;
    if (estaba)
        avisar(ListaOculta);
}

void Enlace::elegir()
{
    // The entry goes into the box and the holder is told once: the change
    // of the box that the copy makes is not told again by the closing.
    const bool hayEntrada = listIndex_ >= 0 && listIndex_ < lista_.size();
    if (hayEntrada)
        text1_ = lista_[listIndex_];
    cambiado_ = false;
    listaVisible_ = false;
    listaConFoco_ = false;
    abiertaConFlecha_ = false;
    if (hayEntrada)
        avisar(Elegido);
}

} // namespace tesorel
