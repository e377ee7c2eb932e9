#include "charts/chart_interaction.h"

#include "charts/price_chart.h"
#include "charts/surface.h"
#include "core/dates.h"
#include "core/format.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "core/scale.h"
#include "store/database.h"
#include "store/recordset.h"
#include "store/session.h"
#include "store/ui.h"

#include <QDir>
#include <QFile>
#include <cmath>

namespace tesorel
{

InteraccionGrafica::InteraccionGrafica(Session &s, GraficaPrincipal &g) : s_(s), g_(g)
{
    Linea[0] = LineaGrafica{};
}

namespace
{
float altoTexto(Surface *box, const QString &t)
{
    return box ? std::fabs(box->textHeight(t)) : 0.0f;
}
float anchoTexto(Surface *box, const QString &t)
{
    return box ? box->textWidth(t) : 0.0f;
}
// A circle of a text line's height, as wide as it is high on the screen.
void medirCirculo(Surface *box, CirculoGrafica &c)
{
    c.height = altoTexto(box, QStringLiteral("O")) * 0.8;
    c.width = anchoTexto(box, QStringLiteral("O")) * 0.8;
}
} // namespace

void InteraccionGrafica::Picture1_MouseDown(int boton, int, double x, double y)
{
    Surface *box = g_.GraficaPrecio.surfacePtr();
    if (boton == kIzquierdo) {
        const int n = ++NumeroLineas;
        Linea[n] = Linea[0];
        Inicio.caption = Format(De_Escala(y, s_.Logaritmica), QStringLiteral("##0.##"));
        Inicio.height = altoTexto(box, Inicio.caption);
        Inicio.width = anchoTexto(box, Inicio.caption);
        Inicio.top = y + Inicio.height;
        Inicio.left = x - Inicio.width / 2;
        Inicio.visible = true;
        medirCirculo(box, Circulo1);
        Circulo1.left = x - Circulo1.width / 2;
        Circulo1.top = y + Circulo1.height / 2;
        Circulo1.visible = true;
        LineaGrafica &l = Linea[n];
        l.x1 = l.x2 = x;
        l.y1 = l.y2 = y;
        l.visible = true;
    } else if (boton == kDerecho) {
        // The next move pulls the other end. With no drag it is the
        // template that swaps, harmlessly.
        LineaGrafica &l = Linea[NumeroLineas];
        std::swap(l.x1, l.x2);
        std::swap(l.y1, l.y2);
    }
}

void InteraccionGrafica::Picture1_MouseMove(int boton, int, double x, double y)
{
    if (boton == 0)
        return;
    Surface *box = g_.GraficaPrecio.surfacePtr();
    Fin.caption = Format(De_Escala(y, s_.Logaritmica), QStringLiteral("##0.##"));
    // Inicio's caption measures both labels.
    Fin.height = altoTexto(box, Inicio.caption);
    Fin.width = std::max(anchoTexto(box, Inicio.caption), anchoTexto(box, Fin.caption));
    Fin.top = y + altoTexto(box, Inicio.caption);
    Fin.left = x - anchoTexto(box, Inicio.caption) / 2;
    Fin.visible = true;
    medirCirculo(box, Circulo2);
    Circulo2.left = x - Circulo2.width / 2;
    Circulo2.top = y + Circulo2.height / 2;
    Circulo2.visible = true;
    LineaGrafica &l = Linea[NumeroLineas];
    l.x2 = x;
    l.y2 = y;
}

void InteraccionGrafica::Picture1_MouseUp(int boton, int, double, double)
{
    if (boton != kIzquierdo)
        return;
    Linea[NumeroLineas].visible = false;
    if (NumeroLineas != 0) {
        Linea.erase(NumeroLineas);
        NumeroLineas = NumeroLineas - 1;
    }
}

void InteraccionGrafica::Titulo_Change()
{
    Circulo1.visible = Circulo2.visible = false;
    Inicio.visible = Fin.visible = false;
}

double InteraccionGrafica::lupaMas(double dias)
{
    if (dias == 0)
        return 0;
    if (dias == 200)
        return 0;
    if (dias == 100)
        return 200;
    if (dias == 50)
        return 100;
    if (dias == 15)
        return 50;
    if (dias == 5)
        return 15;
    return 0;
}

double InteraccionGrafica::lupaMenos(double dias)
{
    if (dias == 0)
        return 200;
    if (dias == 200)
        return 100;
    if (dias == 100)
        return 50;
    if (dias == 50)
        return 15;
    return 5;
}

void InteraccionGrafica::Lupa_Mas_Click()
{
    s_.Maximo_Dias_Sesion = lupaMas(s_.Maximo_Dias_Sesion);
    g_.DibujarGrafica();
}

void InteraccionGrafica::Lupa_menos_Click()
{
    s_.Maximo_Dias_Sesion = lupaMenos(s_.Maximo_Dias_Sesion);
    g_.DibujarGrafica();
}

void InteraccionGrafica::setTiker(const QString &texto)
{
    if (texto == Tiker)
        return;
    Tiker = texto;
    if (Tiker == QStringLiteral("TIKER"))
        return;
    if (Tiker == QStringLiteral("XXXXX")) {
        Tiker = QStringLiteral("TIKER");
        return;
    }
    exportar(Tiker);
    Tiker = QStringLiteral("TIKER");
}

namespace
{
// A field as the delimited write puts it: a number with a point, a date
// between number signs year first, a null as its own word.
QString escrito(const QVariant &v)
{
    if (!v.isValid() || v.isNull())
        return QStringLiteral("#NULL#");
    if (v.typeId() == QMetaType::QDate)
        return QLatin1Char('#') + v.toDate().toString(QStringLiteral("yyyy-MM-dd")) + QLatin1Char('#');
    if (v.typeId() == QMetaType::QString)
        return QLatin1Char('"') + v.toString() + QLatin1Char('"');
    return Str(v.toDouble()).trimmed();
}
} // namespace

void InteraccionGrafica::exportar(const QString &ticker)
{
    auto rs = s_.Base_Datos->openRecordset(QStringLiteral("Select * from bolsa where valor = ") +
                                           CStr(TikerTag) + QStringLiteral(" order by fecha"));
    // Relative to the application folder, as the current folder was.
    const QString ruta =
        QDir(s_.carpeta).filePath(QStringLiteral("../OpenTesorel/Cotiza/") + ticker + QStringLiteral(".txt"));
    QFile f(ruta);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw RuntimeError(76, QStringLiteral("No se ha encontrado la ruta de acceso"));
    for (; !rs->Eof(); rs->MoveNext()) {
        const QVariant dif = rs->field(QStringLiteral("Dif"));
        const QString linea = escrito(rs->field(QStringLiteral("Fecha"))) + u',' +
                              escrito(rs->field(QStringLiteral("Anterior"))) + u',' +
                              escrito(rs->field(QStringLiteral("Ultimo"))) + u',' +
                              escrito(dif.isNull() ? QVariant(0.0) : dif) + QStringLiteral(",0,") +
                              escrito(rs->field(QStringLiteral("Maximo"))) + u',' +
                              escrito(rs->field(QStringLiteral("minimo"))) + u',' +
                              escrito(rs->field(QStringLiteral("Volumen"))) + u',' +
                              escrito(rs->field(QStringLiteral("Efect"))) + QStringLiteral("\r\n");
        f.write(linea.toUtf8());
        s_.ui.DoEvents();
    }
}

void InteraccionGrafica::Command1_Click(int entradas, const std::function<void(int)> &seleccionar)
{
    for (int i = 1; i <= entradas; ++i) {
        seleccionar(i);
        while (Tiker != QStringLiteral("TIKER"))
            s_.ui.DoEvents();
    }
}

} // namespace tesorel
