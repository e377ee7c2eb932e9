#include "principal/principal.h"

#include "charts/indicators.h"
#include "charts/price_chart.h"
#include "core/nombres_comandos.h"
#include "core/numbers.h"
#include "core/paleta.h"
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
Database &base(Session &s)
{
    if (!s.Base_Datos)
        throw RuntimeError(err::ObjectNotSet, QStringLiteral("Variable de tipo Object no establecida"));
    return *s.Base_Datos;
}
} // namespace

Principal::Principal(Session &s, Comandos &comandos, QString rutaBase)
    : mercado(s), s_(s), comandos_(comandos), rutaBase_(std::move(rutaBase))
{
    registrarMercado();
}

// The market browser's procedures answer the buttons, menu entries and
// popups of the left side; the selection reaches the chart, the portfolio
// series and the open tab through the hub, where those subsystems register.
void Principal::registrarMercado()
{
    ListaValores &lista = mercado.lista;
    const std::pair<const char *, void (ListaValores::*)()> listas[] = {
        {comando::todos, &ListaValores::todos},
        {comando::ibex, &ListaValores::ibex},
        {comando::Cartera, &ListaValores::Cartera},
        {comando::faboritos, &ListaValores::faboritos},
        {comando::LosqueSuben, &ListaValores::LosqueSuben},
        {comando::SiguienteCategoria, &ListaValores::SiguienteCategoria},
        {comando::AnteriorCategoria, &ListaValores::AnteriorCategoria},
        {comando::menu_categorias_Globales, &ListaValores::menu_categorias_Globales_Click},
        {comando::menu_categorias_personales, &ListaValores::menu_categorias_personales_Click},
    };
    for (const auto &[nombre, procedimiento] : listas)
        comandos_.registrar(nombre, [&lista, procedimiento] { (lista.*procedimiento)(); });

    Favoritos &favoritos = mercado.favoritos;
    comandos_.registrar(comando::menu_add_faboritos, [&favoritos] { favoritos.menu_add_faboritos(); });
    comandos_.registrar(comando::menu_quitar_faboritos, [&favoritos] { favoritos.menu_quitar_faboritos(); });
    comandos_.registrar(comando::Boton_Favorito, [&favoritos] { favoritos.Boton_Favorito_Click(); });
    comandos_.registrar(comando::PonerQuitarF, [&favoritos] { favoritos.PonerQuitarF(); });

    NavegadorValores &m = mercado;
    comandos_.registrar(comando::laWEB, [&m] { m.laWEB_Click(); });
    comandos_.registrar(comando::BolsaMadrid, [&m] { m.BolsaMadrid_Click(); });
    comandos_.registrar(comando::Invertia, [&m] { m.Invertia_Click(); });
    comandos_.registrar(comando::titular, [&m] { m.titular_Click(); });
    comandos_.registrar(comando::Sugiere, [&m] { m.Sugiere_Click(); });
    comandos_.registrar(comando::CargarComentario, [&m] { m.CargarComentario(); });
    comandos_.registrar(comando::GrabarComentario, [&m] { m.GrabarComentario(); });

    Ganchos &g = mercado.seleccion.ganchos;
    // The hub's commands take no argument: the series is always made in mode 1 from here.
    g.Generar_Serie_Cartera = [this](double) { comandos_.ejecutar(comando::Generar_Serie_Cartera); };
    g.QuitarVerOperaciones = [this] { comandos_.ejecutar(comando::QuitarVerOperaciones); };
    g.DibujarGrafica = [this] { dibujar(); };
    g.Pesta = [this] { Pesta_Change(); };
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
            comandos_.ejecutar(comando::NoHay);
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
        comandos_.ejecutar(comando::DefinirGraficas);
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
            comandos_.ejecutar(comando::Importinet);
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
    s_.Usuario_Sesion = std::make_unique<Usuario>(s_);
    s_.paso([&] {
        base(s_);
        Abrir_Empresas(s_);
    });
    if (Primera_Activacion_Hecha == 1)
        return;
    Primera_Activacion_Hecha = 1;

    s_.Usuario_Numero = 1;
    s_.paso([&] {
        base(s_);
        double codigo = 0;
        mercado.lista.qualquier_valor(codigo);
        setText1(Nombre_De(s_, codigo));
    });
    s_.Usuario_Numero = 0;

    comandos_.ejecutar(comando::form4);
    Cargar_configuracion();
    if (s_.Usuario_Numero == 0)
        terminar();
}

void Principal::setText1(const QString &texto)
{
    mercado.seleccion.setText1(texto);
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
        IndicadorOnline_BackColor = paleta::Verde;
        LabelOnline = direccionLocal;
    } else {
        IndicadorOnline_BackColor = paleta::Rojo;
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
    comandos_.ejecutar(comando::form4);
}

void Principal::Pestanas_DblClick()
{
    comandos_.ejecutar(comando::Historico);
}

void Principal::List1_Click(int indice)
{
    mercado.lista.List1.ListIndex = indice;
    mercado.seleccion.List1_Click();
}

void Principal::Valores_Click()
{
    mercado.lista.setValores(config.Valores);
}

void Principal::buscar_Change(const QString &texto)
{
    mercado.busqueda.setBuscar(texto);
}

void Principal::buscar_Return()
{
    mercado.busqueda.buscar_Return();
}

void Principal::buscar_GotFocus()
{
    mercado.busqueda.buscar_GotFocus();
}

void Principal::Image1_DragDrop(const QString &origen, const QDate &fecha)
{
    mercado.seleccion.Image1_DragDrop(origen, fecha);
}

// Every drawing first sets the favourite button for the value on show.
void Principal::dibujar()
{
    if (config.Cargando)
        return;
    mercado.favoritos.PonerQuitarF();
    s_.paso([&] { comandos_.ejecutar(comando::DibujarGrafica); });
}

void Principal::Check2_Click(int)
{
    if (config.Cargando)
        return;
    if (!marcandoVelas_) {
        if (!velaCompleta(config.Check2))
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
        if (!velaCompleta(config.Check2))
            marcarSeriesDeVela(config.Check2);
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

// The tab procedure: what the tab on show needs, for a new tab or a new value.
void Principal::Pesta_Change()
{
    const int n = static_cast<int>(Numero_Val(Pesta));
    if (Pesta.isEmpty())
        return;
    s_.paso([&] {
        if (n == 0)
            comandos_.ejecutar(comando::Yahoo);
        else if (n == 1)
            comandos_.ejecutar(comando::CargarComentario);
        else if (n >= 2 && n <= 5)
            DibuGrafi3(Pestanas_Caption.at(n));
        else if (n == 6)
            comandos_.ejecutar(comando::VerOperaciones);
    });
}

void Principal::DibuGrafi3(const QString &nombre)
{
    const Indicador indicador = indicadorDeNombre(nombre);
    if (indicador == Indicador::Ninguno)
        return;
    config.Indicador_Actual = QString::number(int(indicador));
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
