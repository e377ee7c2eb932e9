#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include "store/app_folder.h"

using namespace tesorel;

namespace
{

void escribir(const QString &ruta, const QByteArray &contenido)
{
    QDir().mkpath(QFileInfo(ruta).absolutePath());
    QFile f(ruta);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(contenido);
}

QByteArray leer(const QString &ruta)
{
    QFile f(ruta);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("(ausente)");
}

TEST(CarpetaAplicacion, OwnFolderOrTheUsersSeededFromTheInstallation)
{
    struct Caso {
        const char *nombre;
        QStringList bases; // files under the temporary root, with their contents as their names
        bool programaSoloLectura;
        bool usuarioTieneBase;
        const char *carpeta; // "programa" or "usuario"
        QByteArray baseUsuario;
    } casos[] = {
        {"own base", {"bin/base1.mdb"}, false, false, "programa", "(ausente)"},
        {"no own base: sample beside", {"sample/base1.mdb"}, false, false, "usuario", "sample/base1.mdb"},
        {"installed share", {"share/tesorel/base1.mdb"}, false, false, "usuario", "share/tesorel/base1.mdb"},
        {"first place wins",
         {"sample/base1.mdb", "share/tesorel/base1.mdb"},
         false,
         false,
         "usuario",
         "sample/base1.mdb"},
        {"read-only program folder", {"bin/base1.mdb"}, true, false, "usuario", "bin/base1.mdb"},
        {"user base is never replaced", {"sample/base1.mdb"}, false, true, "usuario", "mine"},
        {"nothing installed", {}, false, false, "usuario", "(ausente)"},
    };
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.nombre);
        QTemporaryDir raiz;
        const QString programa = raiz.path() + "/bin", usuario = raiz.path() + "/datos/Tesorel";
        QDir().mkpath(programa);
        for (const QString &b : c.bases)
            escribir(raiz.path() + "/" + b, b.toUtf8());
        if (c.usuarioTieneBase)
            escribir(usuario + "/base1.mdb", "mine");
        if (c.programaSoloLectura)
            QFile::setPermissions(programa, QFile::ReadOwner | QFile::ExeOwner);
        const QString elegida = Carpeta_Aplicacion(programa, usuario);
        QFile::setPermissions(programa, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        if (c.programaSoloLectura && QFileInfo(programa).isWritable() && elegida == programa)
            continue; // running as a user who writes anywhere: nothing to tell
        EXPECT_EQ(elegida, QString(c.carpeta) == "programa" ? programa : usuario);
        EXPECT_EQ(leer(usuario + "/base1.mdb"), c.baseUsuario);
    }
}

TEST(CarpetaAplicacion, WorkFoldersAreMadeOnceAndKept)
{
    QTemporaryDir raiz;
    Crear_Carpetas_Trabajo(raiz.path());
    escribir(raiz.path() + "/mail/adjunto.txt", "x");
    Crear_Carpetas_Trabajo(raiz.path());
    EXPECT_TRUE(QFileInfo(raiz.path() + "/tmp").isDir());
    EXPECT_EQ(leer(raiz.path() + "/mail/adjunto.txt"), "x");
}

} // namespace
