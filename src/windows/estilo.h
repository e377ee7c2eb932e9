#pragma once
#include <QColor>
#include <QString>

class QWidget;

namespace tesorel
{

// A colour as the program stores it: 24 bits, blue in the high byte.
QColor ColorDe(int bgr);

// Centres a window on its screen (the old Centrar_Formulario).
void Centrar(QWidget *ventana);

// A style sheet with the palette's colours put in place of their names
// ("color: @marca;").
QString conPaleta(const QString &hoja);

// The bold heading in the program's own blue that many forms put over their fields.
const QString &estiloRotulo();

// The look of every window: DejaVu Sans, the dark blue header, light panels.
QString HojaDeEstilo();

} // namespace tesorel
