/// What can be seen of something as readable text: a line for each part, in a fixed order. Whole
/// states are compared with one look, and the changes that an action made are told as text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/support/text.h"

namespace tests {

class State {
public:
    /// Adds a part. \param shown  what it shows, in one line.
    void Add(std::string part, std::string shown) {
        lines_.push_back({std::move(part), std::move(shown)});
    }
    /// Adds all parts of another state behind these.
    void Add(const State& more) {
        lines_.insert(lines_.end(), more.lines_.begin(), more.lines_.end());
    }

    /// All parts, "part: shown" and a line end each.
    [[nodiscard]] std::string Text() const { return ChangesSince({}); }
    /// The parts that show something else than before, or were not there, in the same form; those
    /// that are gone show "gone".
    [[nodiscard]] std::string ChangesSince(const State& before) const;

private:
    struct Line {
        std::string part;
        std::string shown;
    };

    /// What a part shows; null when it is not there. \param place  where it is likely to be.
    [[nodiscard]] const std::string* Find(const std::string& part, std::size_t place) const;

    std::vector<Line> lines_;
};

/// Text in quotation marks; what is not printable ASCII as "\u" and four digits, a unit each.
[[nodiscard]] std::string Quoted(std::basic_string_view<WCHAR> text);

}  // namespace tests
