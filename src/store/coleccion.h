#pragma once
#include <array>
#include <memory>

#include "core/int16.h"
#include "core/runtime_error.h"

namespace tesorel
{

// A fixed store of up to 1000 object references with a 16-bit count,
// indexed from 1. Index 0 appends; any other index stores in place and
// leaves the count alone, so a place written that way past the count
// cannot be read back.
template <class T> class Coleccion
{
  public:
    static constexpr int Capacidad = 1000;

    void Add(std::shared_ptr<T> item, double index = 0)
    {
        if (index == 0) {
            const Int16 next = count_ + Int16(1);
            slot(next) = std::move(item);
            count_ = next;
        } else {
            slot(index) = std::move(item);
        }
    }

    // A reference, so that a walk over the lots copies no reference count.
    const std::shared_ptr<T> &Item(double index) const
    {
        static const std::shared_ptr<T> ninguno;
        if (index < 1)
            throw RuntimeError(err::SubscriptOutOfRange, "El subíndice está fuera del intervalo");
        if (index > count_)
            return ninguno;
        return items_[static_cast<std::size_t>(index) - 1];
    }

    double Count() const { return count_; }

  private:
    std::shared_ptr<T> &slot(double index)
    {
        if (index < 1 || index > Capacidad)
            throw RuntimeError(err::SubscriptOutOfRange, "El subíndice está fuera del intervalo");
        return items_[static_cast<std::size_t>(index) - 1];
    }

    std::array<std::shared_ptr<T>, Capacidad> items_;
    Int16 count_;
};

} // namespace tesorel
