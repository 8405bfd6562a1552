#include "tests/support/states/state.h"

#include <algorithm>
#include <cstdio>

namespace tests {

std::string State::ChangesSince(const State& before) const {
    std::string changes;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        const auto& [part, shown] = lines_[i];
        const std::string* known = before.Find(part, i);
        if (known == nullptr || *known != shown) changes += part + ": " + shown + "\n";
    }
    for (std::size_t i = 0; i < before.lines_.size(); ++i) {
        const std::string& part = before.lines_[i].part;
        if (Find(part, i) == nullptr) changes += part + ": gone\n";
    }
    return changes;
}

const std::string* State::Find(const std::string& part, std::size_t place) const {
    if (place < lines_.size() && lines_[place].part == part) return &lines_[place].shown;
    const auto found = std::ranges::find(lines_, part, &Line::part);
    return found == lines_.end() ? nullptr : &found->shown;
}

std::string Quoted(std::basic_string_view<WCHAR> text) {
    std::string quoted = "\"";
    for (const WCHAR unit : text) {
        if (unit >= 0x20 && unit < 0x7F) {
            quoted += static_cast<char>(unit);
            continue;
        }
        char escaped[8];
        std::snprintf(escaped, sizeof escaped, "\\u%04X", static_cast<unsigned>(unit));
        quoted += escaped;
    }
    return quoted + '"';
}

}  // namespace tests
