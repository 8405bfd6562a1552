/// Running the cases of the hard mode: many of a kind, each judged, none able to end the run.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

namespace hard {

/// Cases of one kind. Made and used in a process of their own.
class CaseSet {
public:
    virtual ~CaseSet() = default;
    [[nodiscard]] virtual std::size_t Count() const = 0;
    /// Enough to run the case alone: "17 once 8".
    [[nodiscard]] virtual std::string NameOf(std::size_t place) const = 0;
    /// \return what is wrong; empty when nothing is.
    [[nodiscard]] virtual std::string Run(std::size_t place) = 0;
};

/// Which cases are run: all, every N-th beginning with one that the seed tells, or the one of a
/// name.
struct Choice {
    std::size_t share = 1;
    std::size_t seed = 0;
    std::string only;

    bool Takes(std::size_t place, const std::string& name) const {
        return only.empty() ? place % share == seed % share : only == name;
    }
};

struct Tally {
    std::size_t tried = 0;
    std::size_t violations = 0;
};

/// Runs the chosen cases in order, telling each violation. A case that ends its process, or takes
/// longer than 20 seconds, is a violation, and the cases behind it go on in a new process; so is
/// memory that the sanitizer finds lost at the end.
[[nodiscard]] Tally RunCases(const std::string& kind,
                             const std::function<std::unique_ptr<CaseSet>()>& make,
                             const Choice& choice);

}  // namespace hard
