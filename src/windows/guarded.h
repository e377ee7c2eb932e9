#pragma once
#include "store/session.h"

namespace tesorel
{

// The body of a Qt slot or event handler: a failure goes to the error
// routine and never leaves the handler.
template <class Body> void guarded(Session &s, Body &&body) noexcept
{
    s.paso(std::forward<Body>(body));
}

} // namespace tesorel
