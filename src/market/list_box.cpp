#include "market/list_box.h"

#include "core/runtime_error.h"

namespace tesorel
{

namespace
{
constexpr int InvalidPropertyIndex = 381;

void checkIndex(const ListBox &box, int index)
{
    if (index < 0 || index >= box.ListCount())
        throw RuntimeError(InvalidPropertyIndex,
                           QStringLiteral("Índice de matriz de propiedades no válido."));
}
} // namespace

void ListBox::Clear()
{
    entradas.clear();
    ListIndex = -1;
}

int ListBox::AddItem(const QString &text)
{
    entradas.push_back({text, 0});
    return ListCount() - 1;
}

double ListBox::ItemData(int index) const
{
    checkIndex(*this, index);
    return entradas[static_cast<size_t>(index)].dato;
}

void ListBox::setItemData(int index, double datum)
{
    checkIndex(*this, index);
    entradas[static_cast<size_t>(index)].dato = datum;
}

QString ListBox::List(int index) const
{
    checkIndex(*this, index);
    return entradas[static_cast<size_t>(index)].texto;
}

} // namespace tesorel
