#include "host/driver/printer_page_items.h"

#include <array>

namespace host {
namespace {

// The items stand below a group of a group: the plug-in looks for them on the third level or
// deeper, by these names.
constexpr BYTE kItemLevel = 2;

struct OptionItem {
    InstalledOption option;
    const char16_t* name;
    std::array<const char16_t*, 2> choices;
};

constexpr std::array<OptionItem, kInstalledOptions> kItems = {{
    {InstalledOption::AutoConfig, u"Auto Configure", {u"On", u"Off"}},
    {InstalledOption::Tray2, u"Tray 2", {u"Installed", u"Not Installed"}},
    {InstalledOption::Tray3, u"Tray 3", {u"Installed", u"Not Installed"}},
    {InstalledOption::DuplexUnit,
     u"Duplex Option (Double-sided)",
     {u"Installed", u"Not Installed"}},
}};

std::vector<ChoiceSpec> ChoicesOf(const OptionItem& item, const OptionKeywords& keywords) {
    return {{item.choices[0], keywords.settings[0], 0}, {item.choices[1], keywords.settings[1], 1}};
}

}  // namespace

PrinterPageItems::PrinterPageItems(HANDLE printer, const Model& model, InstalledOptions& options)
    : printer_(printer), options_(options) {
    Tree().AddGroup(u"Device Settings", 0);
    Tree().AddGroup(u"Installable Options", 1);
    bindings_.assign(2, nullptr);
    for (const OptionItem& item : kItems) {
        if (item.option == InstalledOption::Tray3 && !model.hasTray3) continue;
        const OptionKeywords& keywords = AllOptionKeywords()[static_cast<std::size_t>(item.option)];
        Tree().AddList({item.name, keywords.feature, kItemLevel, DMPUB_NONE},
                       ChoicesOf(item, keywords));
        bindings_.push_back(&keywords);
        Tree().Records().back().Sel = static_cast<LONG>(options.Setting(item.option));
    }
}

void PrinterPageItems::Take(std::size_t item) {
    if (!bindings_[item]) return;
    options_.Set(bindings_[item]->option, static_cast<DWORD>(Tree().SelectedValue(item)));
}

}  // namespace host
