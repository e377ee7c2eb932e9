#pragma once
#include <QByteArray>
#include <QString>

namespace tesorel
{

// Bytes of a Windows-1252 text file (the code page of the pages and files
// the program reads) as text.
QString Texto_De_1252(const QByteArray &bytes);

} // namespace tesorel
