#include "market/notes.h"

#include "store/database.h"
#include "store/helpers.h"
#include "store/recordset.h"
#include "store/session.h"

namespace tesorel
{

void Notas::CargarComentario(double codigo)
{
    s.paso([&] {
        auto rs = s.Base_Datos->openRecordset("select * from comentarios");
        rs->FindFirst("codigo = " + Numero_Sql(codigo));
        Comentario = rs->NoMatch() ? QString() : Texto_Nulo(rs->field("Comentario"));
    });
}

void Notas::GrabarComentario(double codigo)
{
    s.paso([&] {
        auto rs = s.Base_Datos->openRecordset("select * from comentarios");
        rs->FindFirst("codigo = " + Numero_Sql(codigo));
        if (Comentario.isEmpty())
            return; // emptying the box keeps the old note
        if (rs->NoMatch()) {
            rs->AddNew();
            rs->setField("codigo", codigo);
        } else {
            rs->Edit();
        }
        rs->setField("Comentario", Comentario);
        rs->Update();
    });
}

} // namespace tesorel
