#include "portfolio/cartera_valoracion.h"

#include <algorithm>

#include "core/format.h"
#include "core/nombres_comandos.h"
#include "core/numbers.h"
#include "core/paleta.h"
#include "portfolio/serie_cartera.h"
#include "store/database.h"
#include "store/helpers.h"
#include "store/query.h"
#include "store/session.h"
#include "store/ui.h"

namespace tesorel
{

namespace
{
const QString kDosBlancos = QStringLiteral("  ");

// The percentage masks: a share without decimals shows as "20 %", not with a
// comma left hanging before the sign.
QString porCiento(double valor, const QString &mascara)
{
    QString t = Format(valor, mascara);
    const qsizetype signo = t.indexOf(QLatin1String(" %"));
    if (signo > 0 && t[signo - 1] == u',')
        t.remove(signo - 1, 1);
    return t;
}

// The field of cartera1 that a sort statement orders by.
double clave(const PosicionValorada &p, const QString &campo)
{
    if (campo == QLatin1String("diferencial"))
        return p.Diferencial;
    if (campo == QLatin1String("valor_actual"))
        return p.Valor_Actual;
    if (campo == QLatin1String("beneficio"))
        return p.Beneficio;
    // A missing date sorts first, as a null does.
    return p.Fecha.isValid() ? double(p.Fecha.toJulianDay()) : -1e300;
}
} // namespace

QStringList FilaCartera::celdas() const
{
    return {FechaCompra, Dias,           Titulos,     Valor,     TantoCartera, PrecioCompra,
            Ultimo,      CosteInversion, ValorActual, Beneficio, TantoGanancia};
}

const QStringList cartera11::Encabezados{QStringLiteral(" Fecha de Compra"),
                                         QStringLiteral("Dias"),
                                         QStringLiteral("Títulos"),
                                         QStringLiteral("Valor"),
                                         QStringLiteral("% Cartera"),
                                         QStringLiteral("Precio de Compra"),
                                         QStringLiteral("Último"),
                                         QStringLiteral("Coste Inversión"),
                                         QStringLiteral("Valor  Actual"),
                                         QStringLiteral("Beneficio"),
                                         QStringLiteral("%")};

const std::array<QString, 4> cartera11::Sentencias{
    QStringLiteral("select * from cartera1 order by diferencial"),
    QStringLiteral("select * from cartera1 order by valor_actual"),
    QStringLiteral("select * from cartera1 order by beneficio "),
    QStringLiteral("select * from cartera1 order by fecha")};

cartera11::cartera11(Session &s, std::function<void(const QString &)> abrir, std::function<void()> cerrar)
    : s_(s), abrir_(std::move(abrir)), cerrar_(std::move(cerrar))
{
}

void cartera11::Form_Load()
{
    cartera1.clear();
    filasContador = 1;
    SSOption_Click(1);
    SSOption_Click(4);
    SSOption[5] = true;
    rellenar2();
}

void cartera11::rellenar2()
{
    operaciones_dividendos();
    filasContador = 1;
    cartera1.clear();
    costeTotal = valorTotal = 0;
    valorAnterior = Currency();

    QDate hoy;
    s_.paso([&] {
        Query f(*s_.Base_Datos, QStringLiteral("select fecha_Actual from Usuario_Actual"));
        if (f.next())
            hoy = f.date(0);
    });
    s_.paso([&] {
        Query c(*s_.Base_Datos,
                QStringLiteral("select VALOR, Cantidad, Precio_Compra, Fecha_Compra, Total_Compra "
                               "from cartera where usuario = ?"));
        c.bind(1, s_.Usuario_Numero);
        Query dia(*s_.Base_Datos,
                  QStringLiteral("select ULTIMO, ANTERIOR from bolsa_de_un_dia where valor = ?"));
        while (c.next()) {
            PosicionValorada p;
            Fecha = Format(hoy, QStringLiteral("dd/mm/yyyy"));
            p.Valor = c.number(0);
            p.Cantidad = c.number(1);
            Currency precio, u;
            s_.paso([&] { precio = Currency::fromDouble(c.number(2)); });
            p.Precio_Compra = precio.toDouble();
            p.Fecha = c.date(3);
            p.coste_total = c.number(4);
            // A value without a quote on the session's date is worth nothing that day.
            double anterior = 0;
            dia.bind(1, p.Valor);
            if (dia.next()) {
                s_.paso([&] { u = Currency::fromDouble(dia.number(0)); });
                anterior = dia.number(1);
            }
            dia.reset();
            const double v = u.toDouble() * p.Cantidad;
            s_.paso([&] { valorAnterior += Currency::fromDouble(anterior * p.Cantidad); });
            costeTotal += p.coste_total;
            valorTotal += v;
            p.Ultimo = u.toDouble();
            p.Valor_Actual = v;
            p.Diferencial = precio.units() != 0 ? u / precio - 1 : 0;
            p.Beneficio = v - p.coste_total;
            p.porcentage = valorTotal != 0 ? v / valorTotal : 0;
            cartera1.push_back(p);
            filasContador += 1;
        }
    });
    ver(sentencia + desc);
}

void cartera11::ver(const QString &sql)
{
    // The statement names the field and the direction; the rows keep their
    // order among equals.
    const QString orden = sql.section(QLatin1String("order by"), 1).trimmed().toLower();
    const bool descendente = orden.endsWith(QLatin1String(" desc"));
    const QString campo = orden.section(u' ', 0, 0);
    std::vector<const PosicionValorada *> vista;
    vista.reserve(cartera1.size());
    for (const auto &p : cartera1)
        vista.push_back(&p);
    std::stable_sort(vista.begin(), vista.end(), [&](const PosicionValorada *a, const PosicionValorada *b) {
        return descendente ? clave(*a, campo) > clave(*b, campo) : clave(*a, campo) < clave(*b, campo);
    });

    const bool conReparto = costeTotal != 0 && valorTotal != 0;
    const QDate hoy = s_.Hoy();
    size_t i = 0;
    for (const PosicionValorada *p : vista) {
        if (i >= filas.size())
            filas.emplace_back();
        FilaCartera &f = filas[i++];
        f.Titulos = Format(p->Cantidad, QStringLiteral("####,###  "));
        f.Valor = Abreviatura11_De(s_, p->Valor) + kDosBlancos;
        f.Valor_Tag = p->Valor;
        f.PrecioCompra = kDosBlancos + visualizar(p->Precio_Compra);
        f.ValorActual = kDosBlancos + visualizar(p->Valor_Actual);
        f.Ultimo = kDosBlancos + visualizar(p->Ultimo);
        f.Beneficio = kDosBlancos + visualizar(p->Beneficio);
        f.CosteInversion = kDosBlancos + visualizar(p->coste_total);
        f.TantoGanancia = porCiento(p->Diferencial, QStringLiteral("####,###.## %"));
        f.TantoGanancia_ForeColor = p->Diferencial > 0 ? paleta::VerdeOscuro : paleta::Negro;
        // A purchase without a date shows no date and no days.
        f.FechaCompra =
            p->Fecha.isValid() ? Format(p->Fecha, QStringLiteral("dd-mm-yyyy")) + kDosBlancos : kDosBlancos;
        f.Dias = p->Fecha.isValid() ? Format(double(p->Fecha.daysTo(hoy)), QStringLiteral("###,###,###  "))
                                    : QString();
        if (conReparto)
            f.TantoCartera = porCiento(p->Valor_Actual / valorTotal, QStringLiteral("####,###.## %  "));
    }
    for (size_t k = i; k < filas.size() && k < 16; ++k) {
        const double tag = filas[k].Valor_Tag;
        filas[k] = FilaCartera();
        filas[k].Valor_Tag = tag;
    }
    VScroll1_Enabled = i > size_t(FilasVisibles);
    VScroll1_Max = VScroll1_Enabled ? int(i) - FilasVisibles : 0;
    VScroll1_Value = std::min(VScroll1_Value, VScroll1_Max);

    Label1_1300 = visualizar(costeTotal);
    Label1_1400 = visualizar(valorTotal);
    diferencia = valorTotal - costeTotal;
    Label1_800 = visualizar(diferencia);
    if (costeTotal != 0)
        tanto = diferencia / costeTotal;
    Label1_700 = porCiento(tanto, QStringLiteral("####,###.## % "));
    CarteraLabel[0] = kDosBlancos + visualizar(valorAnterior.toDouble());
    CarteraLabel[1] = kDosBlancos + visualizar(valorTotal);
    s_.paso([&] {
        CarteraDif = kDosBlancos + visualizar((Currency::fromDouble(valorTotal) - valorAnterior).toDouble());
    });
    // The day's change is taken on today's value.
    if (valorTotal != 0)
        CarteraTanto =
            Format(100 * (valorTotal - valorAnterior.toDouble()) / valorTotal, QStringLiteral("#0.##")) +
            kDosBlancos;
    const double signo = Numero_Val(CarteraTanto);
    LabelDif_ForeColor = signo > 0 ? paleta::VerdeOscuro : signo < 0 ? paleta::Granate : paleta::Negro;
}

QString cartera11::visualizar(double importe) const
{
    if (Moneda == QLatin1String("E"))
        return Format(importe, QStringLiteral("###,###,###.00 "));
    if (Moneda == QLatin1String("P"))
        return Format(importe * PesetasPorEuro, QStringLiteral("###,###,###,### "));
    return {};
}

void cartera11::SSOption_Click(int indice)
{
    if (indice >= 1 && indice <= 4) {
        for (int k = 1; k <= 4; ++k)
            SSOption[k] = k == indice;
        sentencia = Sentencias[indice - 1];
    } else if (indice == 5 || indice == 6) {
        SSOption[5] = indice == 5;
        SSOption[6] = indice == 6;
        desc = indice == 5 ? QStringLiteral(" desc") : QString();
    } else
        return;
    ver(sentencia + desc);
}

void cartera11::Euros_Click()
{
    Euros = true;
    pesetas = false;
    Moneda = QStringLiteral("E");
    ver(sentencia + desc);
}

void cartera11::pesetas_Click()
{
    Euros = false;
    pesetas = true;
    Moneda = QStringLiteral("P");
    ver(sentencia + desc);
}

void cartera11::setMoneda(const QString &texto)
{
    if (texto == Moneda)
        return;
    Moneda = texto;
    // The option button that goes with the text is selected, and its click shows the list again.
    if (texto == QLatin1String("E"))
        Euros_Click();
    else if (texto == QLatin1String("P"))
        pesetas_Click();
}

void cartera11::abrirYRellenar(const QString &ventana)
{
    if (abrir_)
        abrir_(ventana);
    rellenar2();
}

void cartera11::Command1_Click(int indice)
{
    static const char *const ventanas[] = {comando::ModifCartera, comando::Comprar, comando::Vender,
                                           comando::Historico,    nullptr,          comando::ImportarOp};
    if (indice == 4) {
        s_.ui.MsgBox(QStringLiteral("Disponible en breve"), mb::Information, QStringLiteral("Información"));
        return;
    }
    if (indice >= 0 && indice <= 5)
        abrirYRellenar(QString::fromLatin1(ventanas[indice]));
}

void cartera11::menu_volver_Click()
{
    if (cerrar_)
        cerrar_();
}

void cartera11::menu_gerarar_valorCArtera_Click()
{
    Generar_Serie_Cartera(s_, 0, avisos);
}

void cartera11::Valor_DblClick(int fila)
{
    if (fila < 1 || size_t(fila) > filas.size())
        return;
    s_.Valor_Cartera_Edicion = filas[size_t(fila) - 1].Valor_Tag;
    abrirYRellenar(comando::ModifCartera);
}

void cartera11::Importa_Click()
{
    // Only the access code opens the import; any other answer does nothing.
    if (s_.ui.InputBox(QStringLiteral("Clave: ")) == QLatin1String("bancomar"))
        abrirYRellenar(comando::ImportarOp);
}

void cartera11::VScroll1_Change(int valor)
{
    VScroll1_Value = std::clamp(valor, 0, VScroll1_Max);
}

} // namespace tesorel
