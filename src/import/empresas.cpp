#include "import/empresas.h"

#include <QHash>

#include "core/int16.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "store/database.h"
#include "store/helpers.h"
#include "store/recordset.h"
#include "store/session.h"
#include "store/ui.h"

namespace tesorel
{

QString codigoinvertia(const QString &enlace)
{
    const qsizetype igual = enlace.indexOf(u'=');
    return igual < 0 ? QString() : enlace.mid(igual + 1);
}

AltaDeEmpresa &entradaAddEmpresa(Session &s)
{
    static QHash<const Session *, AltaDeEmpresa> entradas;
    return entradas[&s];
}

void AddEmpresa::Aceptar_Click()
{
    auto maximo =
        s_.Base_Datos->openRecordset("SELECT Max(Codigo_Empresas.Codigo) AS MCodigo FROM Codigo_Empresas");
    const QVariant mcodigo = maximo->field("MCodigo");
    if (!mcodigo.isValid() || mcodigo.isNull())
        throw RuntimeError(err::InvalidUseOfNull, QStringLiteral("Uso no válido de Null"));
    const Int16 codigo(mcodigo.toDouble() + 1);

    auto tabla = s_.Base_Datos->openRecordset("SELECT * FROM codigo_empresas");
    tabla->AddNew();
    tabla->setField("codigo", double(codigo));
    tabla->setField("NOMBRE", NOMBRE);
    tabla->setField("ABREVIATURA3", ABREVIATURA3);
    tabla->setField("ABREVIATURA11", ABREVIATURA11);
    const QString invertia = codigoinvertia(Invertia);
    tabla->setField("Invertia", invertia.isEmpty() ? QVariant() : QVariant(invertia));
    tabla->Update();
    codigoAnadido = codigo;
    Descargado = true;
}

void DepuraCotiza::Depurar_Click()
{
    // The two tickers of one company, so that the scan merges them. The store
    // takes the column of a SET without its table's name.
    s_.Base_Datos->execute("update codigo_empresas set abreviatura3 = 'CRI' "
                           "where codigo_empresas.abreviatura3 = 'SGOB'");
    while (unaPasada()) {
    }
    List1 << QStringLiteral("ok ok ok");
    List1_ListIndex = int(List1.size()) - 1;
}

bool DepuraCotiza::unaPasada()
{
    auto exterior = s_.Base_Datos->openRecordset("Select * from codigo_empresas order by codigo");
    for (; !exterior->Eof(); exterior->MoveNext()) {
        if (mostrar)
            mostrar();
        s_.ui.DoEvents();
        const QString ticker = Texto_Nulo(exterior->field("ABREVIATURA3"));
        const double codigo = exterior->field("codigo").toDouble();
        const QString nombre = Texto_Nulo(exterior->field("NOMBRE"));
        // Written as the cleaning always wrote it: a quote in a ticker stops it.
        auto iguales = s_.Base_Datos->openRecordset("Select * from codigo_empresas where abreviatura3 = '" +
                                                    ticker + "' order by codigo");
        const QString final2 = ticker.right(2);
        const bool fusionable =
            !ticker.trimmed().isEmpty() && final2 != QLatin1String(".D") && final2 != QLatin1String("XX");
        for (; fusionable && !iguales->Eof(); iguales->MoveNext()) {
            const double otro = iguales->field("codigo").toDouble();
            if (otro == codigo)
                continue;
            List1 << CStr(codigo) + " " + nombre + " OK OK OK OK";
            List1_ListIndex = int(List1.size()) - 1;
            fusionar(codigo, otro);
            return true;
        }
    }
    return false;
}

void DepuraCotiza::fusionar(double nuevo, double viejo)
{
    const QString n = Str(nuevo), v = Str(viejo);
    Database &db = *s_.Base_Datos;
    db.execute("UPDATE Bolsa SET VALOR = " + n + " WHERE (((Bolsa.VALOR)=" + v + "))");
    db.execute("UPDATE cartera SET VALOR = " + n + " WHERE (((cartera.VALOR)=" + v + "))");
    db.execute("UPDATE comentarios SET codigo = " + n + " WHERE (((comentarios.codigo) =" + v + "))");
    db.execute("UPDATE faboritos SET VALOR = " + n + " WHERE (((faboritos.VALOR)=" + v + "))");
    db.execute("UPDATE historico SET VALOR = " + n + " WHERE (((historico.VALOR)=" + v + "))");
    db.execute("UPDATE noticias SET VALOR = " + n + " WHERE (((Noticias.VALOR)=" + v + "))");
    db.execute("delete * from codigo_empresas where codigo = " + v);
}

} // namespace tesorel
