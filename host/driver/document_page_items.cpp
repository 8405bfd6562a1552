#include "host/driver/document_page_items.h"

#include <algorithm>
#include <array>

#include "host/spooler/printers.h"
#include "platform/text/text_encoding.h"

namespace host {
namespace {

constexpr LONG kMostCopies = 999;

/// A field of the public devmode and the item that shows it; one of the two members is set.
struct PublicField {
    const char16_t* name;
    const char* keyword;
    BYTE publicId;
    SHORT DEVMODEW::*shortField;
    DWORD DEVMODEW::*longField;
};

enum PublicFieldIndex : std::size_t {
    kOrientation,
    kSource,
    kMedia,
    kDuplex,
    kCollate,
    kColor,
    kIcmMethod,
    kIcmIntent,
};

constexpr std::array kPublicFields = {
    PublicField{u"Orientation", "Orientation", DMPUB_ORIENTATION, &DEVMODEW::dmOrientation,
                nullptr},
    PublicField{u"Paper Source", "InputSlot", DMPUB_DEFSOURCE, &DEVMODEW::dmDefaultSource, nullptr},
    PublicField{u"Media Type", "MediaType", DMPUB_MEDIATYPE, nullptr, &DEVMODEW::dmMediaType},
    PublicField{u"Duplex", "Duplex", DMPUB_DUPLEX, &DEVMODEW::dmDuplex, nullptr},
    PublicField{u"Collate", "Collate", DMPUB_NONE, &DEVMODEW::dmCollate, nullptr},
    PublicField{u"Color", "ColorModel", DMPUB_COLOR, &DEVMODEW::dmColor, nullptr},
    PublicField{u"Color Management Method", "ICMMethod", DMPUB_ICMMETHOD, nullptr,
                &DEVMODEW::dmICMMethod},
    PublicField{u"Color Management Intent", "ICMIntent", DMPUB_ICMINTENT, nullptr,
                &DEVMODEW::dmICMIntent},
};

const std::vector<ChoiceSpec> kOrientationChoices = {
    {u"Portrait", "Portrait", DMORIENT_PORTRAIT}, {u"Landscape", "Landscape", DMORIENT_LANDSCAPE}};
const std::vector<ChoiceSpec> kMediaChoices = {
    {u"Plain Paper", "PlainPaper", 1},    {u"Recycled Paper", "RecycledPaper", 257},
    {u"Letterhead", "Letterhead", 258},   {u"Thick Stock", "ThickStock", 259},
    {u"Transparency", "Transparency", 2}, {u"Postcard", "Postcard", 260},
    {u"Labels", "Labels", 261},           {u"Glossy", "Glossy", 3},
    {u"Envelope", "Envelope", 262}};
const std::vector<ChoiceSpec> kDuplexChoices = {{u"None", "None", DMDUP_SIMPLEX},
                                                {u"Long Edge", "LongEdge", DMDUP_VERTICAL},
                                                {u"Short Edge", "ShortEdge", DMDUP_HORIZONTAL}};
const std::vector<ChoiceSpec> kCollateChoices = {{u"Off", "Off", DMCOLLATE_FALSE},
                                                 {u"On", "On", DMCOLLATE_TRUE}};
const std::vector<ChoiceSpec> kColorChoices = {{u"Color", "Color", DMCOLOR_COLOR},
                                               {u"Monochrome", "Monochrome", DMCOLOR_MONOCHROME}};
const std::vector<ChoiceSpec> kIcmMethodChoices = {
    {u"Off", "Off", DMICMMETHOD_NONE},
    {u"By the System", "System", DMICMMETHOD_SYSTEM},
    {u"By the Driver", "Driver", DMICMMETHOD_DRIVER}};
const std::vector<ChoiceSpec> kIcmIntentChoices = {{u"Saturation", "Saturation", 1},
                                                   {u"Contrast", "Contrast", 2},
                                                   {u"Exact Color", "ExactColor", 3}};
// The values are the choices' numbers, which is what the driver's block keeps.
const std::vector<ChoiceSpec> kNupChoices = {{u"1 Page per Sheet", "1", 0},
                                             {u"2 Pages per Sheet", "2", 1},
                                             {u"4 Pages per Sheet", "4", 2},
                                             {u"6 Pages per Sheet", "6", 3},
                                             {u"9 Pages per Sheet", "9", 4},
                                             {u"16 Pages per Sheet", "16", 5},
                                             {u"Booklet", "Booklet", kBookletSelection}};

}  // namespace

DocumentPageItems::DocumentPageItems(HANDLE printer, const Model& model, Devmode& devmode)
    : printer_(printer), devmode_(devmode) {
    AddGroup(u"Paper");
    AddPublic(kOrientation, kOrientationChoices);
    AddForms();
    AddSources(model);
    AddPublic(kMedia, kMediaChoices);
    AddGroup(u"Output");
    Tree().AddNumber({u"Copies", "Copies", 1, DMPUB_COPIES_COLLATE}, 1, kMostCopies);
    bindings_.push_back({Setting::Copies, 0});
    Tree().Records().back().Sel = devmode_.Public().dmCopies;
    AddPublic(kCollate, kCollateChoices);
    AddPublic(kDuplex, kDuplexChoices);
    AddNup();
    AddGroup(u"Graphics");
    AddPublic(kColor, kColorChoices);
    AddPublic(kIcmMethod, kIcmMethodChoices);
    AddPublic(kIcmIntent, kIcmIntentChoices);
    // The plug-in's items come behind the driver's last group.
    AddGroup(u"Printer Features");
}

void DocumentPageItems::AddGroup(std::u16string name) {
    Tree().AddGroup(std::move(name), 0);
    bindings_.push_back({Setting::None, 0});
}

void DocumentPageItems::AddForms() {
    std::vector<ChoiceSpec> choices;
    LONG selected = 0;
    for (const Form& form : ListForms(printer_)) {
        const LONG number = static_cast<LONG>(choices.size());
        if (form.name == devmode_.Public().dmFormName) selected = number;
        choices.push_back({form.name, KeywordFrom(platform::Utf8(form.name)), number});
    }
    Tree().AddList({u"Paper Size", "PageSize", 1, DMPUB_FORMNAME}, std::move(choices));
    bindings_.push_back({Setting::FormName, 0});
    Tree().Records().back().Sel = selected;
}

void DocumentPageItems::AddSources(const Model& model) {
    std::vector<ChoiceSpec> choices = {
        {u"Auto", "Auto", 7}, {u"Tray 1", "Tray1", 1}, {u"Tray 2", "Tray2", 2}};
    if (model.hasTray3) choices.push_back({u"Tray 3", "Tray3", 3});
    choices.push_back({u"Manual Feed", "ManualFeed", 4});
    AddPublic(kSource, std::move(choices));
}

void DocumentPageItems::AddPublic(std::size_t field, std::vector<ChoiceSpec> choices) {
    const PublicField& shown = kPublicFields[field];
    Tree().AddList({shown.name, shown.keyword, 1, shown.publicId}, std::move(choices));
    bindings_.push_back({Setting::Public, field});
    const DEVMODEW& devmode = devmode_.Public();
    Show(bindings_.size() - 1, shown.shortField ? devmode.*shown.shortField
                                                : static_cast<LONG>(devmode.*shown.longField));
}

void DocumentPageItems::AddNup() {
    Tree().AddList({u"Pages per Sheet", "N-up", 1, DMPUB_NUP}, kNupChoices);
    bindings_.push_back({Setting::Nup, 0});
    Show(bindings_.size() - 1, static_cast<LONG>(devmode_.Driver().NupSelection));
}

void DocumentPageItems::Show(std::size_t item, LONG value) {
    Tree().Records()[item].Sel = Tree().ChoiceOfValue(item, value);
}

void DocumentPageItems::Take(std::size_t item) {
    DEVMODEW& devmode = devmode_.Public();
    switch (bindings_[item].setting) {
        case Setting::None:
            return;
        case Setting::Copies:
            devmode.dmCopies =
                static_cast<SHORT>(std::clamp(Tree().Records()[item].Sel, 1, kMostCopies));
            return;
        case Setting::Nup:
            devmode_.Driver().NupSelection = static_cast<DWORD>(Tree().SelectedValue(item));
            return;
        case Setting::Public: {
            const PublicField& field = kPublicFields[bindings_[item].field];
            const LONG value = Tree().SelectedValue(item);
            if (field.shortField) devmode.*field.shortField = static_cast<SHORT>(value);
            if (field.longField) devmode.*field.longField = static_cast<DWORD>(value);
            return;
        }
        case Setting::FormName: {
            if (Tree().Choices(item).empty()) return;
            const auto form = static_cast<std::size_t>(Tree().SelectedValue(item));
            ::lstrcpynW(devmode.dmFormName, Tree().Choices(item)[form].text.c_str(), CCHFORMNAME);
            return;
        }
    }
}

void DocumentPageItems::Save() {
    StorePrinterDevmode(printer_, devmode_);
}

}  // namespace host
