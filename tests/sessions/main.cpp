// Plays sessions made of seeds and writes their traces, for a comparison of two platforms. Exit
// code 2 when not understood.
//   sessions FIRST COUNT [--out FILE] [--actions 0,3,7]
//   sessions --kept FILE [--out FILE | --expect FILE]     a seed a line, then perhaps the actions
//   that are played

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <numeric>
#include <optional>
#include <sstream>

#include "tests/sessions/player.h"

namespace {

using Places = std::vector<std::size_t>;

/// A session to play; without places all of its actions.
struct Chosen {
    std::uint64_t seed;
    std::optional<Places> places;
};

struct Choice {
    std::vector<Chosen> sessions;
    std::string out;
    std::string expected;
};

std::uint64_t Number(const std::string& text) {
    return std::strtoull(text.c_str(), nullptr, 10);
}

/// "0,3,7"; "-" for none.
Places ParsePlaces(const std::string& text) {
    Places places;
    std::istringstream stream(text == "-" ? "" : text);
    for (std::string place; std::getline(stream, place, ',');) places.push_back(Number(place));
    return places;
}

std::vector<Chosen> ReadKept(const std::string& name) {
    std::vector<Chosen> kept;
    std::ifstream file(name);
    for (std::string line; std::getline(file, line);) {
        std::istringstream words(line.substr(0, line.find('#')));
        std::string seed;
        std::string places;
        if (!(words >> seed)) continue;
        kept.push_back({Number(seed), {}});
        if (words >> places) kept.back().places = ParsePlaces(places);
    }
    return kept;
}

/// Options come in pairs, as the two numbers do.
bool Parse(const std::vector<std::string>& words, Choice* choice) {
    if (words.empty() || words.size() % 2 != 0) return false;
    for (std::size_t i = 0; i < words.size(); i += 2) {
        const std::string& value = words[i + 1];
        if (words[i] == "--out") {
            choice->out = value;
        } else if (words[i] == "--expect") {
            choice->expected = value;
        } else if (words[i] == "--kept") {
            choice->sessions = ReadKept(value);
        } else if (words[i] == "--actions") {
            for (Chosen& each : choice->sessions) each.places = ParsePlaces(value);
        } else if (i == 0) {
            const std::uint64_t first = Number(words[0]);
            for (std::uint64_t k = 0; k < Number(value); ++k)
                choice->sessions.push_back({first + k, {}});
        } else {
            return false;
        }
    }
    return !choice->sessions.empty();
}

Places AllPlaces(const sessions::Session& session) {
    Places places(session.actions.size());
    std::iota(places.begin(), places.end(), std::size_t{0});
    return places;
}

void PlayAll(const std::vector<Chosen>& chosen, std::ostream* trace) {
    sessions::Player player(trace);
    for (const auto& [seed, places] : chosen) {
        const sessions::Session session = sessions::MakeSession(seed);
        *trace << "=== session " << seed << ", " << session.actions.size() << " actions\n";
        player.Play(session, places ? *places : AllPlaces(session));
    }
}

/// Tells the first line that is not as it was, and the line that names its session.
bool IsAsExpected(std::istream* trace, const std::string& name) {
    std::ifstream file(name);
    std::string session;
    std::string line;
    std::string expected;
    while (std::getline(file, expected)) {
        std::getline(*trace, line);
        if (line.starts_with("===")) session = line;
        if (line == expected) continue;
        std::cout << session << "\nexpected: " << expected << "\nnow:      " << line << '\n';
        return false;
    }
    return !std::getline(*trace, line);
}

}  // namespace

int main(int count, char** arguments) {
    Choice choice;
    if (!Parse({arguments + 1, arguments + count}, &choice)) {
        std::cerr << "sessions FIRST COUNT [--out FILE] [--actions 0,3,7]\n"
                     "sessions --kept FILE [--out FILE]\n";
        return 2;
    }
#ifndef _WIN32
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    ::setenv("QT_LOGGING_RULES", "default.warning=false", 1);  // about what offscreen cannot do
#endif
    if (!choice.expected.empty()) {
        std::stringstream trace;
        PlayAll(choice.sessions, &trace);
        return IsAsExpected(&trace, choice.expected) ? 0 : 1;
    }
    if (choice.out.empty()) {
        PlayAll(choice.sessions, &std::cout);
    } else {
        std::ofstream out(choice.out, std::ios::binary);
        PlayAll(choice.sessions, &out);
    }
    return 0;
}
