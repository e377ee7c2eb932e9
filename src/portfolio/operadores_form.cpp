#include "portfolio/operadores_form.h"

#include "core/format.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "store/database.h"
#include "store/helpers.h"
#include "store/query.h"
#include "store/recordset.h"
#include "store/session.h"
#include "store/ui.h"

namespace tesorel
{

const std::array<QString, operadoresform::kColumnas> operadoresform::Cabeceras{
    QStringLiteral(" Nombre"), QStringLiteral("Tanto"), QStringLiteral("Min"), QStringLiteral("Desde"),
    QStringLiteral("Hasta")};

operadoresform::operadoresform(Session &s) : s_(s)
{
    celdas[0] = Cabeceras;
}

operadoresform::~operadoresform() = default;

void operadoresform::Form_Load()
{
    cargar_operadores();
    Cargar_comisiones();
}

void operadoresform::cargar_operadores()
{
    // Opened again each time, so a broker just added takes its place by name.
    s_.paso([&] {
        operadores_ =
            s_.Base_Datos->openRecordset(QStringLiteral("select * from operadores order by nombre"));
    });
    List1.clear();
    codigos.clear();
    s_.paso([&] {
        if (!operadores_)
            return;
        if (!operadores_->Eof() || !operadores_->Bof())
            operadores_->MoveFirst();
        while (!operadores_->Eof()) {
            List1 << Texto_Nulo(operadores_->field("NOMBRE"));
            codigos.push_back(operadores_->field("codigo").toDouble());
            operadores_->MoveNext();
        }
    });
    if (List1_ListIndex >= List1.size())
        List1_ListIndex = int(List1.size()) - 1;
    if (List1_ListIndex < 0 && !List1.isEmpty())
        List1_ListIndex = 0;
}

double operadoresform::codigoDe(double linea) const
{
    if (linea < 0 || linea >= double(codigos.size()))
        throw RuntimeError(err::SubscriptOutOfRange, QStringLiteral("El subíndice está fuera del intervalo"));
    return codigos[size_t(linea)];
}

void operadoresform::Cargar_comisiones()
{
    int fila = 1;
    s_.paso([&] {
        Query q(
            *s_.Base_Datos,
            QStringLiteral("Select NOMBRE, Tanto, minimo, desde, Hasta from comisiones where entidad = ?"));
        q.bind(1, codigoDe(List1_ListIndex));
        for (; q.next(); ++fila) {
            if (fila > kFilas)
                throw RuntimeError(
                    340, QStringLiteral("El elemento '%1' de la matriz de controles no existe").arg(fila));
            celdas[size_t(fila)][NOMBRE] = q.text(0);
            for (int c = Tanto; c < kColumnas; ++c)
                celdas[size_t(fila)][size_t(c)] =
                    q.isNull(c) ? QString() : Format(q.number(c), "##,###,##0.00");
        }
    });
    for (; fila <= kFilas; ++fila)
        celdas[size_t(fila)].fill(QString());
    cambiado = 0;
}

QVariant operadoresform::sincero(const QString &texto)
{
    return texto.isEmpty() ? QVariant(0.0) : QVariant(texto);
}

void operadoresform::Grabar_comisiones(double linea)
{
    double codigo = 0;
    if (!s_.paso([&] { codigo = codigoDe(linea); }))
        return;
    s_.paso([&] {
        Query borrar(*s_.Base_Datos, QStringLiteral("Delete * from comisiones where entidad = ?"));
        borrar.bind(1, codigo).exec();
    });
    for (int fila = 1; fila <= kFilas; ++fila) {
        auto &c = celdas[size_t(fila)];
        // A row with only its range is not kept.
        if ((c[NOMBRE] + c[Tanto] + c[minimo]).trimmed().isEmpty())
            continue;
        if (c[NOMBRE].isEmpty())
            c[NOMBRE] = QStringLiteral(" ");
        // The boxes' texts become numbers as the locale reads them.
        std::array<QVariant, kColumnas> v;
        for (int col = Tanto; col < kColumnas; ++col)
            s_.paso([&] {
                const QVariant x = sincero(c[size_t(col)]);
                v[size_t(col)] = x.typeId() == QMetaType::QString ? QVariant(CDbl(x.toString())) : x;
            });
        s_.paso([&] {
            Query q(*s_.Base_Datos,
                    QStringLiteral("insert into comisiones (NOMBRE, Entidad, Tanto, minimo, desde, "
                                   "Hasta) values (?, ?, ?, ?, ?, ?)"));
            q.bind(1, c[NOMBRE]).bind(2, codigo).bind(3, v[Tanto]).bind(4, v[minimo]).bind(5, v[desde]);
            q.bind(6, v[Hasta]).exec();
        });
    }
}

void operadoresform::ComprobarCambios()
{
    if (cambiado == 0)
        return;
    if (s_.ui.MsgBox(QStringLiteral("¿Desea guardar los cambios?"), mb::YesNo + mb::Question) == mb::Yes)
        Grabar_comisiones(lineaActual);
}

void operadoresform::Celda_Change(int columna, int fila, const QString &texto)
{
    if (fila < 1 || fila > kFilas || columna < 0 || columna >= kColumnas)
        return;
    celdas[size_t(fila)][size_t(columna)] = texto;
    cambiado = -1;
}

void operadoresform::Borrar_Click(int fila)
{
    for (int c = 0; c < kColumnas; ++c)
        Celda_Change(c, fila, QString());
}

void operadoresform::Label3_Click()
{
    Grabar_comisiones(lineaActual);
    Cargar_comisiones();
}

void operadoresform::List1_Click(int indice)
{
    ComprobarCambios();
    List1_ListIndex = indice;
    Cargar_comisiones();
    lineaActual = indice;
}

void operadoresform::Text1_KeyPress(int tecla)
{
    if (tecla != 13)
        return;
    s_.paso([&] {
        // The name goes into the criteria as typed: an apostrophe breaks it.
        operadores_->FindFirst("nombre = '" + Text1 + "'");
        if (!operadores_->NoMatch()) {
            s_.ui.MsgBox(QStringLiteral("Ya existe un operador con ese nombre"), mb::Information,
                         QStringLiteral("Atención"));
            return;
        }
        Query alta(*s_.Base_Datos, QStringLiteral("insert into operadores (NOMBRE) values (?)"));
        alta.bind(1, Text1).exec();
        cargar_operadores();
        Cargar_comisiones();
        Text1.clear();
    });
}

void operadoresform::menu_borrar_operador_Click()
{
    const QString nombre = List1.value(List1_ListIndex);
    if (s_.ui.MsgBox("Borrar " + nombre, mb::YesNo + mb::Question, QStringLiteral("Atención")) == mb::Yes) {
        s_.paso([&] {
            operadores_->FindFirst("nombre = '" + nombre + "'");
            if (operadores_->NoMatch()) {
                s_.ui.MsgBox(QStringLiteral("No se encuentra"), mb::Exclamation, QStringLiteral("Atención"));
                return;
            }
            // The ledger keeps its lines of the broker.
            const double codigo = operadores_->field("codigo").toDouble();
            Query bandas(*s_.Base_Datos, QStringLiteral("Delete * from comisiones where entidad = ?"));
            bandas.bind(1, codigo).exec();
            Query operador(*s_.Base_Datos, QStringLiteral("Delete * From operadores where codigo = ?"));
            operador.bind(1, codigo).exec();
        });
    }
    cargar_operadores();
}

} // namespace tesorel
