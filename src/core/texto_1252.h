#pragma once
#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>
#include <QStringView>

namespace tesorel
{

// Text files and socket text are Windows-1252, one byte a character. The
// five bytes that the code page leaves undefined map to U+0081 and the like,
// so bytes read and written back come out unchanged.
QString desde1252(QByteArrayView bytes);
// Characters outside the code page become "?".
QByteArray a1252(QStringView text);

// The lines of a text as a file read line by line gives them: a line ends at
// CR LF or at CR, a lone LF stays inside its line; no empty last line after
// a final line end.
QStringList lineasDeTexto(const QString &text);

} // namespace tesorel
