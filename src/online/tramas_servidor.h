#pragma once
#include <QByteArray>
#include <vector>

namespace tesorel
{

// How the chat server reads what one client sends. The program's client
// ends no frame with the separator but "spl": each of its reads is taken as
// one frame (a human types slower than a packet travels). A client whose
// first read ends a frame with 0xA0 is taken as one that ends every frame
// so, and its pieces are joined across reads.
class LectorTramas
{
  public:
    static constexpr qsizetype kTramaMaxima = 1024; // bytes of one frame

    enum class Resultado { Bien, Basura };

    // Adds a read; the whole frames go to `tramas`. Basura for anything the
    // client would never send: an unknown command, a control byte, a frame
    // too long, and a held piece that could not become a frame.
    Resultado leer(const QByteArray &llegado, std::vector<QByteArray> &tramas);

    bool conSeparador() const { return conSeparador_; }

  private:
    static bool valida(const QByteArray &trama);
    static bool empiezaBien(const QByteArray &trama);

    QByteArray pendiente_;
    bool primera_ = true;
    bool conSeparador_ = false;
};

} // namespace tesorel
