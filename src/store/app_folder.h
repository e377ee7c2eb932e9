#pragma once
#include <QString>
#include <QStringList>

namespace tesorel
{

// Where the program keeps its base, error.txt, tmp/ and mail/: the
// executable's folder when it holds a base and can be written (a copy run
// from its own folder), otherwise the user's data folder, which gets a
// copy of the installed sample base the first time.
QString Carpeta_Aplicacion(const QString &carpetaPrograma, const QString &carpetaUsuario);

// The places where an installation keeps its sample base, in order.
QStringList Bases_Instaladas(const QString &carpetaPrograma);

// Makes the work folders tmp and mail when they are missing.
void Crear_Carpetas_Trabajo(const QString &carpeta);

} // namespace tesorel
