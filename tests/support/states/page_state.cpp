#include "tests/support/states/page_state.h"

#include <span>

#include "common/page_records.h"
#include "tests/support/states/watermark_state.h"

namespace tests {
namespace {

/// The selection, the flags when there are any, and the flags of the choices that have some.
std::string Shown(const OPTITEM& item) {
    std::string shown = std::to_string(item.Sel);
    if (item.Flags != 0) shown += " flags " + std::to_string(item.Flags);
    if (item.pOptType == nullptr) return shown + " not built";
    for (LONG i = 0; const OPTPARAM* choice = oemui::FindChoice(item, i); ++i) {
        if (choice->Flags == 0) continue;
        shown += ", choice " + std::to_string(i) + " flags " + std::to_string(choice->Flags);
    }
    return shown;
}

std::string Joined(const auto& parts, auto toText) {
    std::string joined;
    for (const auto& part : parts) joined += (joined.empty() ? "" : " ") + toText(part);
    return joined;
}

}  // namespace

State PageState(DocumentPage* page) {
    State state;
    const OEMCUIPPARAM& params = page->Params();
    for (const OPTITEM& item : std::span(params.pOEMOptItems, params.cOEMOptItems)) {
        state.Add("item " + Quoted(oemui::ItemText(item.pName)), Shown(item));
    }
    for (const OPTITEM& item : std::span(params.pDrvOptItems, params.cDrvOptItems)) {
        state.Add("driver's " + std::to_string(item.DMPubID), Shown(item));
    }
    state.Add(BlockState(page->privateDevmode));
    const DEVMODEW& devmode = page->publicDevmode;
    state.Add("devmode", "form " + Quoted(oemui::TextIn(devmode.dmFormName)) + " duplex " +
                             std::to_string(devmode.dmDuplex));
    state.Add("asked", Joined(page->asked, [](const std::string& text) { return text; }));
    state.Add("told about", Joined(page->toldAbout, [](BYTE id) { return std::to_string(id); }));
    return state;
}

}  // namespace tests
