#pragma once
#include "online/ajustes_online.h"

class QCheckBox;
class QListWidget;

namespace tesorel
{

class Comandos;
class Session;

// Puts the news model behind the news tab's widgets: registers the command
// "Yahoo" (the button, the tick and the tab run it) and the double click
// that opens a headline's link. The model lives as long as the list.
void conectarNoticias(Session &s, Comandos &comandos, const AjustesOnline &ajustes, QCheckBox *Yahoono,
                      QListWidget *YahooNoticias);

} // namespace tesorel
