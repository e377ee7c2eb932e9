// The combo `Enlace` driven by arbitrary sequences of clicks and keys, and
// the hyperlink reader by arbitrary field texts: no crash, and the list
// index always names an entry or none.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "market/enlace.h"
#include "market/links.h"

using namespace tesorel;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString campo =
        QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const QString direccion = Enlace_Direccion(campo);
    if (direccion.contains(QLatin1Char('#')) || direccion.size() > campo.size())
        std::abort();

    Enlace e;
    int eventos = 0;
    e.alEvento = [&](int) { ++eventos; };
    for (size_t i = 0; i + 1 < size; i += 2) {
        const uint8_t op = data[i] % 12;
        const QChar c = QChar(data[i + 1] % 2 ? data[i + 1] : 'A' + data[i + 1] % 26);
        switch (op) {
        case 0:
            e.Flecha_Click();
            break;
        case 1:
            e.cerrar();
            break;
        case 2:
            e.Text1_KeyPress(c);
            break;
        case 3:
            e.Text1_KeyDown(Enlace::Tecla::Return);
            break;
        case 4:
            e.Text1_KeyDown(Enlace::Tecla::Arriba);
            break;
        case 5:
            e.Text1_KeyDown(Enlace::Tecla::Abajo);
            break;
        case 6:
            e.LostFocus();
            break;
        case 7:
            e.List1_Click();
            break;
        case 8:
            e.Additem(QString(c) + QString::number(data[i + 1]));
            break;
        case 9:
            e.Clear();
            break;
        case 10:
            e.setListindex(static_cast<int>(data[i + 1]) - 2);
            break;
        default:
            e.Text1_GotFocus();
            break;
        }
        if (e.Listindex() < -1 || e.Listindex() >= e.List1().size())
            std::abort();
    }
    return 0;
}
