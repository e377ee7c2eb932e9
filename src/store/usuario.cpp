#include "store/usuario.h"

#include "store/database.h"
#include "store/helpers.h"
#include "store/recordset.h"
#include "store/session.h"

namespace tesorel
{

namespace
{
QDate comoFecha(const QVariant &v)
{
    if (v.typeId() == QMetaType::QDate)
        return v.toDate();
    if (v.typeId() == QMetaType::QString)
        return QDate::fromString(v.toString(), Qt::ISODate);
    return {};
}
} // namespace

QDate Usuario::leerFecha(const QString &campo, const QString &respaldo, const QString &campoRespaldo)
{
    QDate fecha;
    bool propia = false;
    s_.paso([&] {
        auto rs = s_.Base_Datos->openRecordset("select * from intervalo where usuario =" +
                                               Numero_Sql(s_.Usuario_Numero));
        if (!rs->Eof() && rs->field(campo).isValid()) {
            // A field that is no date fails to convert and leaves the date empty.
            fecha = comoFecha(rs->field(campo));
            propia = true;
        }
    });
    if (propia && fecha.isValid())
        return fecha;
    s_.paso([&] {
        auto rs = s_.Base_Datos->openRecordset("select * from " + respaldo);
        fecha = comoFecha(rs->field(campoRespaldo));
    });
    return fecha;
}

QDate Usuario::FechaInicial()
{
    return leerFecha("FechaInicial", "primerdia", "Fecha");
}

QDate Usuario::FechaFinal()
{
    return leerFecha("FechaFinal", "Ultimodia", QStringLiteral("Máxdefecha"));
}

void Usuario::grabarFecha(const QString &campo, const QDate &fecha)
{
    s_.paso([&] {
        auto rs = s_.Base_Datos->openRecordset("select * from intervalo");
        rs->FindFirst("usuario = " + Numero_Sql(s_.Usuario_Numero));
        if (rs->NoMatch())
            rs->AddNew();
        else
            rs->Edit();
        rs->setField("Usuario", s_.Usuario_Numero);
        rs->setField(campo, fecha);
        rs->Update();
    });
}

void Usuario::setFechaInicial(const QDate &fecha)
{
    grabarFecha("FechaInicial", fecha);
}

void Usuario::setFechaFinal(const QDate &fecha)
{
    grabarFecha("FechaFinal", fecha);
}

bool Usuario::extremoAbierto(const QString &campo)
{
    bool abierto = true;
    s_.paso([&] {
        auto rs = s_.Base_Datos->openRecordset("select * from intervalo where usuario =" +
                                               Numero_Sql(s_.Usuario_Numero));
        if (!rs->Eof())
            abierto = !comoFecha(rs->field(campo)).isValid();
    });
    return abierto;
}

bool Usuario::Ultimodia()
{
    return extremoAbierto("FechaFinal");
}

bool Usuario::PrimerDia()
{
    return extremoAbierto("FechaInicial");
}

void Usuario::Update()
{
    s_.paso([&] {
        auto rs = s_.Base_Datos->openRecordset("Select * from usuario where clave = " +
                                               Numero_Sql(s_.Usuario_Numero));
        if (rs->Eof()) {
            email_.clear();
            pop_.clear();
            smtp_.clear();
            usuarioPop_.clear();
            return;
        }
        email_ = Texto_Nulo(rs->field("email"));
        pop_ = Texto_Nulo(rs->field("Direccion"));
        smtp_ = Texto_Nulo(rs->field("Poblacion"));
        usuarioPop_ = Texto_Nulo(rs->field("CodigoPost"));
    });
}

} // namespace tesorel
