#include "market/search.h"

#include "market/value_lists.h"
#include "market/value_selection.h"
#include "store/database.h"
#include "store/helpers.h"
#include "store/recordset.h"
#include "store/session.h"

namespace tesorel
{

Busqueda::Busqueda(Session &session, ListaValores &lista, SeleccionValor &seleccion)
    : s(session), lista_(lista), seleccion_(seleccion)
{
    seleccion_.setBusqueda(this);
}

Busqueda::~Busqueda()
{
    seleccion_.setBusqueda(nullptr);
}

void Busqueda::setBuscar(const QString &text)
{
    if (text == text_)
        return;
    text_ = text;
    if (text_.isEmpty())
        lista_.MismaCategoria();
}

void Busqueda::buscar_GotFocus()
{
    SelStart = 0;
    SelLength = static_cast<int>(text_.size());
}

void Busqueda::buscar_Return()
{
    // The text goes into the statements as typed: an apostrophe fails the
    // search, and nothing is found.
    const QString text = text_;
    std::unique_ptr<Recordset> rs;
    if (!s.paso([&] {
            rs = s.Base_Datos->openRecordset("select * from codigo_Empresas where abreviatura3 = '" + text +
                                             "'");
        }))
        return;
    // Counted as opened, without a move to the last row.
    if (rs->RecordCount() == 1) {
        s.paso([&] { seleccion_.setText1(Texto_Nulo(rs->field("NOMBRE"))); });
        return;
    }

    if (!s.paso([&] {
            rs = s.Base_Datos->openRecordset("select * from codigo_Empresas where NOMBRE LIKE '*" + text +
                                             "*'");
            if (!rs->Eof()) {
                rs->MoveLast(); // so that the count is right
                rs->MoveFirst();
            }
        }))
        return;
    const long count = rs->RecordCount();
    if (count == 0)
        return; // nothing is said
    if (count == 1) {
        s.paso([&] { seleccion_.setText1(Texto_Nulo(rs->field("NOMBRE"))); });
        return;
    }

    // Not filtered by the current date: a value without a quote that day is found too.
    lista_.List1.Clear();
    lista_.Titul = QStringLiteral("Resultados");
    for (; !rs->Eof(); rs->MoveNext()) {
        s.paso([&] {
            const int at = lista_.List1.AddItem(Texto_Nulo(rs->field("ABREVIATURA11")) + "  (" +
                                                Texto_Nulo(rs->field(1)) + ")");
            lista_.List1.setItemData(at, rs->field("codigo").toDouble());
        });
    }
}

} // namespace tesorel
