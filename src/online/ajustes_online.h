#pragma once
#include <QString>

namespace tesorel
{

// Where the chat and the news go. They are settings: the desktop program
// keeps these defaults unless its environment names others
// (TESOREL_CHAT_HOST, TESOREL_CHAT_PORT, TESOREL_NEWS_SITE); tests and the
// command line point them at loopback.
struct AjustesOnline {
    QString hostChat = QStringLiteral("127.0.0.1"); // the club's tesorel-chatd
    quint16 puertoChat = 6000;
    QString sitioNoticias = QStringLiteral("https://es.finance.yahoo.com"); // scheme, host and port
    int limiteNoticiasMs = 10000; // the news page's download time limit

    // The defaults with what the environment overrides.
    static AjustesOnline delEntorno();
};

} // namespace tesorel
