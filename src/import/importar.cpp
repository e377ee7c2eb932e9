#include "import/importar.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

#include "core/dates.h"
#include "core/format.h"
#include "core/numbers.h"
#include "import/archivos_cotizacion.h"
#include "import/cierres_csv.h"
#include "import/fuentes_cierres.h"
#include "store/database.h"
#include "store/helpers.h"
#include "store/query.h"
#include "store/recordset.h"
#include "store/session.h"
#include "store/ui.h"

namespace tesorel
{

namespace
{
// A pass over a folder ignores every failure: the step is skipped, nothing
// is shown and nothing is logged.
template <class Paso> bool enSilencio(Paso &&paso) noexcept
{
    try {
        paso();
        return true;
    } catch (...) {
        return false;
    }
}

const QString InsertarFila =
    QStringLiteral("insert into bolsa (VALOR, ANTERIOR, ULTIMO, DIF, VOLUMEN, MAXIMO, "
                   "MINIMO, EFECT, FECHA) values (?, ?, ?, ?, ?, ?, ?, ?, ?)");

// Finished files committed together, at most every `ms` milliseconds; with
// 0 each file's own group is committed at its end. The files' groups nest
// inside, so a file is never half in the base unless it stopped on a failure.
class Lote
{
  public:
    Lote(Database &db, int ms) : db_(db), ms_(ms) {}
    void antesDeArchivo()
    {
        if (ms_ > 0 && !abierto_) {
            abierto_.emplace(db_, Transaction::OnLeave::KeepWritten);
            reloj_.start();
        }
    }
    void trasArchivo()
    {
        if (abierto_ && reloj_.elapsed() >= ms_)
            abierto_.reset(); // kept: committed
    }

  private:
    Database &db_;
    int ms_;
    std::optional<Transaction> abierto_;
    QElapsedTimer reloj_;
};

// A commit per day file writes every index page the file touched (one per
// value, as the series index is ordered by value) to the write-ahead log.
// Checkpointing that log every thousand pages, the engine's default, copied
// the same pages into the base again every few files; during a pass it is
// copied far less often, and the log is left at most this large.
class RegistroAmplio
{
  public:
    explicit RegistroAmplio(Database &db) : db_(db)
    {
        enSilencio([&] { db_.executeNative(QStringLiteral("PRAGMA wal_autocheckpoint=%1").arg(kPaginas)); });
    }
    ~RegistroAmplio()
    {
        enSilencio([&] { db_.executeNative(QStringLiteral("PRAGMA wal_autocheckpoint=1000")); });
    }

  private:
    static constexpr int kPaginas = 16384;
    Database &db_;
};

QString unir(const QString &carpeta, const QString &nombre)
{
    return QDir(carpeta).filePath(nombre);
}
} // namespace

Importar::Importar(Session &s, Acciones acciones) : s_(s), acciones_(std::move(acciones))
{
    enSilencio([&] { servidorCierres = FuentesCierres::leer(s_.carpeta).bases[0]; });
}

Importar::~Importar() = default;

void Importar::mostrar()
{
    if (acciones_.mostrar)
        acciones_.mostrar();
}

void Importar::Form_Load()
{
    Text1 = ImportaDe();
}

QString Importar::ImportaDe() const
{
    QFile f(unir(s_.carpeta, QStringLiteral("importa.de")));
    if (!f.open(QIODevice::ReadOnly))
        return {};
    FileInet lector(f.read(1 << 16));
    return lector.Eof() ? QString() : lector.Line_Input();
}

void Importar::GuardarImporta(const QString &carpeta) const
{
    QFile f(unir(s_.carpeta, QStringLiteral("importa.de")));
    if (f.open(QIODevice::WriteOnly | QIODevice::Truncate))
        f.write(carpeta.toLatin1() + "\r\n");
}

void Importar::Aceptar1_Click()
{
    if (!s_.Tabla_Empresas)
        Abrir_Empresas(s_);
    ImportarTicker();
    GuardarImporta(Text1);
    Importar_(Text1, QStringLiteral("DBASE"));
    // Read anew: a dBase day shown in Text1 sends the text pass to a folder
    // of that name, where it finds nothing.
    Importar_(Text1, QStringLiteral("TXT"));
    Descargado = true;
}

void Importar::ImportarTicker()
{
    QString ruta;
    s_.paso([&] {
        const QStringList hallados = listarCarpeta(Text1, QStringLiteral("tickers.txt"));
        if (!hallados.isEmpty())
            ruta = unir(Text1, hallados.first());
    });
    if (ruta.isEmpty())
        return;
    QFile f(ruta);
    std::vector<std::pair<QString, QString>> registros;
    if (f.open(QIODevice::ReadOnly))
        registros = leerTickers(f.readAll());
    f.close();
    bool cambios = false;
    for (const auto &registro : registros)
        s_.paso([&] {
            Query busca(*s_.Base_Datos, "Select codigo from codigo_empresas where Abreviatura11 = ?");
            busca.bind(1, registro.first);
            if (!busca.next())
                return;
            Query cambia(*s_.Base_Datos, "update codigo_empresas set ABREVIATURA3 = ? where codigo = ?");
            cambia.bind(1, registro.second).bind(2, busca.number(0)).exec();
            cambios = true;
        });
    QFile::remove(ruta);
    if (cambios)
        s_.paso([&] { Abrir_Empresas(s_); });
}

void Importar::Importar_(QString carpeta, const QString &tipo)
{
    ++anidamiento_;
    std::optional<RegistroAmplio> registro; // for the whole pass, subfolders and all
    if (anidamiento_ == 1 && s_.Base_Datos)
        registro.emplace(*s_.Base_Datos);
    if (tipo == QLatin1String("DBASE")) {
        pasoDbase(carpeta);
    } else if (tipo == QLatin1String("TXT")) {
        QStringList archivos;
        enSilencio([&] { archivos = listarCarpeta(carpeta, QStringLiteral("*.TXT")); });
        Lote lote(*s_.Base_Datos, agruparMs);
        for (int k = 0; k < archivos.size(); ++k) {
            lote.antesDeArchivo();
            enSilencio([&] { Importa_txt(unir(carpeta, archivos[k])); });
            lote.trasArchivo();
            if (acciones_.progreso)
                acciones_.progreso(k + 1, int(archivos.size()));
        }
    } else {
        s_.ui.MsgBox(QStringLiteral("Formato no reconocido, "), mb::Exclamation,
                     QStringLiteral("Mala Suerte"));
    }
    --anidamiento_;
}

void Importar::pasoDbase(const QString &carpeta)
{
    // All subfolder names are read before any is visited; only the first twelve count.
    QStringList subcarpetas;
    enSilencio([&] { subcarpetas = listarSinPunto(carpeta).mid(0, 12); });
    for (const QString &nombre : subcarpetas)
        Importar_(unir(carpeta, nombre), QStringLiteral("DBASE"));

    QStringList archivos;
    enSilencio([&] { archivos = listarCarpeta(carpeta, QStringLiteral("*.DBF")); });
    // A table that cannot be opened leaves the one before in use, with its day.
    std::unique_ptr<TablaDbf> tabla;
    std::optional<QDate> dia;
    Database &db = *s_.Base_Datos;
    Lote lote(db, agruparMs);
    for (const QString &archivo : archivos) {
        lote.antesDeArchivo();
        const double numero = numeroDeTabla(archivo);
        if (numero == 0)
            continue;
        enSilencio([&] { tabla = std::make_unique<TablaDbf>(carpeta, nombreDeTabla(numero)); });
        enSilencio([&] {
            if (!tabla)
                return;
            const QVariant fecha = tabla->field(QStringLiteral("Fecha"));
            if (fecha.typeId() == QMetaType::QDate)
                dia = fecha.toDate();
        });
        if (!dia)
            continue; // no day read yet: nothing to test it against
        Transaction grupo(db, Transaction::OnLeave::KeepWritten);
        bool admitido = false;
        enSilencio([&] { admitido = admiteDia(*dia); });
        if (!admitido || !tabla)
            continue;
        Label2 = Importando;
        Text1 = Format(*dia, QStringLiteral("dddd dd, mmmm d yyyy"));
        mostrar();
        if (acciones_.importando)
            acciones_.importando(*dia);
        s_.ui.DoEvents();
        Query insercion(db, InsertarFila);
        for (; !tabla->Eof(); tabla->MoveNext())
            enSilencio([&] {
                const QVariant valor = tabla->field(QStringLiteral("Valor"));
                if (valor.isNull() || !valor.isValid())
                    return;
                const QString nombre = valor.toString();
                double codigo = Codigo_De(s_, nombre.left(11).trimmed(), BuscarPor::Abreviatura11);
                if (codigo == 0)
                    codigo = Alta_Empresa(s_, nombre.left(11));
                // Each field on its own: one that is missing stays empty in the row.
                auto campo = [&](const auto &cual) {
                    QVariant v;
                    enSilencio([&] { v = tabla->field(cual); });
                    return v;
                };
                const QVariant ultimo = campo(2), maximo = campo(QStringLiteral("Maximo"));
                QVariant alto = maximo, bajo = campo(QStringLiteral("minimo"));
                if (maximo.isValid() && maximo.toDouble() == 0 && ultimo.isValid() && ultimo.toDouble() != 0)
                    alto = bajo = ultimo;
                insercion.bind(1, codigo)
                    .bind(2, campo(QStringLiteral("Anterior")))
                    .bind(3, ultimo)
                    .bind(4, campo(QStringLiteral("Dif")))
                    .bind(5, campo(QStringLiteral("Volumen")))
                    .bind(6, alto)
                    .bind(7, bajo)
                    .bind(8, campo(QStringLiteral("Efect")))
                    .bind(9, campo(QStringLiteral("Fecha")));
                insercion.exec();
            });
        grupo.commit();
        lote.trasArchivo();
    }
}

bool Importar::admiteDia(const QDate &dia)
{
    // The day as statements write it, two-digit year and all.
    const QString fecha = Barra_A_Guion(Format(dia, QStringLiteral("mm-dd-yy")));
    Database &db = *s_.Base_Datos;
    if (Sobre == 1)
        db.execute("delete * from bolsa where [fecha] = #" + fecha + "#");
    Query busca(db, "Select VALOR from bolsa where FECHA = #" + fecha + "#");
    return !busca.next();
}

double Importar::codigoDe(const QString &nombre, BuscarPor primeraClase)
{
    double codigo = Codigo_De(s_, nombre.trimmed(), primeraClase);
    if (codigo == 0)
        codigo = Codigo_De(s_, nombre.left(11).trimmed(), BuscarPor::Abreviatura11);
    if (codigo == 0)
        codigo = Alta_Empresa(s_, nombre.left(11));
    return codigo;
}

void Importar::Importa_txt(const QString &ruta)
{
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::ReadOnly))
        throw RuntimeError(err::FileNotFound, QStringLiteral("No se encontró el archivo"));
    const QByteArray bytes = archivo.readAll();
    archivo.close(); // read whole: the file is closed when its import ends
    importarTexto(bytes);
}

void Importar::importarTexto(const QByteArray &bytes)
{
    if (!s_.Tabla_Empresas)
        Abrir_Empresas(s_);
    FileInet lector(bytes);
    if (lector.Eof())
        throw RuntimeError(62, QStringLiteral("La entrada pasó del final del archivo"));
    const std::optional<QDate> dia = diaDeCabecera(lector.Line_Input());
    if (!dia)
        return;
    Database &db = *s_.Base_Datos;
    // Rows read before a failure stay: the group is kept when one leaves it.
    Transaction grupo(db, Transaction::OnLeave::KeepWritten);
    if (!admiteDia(*dia))
        return;
    Label2 = Importando;
    Text1 = Format(*dia, QStringLiteral("dddd, dd-mmmm-yyyy"));
    mostrar();
    if (acciones_.importando)
        acciones_.importando(*dia);
    s_.ui.DoEvents();

    Query insercion(db, InsertarFila);
    LectorLineas lineas;
    while (!lector.Eof()) {
        if (!lineas.leer(lector.Line_Input()))
            s_.ui.Beep();
        const LineaCotizacion &l = lineas.actual();
        const auto [alto, bajo] = maximoYMinimo(l.maximo, l.minimo, l.ultimo);
        insercion.bind(1, codigoDe(l.nombre, BuscarPor::Ticker))
            .bind(2, l.anterior)
            .bind(3, l.ultimo)
            .bind(4, l.dif)
            .bind(5, l.volumen)
            .bind(6, alto)
            .bind(7, bajo)
            .bind(8, l.efect)
            .bind(9, *dia);
        insercion.exec();
    }
    grupo.commit();
}

void Importar::Form_Unload()
{
    enSilencio([&] {
        Database &db = *s_.Base_Datos;
        s_.Usuario_Actual_rs = db.openRecordset("Select * From Usuario_Actual");
        s_.Fechas_rs = db.openRecordset("Select * From Fechas Order by Fecha");
        s_.Fechas_rs->MoveLast();
        const QVariant ultimo = s_.Fechas_rs->field("Fecha");
        s_.Usuario_Actual_rs->Edit();
        s_.Usuario_Actual_rs->setField("fecha_Actual", ultimo);
        s_.Usuario_Actual_rs->Update();
    });
}

void Importar::Label6_Click()
{
    if (!acciones_.Examinar)
        return;
    const std::optional<QString> elegida = acciones_.Examinar();
    s_.Examinar_Cancelado = !elegida;
    if (elegida)
        Text1 = *elegida;
}

void Importar::Label7_Click()
{
    if (!acciones_.ImportCorreo || !acciones_.ImportCorreo())
        s_.ui.MsgBox(QStringLiteral("La recogida de correo no está disponible."), mb::Information,
                     QStringLiteral("Información"));
}

void Importar::Label8_Click()
{
    Label7_Click();
    if (Text1.isEmpty() || !QFileInfo::exists(Text1)) {
        s_.ui.MsgBox(QStringLiteral("Subdirectorio no valido"), mb::Critical, QStringLiteral("Atención"));
        return;
    }
    const QString correo = unir(s_.carpeta, QStringLiteral("mail"));
    for (const QString &nombre : listarCarpeta(correo, QStringLiteral("*.txt"))) {
        const QString destino = unir(Text1, nombre);
        QFile::remove(destino);
        if (QFile::copy(unir(correo, nombre), destino))
            QFile::remove(unir(correo, nombre));
    }
    Aceptar1_Click();
}

void Importar::Label9_Click()
{
    if (acciones_.DatosUsuario)
        acciones_.DatosUsuario();
}

void Importar::Label12_Click()
{
    s_.ui.OpenUrl(servidorCierres + QStringLiteral("/datos/2002/todo.exe"));
}

void Importar::Label13_Click()
{
    if (acciones_.Importinet)
        acciones_.Importinet();
    Descargado = true;
}

} // namespace tesorel
