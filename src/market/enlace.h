#pragma once
#include <QString>
#include <QStringList>
#include <functional>

namespace tesorel
{

// The logic of the incremental combo `Enlace`: a text box that only shows
// the choice, an arrow that opens the list under it, and a list that
// follows what is typed while it is open. The list is expected in
// alphabetical order. The holding window hears of it through `alEvento`.
//
// (The procedure that reads a hyperlink field is Enlace_Direccion.)
class Enlace
{
  public:
    // The events to the holding window.
    enum Evento {
        ListaAbierta = 1, // the arrow opened the list
        Elegido = 2,      // a value has been chosen (or the text changed and the list closed)
        ListaOculta = 3,  // the control lost the focus and the list went away without a choice
    };
    std::function<void(int evento)> alEvento;

    // Keys that the box hands on to the list.
    enum class Tecla { Return, Arriba, Abajo };

    // The interface, as the holding windows use it.
    bool buscar();
    void cerrar();
    bool Redraw = true;
    void Additem(const QString &item);
    QString Text() const { return text1_; }
    void setText(const QString &text);
    int Listindex() const { return listIndex_; }
    void setListindex(int index);
    void Clear();
    QString Tabla;      // kept for the holder, with no other use
    bool Edita = false; // only changes the layout

    // What the form shows.
    const QStringList &List1() const { return lista_; }
    bool ListaVisible() const { return listaVisible_; }
    bool ListaConFoco() const { return listaConFoco_; }
    bool Cambiado() const { return cambiado_; }
    bool AbiertaConFlecha() const { return abiertaConFlecha_; }

    // The events of the parts, as the form passes them on.
    // A typed character (or '\b'): thrown away while the list is closed;
    // while it is open it edits the text and searches. True when taken.
    bool Text1_KeyPress(QChar c);
    // Return, up and down: handed to the open list. True when taken.
    bool Text1_KeyDown(Tecla tecla);
    // The box's text as the person edited it.
    void Text1_Change(const QString &text);
    void Text1_GotFocus();
    void Flecha_Click();
    // A click on an entry, or Return in the list.
    void List1_Click();
    void List1_KeyPress(QChar c);
    // The focus went outside the whole control.
    void LostFocus();

  private:
    void elegir();
    void avisar(int evento);

    QString text1_;
    QStringList lista_;
    int listIndex_ = -1;
    bool listaVisible_ = false;
    bool listaConFoco_ = false;
    bool cambiado_ = false;         // the text changed since the box got the focus
    bool abiertaConFlecha_ = false; // the list was opened with the arrow
};

} // namespace tesorel
