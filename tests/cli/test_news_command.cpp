#include "sample_base.h"

#include <gtest/gtest.h>

namespace tesorel::testing
{
namespace
{

// tesorel-cli news against pages that python3's http.server serves from loopback.
TEST(NewsCommand, HeadlinesOfAServedPageAndTheFailedDownload)
{
    QTemporaryDir sitio;
    escribirArchivo(sitio.filePath("n/A/ANA.mc.html"),
                    "<ul>\n<li><a href=\"http://x/1\">Uno <b>Noticias</b></a>\n"
                    "<li><a href=\"http://x/2\">Dos</a>\n</ul>\n");
    ServidorHttp http(sitio.path());
    ASSERT_FALSE(http.puerto.isEmpty());
    CopiaDeMuestra copia;
    const struct {
        QString nombre;
        QString salida;
    } casos[] = {
        {"ACCIONA", "Uno Noticia\thttp://x/1\nDos\thttp://x/2\n"},
        {"ACERINOX", "Conectando...\nNo Disponible\n"}, // nothing served for ACX
    };
    for (const auto &c : casos) {
        SCOPED_TRACE(c.nombre.toStdString());
        const SalidaCli o = correrCli({"news", copia.base, c.nombre, "--site", http.base()}, 60000);
        EXPECT_EQ(o.codigo, 0);
        EXPECT_EQ(o.out, c.salida);
    }
}

} // namespace
} // namespace tesorel::testing
