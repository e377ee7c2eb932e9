// The news tab: the scanner, the repair, and whole runs against pages
// served from loopback by a server of the test's own.
#include <gtest/gtest.h>

#include <QFile>

#include "import/web_servidor.h"
#include "online/noticias.h"
#include "support/test_base.h"

namespace tesorel::testing
{
namespace
{

TEST(Noticias, ScannerAndRepair)
{
    struct Caso {
        QString texto;
        QChar desde, hasta;
        QString devuelto, resto; // resto "=" when left alone
    };
    const Caso casos[] = {
        {R"(a"enlace"b>c)", '"', '"', "enlace", "b>c"},
        {"href=dir>titular", '=', '>', "dir", "titular"},
        {"a=b=c>d", '=', '>', "bc", "d"},
        {R"(sin "cierre)", '"', '"', "", "="},
        {"x>y", '=', '>', "", "="},
    };
    for (const Caso &c : casos) {
        QString resto = "=";
        EXPECT_EQ(obtener_desde_hasta(c.texto, c.desde, c.hasta, resto), c.devuelto) << c.texto.toStdString();
        EXPECT_EQ(resto, c.resto) << c.texto.toStdString();
    }
    EXPECT_EQ(Reparar_Fines_De_Linea("a\nb\r\nc"), "a\r\nb\r\nc\r\n");
    EXPECT_EQ(Reparar_Fines_De_Linea("a\rb\r\r\n"), "a\r\nb\r\n\r\n");
    EXPECT_EQ(Reparar_Fines_De_Linea("x\x01y"), "x\r\ny\r\n");
    EXPECT_EQ(Lineas_Del_Archivo("a\r\n\x80\r\n"), QStringList({"a", QStringLiteral("€")}));
}

struct Puesto : SesionDePrueba {
    ServidorWeb web;
    std::unique_ptr<Noticias> noticias;
    // The silent server is the only case that should meet the time limit;
    // the others get a loaded machine's worth of it.
    explicit Puesto(int limiteMs)
    {
        AjustesOnline a;
        a.sitioNoticias = web.base();
        a.limiteNoticiasMs = limiteMs;
        noticias = std::make_unique<Noticias>(s, a);
        noticias->Yahoono = true;
        s.Abreviatura_Actual = "TEF";
    }
};

TEST(Noticias, PagesFromLoopback)
{
    struct Caso {
        const char *nombre;
        ServidorWeb::Respuesta pagina; // under /n/T/TEF.mc.html; empty: not served
        QStringList titulares, enlaces;
    };
    const ServidorWeb::Respuesta silencio{{}, ServidorWeb::Modo::Silencio};
    const Caso casos[] = {
        {"bare line feeds",
         {"<html>\n<li><a href=\"http://n/1\">Sube <b>Noticias</b></a>\n"
          "<li><a href=\"http://n/2\">Baja</a> hoy\n</html>\n"},
         {"Sube Noticia", "Baja hoy"},
         {"http://n/1", "http://n/2"}},
        {"no markers", {"<html>\r\n<p>nada</p>\r\n</html>\r\n"}, {}, {}},
        {"a marker line without its closing quote",
         {"<li><a href=\"http://n/3>Sin cierre\r\nfin"},
         {"\"http://n/3Sin cierre"},
         {""}},
        {"the last line is never examined", {"x\r\n<li><a href=\"u\">Ultima"}, {}, {}},
        {"a one-line page", {"<li><a href=\"u\">Sola</a>\r\n"}, {}, {}},
        {"a 404: the failure is added under the first line", {}, {"Conectando...", "No Disponible"}, {}},
        {"silence runs into the time limit", silencio, {"Conectando...", "No Disponible"}, {}},
    };
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.nombre);
        const bool callado = c.pagina.modo == ServidorWeb::Modo::Silencio;
        Puesto p(callado ? 1000 : 10000);
        if (!c.pagina.cuerpo.isEmpty() || callado)
            p.web.rutas["/n/T/TEF.mc.html"] = c.pagina;
        p.noticias->Yahoo_Click();
        EXPECT_EQ(p.noticias->YahooNoticias, c.titulares);
        EXPECT_EQ(p.noticias->Yahoourl, c.enlaces);
        EXPECT_FALSE(p.noticias->Espera);
    }
}

TEST(Noticias, TheTickerKeepsItsCaseAndTheUntickedBoxAsksNothing)
{
    Puesto p(10000);
    p.s.Abreviatura_Actual = "sAn";
    p.web.rutas["/n/s/sAn.mc.html"] = {"<li><a href=\"http://n/9\">Nueve</a>\r\nfin\r\n"};
    QStringList vistas;
    p.noticias->alCambiar = [&] { vistas << p.noticias->YahooNoticias.join('|'); };
    p.noticias->Yahoo_Click();
    EXPECT_EQ(p.web.pedidos, QList<QByteArray>{"/n/s/sAn.mc.html"});
    EXPECT_EQ(vistas.value(0), "Conectando...");
    p.noticias->YahooNoticias_DblClick(0);
    p.noticias->YahooNoticias_DblClick(1); // nothing behind it: an empty link
    EXPECT_EQ(p.ui.opened, QStringList({"http://n/9", ""}));
    QFile reparada(p.base.folder() + "/yahoonoticias.txt");
    ASSERT_TRUE(reparada.open(QIODevice::ReadOnly));
    EXPECT_EQ(reparada.readAll(), "<li><a href=\"http://n/9\">Nueve</a>\r\nfin\r\n");

    p.noticias->Yahoono = false;
    p.noticias->Yahoo_Click();
    EXPECT_TRUE(p.noticias->YahooNoticias.isEmpty());
    EXPECT_EQ(p.web.pedidos.size(), 1);
}

} // namespace
} // namespace tesorel::testing
