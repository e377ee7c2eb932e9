#include "import/importinet.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <optional>

#include "core/dates.h"
#include "import/cierres_csv.h"
#include "online/download.h"
#include "store/database.h"
#include "store/helpers.h"
#include "store/query.h"
#include "store/session.h"
#include "store/ui.h"

namespace tesorel
{

namespace
{
QString diaEnLista(const QDate &dia)
{
    return dia.toString(QStringLiteral("dd/MM/yyyy"));
}
} // namespace

Importinet::Importinet(Session &s, FuentesCierres fuentes, Acciones acciones)
    : s_(s), fuentes_(std::move(fuentes)), acciones_(std::move(acciones)), importaNet_(s)
{
}

QString Importinet::rutaDelDia(const QDate &dia) const
{
    return s_.carpeta + QStringLiteral("/txt/") + dia.toString(QStringLiteral("ddMMyy")) +
           QStringLiteral(".txt");
}

void Importinet::refrescar()
{
    if (acciones_.mostrar)
        acciones_.mostrar();
    s_.ui.DoEvents();
}

void Importinet::progreso(size_t lugar)
{
    Shape2_Width = int(double(Shape1_Width) / double(List1.size()) * double(lugar));
}

void Importinet::Form_Load()
{
    s_.paso([&] { FechaIn = diaEnLista(importaNet_.UltFecha(QDate(2000, 1, 1))); });
    FechaFin = diaEnLista(s_.Hoy());
    Importando();
}

void Importinet::Importando()
{
    if (enCurso_)
        return;
    enCurso_ = true;
    cancelado_ = false;
    struct Fin {
        bool &enCurso;
        ~Fin() { enCurso = false; }
    } fin{enCurso_};

    s_.paso([&] { QDir().mkpath(s_.carpeta + QStringLiteral("/txt")); });
    Reloj = true;
    Label1 = TextoInicio;
    refrescar();

    // From the last stored day, itself included, up to yesterday: the
    // last day is fetched again, and today never is.
    QDate f(2000, 1, 1);
    s_.paso([&] { f = importaNet_.UltFecha(QDate(2000, 1, 1)); });
    List1.clear();
    const QDate hoy = s_.Hoy();
    for (; f < hoy; f = f.addDays(1))
        List1.push_back({diaEnLista(f), f, 0});

    if (List1.empty()) {
        Label1 = TextoNada;
        Manual_Visible = true;
        sape2 = sape3 = true;
        Command1 = QStringLiteral("Aceptar");
        Reloj = false;
        refrescar();
        return;
    }

    sape2 = true;
    Label1 = TextoDescarga;
    size_t fallos = 0;
    for (size_t i = 0; i < List1.size() && !cancelado_; ++i) {
        progreso(i + 1);
        DIA = List1[i].texto;
        refrescar();
        if (cancelado_ || !descargar(List1[i].dia)) {
            if (cancelado_)
                break;
            fallo << List1[i].texto;
            ++fallos;
            List1[i].ItemData = 2;
        }
    }

    Label1 = TextoCarga;
    for (size_t i = 0; i < List1.size() && !cancelado_; ++i) {
        if (List1[i].ItemData == 2)
            continue;
        progreso(i + 1);
        DIA = List1[i].texto;
        refrescar();
        bool cargado = false;
        s_.paso([&] { cargado = Importa_txt_inet(rutaDelDia(List1[i].dia), List1[i].dia); });
        (cargado ? Ok : fallo) << List1[i].texto;
    }

    Label1 = fallos == List1.size() ? TextoTodoFallo : TextoFin;
    DIA.clear();
    sape3 = true;
    Reloj = false;
    Command1 = QStringLiteral("Aceptar");
    refrescar();
}

bool Importinet::descargar(const QDate &dia)
{
    const QString ruta = rutaDelDia(dia);
    for (int fuente = 1; fuente <= 3; ++fuente) {
        const QString direccion = fuentes_.direccion(fuente, dia);
        bool ok = !direccion.isEmpty() && Descargar_Url(direccion, ruta, fuentes_.limiteMs);
        // A file that an earlier run left behind counts as this day's download.
        ok = ok || QFileInfo::exists(ruta);
        if (ok) {
            site = QString::number(fuente);
            if (acciones_.descargado)
                acciones_.descargado(fuente, dia);
            return true;
        }
        if (cancelado_)
            return false;
    }
    return false;
}

bool Importinet::Importa_txt_inet(const QString &ruta, const QDate &dia)
{
    QFile archivo(ruta);
    if (!archivo.exists() || !archivo.open(QIODevice::ReadOnly))
        return false;
    Database &db = *s_.Base_Datos;
    // A day already in bolsa is never completed or overwritten from the web.
    bool yaEsta = false;
    {
        Query q(db, QStringLiteral("select VALOR from bolsa where FECHA = ?"));
        q.bind(1, dia);
        yaEsta = q.next();
    }
    if (yaEsta) {
        archivo.close();
        archivo.remove();
        return false;
    }
    s_.ui.DoEvents();
    const LecturaCierres lectura = leerCierres(archivo.readAll(), dia);
    archivo.close();

    // One transaction for the file's rows; it is committed before a company
    // window opens, so that nothing the person does there can undo them.
    std::optional<Transaction> t;
    t.emplace(db, Transaction::OnLeave::KeepWritten);
    Query fila(db,
               QStringLiteral("insert into bolsa (VALOR, ANTERIOR, ULTIMO, VOLUMEN, MAXIMO, MINIMO, EFECT, "
                              "FECHA) values (?, 0, ?, ?, ?, ?, ?, ?)"));
    for (const FilaCierre &c : lectura.filas) {
        double codigo = Codigo_De(s_, c.ticker, BuscarPor::Ticker);
        if (codigo == 0 && !c.ticker.endsWith(QLatin1String(".D")) && acciones_.AddEmpresa) {
            t->commit();
            t.reset();
            acciones_.AddEmpresa(c.ticker);
            s_.paso([&] { Abrir_Empresas(s_); });
            codigo = Codigo_De(s_, c.ticker, BuscarPor::Ticker);
            t.emplace(db, Transaction::OnLeave::KeepWritten);
        }
        if (codigo == 0)
            continue;
        // A high of 0 beside a close: both extremes take the close.
        const bool sinMaximo = c.maximo == 0 && c.ultimo != 0;
        s_.paso([&] {
            fila.bind(1, codigo)
                .bind(2, c.ultimo)
                .bind(3, c.volumen)
                .bind(4, sinMaximo ? c.ultimo : c.maximo)
                .bind(5, sinMaximo ? c.ultimo : c.minimo)
                .bind(6, c.efect())
                .bind(7, dia)
                .exec();
        });
    }
    t->commit();
    QFile::remove(ruta);
    return lectura.completa;
}

void Importinet::Command1_Click()
{
    // During a run the button stops it; the window closes once the run returns.
    if (enCurso_)
        cancelado_ = true;
    Descargado = true;
}

void Importinet::Command2_Click()
{
    for (const auto &[texto, control] : {std::pair{&FechaIn, "FechaIn"}, std::pair{&FechaFin, "FechaFin"}}) {
        if (!IsDate(*texto)) {
            s_.ui.MsgBox(QStringLiteral("No parece una fecha correcta"), mb::Critical,
                         QStringLiteral("Atención"));
            Foco = QString::fromLatin1(control);
            return;
        }
    }
    // The days typed are listed, and the run then lists its own: they only
    // have to be dates.
    List1.clear();
    for (QDate d = CDate(FechaIn); d <= CDate(FechaFin); d = d.addDays(1))
        List1.push_back({diaEnLista(d), d, 0});
    Manual_Visible = false;
    Importando();
}

void Importinet::Comentario1Importando()
{
    sape1 = true;
    if (fuentes_.graficos.isEmpty())
        return;
    const QString txt = s_.carpeta + QStringLiteral("/txt/");
    QDir().mkpath(txt);
    QFile::remove(txt + QStringLiteral("dates.txt"));
    const QString direccion =
        fuentes_.graficos +
        QStringLiteral("/table.csv?s=tef.MC&a=00&b=3&c=2000&d=11&e=29&f=2009&g=d&ignore=.csv");
    if (!Descargar_Url(direccion, txt + QStringLiteral("dates.txt"), fuentes_.limiteMs))
        return;
    QFile origen(txt + QStringLiteral("dates.txt")), copia(txt + QStringLiteral("dates1.txt"));
    if (!origen.open(QIODevice::ReadOnly) || !copia.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return;
    // Line feeds become CR LF, through a placeholder.
    QByteArray bytes = origen.readAll();
    bytes.replace('\n', '\x01').replace("\x01", "\r\n");
    copia.write(bytes);
    copia.close();

    static const std::pair<const char *, const char *> meses[] = {
        {"Dec", "12"}, {"Nov", "11"}, {"Oct", "10"}, {"Sep", "09"}, {"Ago", "08"}, {"Jul", "07"},
        {"Jun", "06"}, {"May", "05"}, {"Apr", "04"}, {"Mar", "03"}, {"Feb", "02"}, {"Ene", "01"}};
    FileInet lector(bytes);
    bool primera = true;
    while (!lector.Eof()) {
        QString campo = Primer(lector.Line_Input());
        for (const auto &[nombre, numero] : meses)
            campo.replace(QLatin1String(nombre), QLatin1String(numero));
        if (primera) {
            if (campo.toUpper() != QLatin1String("DATE"))
                return;
            primera = false;
            continue;
        }
        if (IsDate(campo)) {
            const QDate dia = CDate(campo);
            if (!importaNet_.HayFecha(dia))
                List1.push_back({diaEnLista(dia), dia, 0});
        }
    }
}

void Importinet::Importar_Click()
{
    if (!enCurso_ && acciones_.Importar)
        acciones_.Importar();
}

} // namespace tesorel
