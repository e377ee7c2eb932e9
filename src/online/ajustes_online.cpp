#include "online/ajustes_online.h"

#include <QtGlobal>

namespace tesorel
{

AjustesOnline AjustesOnline::delEntorno()
{
    AjustesOnline a;
    if (const QString host = qEnvironmentVariable("TESOREL_CHAT_HOST"); !host.isEmpty())
        a.hostChat = host;
    bool ok = false;
    const int puerto = qEnvironmentVariableIntValue("TESOREL_CHAT_PORT", &ok);
    if (ok && puerto > 0 && puerto < 65536)
        a.puertoChat = static_cast<quint16>(puerto);
    if (const QString sitio = qEnvironmentVariable("TESOREL_NEWS_SITE"); !sitio.isEmpty())
        a.sitioNoticias = sitio;
    return a;
}

} // namespace tesorel
