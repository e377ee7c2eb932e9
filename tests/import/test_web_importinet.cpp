// The web import against sources served on loopback: which source gives
// each day, what lands in Ok and fallo, and what reaches bolsa.
#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>

#include "import/importinet.h"
#include "import/web_servidor.h"
#include "store/database.h"
#include "store/helpers.h"
#include "store/query.h"
#include "support/test_base.h"

using namespace tesorel;
using namespace tesorel::testing;

namespace
{

const QDate kUltimo(2024, 3, 4); // the last stored day, a Monday

QByteArray cierres(const QDate &dia, const QList<QByteArray> &filas)
{
    QByteArray out;
    for (const QByteArray &f : filas)
        out +=
            f.left(f.indexOf(',') + 1) + dia.toString("yyyyMMdd").toLatin1() + f.mid(f.indexOf(',')) + "\r\n";
    return out;
}
QByteArray ruta(int fuente, const QDate &d)
{
    return fuente == 2 ? "/webn/servicios/..%5C..%5Cficherostxt%5Cmc%5CBM" +
                             d.toString("yyyyMMdd").toLatin1() + ".txt"
                       : "/cierres/" + d.toString("yyMMdd").toLatin1() + ".txt";
}

struct WebImport : ::testing::Test {
    SesionDePrueba p;
    std::array<ServidorWeb, 3> fuentes;
    std::vector<std::pair<int, QDate>> sitios;
    QStringList altas;
    bool darDeAlta = false;

    void SetUp() override
    {
        p.base.db->executeNative(
            "insert into Codigo_Empresas (Codigo, NOMBRE, ABREVIATURA3, ABREVIATURA11) values "
            "(1, 'BANCO SANTANDER', 'SAN', 'SANTANDER'), (2, 'TELEFONICA', 'TEF', 'TELEFONICA');"
            "insert into bolsa (VALOR, FECHA, ULTIMO) values (1, '2024-03-04', 4.1);");
        Abrir_Empresas(p.s);
    }
    std::unique_ptr<Importinet> modelo(QDate hoy, std::array<QString, 3> bases = {}, int limiteMs = 3000)
    {
        p.s.hoyFijo = hoy;
        FuentesCierres f;
        for (int i = 0; i < 3; ++i)
            f.bases[size_t(i)] = bases[size_t(i)].isNull() ? fuentes[size_t(i)].base() : bases[size_t(i)];
        f.limiteMs = limiteMs;
        Importinet::Acciones a;
        a.descargado = [this](int n, const QDate &d) { sitios.push_back({n, d}); };
        a.AddEmpresa = [this](const QString &ticker) {
            altas << ticker;
            if (darDeAlta)
                p.base.db->executeNative(
                    "insert into Codigo_Empresas (Codigo, NOMBRE, ABREVIATURA3) values (7, 'NUEVA', '" +
                    ticker + "')");
        };
        return std::make_unique<Importinet>(p.s, f, a);
    }
    int filas(const QString &dia)
    {
        Query q(*p.base.db, "select count(*) from bolsa where FECHA = ?");
        q.bind(1, QDate::fromString(dia, Qt::ISODate));
        q.next();
        return int(q.number(0));
    }
};

TEST_F(WebImport, EachDayFromTheFirstSourceThatHasItAndTheLastDayAgainInFallo)
{
    const QDate mar5(2024, 3, 5), mar6(2024, 3, 6), mar7(2024, 3, 7);
    fuentes[0].rutas[ruta(1, mar5)] = {cierres(mar5, {"SAN,4.0,4.3,4.0,4.2,1000", "TEF ,3.9,0,3.7,3.8,500"})};
    fuentes[1].rutas[ruta(2, mar5)] = {cierres(mar5, {"SAN,1,1,1,1,1"})}; // never asked: source 1 had it
    fuentes[1].rutas[ruta(2, mar6)] = {cierres(mar6, {"SAN,4.2,4.4,4.1,4.3,2000"})};
    fuentes[2].rutas[ruta(3, mar7)] = {cierres(mar7, {"SAN,4.3,4.5,4.2,4.4,3000"})};
    fuentes[0].rutas[ruta(1, kUltimo)] = {cierres(kUltimo, {"SAN,4.0,4.2,4.0,4.1,9"})};
    auto m = modelo(QDate(2024, 3, 8));
    m->Form_Load();

    EXPECT_EQ(m->Ok, QStringList({"05/03/2024", "06/03/2024", "07/03/2024"}));
    EXPECT_EQ(m->fallo, QStringList({"04/03/2024"}));
    EXPECT_EQ(m->Label1, Importinet::TextoFin);
    EXPECT_EQ(m->Command1, "Aceptar");
    EXPECT_EQ(m->Shape2_Width, Importinet::Shape1_Width);
    EXPECT_TRUE(m->DIA.isEmpty());
    EXPECT_EQ(sitios, (std::vector<std::pair<int, QDate>>{{1, kUltimo}, {1, mar5}, {2, mar6}, {3, mar7}}));
    EXPECT_FALSE(fuentes[1].pedidos.contains(ruta(2, mar5)));
    EXPECT_EQ(filas("2024-03-04"), 1); // the stored day is not completed
    EXPECT_FALSE(QFileInfo::exists(m->rutaDelDia(kUltimo)));

    // Previous close 0, no change, money in thousands, a high of 0 replaced by the close.
    Query q(*p.base.db,
            "select VALOR, ANTERIOR, DIF, MAXIMO, MINIMO, round(EFECT, 6) from bolsa where FECHA = ? "
            "order by VALOR");
    q.bind(1, mar5);
    QStringList vistas;
    while (q.next())
        vistas << QStringList{QString::number(q.number(0)), QString::number(q.number(1)),
                              q.isNull(2) ? "null" : "?",   QString::number(q.number(3)),
                              QString::number(q.number(4)), QString::number(q.number(5))}
                      .join(' ');
    EXPECT_EQ(vistas, QStringList({"1 0 null 4.3 4 4.2", "2 0 null 3.8 3.8 1.9"}));
}

// One day, the one after the stored day; sources as each case serves them.
TEST_F(WebImport, FaultsOfTheSourcesEndInFalloOrInTheNextSource)
{
    const QDate d(2024, 3, 5);
    const QByteArray bueno = cierres(d, {"SAN,4,4.3,4,4.2,1000", "TEF,3.9,3.9,3.7,3.8,500"});
    using R = ServidorWeb::Respuesta;
    const R bien{bueno}, nada{}, pagina{"<html><body>No existe</body></html>\r\n", {}, "text/html"};
    const R otroDia{cierres(d.addDays(-7), {"SAN,4,4.3,4,4.2,1000"})},
        cortado{bueno, ServidorWeb::Modo::Corte};
    const R malo{bueno + "TEF,3.9,3.7,3.8,500\r\nSAN,4,4.3,4,4.2,1000\r\n"};
    const R silencio{{}, ServidorWeb::Modo::Silencio}; // runs into the time limit
    struct Caso {
        const char *nombre;
        std::array<R, 3> respuestas;
        bool cargado;
        int fuente, filas;
    } casos[] = {
        {"page instead of file", {pagina, bien, nada}, false, 1, 0},
        {"file of another day", {otroDia, nada, nada}, false, 1, 0},
        {"bad line after good ones", {malo, nada, nada}, false, 1, 2},
        {"cut mid-file, then a 404, then source 3", {cortado, nada, bien}, true, 3, 2},
        {"nothing anywhere", {nada, nada, nada}, false, 0, 0},
        {"silence, then nothing", {silencio, nada, nada}, false, 0, 0},
    };
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.nombre);
        p.base.db->executeNative("delete from bolsa where FECHA = '2024-03-05'");
        for (int i = 0; i < 3; ++i) {
            const R &r = c.respuestas[size_t(i)];
            fuentes[size_t(i)].rutas.clear();
            if (!r.cuerpo.isEmpty() || r.modo == ServidorWeb::Modo::Silencio)
                fuentes[size_t(i)].rutas[ruta(i + 1, d)] = r;
        }
        sitios.clear();
        auto m = modelo(d.addDays(1));
        m->Form_Load();
        EXPECT_EQ(m->Ok.contains("05/03/2024"), c.cargado);
        EXPECT_EQ(m->fallo.contains("05/03/2024"), !c.cargado);
        EXPECT_EQ(filas("2024-03-05"), c.filas);
        EXPECT_FALSE(QFileInfo::exists(m->rutaDelDia(d)));
        int fuente = 0;
        for (const auto &[n, dia] : sitios)
            fuente = dia == d ? n : fuente;
        EXPECT_EQ(fuente, c.fuente);
    }
}

TEST_F(WebImport, UnknownTickersAreOfferedToAddEmpresaButNotThoseEndingInDotD)
{
    const QDate d(2024, 3, 5);
    fuentes[0].rutas[ruta(1, d)] = {
        cierres(d, {"NEW,1,2,1,1.5,100", "OLD.D,1,2,1,1.5,100", "SAN,4,4.3,4,4.2,1000"})};
    for (bool alta : {false, true}) {
        SCOPED_TRACE(alta);
        p.base.db->executeNative("delete from bolsa where FECHA = '2024-03-05'");
        darDeAlta = alta;
        altas.clear();
        modelo(d.addDays(1))->Form_Load();
        EXPECT_EQ(altas, QStringList({"NEW"}));
        EXPECT_EQ(filas("2024-03-05"), alta ? 2 : 1);
    }
}

TEST_F(WebImport, TheListOfDaysRunsFromTheLastStoredDayToYesterday)
{
    const QString cerrado = ServidorWeb::puertoCerrado();
    auto hoy = modelo(kUltimo, {cerrado, cerrado, cerrado});
    hoy->Form_Load();
    EXPECT_TRUE(hoy->List1.empty());
    EXPECT_EQ(hoy->Label1, Importinet::TextoNada);
    EXPECT_TRUE(hoy->Manual_Visible);
    EXPECT_TRUE(hoy->sape3);

    // A file left by an earlier run counts as downloaded from source 1.
    QFile dejado(p.base.folder() + "/txt/050324.txt");
    ASSERT_TRUE(dejado.open(QIODevice::WriteOnly));
    dejado.write(cierres(QDate(2024, 3, 5), {"SAN,4,4.3,4,4.2,1000"}));
    dejado.close();
    auto dos = modelo(QDate(2024, 3, 6), {cerrado, cerrado, cerrado});
    dos->Form_Load();
    EXPECT_EQ(dos->fallo, QStringList({"04/03/2024"}));
    EXPECT_EQ(dos->Ok, QStringList({"05/03/2024"}));
    EXPECT_EQ(dos->site, "1");

    p.base.db->executeNative("delete from bolsa");
    auto vacia = modelo(QDate(2000, 1, 4), {cerrado, cerrado, cerrado});
    vacia->Form_Load();
    EXPECT_EQ(vacia->FechaIn, "01/01/2000");
    EXPECT_EQ(vacia->fallo, QStringList({"01/01/2000", "02/01/2000", "03/01/2000"}));
    EXPECT_EQ(vacia->Label1, Importinet::TextoTodoFallo);

    // The manual panel checks its dates; the run then lists its own days.
    vacia->FechaFin = "no";
    vacia->Command2_Click();
    EXPECT_EQ(p.ui.messages.at(0).prompt, "No parece una fecha correcta");
    EXPECT_EQ(vacia->Foco, "FechaFin");
    vacia->FechaFin = "10/01/2024";
    vacia->Command2_Click();
    EXPECT_EQ(vacia->fallo.size(), 6); // the three days once more, from 01/01/2000
}

TEST_F(WebImport, ThePriceTableListsTheTradingDaysTheBaseLacks)
{
    for (const QByteArray tabla :
         {"Date,Open\n29-Dec-09,1\n04-Mar-24,1\n02-Ene-09,1\n", "Fecha,Open\n29-Dec-09,1\n"}) {
        ServidorWeb graficos;
        graficos.rutas["/table.csv?s=tef.MC&a=00&b=3&c=2000&d=11&e=29&f=2009&g=d&ignore=.csv"] = {tabla};
        FuentesCierres f;
        f.graficos = graficos.base();
        Importinet lista(p.s, f, {});
        lista.Comentario1Importando();
        QStringList dias;
        for (const auto &e : lista.List1)
            dias << e.texto;
        EXPECT_EQ(dias, tabla.startsWith("Date") ? QStringList({"29/12/2009", "02/01/2009"}) : QStringList());
    }
}

} // namespace
