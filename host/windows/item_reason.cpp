#include "host/windows/item_reason.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "host/errors/failure.h"
#include "platform/text/text_encoding.h"

namespace host {
namespace {

/// What an item needs that can be greyed; the plug-in sets the flag and gives no reason with it.
struct Need {
    std::string_view keyword;
    const char* reason;
};
constexpr const char* kSetByPrinter =
    "The printer's own answer sets it while Auto Configure is on.";
constexpr Need kNeeds[] = {
    {"Duplex", "Duplex needs the duplex unit, which is not installed."},
    {"TransmitOnce", "Transmit Once needs two or more copies."},
    {"RenderingIntent", "Rendering Intent has no effect in black and white."},
    {"AutoConfig", "Auto Configure needs a port that the printer can be asked through."},
    {"Tray2", kSetByPrinter},
    {"Tray3", kSetByPrinter},
    {"DuplexUnit", kSetByPrinter},
};

std::string ButtonName(const PageItem& item) {
    std::string name = item.ButtonTitle() != nullptr ? platform::Utf8(item.ButtonTitle()) : "...";
    std::erase(name, '&');
    return Quoted(name);
}

}  // namespace

std::string WhyUnavailable(const PageItem& item) {
    if (item.Enabled()) {
        return item.SelectionStopped() ? Quoted(item.SelectionText()) + " is not installed." : "";
    }
    const auto* need = std::ranges::find(kNeeds, item.Keyword(), &Need::keyword);
    return need != std::end(kNeeds) ? need->reason : item.Name() + " cannot be changed now.";
}

std::string WhyButtonIdle(const PageItem& item) {
    // A button belongs to what its item's first choice switches on.
    if (!item.HasButton() || item.Record().Sel == 0 || item.Choices().empty()) return "";
    return ButtonName(item) + " works while " + item.Name() + " is " +
           Quoted(item.Choices().front().text) + ".";
}

std::string WhyNumberRefused(const PageItem& item) {
    return item.Name() + " must be " + item.Range(" to ") + ".";
}

}  // namespace host
