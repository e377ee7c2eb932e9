// The ledger report and the tax export: both copy the rows as the window
// shows them, with its filter and order, not the base.
#include "core/dates.h"
#include "core/format.h"
#include "core/numbers.h"
#include "portfolio/historico.h"
#include "portfolio/informe_html.h"
#include "store/database.h"
#include "store/query.h"
#include "store/session.h"
#include "store/ui.h"

#include <QDir>
#include <QFileInfo>

namespace tesorel
{

namespace
{

void escribirInforme(Session &s, InformeHtml &f, const std::vector<FilaHistorico> &filas)
{
    aperturaInforme(f);
    f.linea(QStringLiteral("<P><FONT SIZE=\"2\">Operaciones "));
    f.linea(QStringLiteral("&nbsp;</FONT></P>"));
    aperturaTabla(f);
    static const std::pair<const char *, const char *> cabeceras[] = {
        {"Fecha", "10%"}, {"Operaci&oacute;n", "4%"}, {"Cantidad", "8%"}, {"Valor", "16%"},
        {"Precio", "8%"}, {"Comisiones", "8%"},       {"Total", "10%"},
    };
    for (const auto &[texto, ancho] : cabeceras)
        Cabecera(f, QString::fromUtf8(texto), QString::fromLatin1(ancho));
    f.linea(QStringLiteral("</TR>"));
    for (const FilaHistorico &fila : filas) {
        f.linea(QStringLiteral("<TR>"));
        // A row without a readable day loses that cell only, and the failure is reported.
        s.paso([&] { celda(f, Celda::Fecha, Format(CDate(fila.Fecha), QStringLiteral("dd/mm/yy"))); });
        celda(f, Celda::Derecha, fila.Operacion);
        celda(f, Celda::Tanto, fila.Cantidad);
        celda(f, Celda::Texto, fila.Valor);
        celda(f, Celda::Numero, fila.Precio);
        // The grid shows absolute amounts, so a sale's commission comes out
        // negative; and the point rule reads a decimal comma as the end.
        const double comision =
            Numero_Val(fila.Importe) - Numero_Val(fila.Cantidad) * Numero_Val(fila.Precio);
        celda(f, Celda::Numero, Format(comision, QStringLiteral("##0.##")));
        celda(f, Celda::Numero, fila.Importe);
        f.linea(QStringLiteral("</TR>"));
    }
    // The table is left open, as the report has always ended.
    f.linea(QStringLiteral("</BODY></HTML>"));
}

const QString kEsquemaTxe = QStringLiteral(
    "CREATE TABLE IF NOT EXISTS Titulares (IDTitular INTEGER PRIMARY KEY AUTOINCREMENT, NOMBRE TEXT);"
    "CREATE TABLE IF NOT EXISTS operaciones (IDTitular INTEGER, Descripcion TEXT, Fecha DATE, "
    "Operacion TEXT, ntitulos1 DOUBLE, importee DOUBLE);");

// The tax program's file, made with the two tables when missing; its
// folder must exist.
std::shared_ptr<Database> abrirBaseTxe(const QString &ruta)
{
    if (!QFileInfo(ruta).dir().exists())
        throw RuntimeError(3044, QStringLiteral("'") + QFileInfo(ruta).path() +
                                     QStringLiteral("' no es una ruta válida."));
    auto db = QFileInfo::exists(ruta) ? Database::open(ruta) : Database::create(ruta);
    db->executeNative(kEsquemaTxe);
    return db;
}

} // namespace

void Historico::informeHtml(const QString &ruta, bool abrir)
{
    InformeHtml f;
    s_.paso([&] { f.abrir(ruta); });
    s_.paso([&] { escribirInforme(s_, f, filas); });
    f.cerrar();
    if (abrir)
        s_.paso([&] { s_.ui.OpenUrl(ruta); });
}

void Historico::exportarTxe()
{
    s_.Ubicacion_Error = 200204;
    std::shared_ptr<Database> db;
    s_.paso([&] { db = abrirBaseTxe(letra + QStringLiteral("/AEAT/txe2005/Carteras2005.mdb")); });
    const QString nombre = s_.ui.InputBox(QStringLiteral("Introduzca nombre del Titular : "),
                                          QStringLiteral("Tesorel Export TXE"));
    s_.paso([&] {
        if (!db)
            throw RuntimeError(91, QStringLiteral("Variable de objeto o bloque With no establecido"));
        // All or nothing: a failed row leaves the tax base as it was.
        Transaction t(*db);
        Query titular(*db, QStringLiteral("insert into Titulares (NOMBRE) values (?)"));
        titular.bind(1, nombre + QStringLiteral(" [TXE]")).exec();
        const qint64 id = titular.lastInsertId();
        Query op(*db, QStringLiteral("insert into operaciones (IDTitular, Descripcion, Fecha, Operacion, "
                                     "ntitulos1, importee) values (?, ?, ?, ?, ?, ?)"));
        for (const FilaHistorico &fila : filas) {
            const bool compra = fila.Operacion == QStringLiteral("compré");
            if (!compra && fila.Operacion != QStringLiteral("vendí"))
                continue;
            const QString descripcion = fila.Valor.left(10);
            op.bind(1, id)
                .bind(2, descripcion.isEmpty() ? QStringLiteral("DESCO") : descripcion)
                .bind(3, CDate(fila.Fecha))
                .bind(4, compra ? QStringLiteral("AD") : QStringLiteral("TR"))
                .bind(5, Numero_Val(fila.Cantidad))
                .bind(6, Numero_Val(fila.Importe) * 100);
            op.exec();
        }
        t.commit();
    });
    s_.ui.MsgBox(QStringLiteral("Exportación realizada con exito, compruebe los importes"), mb::Information,
                 QStringLiteral("TXE"));
}

} // namespace tesorel
