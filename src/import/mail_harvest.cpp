#include "import/mail_harvest.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "core/texto_1252.h"
#include "import/cmessage.h"
#include "store/session.h"

namespace tesorel
{

namespace
{
constexpr int kFinDeArchivo = 62;
constexpr int kNombreIncorrecto = 52;
constexpr int kRutaNoEncontrada = 76;

RuntimeError finDeArchivo()
{
    return RuntimeError(kFinDeArchivo, QStringLiteral("La entrada pasa del final del archivo"));
}

bool blanca(const QString &linea)
{
    for (QChar c : linea)
        if (c != u' ')
            return false;
    return true;
}

void escribir(const QString &ruta, const QByteArray &bytes)
{
    QFile f(ruta);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate) || f.write(bytes) != bytes.size())
        throw RuntimeError(kRutaNoEncontrada, QStringLiteral("No se ha encontrado la ruta de acceso"));
}
} // namespace

bool esDelRemitente(const QString &from)
{
    return QStringView(from).mid(1, RemitenteCorreo.size()) == RemitenteCorreo;
}

Adjunto leerAdjunto(const QStringList &lineas)
{
    Adjunto a;
    qsizetype i = 0;
    while (i < lineas.size() && !lineas[i].contains(QLatin1String("name=")))
        ++i;
    if (i == lineas.size()) {
        a.finDeArchivo = true;
        return a;
    }
    a.conNombre = true;
    a.nombre = lineas[i].mid(7, 10);
    i += 5; // the name's line and the four that finish the part's header
    if (i > lineas.size()) {
        a.finDeArchivo = true;
        return a;
    }
    for (; i < lineas.size(); ++i) {
        a.lineas << lineas[i];
        if (blanca(lineas[i]))
            return a;
    }
    a.finDeArchivo = true;
    return a;
}

bool nombreSeguro(const QString &nombre)
{
    if (nombre.isEmpty() || nombre == u'.' || nombre == QLatin1String(".."))
        return false;
    for (QChar c : nombre)
        if (c.unicode() < 0x20 || QStringView(u"<>:\"/\\|?*").contains(c))
            return false;
    return true;
}

void Cosechar(Session &s, const CMessages &mensajes,
              const std::function<void(const QString &)> &mostrarAsunto)
{
    const QString carpeta = s.carpeta + QStringLiteral("/mail/");
    const QString trabajo = carpeta + QStringLiteral("provisio.tx1");
    for (const auto &m : mensajes) {
        if (mostrarAsunto)
            mostrarAsunto(m->Subject);
        if (!esDelRemitente(m->From))
            continue;
        try {
            // The body goes through the work file as a line-by-line read would see it.
            const QByteArray cuerpo = a1252(m->MessageBody) + "\r\n";
            escribir(trabajo, cuerpo);
            const Adjunto a = leerAdjunto(lineasDeTexto(desde1252(cuerpo)));
            if (!a.conNombre)
                throw finDeArchivo();
            if (!nombreSeguro(a.nombre) || QFileInfo(carpeta + a.nombre).isSymLink() ||
                QFileInfo(carpeta + a.nombre).isDir()) {
                s.Registrar_Error(
                    RuntimeError(kNombreIncorrecto, QStringLiteral("Nombre de archivo incorrecto")));
                continue;
            }
            QByteArray salida;
            for (const QString &l : a.lineas)
                salida += a1252(l) + "\r\n";
            escribir(carpeta + a.nombre, salida);
            if (a.finDeArchivo)
                throw finDeArchivo();
        } catch (const RuntimeError &e) {
            s.Registrar_Error(e);
            return;
        }
    }
}

} // namespace tesorel
