#include "host/page/watermarks.h"

#include <algorithm>
#include <array>
#include <iomanip>
#include <ostream>
#include <sstream>

#include "host/errors/failure.h"
#include "host/page/stored_records.h"
#include "host/spooler/printers.h"

namespace host {
namespace {

using Json = nlohmann::ordered_json;

constexpr DWORD kMostListBytes = 1 << 16;
constexpr std::size_t kNameColumn = 22;
constexpr std::size_t kEnabledChoice = 0;
constexpr unsigned kUserPosition = 1;

struct ColorName {
    unsigned rgb;
    const char* name;
};

constexpr auto kColors = std::to_array<ColorName>({
    {0x000000, "black"},
    {0x00FFFF, "cyan"},
    {0xFF00FF, "magenta"},
    {0xFFFF00, "yellow"},
    {0xFF0000, "red"},
    {0x00FF00, "green"},
    {0x0000FF, "blue"},
});

std::string ColorOf(const Json& entry) {
    const unsigned rgb = entry["Red"].get<unsigned>() << 16 | entry["Green"].get<unsigned>() << 8 |
                         entry["Blue"].get<unsigned>();
    const auto* known = std::ranges::find(kColors, rgb, &ColorName::rgb);
    if (known != kColors.end()) return known->name;
    std::ostringstream text;
    text << '#' << std::hex << std::uppercase << std::setfill('0') << std::setw(6) << rgb;
    return text.str();
}

// Of the other kinds the record keeps degrees that the editor last showed.
constexpr std::array kAngleNames = {"horizontal", "diagonal", "vertical"};

std::string AngleOf(const Json& entry) {
    const auto kind = entry["AngleKind"].get<std::size_t>();
    return kind < kAngleNames.size() ? kAngleNames[kind]
                                     : entry["AngleDegrees"].dump() + " degrees";
}

std::string PositionOf(const Json& entry) {
    if (entry["PositionKind"] != kUserPosition) return "centred";
    return entry["OffsetX"].dump() + " right and " + entry["OffsetY"].dump() + " up";
}

std::string WhatItPrints(const Json& entry) {
    std::string text = Quoted(entry["Text"].get<std::string>()) + ' ' +
                       Escaped(entry["FaceName"].get<std::string>()) + ' ' +
                       entry["PointSize"].dump() + " pt";
    if (entry["Bold"] != 0) text += " bold";
    if (entry["Italic"] != 0) text += " italic";
    return text + ", " + ColorOf(entry) + ", " + AngleOf(entry) + ", " + PositionOf(entry);
}

// The one item with a button opens the editor.
PageItem& ItemWithButton(PageSession& page) {
    const auto item = std::ranges::find_if(page.Items(), &PageItem::HasButton);
    if (item == page.Items().end()) throw Failure("the page has no editor");
    return *item;
}

}  // namespace

Json PrinterWatermarks(const PageSession& page) {
    const oemui::UniquePrinter printer =
        oemui::OpenPrinterFor(page.Printer().name.c_str(), PRINTER_ACCESS_USE);
    Json entries =
        WatermarksToJson(printer ? PrinterDataBytes(printer.Get(), u"WaterMarkList", kMostListBytes)
                                 : std::vector<BYTE>());
    const Json block = PrivateDevmodeToJson(page.Settings().PlugIn());
    const Json selected = block.is_null() ? Json() : block["WatermarkIndex"];
    for (std::size_t i = 0; i < entries.size(); ++i) entries[i]["selected"] = selected == i;
    return entries;
}

void PrintWatermarks(const PageSession& page, std::ostream& out) {
    const Json entries = PrinterWatermarks(page);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const Json& entry = entries[i];
        std::string line = Escaped(entry["Name"].get<std::string>());
        if (i > 0) {
            line.resize(std::max(line.size() + 2, kNameColumn), ' ');
            line += WhatItPrints(entry);
        }
        out << (entry["selected"].get<bool>() ? "* " : "  ") << line << '\n';
    }
}

void Edit(PageSession& page, TerminalUser& user, EditScript& script) {
    PageItem& item = ItemWithButton(page);
    const int before = user.Dialogs();
    script.EndAt(page.ErrorCaption());
    user.Follow(&script);
    page.PressButton(item);
    user.Follow(nullptr);
    if (user.Dialogs() == before) {
        throw Failure("the editor does not open while " + Quoted(item.Name()) + " is " +
                      Quoted(item.SelectionText()));
    }
    if (!script.Error().empty()) throw Failure(script.Error());
    if (script.LeavesOpen()) {
        throw Failure("the script ended with the editor still open; nothing was stored");
    }
}

void SelectWatermark(PageSession& page, TerminalUser& user, const std::string& name) {
    page.Choose(ItemWithButton(page), kEnabledChoice);
    EditScript script = EditScript::Selecting(name);
    Edit(page, user, script);
}

}  // namespace host
