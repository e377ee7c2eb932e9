#include "import/archivos_cotizacion.h"
#include "core/texto_1252.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <shapefil.h>

#include "core/dates.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "import/cierres_csv.h"

namespace tesorel
{

std::optional<QDate> diaDeCabecera(const QString &primeraLinea)
{
    const QString resto = primeraLinea.startsWith(QLatin1String("tx")) ? primeraLinea.mid(2) : primeraLinea;
    if (!IsDate(resto))
        return std::nullopt;
    return CDate(resto);
}

bool LectorLineas::leer(const QString &linea)
{
    if (CuantasComas(linea) != 7)
        return false;
    // One pass over the eight fields rather than eight searches from the start.
    const QStringList c = linea.split(u',');
    actual_.nombre = c[0];
    actual_.anterior = Numero_Val(c[1]);
    actual_.ultimo = Numero_Val(c[2]);
    actual_.dif = Numero_Val(c[3]);
    actual_.volumen = Numero_Val(c[4]);
    actual_.maximo = Numero_Val(c[5]);
    actual_.minimo = Numero_Val(c[6]);
    actual_.efect = Numero_Val(c[7]);
    return true;
}

std::pair<double, double> maximoYMinimo(double maximo, double minimo, double ultimo)
{
    if (maximo == 0 && ultimo != 0)
        return {ultimo, ultimo};
    return {maximo, minimo};
}

std::vector<std::pair<QString, QString>> leerTickers(const QByteArray &bytes)
{
    // Input #: blanks before a field are skipped; a quoted field runs to the
    // next quote, anything after it up to the separator is dropped; an
    // unquoted one runs to a comma or a line end and loses trailing blanks.
    const QString t = desde1252(bytes);
    QStringList campos;
    qsizetype i = 0;
    const qsizetype n = t.size();
    auto finDeLinea = [&](qsizetype k) { return t[k] == u'\r' || t[k] == u'\n'; };
    while (i < n) {
        while (i < n && (t[i] == u' ' || t[i] == u'\t'))
            ++i;
        if (i >= n)
            break;
        QString campo;
        if (t[i] == u'"') {
            const qsizetype cierre = t.indexOf(u'"', i + 1);
            campo = t.mid(i + 1, cierre < 0 ? -1 : cierre - i - 1);
            i = cierre < 0 ? n : cierre + 1;
            while (i < n && t[i] != u',' && !finDeLinea(i))
                ++i;
        } else {
            const qsizetype desde = i;
            while (i < n && t[i] != u',' && !finDeLinea(i))
                ++i;
            campo = t.mid(desde, i - desde).trimmed();
        }
        campos << campo;
        if (i < n && t[i] == u',')
            ++i;
        else
            while (i < n && finDeLinea(i))
                ++i;
    }
    std::vector<std::pair<QString, QString>> registros;
    for (qsizetype k = 0; k + 1 < campos.size(); k += 2)
        registros.emplace_back(campos[k], campos[k + 1]);
    return registros;
}

namespace
{
QStringList ordenar(QStringList nombres)
{
    std::stable_sort(nombres.begin(), nombres.end(), [](const QString &a, const QString &b) {
        return QString::compare(a, b, Qt::CaseInsensitive) < 0;
    });
    return nombres;
}
} // namespace

QStringList listarCarpeta(const QString &carpeta, const QString &patron)
{
    QDir d(carpeta);
    d.setNameFilters({patron});
    d.setFilter(QDir::Files); // name filters match any case
    return ordenar(d.entryList());
}

QStringList listarSinPunto(const QString &carpeta)
{
    // Links are not followed, so that a loop of folders cannot make the descent endless.
    QDir d(carpeta);
    d.setFilter(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks);
    QStringList nombres;
    for (const QString &nombre : d.entryList())
        if (!nombre.contains(u'.'))
            nombres << nombre;
    return ordenar(nombres);
}

double numeroDeTabla(const QString &archivo)
{
    return Numero_Val(archivo);
}

QString nombreDeTabla(double numero)
{
    return Str(numero).trimmed();
}

TablaDbf::TablaDbf(const QString &carpeta, const QString &tabla)
{
    const QString buscado = tabla + QLatin1String(".dbf");
    for (const QString &archivo : listarCarpeta(carpeta, QStringLiteral("*.dbf")))
        if (archivo.compare(buscado, Qt::CaseInsensitive) == 0) {
            abrir(QDir(carpeta).filePath(archivo));
            return;
        }
    throw RuntimeError(err::EngineError,
                       QStringLiteral("El motor de base de datos no encontró la tabla '%1'.").arg(tabla));
}

TablaDbf::TablaDbf(const QString &ruta)
{
    abrir(ruta);
}

TablaDbf::~TablaDbf()
{
    if (dbf_)
        DBFClose(static_cast<DBFHandle>(dbf_));
}

void TablaDbf::abrir(const QString &ruta)
{
    DBFHandle h = DBFOpen(QFile::encodeName(ruta).constData(), "rb");
    if (!h)
        throw RuntimeError(err::EngineError, QStringLiteral("No es una tabla dBase: '%1'.").arg(ruta));
    dbf_ = h;
    // A header may claim more records than the file holds: only whole ones count.
    const qint64 tamano = QFileInfo(ruta).size();
    qint64 registros = h->nRecords;
    if (h->nRecordLength <= 0 || tamano < h->nHeaderLength)
        registros = 0;
    else
        registros = std::min<qint64>(registros, (tamano - h->nHeaderLength) / h->nRecordLength);
    const int nCampos = DBFGetFieldCount(h);
    for (int k = 0; k < nCampos; ++k) {
        char nombre[XBASE_FLDNAME_LEN_READ + 1] = {};
        int ancho = 0, decimales = 0;
        DBFGetFieldInfo(h, k, nombre, &ancho, &decimales);
        campos_.push_back({desde1252(QByteArrayView(nombre, qstrnlen(nombre, sizeof nombre))),
                           DBFGetNativeFieldType(h, k)});
    }
    for (int r = 0; r < int(registros); ++r)
        if (!DBFIsRecordDeleted(h, r))
            filas_.push_back(r);
}

QVariant TablaDbf::field(const QString &nombre) const
{
    for (size_t k = 0; k < campos_.size(); ++k)
        if (campos_[k].nombre.compare(nombre, Qt::CaseInsensitive) == 0)
            return field(int(k));
    throw RuntimeError(3265, QStringLiteral("No se encontró el elemento en esta colección."));
}

QVariant TablaDbf::field(int posicion) const
{
    if (posicion < 0 || posicion >= fieldCount())
        throw RuntimeError(3265, QStringLiteral("No se encontró el elemento en esta colección."));
    if (Eof())
        throw RuntimeError(err::NoCurrentRecord, QStringLiteral("No hay registro activo."));
    auto h = static_cast<DBFHandle>(dbf_);
    const int registro = filas_[fila_];
    const char *crudo = DBFReadStringAttribute(h, registro, posicion);
    if (!crudo || DBFIsAttributeNULL(h, registro, posicion))
        return {};
    const QString texto = desde1252(QByteArrayView(crudo, qstrlen(crudo)));
    switch (campos_[size_t(posicion)].tipo) {
    case 'N':
    case 'F':
        return Numero_Val(texto);
    case 'D': {
        const QDate dia = QDate::fromString(texto.trimmed(), QStringLiteral("yyyyMMdd"));
        return dia.isValid() ? QVariant(dia) : QVariant();
    }
    default:
        return texto;
    }
}

} // namespace tesorel
