#pragma once

// Chance that falls the same way on every machine: the generator is fixed by the standard, the distributions of the
// library are not.

#include <cstdint>
#include <iterator>
#include <random>

class Dice
{
public:
    explicit Dice(std::uint64_t seed) : m_engine(seed) {}

    /// 0 to `count` - 1.
    int Below(int count) { return static_cast<int>((m_engine() >> 32) * std::uint64_t(count) >> 32); }
    /// Both ends included.
    int Between(int least, int most) { return least + Below(most - least + 1); }
    bool Chance(int percent) { return Below(100) < percent; }
    /// From 0 up to, not including, 1.
    double Unit() { return static_cast<double>(m_engine() >> 11) / 9007199254740992.0; }

    template <typename List>
    auto& OneOf(List& list)
    {
        return list[static_cast<std::size_t>(Below(static_cast<int>(std::size(list))))];
    }

private:
    std::mt19937_64 m_engine;
};
