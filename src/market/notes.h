#pragma once
#include <QString>

namespace tesorel
{

class Session;

// The free note on a value (tab "Notas"), one per value and shared by all
// users. A note can be changed but never cleared: an empty box writes nothing.
class Notas
{
  public:
    explicit Notas(Session &session) : s(session) {}

    QString Comentario;

    void CargarComentario(double codigo);
    void GrabarComentario(double codigo);

  private:
    Session &s;
};

} // namespace tesorel
