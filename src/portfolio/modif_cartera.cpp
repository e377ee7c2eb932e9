#include "portfolio/modif_cartera.h"

#include "core/dates.h"
#include "core/numbers.h"
#include "store/database.h"
#include "store/helpers.h"
#include "store/recordset.h"
#include "store/session.h"
#include "store/ui.h"

namespace tesorel
{

ModifCartera::ModifCartera(Session &s, std::function<void()> cerrar) : s_(s), cerrar_(std::move(cerrar)) {}

ModifCartera::~ModifCartera() = default;

void ModifCartera::Form_Load()
{
    s_.paso([&] {
        rs_ = s_.Base_Datos->openRecordset("select * from cartera where usuario = " +
                                           Numero_Sql(s_.Usuario_Numero));
    });
    s_.paso([&] {
        if (rs_)
            rs_->FindFirst("valor = " + Numero_Sql(s_.Valor_Cartera_Edicion));
    });
    CargarTitulos();
}

void ModifCartera::CargarTitulos()
{
    if (!rs_ || rs_->Bof() || rs_->Eof()) {
        // Past either end the boxes show zeros.
        FechaCompra.clear();
        Cantidad = PrecioCompra = CosteInversion = Valor_Tag = QStringLiteral("0");
        Valor.clear();
        return;
    }
    s_.paso([&] { FechaCompra = Texto_Nulo(rs_->field(QStringLiteral("Fecha_Compra"))); });
    s_.paso([&] { Cantidad = Texto_Nulo(rs_->field(QStringLiteral("Cantidad"))); });
    s_.paso([&] {
        const QVariant codigo = rs_->field(QStringLiteral("Valor"));
        Valor_Tag = Texto_Nulo(codigo);
        Valor = Abreviatura11_De(s_, codigo.toDouble());
    });
    s_.paso([&] { PrecioCompra = Texto_Nulo(rs_->field(QStringLiteral("Precio_Compra"))); });
    s_.paso([&] { CosteInversion = Texto_Nulo(rs_->field(QStringLiteral("Total_Compra"))); });
}

void ModifCartera::GrabarTitulos()
{
    if (!rs_ || rs_->Bof() || rs_->Eof())
        return;
    s_.paso([&] { rs_->Edit(); });
    s_.paso([&] { rs_->setField(QStringLiteral("Fecha_Compra"), CDate(FechaCompra)); });
    s_.paso([&] { rs_->setField(QStringLiteral("Cantidad"), Numero_Cdbl(Cantidad)); });
    s_.paso([&] { rs_->setField(QStringLiteral("Valor"), Numero_Cdbl(Valor_Tag)); });
    s_.paso([&] { rs_->setField(QStringLiteral("Precio_Compra"), Numero_Cdbl(PrecioCompra)); });
    s_.paso([&] { rs_->setField(QStringLiteral("Total_Compra"), Numero_Cdbl(CosteInversion)); });
    s_.paso([&] { rs_->Update(); });
}

void ModifCartera::Aceptar_Click()
{
    GrabarTitulos();
    Cancelar_Click();
}

void ModifCartera::Cancelar_Click()
{
    if (cerrar_)
        cerrar_();
}

void ModifCartera::Label4_Click()
{
    s_.paso([&] {
        if (rs_)
            rs_->MoveNext();
    });
    CargarTitulos();
}

void ModifCartera::Label5_Click()
{
    s_.paso([&] {
        if (rs_)
            rs_->MovePrevious();
    });
    CargarTitulos();
}

void ModifCartera::Eliminar_Click()
{
    const int respuesta =
        s_.ui.MsgBox("¿Desea Eliminar " + Valor + " de su Cartera?", mb::YesNo | mb::Question, QString());
    if (respuesta != mb::Yes)
        return;
    s_.paso([&] {
        if (rs_)
            rs_->Delete();
    });
    Cancelar_Click();
}

} // namespace tesorel
