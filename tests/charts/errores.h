#pragma once
#include "core/runtime_error.h"

#include <functional>

namespace tesorel::testing
{

// The number of the failure that `f` raises; 0 when it raises none.
inline int errorOf(const std::function<void()> &f)
{
    try {
        f();
    } catch (const RuntimeError &e) {
        return e.number();
    }
    return 0;
}

} // namespace tesorel::testing
