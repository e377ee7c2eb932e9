#include "market/cotizaciones.h"

#include <algorithm>
#include <cmath>

#include "core/dates.h"
#include "core/format.h"
#include "core/int16.h"
#include "core/numbers.h"
#include "market/current_table.h"
#include "store/database.h"
#include "store/helpers.h"
#include "store/recordset.h"
#include "store/session.h"
#include "store/ui.h"
#include "store/usuario.h"

namespace tesorel
{

const QStringList Cotizaciones::Cabeceras{
    QString(),
    QStringLiteral("Valor"),
    QStringLiteral("Anterior"),
    QStringLiteral("Ultimo"),
    QStringLiteral("Dif. %"),
    QStringLiteral("Volumen"),
    QStringLiteral("Máximo"),
    QStringLiteral("Mínimo"),
    QStringLiteral("Efectivo"),
};

namespace
{
// The sort field of each heading that has an option.
QString campoDeOrden(int indice)
{
    switch (indice) {
    case 1:
        return QStringLiteral("Valor"); // the code, not the name
    case 4:
        return QStringLiteral("Dif");
    case 5:
        return QStringLiteral("Volumen");
    case 8:
        return QStringLiteral("efect");
    default:
        return {};
    }
}

Recordset &abierto(const std::unique_ptr<Recordset> &rs)
{
    if (!rs)
        throw RuntimeError(err::ObjectNotSet, QStringLiteral("Variable de tipo Object no establecida"));
    return *rs;
}

double numero(const QVariant &v)
{
    if (!v.isValid() || v.isNull())
        throw RuntimeError(err::InvalidUseOfNull, QStringLiteral("Uso no válido de Null"));
    return v.toDouble();
}

// A number through a mask; a null gives no text, as the mask of a null does.
QString formato(const QVariant &v, const QString &mascara)
{
    return !v.isValid() || v.isNull() ? QString() : Format(v.toDouble(), mascara);
}
} // namespace

Cotizaciones::Cotizaciones(Session &s) : s_(s)
{
    pestana_Caption[1] = QStringLiteral("Mercado Continuo");
    pestana_Caption[2] = QStringLiteral("IBEX 35");
    pestana_Caption[3] = QStringLiteral("Cartera ");
    pestana_Caption[4] = QStringLiteral("En Seguimiento");
    Picturar();
}

void Cotizaciones::setIntervalo(const QString &texto)
{
    if (texto == Intervalo_)
        return;
    Intervalo_ = texto;
    Intervalo_Change();
}

void Cotizaciones::setValores(const QString &texto)
{
    if (texto == Valores_)
        return;
    Valores_ = texto;
    dibujar();
}

void Cotizaciones::setOrdenar(const QString &texto)
{
    if (texto == Ordenar_)
        return;
    Ordenar_ = texto;
    dibujar();
}

void Cotizaciones::setDesc(const QString &texto)
{
    if (texto == desc_)
        return;
    desc_ = texto;
    dibujar();
}

void Cotizaciones::setText1(const QString &texto)
{
    if (texto == Text1_)
        return;
    Text1_ = texto;
    Text1_Change();
}

void Cotizaciones::Form_Load(const QString &valorPrincipal)
{
    // The position, the size and the rows per page are the form's.
    s_.paso([&] {
        codigoPestanaValor = Codigo_De(s_, valorPrincipal, BuscarPor::Nombre);
        pestana_Caption[PestanaValor] = Abreviatura11_De(s_, codigoPestanaValor);
    });
    menu_seleccionar_intervalo_Click();
    s_.paso([&] { s_.Fechas_rs = s_.Base_Datos->openRecordset(QStringLiteral("select * from fechas")); });
    s_.paso([&] { s_.Usuario_Actual_rs = s_.Base_Datos->openRecordset(QStringLiteral("Usuario_actual")); });
    s_.paso([&] {
        abierto(s_.Fechas_rs).MoveLast();
        ponerFechaDelCursor();
    });
}

void Cotizaciones::ponerFechaDelCursor()
{
    const QVariant dia = abierto(s_.Fechas_rs).field(QStringLiteral("Fecha"));
    Fecha = Format(dia.toDate(), QStringLiteral("dd-mm-yyyy"));
}

void Cotizaciones::pestana_Click(int indice)
{
    const int pestana = indice == PestanaValor ? 5 : indice;
    const QString porUsuario = QStringLiteral(" Where faboritos.usuario = ") + CStr(s_.Usuario_Numero);
    QString valores;
    switch (pestana) {
    case 1:
        valores = QStringLiteral("Bolsa");
        filtro.clear();
        break;
    case 2:
        valores = QStringLiteral("Ibex");
        filtro.clear();
        break;
    case 3:
        valores = QStringLiteral("CARTERA_actual");
        filtro = porUsuario;
        break;
    case 4:
        valores = QStringLiteral("Faboritos_actual");
        filtro = porUsuario;
        break;
    case 5:
        valores = QStringLiteral("Valor");
        break;
    default:
        return;
    }
    Caption = QStringLiteral("Cotizaciones ") + pestana_Caption[pestana == 5 ? PestanaValor : pestana];
    setValores(valores);
}

void Cotizaciones::Image0_Click(int indice)
{
    if (campoDeOrden(indice).isEmpty())
        return;
    if (Option2 == indice) {
        Check1 = Check1 == 0 ? 1 : 0;
        Check1_Click();
    } else {
        Option2 = indice;
        Option2_Click(indice);
    }
}

void Cotizaciones::Option2_Click(int indice)
{
    setOrdenar(campoDeOrden(indice));
    Picturar();
}

void Cotizaciones::Check1_Click()
{
    setDesc(Check1 == 1 ? QStringLiteral("DESC") : QString());
    Picturar();
}

void Cotizaciones::Picturar()
{
    Image0.fill(ImagenOrden::Ninguna);
    if (Option2 >= 1 && Option2 <= 8)
        Image0[Option2] = Check1 == 1 ? ImagenOrden::Descendente : ImagenOrden::Ascendente;
}

void Cotizaciones::Command1_Click()
{
    s_.paso([&] {
        Recordset &f = abierto(s_.Fechas_rs);
        f.MovePrevious();
        if (f.Bof()) {
            f.MoveFirst();
            s_.ui.Beep();
        }
        ponerFechaDelCursor();
    });
}

void Cotizaciones::Command2_Click()
{
    s_.paso([&] {
        Recordset &f = abierto(s_.Fechas_rs);
        f.MoveNext();
        if (f.Eof()) {
            f.MoveLast();
            s_.ui.Beep();
        }
        ponerFechaDelCursor();
    });
}

// The quick clicker's pause: the table follows Fecha only once it has
// stood still for eight ticks.
bool Cotizaciones::Timer1_Timer()
{
    if (Fecha != fechaVista_) {
        fechaVista_ = Fecha;
        ticks_ = 0;
    } else {
        ++ticks_;
    }
    if (ticks_ < 8)
        return false;
    ticks_ = 0;
    const bool cambia = Fecha != Text1_;
    setText1(Fecha);
    return cambia;
}

// The day of the table is the session's current date: the main window's
// lists and the valuation follow it after the window closes.
void Cotizaciones::Text1_Change()
{
    if (IsDate(Text1_)) {
        s_.paso([&] {
            Recordset &u = abierto(s_.Usuario_Actual_rs);
            u.Edit();
            u.setField(QStringLiteral("fecha_Actual"), CDate(Text1_));
            u.Update();
        });
    }
    dibujar();
}

void Cotizaciones::Intervalo_Change()
{
    menu_ultimo_dia_Checked = Intervalo_ == QLatin1String("1");
    menu_intervalo_Checked = Intervalo_ == QLatin1String("2");
    dibujar();
}

void Cotizaciones::menu_intervalo_Click()
{
    s_.paso([&] {
        Recordset &u = abierto(s_.Usuario_Actual_rs);
        Usuario &usuario = *s_.Usuario_Sesion;
        u.Edit();
        u.setField(QStringLiteral("fecha_inicial"), usuario.FechaInicial());
        u.setField(QStringLiteral("fecha_final"), usuario.FechaFinal());
        u.Update();
    });
    setIntervalo(QStringLiteral("2"));
}

// The interval window it would show does not exist: only the labels change.
void Cotizaciones::menu_seleccionar_intervalo_Click()
{
    s_.paso([&] {
        if (!s_.Usuario_Sesion)
            throw RuntimeError(err::ObjectNotSet, QStringLiteral("Variable de tipo Object no establecida"));
        FechaIn = Format(s_.Usuario_Sesion->FechaInicial(), QStringLiteral("dd/mm/yyyy"));
        FechaFin = Format(s_.Usuario_Sesion->FechaFinal(), QStringLiteral("dd/mm/yyyy"));
    });
}

void Cotizaciones::Valor_Click(int fila)
{
    if (fila < 1 || fila > NumReg)
        return;
    const QString nombre = Nombre_De(s_, filas[size_t(fila - 1)].Tag);
    if (mostrarValor)
        mostrarValor(nombre);
    Visible = false;
}

void Cotizaciones::AddVal_Click()
{
    if (AddEmpresa)
        AddEmpresa();
}

double Cotizaciones::MinUno(double &numero)
{
    numero = std::clamp(numero, 1.0, double(MaximoFilas));
    return numero;
}

QString Cotizaciones::visualizar(const QString &tipo, double numero)
{
    // The kind is fixed before it is read: only "E" is ever reached.
    QString t = tipo;
    t = QStringLiteral("E");
    if (t == QLatin1String("E"))
        return Format(numero, QStringLiteral("###,###,##0.00 "));
    return Format(numero, QStringLiteral("###,###,###,### "));
}

// RGB(0, Dif * 100, 0) for a rise, RGB(|Dif| * 100, 0, 0) for a fall, each
// component capped at 255: small changes stay dark.
int Cotizaciones::colorDe(double dif)
{
    const double componente = std::min(255.0, std::nearbyint(std::fabs(dif) * 100));
    if (dif > 0)
        return int(componente) * 256;
    return dif < 0 ? int(componente) : 0;
}

// Runs a step of dibujar: a failure is reported and the step skipped, but
// an overflow leaves the procedure for its own message.
template <class Paso> static void pasoDeDibujo(Session &s, Paso &&paso)
{
    try {
        paso();
    } catch (const RuntimeError &e) {
        if (e.number() == err::Overflow)
            throw;
        s.Registrar_Error(e);
    } catch (const std::exception &e) {
        s.Registrar_Error(e);
    }
}

void Cotizaciones::dibujar()
{
    try {
        const QString V = Valores_;
        const QString T = Intervalo_ == QLatin1String("1")   ? QStringLiteral("Bolsa")
                          : Intervalo_ == QLatin1String("2") ? QStringLiteral("Valores_intervalo")
                                                             : QString();
        const QString J = V != QLatin1String("Bolsa")
                              ? " INNER JOIN " + V + " ON " + T + ".VALOR = " + V + ".VALOR"
                              : QString();
        const QString campos = "SELECT " + T + ".VALOR, " + T + ".ANTERIOR, " + T + ".ULTIMO, " + T +
                               ".DIF, " + T + ".VOLUMEN, " + T + ".MAXIMO, " + T + ".MINIMO, " + T +
                               ".EFECT ";
        QString sql;
        if (Intervalo_ == QLatin1String("2"))
            sql = campos + "FROM " + T + J + " ORDER BY " + T + "." + Ordenar_ + " " + desc_;
        else if (V == QLatin1String("Valor"))
            sql = campos + ", " + T + ".FECHA " + "FROM  bolsa  where valor = " + CStr(codigoPestanaValor) +
                  " ORDER BY " + T + ".fecha " + desc_;
        else
            sql = campos + ", " + T + ".FECHA " + "FROM usuario_actual INNER JOIN (" + T + J +
                  ") ON usuario_actual.fecha_Actual = " + T + ".FECHA ORDER BY " + T + "." + Ordenar_ + " " +
                  desc_;

        pasoDeDibujo(s_, [&] { s_.Tabla_Actual = s_.Base_Datos->openRecordset(sql); });
        pasoDeDibujo(s_, [&] {
            Recordset &rs = tablaActual(s_);
            rs.setFilter(QStringLiteral("[valor] < 34000")); // no portfolio series in the table
            s_.Tabla_Actual = rs.OpenRecordset();
        });
        pasoDeDibujo(s_, [&] {
            Recordset &rs = tablaActual(s_);
            if (!(rs.Bof() && rs.Eof()))
                rs.MoveFirst();
        });

        // Every row counts, however many are drawn.
        Int16 suben, bajan, repiten;
        pasoDeDibujo(s_, [&] {
            Recordset &rs = tablaActual(s_);
            while (!rs.Eof()) {
                const QVariant dif = rs.field(QStringLiteral("Dif"));
                if (dif.isValid() && !dif.isNull()) { // a null cannot be compared
                    const double d = dif.toDouble();
                    if (d < 0)
                        bajan += 1;
                    else if (d == 0)
                        repiten += 1;
                    else
                        suben += 1;
                }
                rs.MoveNext();
            }
        });
        Bajan = CStr(bajan) + " ";
        Repiten = CStr(repiten) + " ";
        Suben = CStr(suben) + " ";
        pasoDeDibujo(s_, [&] {
            Recordset &rs = tablaActual(s_);
            if (!(rs.Bof() && rs.Eof()))
                rs.MoveFirst();
        });
        pasoDeDibujo(s_, [&] {
            double resto = double(tablaActual(s_).RecordCount()) - (filasPorPagina + 1);
            VScroll1_Max = int(MinUno(resto));
        });
        pasoDeDibujo(s_, [&] { rellenar_grid(); });
    } catch (const RuntimeError &e) {
        if (e.number() != err::Overflow) {
            s_.Registrar_Error(e);
            return;
        }
        s_.ui.MsgBox(QStringLiteral("Desbordamiento, Haga una consulta más selectiva"), mb::OkOnly,
                     QStringLiteral("Error"));
    }
}

void Cotizaciones::rellenar_grid()
{
    ultimo_dia_Nuevo();
}

void Cotizaciones::ultimo_dia_Nuevo()
{
    Recordset &rs = tablaActual(s_);
    const bool porDias = Valores_ == QLatin1String("Valor");
    int fila = 1;
    while (!rs.Eof() && fila <= MaximoFilas) {
        if (fila > NumReg) {
            filas.emplace_back(); // created once, reused by every drawing after
            ++NumReg;
        }
        FilaCotizacion &f = filas[size_t(fila - 1)];
        // Each cell is a step of its own: a null leaves what the row held.
        s_.paso([&] {
            const double dif = numero(rs.field(QStringLiteral("Dif")));
            f.SubeBaja_ForeColor = colorDe(dif);
            f.SubeBaja = dif > 0 ? QStringLiteral("5") : dif == 0 ? QStringLiteral("0") : QStringLiteral("6");
        });
        s_.paso([&] {
            const double codigo = rs.field(QStringLiteral("Valor")).toDouble();
            const QString cola =
                porDias ? Format(rs.field(QStringLiteral("Fecha")).toDate(), QStringLiteral("dd/mm/yyyy"))
                        : Abreviatura3_De(s_, codigo);
            f.Valor = Abreviatura11_De(s_, codigo) + "  " + " (" + cola + ") ";
            f.Tag = codigo;
        });
        const std::pair<QString *, const char *> precios[] = {
            {&f.Anterior, "Anterior"}, {&f.Ultimo, "Ultimo"}, {&f.Maximo, "Maximo"}, {&f.minimo, "minimo"}};
        for (const auto &[celda, campo] : precios)
            s_.paso([&] { *celda = visualizar(QStringLiteral("E"), numero(rs.field(campo))) + "  "; });
        s_.paso([&] { f.Dif = formato(rs.field(QStringLiteral("Dif")), QStringLiteral("#0.00")) + "% "; });
        s_.paso([&] {
            f.Volumen = formato(rs.field(QStringLiteral("Volumen")), QStringLiteral("###,###,###")) + "    ";
        });
        s_.paso([&] {
            f.Efectivo = formato(rs.field(QStringLiteral("efect")), QStringLiteral("###,###,###")) + "    ";
        });
        const bool siguiente = s_.paso([&] { rs.MoveNext(); });
        ++fila;
        if (!siguiente)
            break;
    }
    for (int i = 1; i <= NumReg; ++i)
        filas[size_t(i - 1)].Visible = i < fila;
}

} // namespace tesorel
