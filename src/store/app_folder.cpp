#include "store/app_folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace tesorel
{

QStringList Bases_Instaladas(const QString &carpetaPrograma)
{
    return {carpetaPrograma + "/base1.mdb", carpetaPrograma + "/../sample/base1.mdb",
            carpetaPrograma + "/../share/tesorel/base1.mdb"};
}

QString Carpeta_Aplicacion(const QString &carpetaPrograma, const QString &carpetaUsuario)
{
    const QFileInfo propia(carpetaPrograma + "/base1.mdb");
    if (propia.exists() && QFileInfo(carpetaPrograma).isWritable() && propia.isWritable())
        return QDir::cleanPath(carpetaPrograma);

    QDir().mkpath(carpetaUsuario);
    const QString destino = carpetaUsuario + "/base1.mdb";
    if (!QFileInfo::exists(destino)) {
        for (const QString &origen : Bases_Instaladas(carpetaPrograma)) {
            if (QFileInfo::exists(origen) && QFile::copy(origen, destino)) {
                // An installed file may be read-only; the copy must not be.
                QFile::setPermissions(destino,
                                      QFile::permissions(destino) | QFile::WriteOwner | QFile::ReadOwner);
                break;
            }
        }
    }
    return QDir::cleanPath(carpetaUsuario);
}

void Crear_Carpetas_Trabajo(const QString &carpeta)
{
    for (const char *nombre : {"tmp", "mail"}) {
        if (!QFileInfo(carpeta + "/" + nombre).isDir())
            QDir(carpeta).mkdir(nombre);
    }
}

} // namespace tesorel
