#include "import/importar_op.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "core/dates.h"
#include "core/format.h"
#include "core/numbers.h"
#include "core/texto_1252.h"
#include "portfolio/apunte.h"
#include "store/database.h"
#include "store/helpers.h"
#include "store/query.h"
#include "store/session.h"
#include "store/ui.h"

namespace tesorel
{

namespace
{
bool blanco(QChar c)
{
    return c == u' ' || c == u'\t';
}

QStringList palabras(const QString &linea)
{
    QStringList out;
    qsizetype i = 0;
    const qsizetype n = linea.size();
    while (i < n) {
        while (i < n && blanco(linea[i]))
            ++i;
        const qsizetype inicio = i;
        while (i < n && !blanco(linea[i]))
            ++i;
        if (i > inicio)
            out << linea.mid(inicio, i - inicio);
    }
    return out;
}

const QString kCabecera = QStringLiteral("Fecha operación");

// Files of a kind in name order, without regard to case.
QStringList archivos(const QString &carpeta, const QString &extension)
{
    QDir d(carpeta);
    d.setNameFilters({QStringLiteral("*.") + extension});
    d.setFilter(QDir::Files);
    d.setSorting(QDir::Name | QDir::IgnoreCase);
    return d.entryList();
}
} // namespace

int ContarPalabras(const QString &linea)
{
    return int(palabras(linea).size());
}

QString Palabra(const QString &linea, int n)
{
    const QStringList p = palabras(linea);
    return n >= 1 && n <= p.size() ? p[n - 1] : QString();
}

ImportarOp::ImportarOp(Session &s) : s_(s) {}

void ImportarOp::Form_Load()
{
    s_.paso([&] {
        Combo1_Lista.clear();
        Query q(*s_.Base_Datos, QStringLiteral("Select abreviatura11 from codigo_empresas "));
        while (q.next())
            Combo1_Lista << q.text(0);
    });
    cargar_operadores();
    cambiado();
}

void ImportarOp::cargar_operadores()
{
    s_.paso([&] {
        Combo2_Lista.clear();
        Query q(*s_.Base_Datos, QStringLiteral("select nombre from operadores order by nombre"));
        while (q.next())
            Combo2_Lista << q.text(0);
        Combo2 = Combo2_Lista.value(0);
    });
}

void ImportarOp::Valor_Click()
{
    s_.paso([&] { Text3 = QString::number(Codigo_De(s_, Valor, BuscarPor::Abreviatura11)); });
}

void ImportarOp::Mostrar(const QString &texto)
{
    Text2 += texto + QStringLiteral("\r\n");
    cambiado();
}

void ImportarOp::destruir()
{
    filas.assign(1, FilaOp{});
    cambiado();
}

void ImportarOp::NuevaFila()
{
    filas.emplace_back();
}

void ImportarOp::Command2_Click()
{
    Mostrar(QStringLiteral("Iniciando Importación de ") + Text1);
    for (const bool scl : {true, false}) {
        for (const QString &nombre : archivos(Text1, scl ? QStringLiteral("SCL") : QStringLiteral("TXT"))) {
            if (Descargado)
                return;
            Mostrar(QStringLiteral("importando :") + nombre);
            Valor = nombre;
            importarArchivo(Text1 + u'/' + nombre, scl);
        }
    }
    Mostrar(QStringLiteral("Importación finalizada"));
    Valor = QStringLiteral("Importación finalizada");
    cambiado();
}

void ImportarOp::importarArchivo(const QString &ruta, bool scl)
{
    Combo1.clear();
    destruir();
    bool cabecera = false, codigo = false;
    int contador = 0;
    QFile f(ruta);
    if (!f.open(QIODevice::ReadOnly)) {
        s_.Registrar_Error(RuntimeError(err::FileNotFound, QStringLiteral("No se encontró el archivo")));
        return;
    }
    const QStringList lineas = lineasDeTexto(desde1252(f.readAll()));
    f.close();
    for (qsizetype i = 0; i < lineas.size(); ++i) {
        const QString &l = lineas[i];
        if (!cabecera) {
            const QString comparada = scl ? l : l.trimmed();
            if (comparada.left(15) != kCabecera)
                continue;
            cabecera = true;
            if (i + 1 >= lineas.size()) {
                // The read after a header on the last line runs past the end.
                s_.Registrar_Error(RuntimeError(62, QStringLiteral("La entrada pasa del final del archivo")));
                destruir();
                return;
            }
            continue;
        }
        clasificar(l, scl, codigo, contador);
    }
    if (scl && !cabecera)
        s_.ui.MsgBox(QStringLiteral("FICHERO NO VALIDO : ") + QFileInfo(ruta).fileName());
    cambiado();

    confirmado_ = false;
    esperando_ = true;
    while (!confirmado_ && !Descargado && esperar)
        esperar();
    esperando_ = false;

    reservarCodigo(ruta, codigo);
}

void ImportarOp::clasificar(const QString &linea, bool scl, bool &codigo, int &contador)
{
    const QStringList p = palabras(linea);
    const auto w = [&](int n) { return p.value(n - 1); };
    FilaOp fila;
    switch (p.size()) {
    case 0:
        return;
    case 2:
        if (w(1) == QLatin1String("codigoTX")) {
            Combo1 = w(2).replace(u'_', u' ');
            codigo = true;
            if (scl)
                Guardar = 0;
        }
        return;
    case 7:
        if (scl)
            break;
        fila = {w(1), w(2), w(3), {}, w(5), w(7)};
        s_.paso([&] {
            const double cantidad = Numero_Cdbl(fila.Cantidad);
            if (cantidad == 0)
                throw RuntimeError(err::DivisionByZero, QStringLiteral("División por cero"));
            fila.Precio = Format(Numero_Cdbl(fila.Precio_total) / cantidad, QStringLiteral("###,###,##0.00"));
        });
        break;
    case 8:
        fila = scl ? FilaOp{w(1), {}, w(4), w(3), w(6), w(8)}
                   : FilaOp{w(1), w(2) + u' ' + w(3), w(3), w(4), w(6), w(8)};
        break;
    case 88:
        if (!scl)
            break;
        fila = {w(1), p.mid(1, 81).join(u' '), w(83), w(84), w(86), w(88)};
        break;
    default:
        break;
    }
    if (fila.Fecha.isEmpty()) {
        s_.ui.MsgBox(QStringLiteral("Linea error : ") + linea);
        return;
    }
    if (contador > 0)
        NuevaFila();
    filas.back() = fila;
    ++contador;
}

void ImportarOp::reservarCodigo(const QString &ruta, bool codigo)
{
    // What the person did with "Guardar" is overruled: a file keeps the value chosen for it.
    Guardar = codigo ? 0 : 1;
    if (Guardar == 1 && !Combo1.isEmpty()) {
        s_.paso([&] {
            QFile f(ruta);
            if (!f.open(QIODevice::Append))
                throw RuntimeError(75, QStringLiteral("Error de acceso a la ruta o el archivo"));
            f.write("\r\n" + a1252(QStringLiteral("codigoTX ") + QString(Combo1).replace(u' ', u'_')) +
                    "\r\n");
        });
    }
    cambiado();
}

void ImportarOp::Command3_Click()
{
    entidad_ = 0;
    s_.paso([&] {
        Query q(*s_.Base_Datos, QStringLiteral("select codigo from operadores where nombre = ?"));
        q.bind(1, Combo2);
        if (q.next())
            entidad_ = q.number(0);
    });
    if (ImportarOp_ == 0) {
        destruir();
        confirmado_ = true;
        return;
    }
    if (Combo1.isEmpty()) {
        s_.ui.MsgBox(QStringLiteral("Debe seleccionar un valor o desmarcar la opción de importar los datos"));
        return;
    }
    const QString extension = Valor.right(3).toUpper();
    const int ultima = int(filas.size()) - 1;
    int first = 0, last = ultima;
    if (extension == QLatin1String("SCL")) {
        first = ultima;
        last = 0;
    } else if (extension != QLatin1String("TXT")) {
        s_.ui.MsgBox(
            QStringLiteral("La extensión del archivo no es la esperada, quizas esté manejando el programa "
                           "de forma incorrecta o exista algun problema imprevisto"),
            mb::Critical, QStringLiteral("Atensión"));
        return;
    }
    try {
        const bool adelante = !(CDate(filas[size_t(last)].Fecha) < CDate(filas[size_t(first)].Fecha));
        const int desde = adelante ? first : last, hasta = adelante ? last : first;
        const int paso = desde <= hasta ? 1 : -1;
        for (int i = desde;; i += paso) {
            const QString palabra = Palabra(filas[size_t(i)].Operacion, 1).toUpper();
            static const QStringList compras{"COMPRA", "ALTA", "EQUIPARA", "SUBSCRIPCIÓN", "SUBSCRIPCION"};
            if (palabra.isEmpty()) {
            } else if (compras.contains(palabra) || (adelante && palabra == QLatin1String("ALTAPORCANJE"))) {
                if (comprobarop(i))
                    ImportarCompra(i);
            } else if (palabra == QLatin1String("VENTA") || palabra == QLatin1String("BAJA") ||
                       (adelante && palabra == QLatin1String("BAJAPORCANJE"))) {
                if (comprobarop(i))
                    ImportarVenta(i);
            } else {
                s_.ui.MsgBox(QStringLiteral("El formato no es el esperado, no se garantiza una importación "
                                            "satisfactoria "),
                             mb::Critical, QStringLiteral("Atensión"));
            }
            if (i == hasta)
                break;
        }
    } catch (const std::exception &e) {
        // The file ends here; the rows booked before stay booked.
        s_.Registrar_Error(e);
    }
    destruir();
    confirmado_ = true;
}

void ImportarOp::ImportarCompra(int fila)
{
    const FilaOp &f = filas[size_t(fila)];
    apuntarCompra(s_, {Combo1, f.Cantidad, f.Precio, f.Fecha, f.Total, entidad_},
                  ReglasApunte::compraImportada());
}

void ImportarOp::ImportarVenta(int fila)
{
    const FilaOp &f = filas[size_t(fila)];
    apuntarVenta(s_, {Combo1, f.Cantidad, f.Precio, f.Fecha, f.Total, entidad_},
                 ReglasApunte::ventaImportada());
}

void ImportarOp::Salir_Click()
{
    Descargado = true;
    cambiado();
}

} // namespace tesorel
