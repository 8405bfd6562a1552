#include "host/driver/page_items.h"

namespace host {
namespace {

// The items stand below a group of a group: the plug-in looks for them on the third level or
// deeper, by their names.
constexpr BYTE kItemLevel = 2;

}  // namespace

OptionItems PrinterPageItems(const Model& model, InstalledOptions& options) {
    OptionItems items;
    items.AddGroup(u"Device Settings", 0);
    items.AddGroup(u"Installable Options", 1);
    for (const InstallableOption& option : InstallableOptions(&model)) {
        bool& installed = options.*option.option;
        items.AddList({option.name, option.feature, kItemLevel, DMPUB_NONE},
                      {{option.installed.text, option.installed.keyword, TRUE},
                       {option.missing.text, option.missing.keyword, FALSE}},
                      installed, [&installed](LONG value) { installed = value != FALSE; });
    }
    return items;
}

}  // namespace host
