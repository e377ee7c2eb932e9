#include "market/value_lists.h"

#include <QRandomGenerator>

#include "core/format.h"
#include "core/numbers.h"
#include "market/current_table.h"
#include "store/database.h"
#include "store/helpers.h"
#include "store/recordset.h"
#include "store/session.h"
#include "store/valor.h"

namespace tesorel
{

namespace
{

const QString SqlTodos = QStringLiteral(
    "SELECT bolsa_de_un_dia.VALOR, Codigo_Empresas.Abreviatura3 FROM bolsa_de_un_dia INNER JOIN "
    "Codigo_Empresas "
    "ON bolsa_de_un_dia.VALOR = Codigo_Empresas.Codigo  ORDER BY Codigo_Empresas.Abreviatura11");
const QString SqlIbex =
    QStringLiteral("SELECT ibex.VALOR, Codigo_Empresas.Abreviatura3, * FROM ibex INNER JOIN "
                   "Codigo_Empresas ON ibex.VALOR = Codigo_Empresas.Codigo;");
const QString SqlFaboritos = QStringLiteral(
    "SELECT faboritos.VALOR, bolsa_de_un_dia.ULTIMO FROM (faboritos INNER JOIN Usuario_actual ON "
    "faboritos.Usuario = Usuario_actual.USUARIO_ACTUAL) INNER JOIN bolsa_de_un_dia ON faboritos.VALOR = "
    "bolsa_de_un_dia.VALOR ORDER BY faboritos.VALOR;");
const QString SqlSuben = QStringLiteral("Los que mas suben");
const QString SqlAlAzar =
    QStringLiteral("SELECT bolsa_de_un_dia.VALOR, Codigo_Empresas.Abreviatura3 FROM bolsa_de_un_dia INNER "
                   "JOIN Codigo_Empresas "
                   "ON bolsa_de_un_dia.VALOR = Codigo_Empresas.Codigo  ORDER BY Codigo_Empresas.Nombre");

} // namespace

ListaValores::ListaValores(Session &session)
    : aleatorio([] { return QRandomGenerator::global()->generateDouble(); }), s(session)
{
}

void ListaValores::borrar_lista()
{
    List1.Clear();
}

void ListaValores::Llenar_lista(const QString &statement, const QString &tag)
{
    if (tag.isEmpty())
        return;
    const QString sql = statement.isEmpty() ? Sql_Lista : statement;

    // A statement that fails leaves the recordset of the list before, and
    // the list is filled from it again.
    s.paso([&] { s.Tabla_Actual = s.Base_Datos->openRecordset(sql); });
    s.paso([&] {
        Recordset &rs = tablaActual(s);
        rs.setFilter("[valor] < 34000"); // a portfolio series never comes into a list
        s.Tabla_Actual = rs.OpenRecordset();
    });
    Sql_Lista = sql;

    List1.Clear();
    bool vacia = true;
    s.paso([&] {
        Recordset &rs = tablaActual(s);
        vacia = rs.Bof() && rs.Eof();
        if (!vacia)
            rs.MoveFirst();
    });
    if (vacia)
        return;

    // The test is on the statement's text, not on the tag.
    const bool suben = sql.contains(QLatin1String("suben"));
    Recordset &rs = *s.Tabla_Actual;
    for (int n = 0; !rs.Eof(); ++n) {
        double code = 0;
        s.paso([&] {
            code = rs.field("Valor").toDouble();
            const QVariant second = rs.field(1);
            QString shown;
            if (!suben)
                shown = Texto_Nulo(second);
            else if (second.isValid() && !second.isNull())
                shown = Format(second.toDouble(), "##,##");
            List1.AddItem(Abreviatura11_De(s, code) + "  (" + shown + ")");
        });
        s.paso([&] { List1.setItemData(n, code); });
        if (!s.paso([&] { rs.MoveNext(); }))
            break;
    }
}

void ListaValores::marcar(Lista lista, const QString &title)
{
    Titul = title;
    marcas.menu_todos = lista == Lista::Todos;
    marcas.menu_massuben = lista == Lista::MasSuben;
    marcas.menu_ibex = lista == Lista::Ibex;
    marcas.menu_ENcartera = lista == Lista::EnCartera;
    marcas.menu_seguimiento = lista == Lista::Seguimiento;
    borrar_lista();
}

void ListaValores::todos()
{
    marcar(Lista::Todos, "Todos");
    Llenar_lista(SqlTodos, "TODOS");
}

void ListaValores::ibex()
{
    marcar(Lista::Ibex, "Ibex");
    Llenar_lista(SqlIbex, "IBEX");
}

void ListaValores::faboritos()
{
    marcar(Lista::Seguimiento, "En Seguimiento");
    Llenar_lista(SqlFaboritos, "EN SEGUIMIENTO");
}

void ListaValores::Cartera()
{
    marcar(Lista::EnCartera, "En Cartera");
    Llenar_lista("Select valor,cantidad from CARTERA where usuario =" + Numero_Sql(s.Usuario_Numero) +
                     " order by valor",
                 "CARTERA");
    // The filter keeps every portfolio series out of the lists; this entry
    // is the only way to the user's own.
    const int at = List1.AddItem("CARTERA");
    List1.setItemData(at, valor::codigoCartera(s.Usuario_Numero));
}

void ListaValores::LosqueSuben()
{
    marcar(Lista::MasSuben, "Los que más suben");
    Llenar_lista(SqlSuben, "SUBEN");
}

void ListaValores::setValores(int index)
{
    Valores = index;
    Valores_Click();
}

void ListaValores::Valores_Click()
{
    switch (Valores) {
    case 0:
        todos();
        break;
    case 1:
        ibex();
        break;
    case 2:
        Cartera();
        break;
    case 3:
        faboritos();
        break;
    default:
        break;
    }
}

ListaValores::Lista ListaValores::marcada() const
{
    if (marcas.menu_ENcartera)
        return Lista::EnCartera;
    if (marcas.menu_seguimiento)
        return Lista::Seguimiento;
    if (marcas.menu_ibex)
        return Lista::Ibex;
    if (marcas.menu_massuben)
        return Lista::MasSuben;
    if (marcas.menu_todos)
        return Lista::Todos;
    return Lista::Ninguna;
}

void ListaValores::abrir(Lista lista)
{
    switch (lista) {
    case Lista::Todos:
        todos();
        break;
    case Lista::MasSuben:
        LosqueSuben();
        break;
    case Lista::Ibex:
        ibex();
        break;
    case Lista::EnCartera:
        Cartera();
        break;
    case Lista::Seguimiento:
        faboritos();
        break;
    case Lista::Ninguna:
        break;
    }
}

// The ring: En Cartera, Todos, Los que más suben, Ibex, En Seguimiento.
void ListaValores::SiguienteCategoria()
{
    switch (marcada()) {
    case Lista::EnCartera:
        return abrir(Lista::Todos);
    case Lista::Seguimiento:
        return abrir(Lista::EnCartera);
    case Lista::Ibex:
        return abrir(Lista::Seguimiento);
    case Lista::MasSuben:
        return abrir(Lista::Ibex);
    case Lista::Todos:
        return abrir(Lista::MasSuben);
    case Lista::Ninguna:
        return;
    }
}

void ListaValores::AnteriorCategoria()
{
    switch (marcada()) {
    case Lista::EnCartera:
        return abrir(Lista::Seguimiento);
    case Lista::Seguimiento:
        return abrir(Lista::Ibex);
    case Lista::Ibex:
        return abrir(Lista::MasSuben);
    case Lista::MasSuben:
        return abrir(Lista::Todos);
    case Lista::Todos:
        return abrir(Lista::EnCartera);
    case Lista::Ninguna:
        return;
    }
}

void ListaValores::MismaCategoria()
{
    // Only a search result is replaced by the list it stood in for.
    if (Titul == QLatin1String("Resultados"))
        abrir(marcada());
}

void ListaValores::menu_categorias_Globales_Click()
{
    Categorias(0);
}

void ListaValores::menu_categorias_personales_Click()
{
    Categorias(s.Usuario_Numero);
}

void ListaValores::Categorias(double usuario)
{
    std::unique_ptr<Recordset> nombres;
    s.paso([&] {
        nombres = s.Base_Datos->openRecordset("Select * from NombreCategorias where usuario = " +
                                              Numero_Sql(usuario));
    });
    if (!nombres || nombres->Eof())
        return;
    borrar_lista();
    // Each category refills the list, so the last one is what stays on screen.
    for (; !nombres->Eof(); nombres->MoveNext()) {
        QString categoria;
        if (!s.paso([&] { categoria = Texto_Nulo(nombres->field("Categoria")); }))
            continue;
        if (categoria.trimmed().isEmpty())
            continue;
        Llenar_lista("select * from categoriastodo where usuario = " + Numero_Sql(usuario) +
                         "  AND categoria = '" + categoria + "'",
                     categoria);
    }
}

void ListaValores::qualquier_valor(double &valor)
{
    std::unique_ptr<Recordset> rs;
    if (!s.paso([&] { rs = s.Base_Datos->openRecordset(SqlAlAzar); }))
        return;
    long count = 0;
    s.paso([&] {
        if (!rs->Eof()) {
            rs->MoveLast(); // so that the count is right
            rs->MoveFirst();
        }
        count = rs->RecordCount();
    });
    s.paso([&] {
        rs->Move(static_cast<long>(aleatorio() * static_cast<double>(count)));
        valor = Numero_Val(Texto_Nulo(rs->field("Valor")));
    });
}

} // namespace tesorel
