// What the played printer says.
#include "host/errors/suggestions.h"

#include <cstdint>
#include "host/played_printer/printer.h"

namespace host {
namespace {

constexpr std::string_view kConfigQuestion = "@PJL INFO CONFIG";
constexpr std::string_view kStatusQuestion = "@PJL INFO DSTATUS";
constexpr std::string_view kLineEnd = "\r\n";

std::string Line(std::string_view text) {
    return std::string(text) += kLineEnd;
}

// An installable option: its state, then what it could be.
std::string OptionLines(std::string_view name, bool installed) {
    return Line(std::string(name) + (installed ? "=INSTALLED" : "=NOTINSTALLED") +
                " [2 ENUMERATED]") +
           Line("\tNOTINSTALLED") + Line("\tINSTALLED");
}

std::string ConfigLines(const PlayedPrinterOptions& options) {
    return Line("MEMORY=268435456") + Line("DISPLAY LINES=2") + Line("DISPLAY CHARACTER SIZE=16") +
           Line("LANGUAGES [2 ENUMERATED]") + Line("\tPJL") + Line("\tPOSTSCRIPT") +
           Line("PAPERS [4 ENUMERATED]") + Line("\tA4") + Line("\tA5") + Line("\tLETTER") +
           Line("\tLEGAL") + OptionLines("TRAY2", options.tray2) +
           OptionLines("TRAY3", options.tray3) + OptionLines("DUPLEX", options.duplex);
}

std::string StatusLines() {
    return Line("CODE=10001") + Line("DISPLAY=\"Ready\"") + Line("ONLINE=TRUE");
}

// Junk that is the same in every run; a form feed in it would end the answer early.
std::string Junk(std::size_t bytes) {
    std::string junk(bytes, '\0');
    std::uint32_t state = 1;
    for (char& byte : junk) {
        state = state * 1664525u + 1013904223u;
        byte = static_cast<char>(state >> 24);
        if (byte == '\f' || byte == '\0') byte = '?';
    }
    return junk;
}

}  // namespace

std::string PjlAnswer(std::string_view command, const PlayedPrinterOptions& options) {
    const bool config = command == kConfigQuestion;
    if (!config && command != kStatusQuestion) return {};
    std::string lines = config ? ConfigLines(options) : StatusLines();
    if (options.lowerCase) lines = AsciiLowerCase(lines);
    std::string answer = Junk(options.junk);
    if (options.staleBlockFirst) answer += Line("@PJL USTATUS DEVICE") + Line("CODE=10023") + '\f';
    if (!options.noEcho) answer += Line(command);
    answer += lines;
    if (!options.noFormFeed) answer += '\f';
    return answer;
}

}  // namespace host
