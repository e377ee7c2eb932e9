#pragma once
#include <QByteArray>
#include <QChar>
#include <QString>
#include <QStringList>
#include <functional>

#include "online/ajustes_online.h"

namespace tesorel
{

class Session;

// Scans `texto` a character at a time: `desde` opens the capture (and,
// when it is also `hasta`, closes an open one), `hasta` with the capture
// open ends the scan. On an ended scan, the text collected in between,
// and `resto` gets what follows the closing character; off the end, ""
// and `resto` is left alone.
QString obtener_desde_hasta(const QString &texto, QChar desde, QChar hasta, QString &resto);

// The news page of a ticker at the site: /n/ + its first letter + / +
// the ticker + .mc.html, the ticker's case kept.
QString Direccion_Noticias(const QString &sitio, const QString &ticker);

// The site's page has bare line feeds inside what the file reader takes
// for one line (lines end at CR LF or CR): every one becomes CR LF. Bytes
// in, bytes out; every line of the result ends in CR LF.
QByteArray Reparar_Fines_De_Linea(const QByteArray &pagina);

// The lines of a file as the reader takes them: ended by CR LF or by CR.
QStringList Lineas_Del_Archivo(const QByteArray &contenido);

// The headlines and their links out of the repaired page's lines; the last
// line is never examined, since the loop ends when the file does.
void obtenernoticias(const QStringList &lineas, QStringList &titulares, QStringList &enlaces);

// The news tab of the main window without its widgets. The page goes to
// yahoono.txt in the data folder, repaired into yahoonoticias.txt; the
// headlines and the links are two parallel lists. The layout with dated
// groups that the site used earlier is not read.
class Noticias
{
  public:
    static const QString Conectando, No_Disponible_Descarga, No_Disponible_Archivo;

    Noticias(Session &s, AjustesOnline ajustes);

    // Controls, by name.
    bool Yahoono = false;      // the "Noticias" tick
    QStringList YahooNoticias; // the visible list
    QStringList Yahoourl;      // the hidden one: entry n is the link of headline n
    bool Espera = false;       // the hourglass pointer

    // Told when the list should be repainted in the middle of the work.
    std::function<void()> alCambiar;

    // The command "Yahoo! Noticias", the tick's click and the news tab.
    void Yahoo_Click();
    void YahooNoticias_DblClick(int indice);

    const AjustesOnline &ajustes() const { return ajustes_; }

  private:
    void avisar();

    Session &s_;
    AjustesOnline ajustes_;
    bool enCurso_ = false;
};

} // namespace tesorel
