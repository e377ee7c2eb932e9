// tesorel-cli chart: the main window's three charts and head labels for a
// value, drawn offscreen by the same routine as the window, into a PNG.
#include "commands.h"

#include "charts/chart_interaction.h"
#include "charts/chart_operations.h"
#include "charts/overlay_painter.h"
#include "charts/painter_surface.h"
#include "charts/price_chart.h"
#include "store/helpers.h"
#include "store/session.h"
#include "store/ui.h"

#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <charconv>
#include <cstdio>

namespace tesorel::cli
{

namespace
{

constexpr int kAncho = 1200;
constexpr int kAltoPrecio = 520, kAltoVolumen = 150, kAltoIndicador = 190, kAltoCabecera = 64;

struct Opciones {
    QString base, nombre, png, csv;
    double usuario = 1, dias = 0;
    bool velas = false, log = false, splits = false, operaciones = false;
    int indicador = 0;
    QString media1 = QStringLiteral("30"), media2 = QStringLiteral("9");
};

bool leerOpciones(const QStringList &args, Opciones &o)
{
    QStringList libres;
    for (int i = 0; i < args.size(); ++i) {
        const QString &a = args[i];
        auto valor = [&](QString &out) {
            if (i + 1 >= args.size())
                return false;
            out = args[++i];
            return true;
        };
        QString v;
        bool ok = true;
        if (a == QLatin1String("--png"))
            ok = valor(o.png);
        else if (a == QLatin1String("--csv"))
            ok = valor(o.csv);
        else if (a == QLatin1String("--user"))
            ok = valor(v) && (o.usuario = v.toDouble(&ok), ok);
        else if (a == QLatin1String("--days"))
            ok = valor(v) && (o.dias = v.toDouble(&ok), ok) && o.dias >= 0;
        else if (a == QLatin1String("--indicator"))
            ok = valor(v) && (o.indicador = v.toInt(&ok), ok) && o.indicador >= 0 && o.indicador <= 3;
        else if (a == QLatin1String("--mediat")) {
            ok = valor(v);
            const QStringList partes = v.split(u',');
            ok = ok && partes.size() == 2;
            if (ok) {
                o.media1 = partes[0];
                o.media2 = partes[1];
            }
        } else if (a == QLatin1String("--candle"))
            o.velas = true;
        else if (a == QLatin1String("--log"))
            o.log = true;
        else if (a == QLatin1String("--splits"))
            o.splits = true;
        else if (a == QLatin1String("--operations"))
            o.operaciones = true;
        else if (a.startsWith(QLatin1String("--")))
            ok = false;
        else
            libres << a;
        if (!ok)
            return false;
    }
    if (libres.size() != 2 || o.png.isEmpty())
        return false;
    o.base = libres[0];
    o.nombre = libres[1];
    return true;
}

// The shortest text that reads back as the same number, with a point.
QString numero(double v)
{
    char buffer[400];
    const auto r = std::to_chars(buffer, buffer + sizeof buffer, v, std::chars_format::fixed);
    return QString::fromLatin1(buffer, qsizetype(r.ptr - buffer));
}

bool escribirCsv(const QString &ruta, const GraficaPrincipal &g)
{
    QFile f(ruta);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text))
        return false;
    QString out = QStringLiteral("punto,fecha,p1,p2,p3,p4,p5,p6,p7,p8,vol,i1,i2,i3,i4\n");
    for (int p = 1; p <= g.puntosEscritos(); ++p) {
        out += QString::number(p) + u',' + g.GraficaPrecio.fechaDe(p).toString(Qt::ISODate);
        for (int s = 1; s <= 8; ++s)
            out += u',' + numero(g.GraficaPrecio.valor(s, p));
        out += u',' + numero(g.GraficaVolumen.valor(1, p));
        for (int s = 1; s <= 4; ++s)
            out += u',' + numero(g.GraficaIndicador.valor(s, p));
        out += u'\n';
    }
    return f.write(out.toUtf8()) >= 0;
}

// The head of the window: title, the day's change, the close, the change
// of the average price, the extremes and the window's dates.
void pintarCabecera(QPainter &p, const EtiquetasGrafica &e)
{
    p.fillRect(QRect(0, 0, kAncho, kAltoCabecera), QColor(236, 233, 216));
    QFont titulo(QStringLiteral("DejaVu Sans"), 13, QFont::Bold);
    p.setFont(titulo);
    p.setPen(Qt::black);
    p.drawText(QPoint(10, 24), e.Titulo.texto);
    QFont f(QStringLiteral("DejaVu Sans"), 9);
    p.setFont(f);
    int x = 10;
    auto campo = [&](const QString &rotulo, const Etiqueta &et) {
        p.setPen(Qt::darkGray);
        p.drawText(QPoint(x, 50), rotulo);
        x += p.fontMetrics().horizontalAdvance(rotulo) + 4;
        p.setPen(PainterSurface::toQColor(et.color));
        p.drawText(QPoint(x, 50), et.texto);
        x += p.fontMetrics().horizontalAdvance(et.texto) + 18;
    };
    for (const EtiquetaDeCabecera &c : EtiquetasDeCabecera)
        campo(QString::fromUtf8(c.rotulo), e.*c.etiqueta);
}

} // namespace

int chartCommand(const QStringList &args)
{
    Opciones o;
    if (!leerOpciones(args, o))
        return usage();
    if (!QFileInfo::exists(o.base))
        return reportFailure(53, QStringLiteral("No se encuentra el archivo '%1'.").arg(o.base));

    ScriptedUi ui;
    Session s(ui, QFileInfo(o.base).absolutePath());
    s.abrirBase(o.base);
    Abrir_Empresas(s);
    s.Usuario_Numero = o.usuario;
    s.Maximo_Dias_Sesion = o.dias;

    PainterSurface p1(kAncho, kAltoPrecio), p2(kAncho, kAltoVolumen), p3(kAncho, kAltoIndicador);
    GraficaPrincipal g(s);
    OperacionesGrafica ops(s, g);
    g.DefinirGraficas(&p1, &p2, &p3);
    g.controles.Text1 = o.nombre;
    g.controles.Candle = o.velas ? 1 : 0;
    if (o.velas)
        marcarSeriesDeVela(g.controles.Check2);
    g.controles.Logaritmica = o.log ? 1 : 0;
    g.controles.Splita = o.splits ? 1 : 0;
    g.controles.Mediat[1] = o.media1;
    g.controles.Mediat[2] = o.media2;
    g.controles.Indicador_Actual = QString::number(o.indicador);
    ops.MostrarOperaciones = o.operaciones ? 1 : 0;
    g.VerOperacionesGrafica = [&] { ops.VerOperacionesGrafica(); };
    g.DibujarGrafica();

    QImage hoja(kAncho, kAltoCabecera + kAltoPrecio + kAltoVolumen + kAltoIndicador, QImage::Format_RGB32);
    hoja.fill(Qt::white);
    {
        QPainter p(&hoja);
        pintarCabecera(p, g.etiquetas);
        p.drawImage(0, kAltoCabecera, p1.image());
        p.save();
        p.translate(0, kAltoCabecera);
        pintarMarcas(p, EscalaPixeles::de(p1, kAncho, kAltoPrecio), &ops, nullptr);
        p.restore();
        p.drawImage(0, kAltoCabecera + kAltoPrecio, p2.image());
        p.drawImage(0, kAltoCabecera + kAltoPrecio + kAltoVolumen, p3.image());
        p.setPen(Qt::gray);
        p.drawLine(0, kAltoCabecera + kAltoPrecio, kAncho, kAltoCabecera + kAltoPrecio);
        p.drawLine(0, kAltoCabecera + kAltoPrecio + kAltoVolumen, kAncho,
                   kAltoCabecera + kAltoPrecio + kAltoVolumen);
    }
    if (!hoja.save(o.png, "PNG"))
        return reportFailure(75, QStringLiteral("No se puede escribir '%1'.").arg(o.png));
    if (!o.csv.isEmpty() && !escribirCsv(o.csv, g))
        return reportFailure(75, QStringLiteral("No se puede escribir '%1'.").arg(o.csv));
    if (!g.etiquetas.Noticias.isEmpty())
        std::fputs(g.etiquetas.Noticias.toUtf8().replace("\r\n", "\n").constData(), stdout);
    return kOk;
}

namespace
{
const CommandRegistration registro{
    {"chart",
     "chart BASE NAME --png OUT [--csv OUT] [--user N] [--days N] [--candle] [--log] [--splits] [--indicator "
     "0-3] [--mediat A,B] [--operations]   draw a value's charts",
     chartCommand, true}};
} // namespace

} // namespace tesorel::cli
