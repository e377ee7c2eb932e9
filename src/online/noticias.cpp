#include "online/noticias.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "core/texto_1252.h"
#include "online/download.h"
#include "store/helpers.h"
#include "store/session.h"
#include "store/ui.h"

namespace tesorel
{

const QString Noticias::Conectando = QStringLiteral("Conectando...");
const QString Noticias::No_Disponible_Descarga = QStringLiteral("No Disponible");
const QString Noticias::No_Disponible_Archivo = QStringLiteral("No disponible");

QString obtener_desde_hasta(const QString &texto, QChar desde, QChar hasta, QString &resto)
{
    bool abierta = false;
    QString recogido;
    for (qsizetype i = 0; i < texto.size(); ++i) {
        const QChar c = texto.at(i);
        if (c == desde && !(abierta && desde == hasta)) {
            abierta = true;
        } else if (c == hasta && abierta) {
            resto = texto.mid(i + 1);
            return recogido;
        } else if (abierta) {
            recogido += c;
        }
    }
    return {};
}

QString Direccion_Noticias(const QString &sitio, const QString &ticker)
{
    return sitio + QStringLiteral("/n/") + ticker.left(1) + u'/' + ticker + QStringLiteral(".mc.html");
}

QByteArray Reparar_Fines_De_Linea(const QByteArray &pagina)
{
    QByteArray salida;
    salida.reserve(pagina.size() + pagina.size() / 16);
    qsizetype i = 0;
    while (i < pagina.size()) {
        qsizetype fin = i;
        while (fin < pagina.size() && pagina.at(fin) != '\r')
            ++fin;
        QByteArray linea = pagina.mid(i, fin - i);
        // The two passes of the repair: line feed to Chr(1), Chr(1) to CR LF.
        linea.replace('\n', '\x01');
        linea.replace("\x01", "\r\n");
        salida += linea + "\r\n";
        i = fin + 1;
        if (fin < pagina.size() && i < pagina.size() && pagina.at(i) == '\n')
            ++i;
    }
    return salida;
}

QStringList Lineas_Del_Archivo(const QByteArray &contenido)
{
    QStringList lineas;
    qsizetype i = 0;
    while (i < contenido.size()) {
        qsizetype fin = i;
        while (fin < contenido.size() && contenido.at(fin) != '\r')
            ++fin;
        lineas << desde1252(contenido.mid(i, fin - i));
        i = fin + 1;
        if (fin < contenido.size() && i < contenido.size() && contenido.at(i) == '\n')
            ++i;
    }
    return lineas;
}

void obtenernoticias(const QStringList &lineas, QStringList &titulares, QStringList &enlaces)
{
    static const QString marca = QStringLiteral("<li><a href=");
    titulares.clear();
    enlaces.clear();
    if (lineas.isEmpty())
        return;
    qsizetype leida = 0;
    QString linea = lineas.at(0);
    // The file ends when its last line has been read, before that line is looked at.
    while (leida + 1 < lineas.size()) {
        if (linea.left(12) != marca) {
            linea = lineas.at(++leida);
            continue;
        }
        Reemplazar_Primero(linea, marca, QString());
        Reemplazar_Primero(linea, QStringLiteral("s</b></a>"), QString());
        Reemplazar_Primero(linea, QStringLiteral("</a>"), QString());
        Reemplazar_Primero(linea, QStringLiteral("<b>"), QString());
        QString resto = linea;
        const QString enlace = obtener_desde_hasta(linea, QChar(34), QChar(34), resto);
        Reemplazar_Primero(resto, QStringLiteral(">"), QString());
        titulares << resto;
        enlaces << enlace;
    }
}

Noticias::Noticias(Session &s, AjustesOnline ajustes) : s_(s), ajustes_(std::move(ajustes)) {}

void Noticias::avisar()
{
    if (alCambiar)
        alCambiar();
}

void Noticias::Yahoo_Click()
{
    // The download lets the window live: a second click in the meantime is not a second download.
    if (enCurso_)
        return;
    enCurso_ = true;
    YahooNoticias = QStringList{Conectando};
    Yahoourl.clear();
    avisar();
    if (!Yahoono) {
        YahooNoticias.clear();
        enCurso_ = false;
        avisar();
        return;
    }
    Espera = true;
    avisar();
    const QString pagina = QDir(s_.carpeta).filePath(QStringLiteral("yahoono.txt"));
    const QString reparada = QDir(s_.carpeta).filePath(QStringLiteral("yahoonoticias.txt"));
    s_.paso([&] {
        if (QFileInfo::exists(pagina))
            QFile::remove(pagina);
        const QString direccion = Direccion_Noticias(ajustes_.sitioNoticias, s_.Abreviatura_Actual);
        if (!Descargar_Url(direccion, pagina, ajustes_.limiteNoticiasMs)) {
            YahooNoticias << No_Disponible_Descarga;
            return;
        }
        QFile entrada(pagina);
        if (!entrada.open(QIODevice::ReadOnly)) {
            YahooNoticias << No_Disponible_Archivo;
            return;
        }
        const QByteArray arreglada = Reparar_Fines_De_Linea(entrada.readAll());
        entrada.close();
        QFile salida(reparada);
        if (salida.open(QIODevice::WriteOnly | QIODevice::Truncate))
            salida.write(arreglada);
        salida.close();
        obtenernoticias(Lineas_Del_Archivo(arreglada), YahooNoticias, Yahoourl);
    });
    Espera = false;
    enCurso_ = false;
    avisar();
}

void Noticias::YahooNoticias_DblClick(int indice)
{
    // With "No disponible" in the list the link is empty, and the desktop gets it as it is.
    const QString enlace = indice >= 0 && indice < Yahoourl.size() ? Yahoourl.at(indice) : QString();
    s_.ui.OpenUrl(enlace);
}

} // namespace tesorel
