#pragma once
#include <QString>
#include <vector>

namespace tesorel
{

// The content of a list box: entries with a display text and a whole-number
// datum (the value's code), and the selected index (-1 for none).
struct ListBox {
    struct Entrada {
        QString texto;
        double dato = 0;
    };
    std::vector<Entrada> entradas;
    int ListIndex = -1;

    int ListCount() const { return static_cast<int>(entradas.size()); }
    void Clear();
    // Adds at the end with datum 0; the new index.
    int AddItem(const QString &text);
    // An index outside the list is a run-time failure (381), as the control has it.
    double ItemData(int index) const;
    void setItemData(int index, double datum);
    QString List(int index) const;
};

} // namespace tesorel
