#pragma once
#include <QString>
#include <QStringList>
#include <functional>

namespace tesorel
{

class CMessages;
class Session;

// The display name of the system's own mailing, read from the From field's
// second character on, where it stands behind its opening quote mark.
inline const QString RemitenteCorreo = QStringLiteral("Tesorel");

bool esDelRemitente(const QString &from);

// What the work file of one message body yields: the attachment's name (the
// ten characters from the eighth of the first line that holds "name="), and
// the lines copied after the four of the part's header, up to and including
// the first blank one. `finDeArchivo` when the lines ran out first.
struct Adjunto {
    QString nombre;
    QStringList lineas;
    bool conNombre = false;
    bool finDeArchivo = false;
};
Adjunto leerAdjunto(const QStringList &lineasDelCuerpo);

// A name that lands inside mail/ and nowhere else: no separators, no
// characters a file name cannot hold, not "." or "..".
bool nombreSeguro(const QString &nombre);

// Writes the attachment of every message of the mailing into the data
// folder's mail/ through the work file mail/provisio.tx1. `mostrarAsunto`
// receives each message's subject as it is taken. A body that runs out
// before its attachment ends the harvest with the failure reported.
void Cosechar(Session &s, const CMessages &mensajes,
              const std::function<void(const QString &)> &mostrarAsunto);

} // namespace tesorel
