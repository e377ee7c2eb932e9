#include "principal/principal.h"

#include <QRandomGenerator>

#include "core/numbers.h"
#include "principal/comandos.h"
#include "store/app_folder.h"
#include "store/database.h"
#include "store/helpers.h"
#include "store/recordset.h"
#include "store/session.h"
#include "store/ui.h"
#include "store/usuario.h"

#ifndef TESOREL_REVISION
#define TESOREL_REVISION 0
#endif

namespace tesorel
{

const QStringList Principal::Pestanas_Caption{
    QStringLiteral("Noticias"),    QStringLiteral("Notas"),    QStringLiteral("MaCD"),
    QStringLiteral("Rsi"),         QStringLiteral("Momentum"), QStringLiteral("Estocástico"),
    QStringLiteral("Operaciones"), QStringLiteral("Inicio"),   QStringLiteral("Charla")};
const QStringList Principal::Valores_Entradas{QStringLiteral("Todos"), QStringLiteral("Ibex"),
                                              QStringLiteral("En Cartera"), QStringLiteral("En Seguimiento")};
const QString Principal::NoHay_Caption = QStringLiteral("Base de datos ausente...");
const QString Principal::NoHay_Mensaje = QStringLiteral(
    "El programa no puede localizar el archivo base1.mdb imprescindible para la ejecución del programa.");
const QString Principal::NoHay_EtiquetaDirectorio = QStringLiteral("Directorio ");
const QString Principal::NoHay_Donde = QStringLiteral(
    "Puede crear una base nueva con la orden \"tesorel-cli makebase base1.mdb --sample\" o copiar "
    "en ese directorio la base1.mdb que acompaña a la instalación.");

namespace
{
// The lists of the combo, by index, as commands.
const char *const ListaDeValores[] = {"todos", "ibex", "Cartera", "faboritos"};

Database &base(Session &s)
{
    if (!s.Base_Datos)
        throw RuntimeError(err::ObjectNotSet, QStringLiteral("Variable de tipo Object no establecida"));
    return *s.Base_Datos;
}
} // namespace

Principal::Principal(Session &s, Comandos &comandos, QString rutaBase)
    : s_(s), comandos_(comandos), rutaBase_(std::move(rutaBase))
{
    // A random value of the newest day, until the value lists register their own.
    comandos_.registrarConResultado("qualquier_valor", [this] { return qualquierValorDelDia(); });
}

Principal::~Principal() = default;

QString Principal::carpetaNoHay() const
{
    return s_.carpeta + ' ';
}

// A step of Load: a missing base file shows NoHay, any other failure goes
// to the error routine, and Load goes on with its next step.
template <class Step> void Principal::pasoDeCarga(Step &&step)
{
    if (Terminado)
        return;
    try {
        step();
    } catch (const RuntimeError &e) {
        if (e.number() == err::DatabaseFileNotFound) {
            Timer1_Enabled = false;
            comandos_.ejecutar("NoHay");
        } else {
            s_.Registrar_Error(e);
        }
    } catch (const std::exception &e) {
        s_.Registrar_Error(e);
    }
}

void Principal::Form_Load()
{
    // Steps 1, 2 and 4 (position, scaling, centring) are the form's layout.
    pasoDeCarga([&] {
        Pestanas_Click(7);
        comandos_.ejecutar("DefinirGraficas");
    });
    pasoDeCarga([&] { Crear_Carpetas_Trabajo(s_.carpeta); });
    pasoDeCarga([&] { s_.abrirBase(rutaBase_); });
    pasoDeCarga([&] {
        base(s_);
        Abrir_Empresas(s_);
    });
    std::unique_ptr<Recordset> usuarioActual, fechas;
    pasoDeCarga([&] { usuarioActual = base(s_).openRecordset("Select * from Usuario_Actual"); });
    pasoDeCarga([&] {
        fechas = base(s_).openRecordset("Select * from Fechas Order by Fecha");
        if (fechas->Bof()) {
            comandos_.ejecutar("Importinet");
            fechas.reset();
            fechas = base(s_).openRecordset("Select * from Fechas Order by Fecha");
        }
    });
    pasoDeCarga([&] {
        fechas->MoveLast();
        const QVariant ultimo = fechas->field("Fecha");
        usuarioActual->Edit();
        usuarioActual->setField("fecha_Actual", ultimo);
        usuarioActual->Update();
    });
}

void Principal::Form_Activate()
{
    if (Terminado)
        return;
    s_.Hay_Conexion = s_.Permitir_Conexion;
    Version = QStringLiteral("Tesorel 2.007 - Revisión ") + QString::number(TESOREL_REVISION);
    Usuario_Sesion = std::make_unique<Usuario>(s_);
    s_.paso([&] {
        base(s_);
        Abrir_Empresas(s_);
    });
    if (Primera_Activacion_Hecha == 1)
        return;
    Primera_Activacion_Hecha = 1;

    s_.Usuario_Numero = 1;
    s_.paso([&] {
        const QVariant codigo = comandos_.ejecutar("qualquier_valor");
        base(s_);
        setText1(Nombre_De(s_, codigo));
    });
    s_.Usuario_Numero = 0;

    comandos_.ejecutar("form4");
    Cargar_configuracion();
    if (s_.Usuario_Numero == 0)
        terminar();
}

QVariant Principal::qualquierValorDelDia()
{
    auto rs = base(s_).openRecordset("SELECT VALOR FROM bolsa_de_un_dia WHERE VALOR < 34000 ORDER BY VALOR");
    if (rs->Eof())
        return {};
    rs->MoveLast();
    const long cuenta = rs->RecordCount();
    rs->MoveFirst();
    rs->Move(static_cast<long>(QRandomGenerator::global()->bounded(static_cast<int>(cuenta))));
    return rs->field("VALOR").toDouble();
}

void Principal::setText1(const QString &texto)
{
    if (texto == Text1)
        return;
    Text1 = texto;
    Text1_Change();
}

void Principal::Text1_Change()
{
    if (Text1.left(7) == QLatin1String("CARTERA"))
        s_.paso([&] { comandos_.ejecutar("Generar_Serie_Cartera"); });
    s_.paso([&] { comandos_.ejecutar("QuitarVerOperaciones"); });
    buscar.clear();
    s_.paso([&] {
        base(s_);
        Codigo_Valor = Codigo_De(s_, Text1, 1);
    });
    s_.paso([&] { urlWeb = Web_Empresa(s_, Codigo_Valor); });
    s_.paso([&] { urlLaBolsa = Url_La_Bolsa(s_, Codigo_Valor); });
    laWEB_Visible = !urlWeb.isEmpty();
    BolsaMadrid_Visible = !urlLaBolsa.isEmpty();
    Invertia_Visible = !s_.Codigo_Invertia.isEmpty();
    dibujar();
    Pesta_Change();
}

void Principal::Timer1_Timer(const QString &direccionLocal)
{
    const bool candidato = direccionLocal != QLatin1String("127.0.0.1") && s_.Permitir_Conexion;
    s_.Hay_Conexion = candidato;
    // The test above has never decided anything: the indicator is on from
    // the first tick, whatever the address and the login tick say.
    s_.Hay_Conexion = true;
    Yahoo_Visible = Yahoono_Visible = YahooNoticias_Visible = s_.Hay_Conexion;
    Noticias_Visible = Incidecaption_Visible = !s_.Hay_Conexion;
    if (s_.Hay_Conexion) {
        IndicadorOnline_BackColor = 65280;
        LabelOnline = direccionLocal;
    } else {
        IndicadorOnline_BackColor = 255;
        LabelOnline = QStringLiteral("Sin conexión");
    }
}

void Principal::Form_QueryUnload()
{
    if (guardado_ || Terminado)
        return;
    guardado_ = true;
    s_.paso([&] {
        s_.Tabla_Actual = base(s_).openRecordset("select * from Usuario ");
        s_.Tabla_Actual->FindFirst("clave = " + Numero_Sql(s_.Usuario_Numero));
        if (s_.Tabla_Actual->NoMatch())
            return;
        s_.Tabla_Actual->Edit();
        s_.Tabla_Actual->setField("Configuracion", grabar_configuracion());
        s_.Tabla_Actual->setField("Maximo_dias", s_.Maximo_Dias_Sesion);
        s_.Tabla_Actual->Update();
    });
}

void Principal::terminar()
{
    Terminado = true;
    s_.ui.EndProgram();
}

void Principal::menu_salir_Click()
{
    Form_QueryUnload();
    terminar();
}

// The desktop has no call that logs the whole session off. The log-off
// ended the process before the window could close, so nothing was saved;
// the program ends the same way here.
void Principal::menu_encierra_Click()
{
    terminar();
}

void Principal::NoHay_Aceptar()
{
    terminar();
}

void Principal::Titulo_DblClick()
{
    // A second login: the settings of the first stay on the window.
    comandos_.ejecutar("form4");
}

void Principal::List1_Click()
{
    s_.paso([&] { comandos_.ejecutar("GrabarComentario"); });
    s_.paso([&] {
        if (List1_ListIndex < 0 || List1_ListIndex >= static_cast<int>(List1.size()))
            throw RuntimeError(err::InvalidCall,
                               QStringLiteral("Argumento o llamada a procedimiento no válida"));
        setText1(Nombre_De(s_, List1.at(List1_ListIndex).dato));
    });
}

void Principal::Valores_Click()
{
    if (config.Valores >= 0 && config.Valores < 4)
        comandos_.ejecutar(QString::fromLatin1(ListaDeValores[config.Valores]));
}

void Principal::dibujar()
{
    if (!config.Cargando)
        s_.paso([&] { comandos_.ejecutar("DibujarGrafica"); });
}

void Principal::Check2_Click(int)
{
    if (config.Cargando)
        return;
    if (!marcandoVelas_) {
        // A candle needs high, low, close and the day's average.
        const int suma = config.Check2[1] + config.Check2[2] + config.Check2[3] + config.Check2[6];
        if (suma < 4)
            config.Candle = 0;
    }
    dibujar();
}

void Principal::Candle_Click()
{
    if (config.Cargando)
        return;
    if (config.Candle == 1) {
        marcandoVelas_ = true;
        const int suma = config.Check2[1] + config.Check2[2] + config.Check2[3] + config.Check2[6];
        if (suma != 4)
            config.Check2[1] = config.Check2[2] = config.Check2[3] = config.Check2[6] = 1;
        marcandoVelas_ = false;
    }
    dibujar();
}

void Principal::Logaritmica_Click()
{
    s_.Logaritmica = Logaritmica == 1;
    dibujar();
}

void Principal::Pestanas_Click(int indice)
{
    if (indice < 0 || indice >= Pestanas_Caption.size())
        return;
    pestanaAbierta = indice;
    setPesta(QString::number(indice));
}

void Principal::setPesta(const QString &texto)
{
    if (texto == Pesta)
        return;
    Pesta = texto;
    Pesta_Change();
}

void Principal::Pesta_Change()
{
    const int n = static_cast<int>(Numero_Val(Pesta));
    if (Pesta.isEmpty())
        return;
    s_.paso([&] {
        if (n == 0)
            comandos_.ejecutar("Yahoo");
        else if (n == 1)
            comandos_.ejecutar("CargarComentario");
        else if (n >= 2 && n <= 5)
            DibuGrafi3(Pestanas_Caption.at(n));
        else if (n == 6)
            comandos_.ejecutar("VerOperaciones");
    });
}

void Principal::DibuGrafi3(const QString &nombre)
{
    const int digito = Pestanas_Caption.indexOf(nombre) - 2;
    if (digito < 0 || digito > 3)
        return;
    config.Indicador_Actual = QString::number(digito);
    dibujar();
}

void Principal::ejecutar(const QString &control)
{
    s_.paso([&] { comandos_.ejecutar(control); });
}

void Principal::Cargar_configuracion()
{
    tesorel::Cargar_configuracion(
        config, Configuracion, [this] { Valores_Click(); }, [this] { dibujar(); });
}

QString Principal::grabar_configuracion() const
{
    return tesorel::grabar_configuracion(config);
}

} // namespace tesorel
