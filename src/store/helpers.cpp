#include "store/helpers.h"
#include "store/valor.h"

#include "core/format.h"
#include "core/numbers.h"
#include "store/database.h"
#include "store/jet_sql.h"
#include "store/recordset.h"
#include "store/session.h"

#include <cmath>

namespace tesorel
{

QString Texto_Nulo(const QVariant &value)
{
    if (!value.isValid() || value.isNull())
        return {};
    switch (value.typeId()) {
    case QMetaType::Double:
    case QMetaType::Float:
        return CStr(value.toDouble());
    case QMetaType::QDate:
        return Format(value.toDate(), "dd/mm/yyyy");
    case QMetaType::Bool:
        return value.toBool() ? QStringLiteral("Verdadero") : QStringLiteral("Falso");
    default:
        return value.toString();
    }
}

namespace
{
constexpr double kWholeLimit = 1e15; // past it the text is in E notation

// A whole number of the engine below the E notation reads back as itself.
bool wholeField(const QVariant &value, double &out)
{
    const int type = value.typeId();
    if (type != QMetaType::LongLong && type != QMetaType::Int)
        return false;
    const qlonglong n = value.toLongLong();
    out = double(n);
    return n > -kWholeLimit && n < kWholeLimit;
}
} // namespace

double Lectura_Local(const QVariant &value)
{
    double whole;
    if (wholeField(value, whole))
        return whole;
    if (value.typeId() == QMetaType::Double) {
        // A number of at most four decimals that is the nearest double to
        // them comes back from its 15-digit text as itself.
        const double v = value.toDouble();
        if (std::fabs(v) < 1e10) {
            const double n = std::nearbyint(v * 10000);
            if (n / 10000 == v)
                return v;
        }
    }
    return Numero_Cdbl(Texto_Nulo(value));
}

double Lectura_Punto(const QVariant &value)
{
    double whole;
    if (wholeField(value, whole))
        return whole;
    if (value.typeId() == QMetaType::Double) {
        const double v = value.toDouble();
        const double a = std::fabs(v);
        if (a < kWholeLimit && v == std::trunc(v))
            return v;
        // The decimal comma of the text ends the point rule: the fraction
        // goes. Below a million the 15 digits keep nine decimals, so their
        // rounding cannot carry the number to the next whole one; below 0.1
        // the text may be in E notation, and goes the long way.
        const double frac = a - std::trunc(a);
        if (a >= 0.1 && a < 1e6 && frac > 1e-9 && frac < 1 - 1e-9)
            return std::trunc(v);
    }
    return Numero_Val(Texto_Nulo(value));
}

QString Reemplazar_Todo(QString &text, const QString &searched, const QString &replacement)
{
    if (searched.isEmpty())
        return text;
    // Each search starts again from the beginning, as the routine always did.
    for (qsizetype at = text.indexOf(searched); at >= 0; at = text.indexOf(searched))
        text.replace(at, searched.size(), replacement);
    return text;
}

QString Reemplazar_Primero(QString &text, const QString &searched, const QString &replacement)
{
    if (text.isEmpty() || searched.isEmpty())
        return text;
    const qsizetype at = text.indexOf(searched);
    if (at >= 0)
        text.replace(at, searched.size(), replacement);
    return text;
}

QString Numero_Sql(double value)
{
    return Str(value);
}

void Abrir_Empresas(Session &s)
{
    s.Tabla_Empresas = s.Base_Datos->openRecordset("Codigo_empresas");
    s.empresas.clear();
    Recordset &rs = *s.Tabla_Empresas;
    if (rs.Eof())
        return;
    for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext()) {
        Empresa e;
        e.codigo = rs.field("Codigo").toDouble();
        e.nombre = Texto_Nulo(rs.field("NOMBRE"));
        e.abreviatura3 = Texto_Nulo(rs.field("ABREVIATURA3"));
        e.abreviatura11 = Texto_Nulo(rs.field("ABREVIATURA11"));
        e.invertia = Texto_Nulo(rs.field("Invertia"));
        s.empresas.add(e);
    }
    rs.MoveFirst();
}

QString Abreviatura3_De(Session &s, double code)
{
    const int row = s.empresas.buscarCodigo(code);
    return row < 0 ? QString() : s.empresas.filas[row].abreviatura3;
}

QString Abreviatura11_De(Session &s, double code)
{
    // A portfolio code first answers "CARTERA", then is looked up like any
    // other and, not being in the table, answers "".
    const int row = s.empresas.buscarCodigo(code);
    return row < 0 ? QString() : s.empresas.filas[row].abreviatura11;
}

QString Nombre_De(Session &s, const QVariant &code)
{
    if (!code.isValid() || code.isNull() || Texto_Nulo(code).isEmpty())
        return {};
    const double value = code.toDouble();
    if (valor::esCartera(value))
        return valor::NombreCartera + " " + s.Nombre_Usuario;
    const int row = s.empresas.buscarCodigo(value);
    return row < 0 ? QString() : s.empresas.filas[row].nombre;
}

double Codigo_De(Session &s, const QString &name, BuscarPor kind)
{
    if (valor::nombreDeCartera(name))
        return valor::codigoCartera(s.Usuario_Numero);

    IndiceEmpresas &idx = s.empresas;
    int row = idx.ultima;
    const bool searches =
        kind == BuscarPor::Nombre || kind == BuscarPor::Abreviatura11 || kind == BuscarPor::Ticker;
    if (searches && name.contains('\'')) {
        // The quote breaks the search statement: the failure is reported
        // and the outcome stays that of the search before.
        s.Registrar_Error(RuntimeError(err::SyntaxError, jet::syntaxMessage(name)));
    } else if (kind == BuscarPor::Nombre)
        row = idx.buscar(idx.porNombre, name);
    else if (kind == BuscarPor::Abreviatura11)
        row = idx.buscar(idx.porAbreviatura11, name);
    else if (kind == BuscarPor::Ticker)
        row = idx.buscar(idx.porAbreviatura3, name);
    if (row < 0)
        return 0;

    const Empresa &e = idx.filas[row];
    s.Codigo_Invertia = e.invertia;
    s.Abreviatura_Actual = e.abreviatura3;
    return e.codigo;
}

double Alta_Empresa(Session &s, const QString &name)
{
    auto next = s.Base_Datos->openRecordset("select max(codigo)+1 as sigue from codigo_empresas");
    const double sigue = next->field("sigue").toDouble();

    Recordset &rs = *s.Tabla_Empresas;
    rs.AddNew();
    rs.setField("codigo", sigue);
    rs.setField("NOMBRE", name);
    rs.setField("ABREVIATURA11", name);
    rs.Update();

    Empresa e;
    e.codigo = sigue;
    e.nombre = name;
    e.abreviatura11 = name;
    s.empresas.add(e);

    return next->field("sigue").toDouble();
}

bool Es_Favorito(Session &s, double code)
{
    auto rs = s.Base_Datos->openRecordset("select * from faboritos");
    rs->FindFirst("valor = " + Str(code) + " and usuario =" + Str(s.Usuario_Numero));
    return !rs->NoMatch();
}

QString Web_Empresa(Session &s, double code)
{
    auto rs = s.Base_Datos->openRecordset(
        "SELECT Codigo_Empresas.Codigo, Codigo_Empresas.Abreviatura11, www.Campo3 AS web, www.Web AS "
        "webempresa "
        "FROM Codigo_Empresas INNER JOIN www ON Codigo_Empresas.Nombre = www.Campo2");
    rs->FindFirst("codigo = " + Str(code));
    if (rs->NoMatch())
        return {};
    return Texto_Nulo(rs->field("WebEmpresa"));
}

QString Url_La_Bolsa(Session &s, double code)
{
    return s.hostLaBolsa + "/mercado/?s=" + Abreviatura3_De(s, code);
}

} // namespace tesorel
