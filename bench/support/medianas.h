#pragma once
// The closing figures of a benchmark program: whole runs timed by the wall
// clock and their median, printed beside a raw reference of the same run.
#include <algorithm>
#include <chrono>
#include <vector>

namespace tesorel::bench
{

// Milliseconds that one call of `f` takes.
template <class F> double milisegundos(F &&f)
{
    const auto a = std::chrono::steady_clock::now();
    f();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - a).count();
}

inline double mediana(std::vector<double> t)
{
    if (t.empty())
        return 0;
    std::nth_element(t.begin(), t.begin() + long(t.size() / 2), t.end());
    return t[t.size() / 2];
}

// The median of `veces` runs of `f`.
template <class F> double medianaDe(int veces, F &&f)
{
    std::vector<double> t;
    for (int i = 0; i < veces; ++i)
        t.push_back(milisegundos(f));
    return mediana(std::move(t));
}

// The same with `antes` run before each timed run, outside the time.
template <class A, class F> double medianaDe(int veces, A &&antes, F &&f)
{
    std::vector<double> t;
    for (int i = 0; i < veces; ++i) {
        antes();
        t.push_back(milisegundos(f));
    }
    return mediana(std::move(t));
}

} // namespace tesorel::bench
