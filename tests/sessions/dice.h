/// Random choices that are the same on every platform and with every library.
#pragma once

#include <cstdint>
#include <span>

namespace sessions {

class Dice {
public:
    explicit Dice(std::uint64_t seed) : state_(seed) {}

    /// 0 to `bound` - 1; a bound of 0 is not allowed.
    std::uint32_t Below(std::uint32_t bound) { return static_cast<std::uint32_t>(Next() % bound); }
    /// Both ends included.
    std::int32_t Between(std::int32_t lowest, std::int32_t highest) {
        const auto range = static_cast<std::uint64_t>(std::int64_t{highest} - lowest + 1);
        return static_cast<std::int32_t>(lowest + static_cast<std::int64_t>(Next() % range));
    }
    bool Chance(std::uint32_t percent) { return Below(100) < percent; }
    template <typename Range>
    const auto& Pick(const Range& choices) {
        return std::span(choices)[Below(static_cast<std::uint32_t>(std::size(choices)))];
    }

private:
    /// SplitMix64.
    std::uint64_t Next() {
        std::uint64_t mixed = state_ += 0x9E3779B97F4A7C15u;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9u;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBu;
        return mixed ^ (mixed >> 31);
    }

    std::uint64_t state_;
};

}  // namespace sessions
