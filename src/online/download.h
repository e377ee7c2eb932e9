#pragma once
#include <QString>

namespace tesorel
{

// Fetches an address into a file, waiting for it with a time limit while
// the interface goes on. True when the file exists afterwards; a failed
// or timed-out fetch leaves no file and answers false.
bool Descargar_Url(const QString &address, const QString &file, int timeoutMs = 30000);

} // namespace tesorel
