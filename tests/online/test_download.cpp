#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include "import/web_servidor.h"
#include "online/download.h"
#include "support/esperar.h"

namespace tesorel::testing
{
namespace
{

TEST(Descargar, AFileIsWrittenAndAFailureWritesNothing)
{
    aplicacionDePrueba();
    ServidorWeb web;
    web.rutas["/cierres.csv"] = {"SAN;4,25\nTEF;3,9\n"};
    web.rutas["/callado"] = {{}, ServidorWeb::Modo::Silencio};
    QTemporaryDir destino;
    const struct {
        const char *nombre;
        QString url;
        int limiteMs;
        QByteArray contenido; // "-": the download fails and leaves no file
    } casos[] = {
        {"served", web.base() + "/cierres.csv", 10000, "SAN;4,25\nTEF;3,9\n"},
        {"a 404", web.base() + "/nada.csv", 10000, "-"},
        {"a server that never answers runs into the limit", web.base() + "/callado", 300, "-"},
        {"not an address", "not an address", 2000, "-"},
    };
    for (const auto &c : casos) {
        SCOPED_TRACE(c.nombre);
        const QString salida = destino.filePath(c.nombre);
        EXPECT_EQ(Descargar_Url(c.url, salida, c.limiteMs), c.contenido != "-");
        QFile f(salida);
        EXPECT_EQ(f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("-"), c.contenido);
    }
}

} // namespace
} // namespace tesorel::testing
