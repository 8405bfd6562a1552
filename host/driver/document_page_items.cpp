#include <algorithm>

#include "host/driver/page_items.h"
#include "host/spooler/printers.h"

namespace host {
namespace {

constexpr LONG kMostCopies = 999;

ItemSpec Spec(const char16_t* name, const char* keyword, BYTE publicId) {
    return {name, keyword, 1, publicId};
}

/// A list over a number of the devmode, whose values the choices name.
template <typename Number>
void AddField(OptionItems& items, const ItemSpec& spec, Number& field,
              const std::vector<ChoiceSpec>& choices) {
    items.AddList(spec, choices, static_cast<LONG>(field),
                  [&field](LONG value) { field = static_cast<Number>(value); });
}

void AddForms(OptionItems& items, HANDLE printer, DEVMODEW& fields) {
    std::vector<ChoiceSpec> choices;
    LONG selected = 0;
    for (const Form& form : ListForms(printer)) {
        const LONG number = static_cast<LONG>(choices.size());
        if (form.name == fields.dmFormName) selected = number;
        choices.push_back({form.name, "", number});
    }
    items.AddList(Spec(u"Paper Size", "PageSize", DMPUB_FORMNAME), choices, selected,
                  [&fields, choices](LONG form) {
                      if (choices.empty()) return;
                      const std::u16string& name = choices[static_cast<std::size_t>(form)].text;
                      ::lstrcpynW(fields.dmFormName, name.c_str(), CCHFORMNAME);
                  });
}

void AddSources(OptionItems& items, const Model& model, DEVMODEW& fields) {
    std::vector<ChoiceSpec> choices = {
        {u"Auto", "Auto", 7}, {u"Tray 1", "Tray1", 1}, {u"Tray 2", "Tray2", 2}};
    if (model.hasTray3) choices.push_back({u"Tray 3", "Tray3", 3});
    choices.push_back({u"Manual Feed", "ManualFeed", 4});
    AddField(items, Spec(u"Paper Source", "InputSlot", DMPUB_DEFSOURCE), fields.dmDefaultSource,
             choices);
}

void AddPaper(OptionItems& items, HANDLE printer, const Model& model, DEVMODEW& fields) {
    items.AddGroup(u"Paper", 0);
    AddField(items, Spec(u"Orientation", "Orientation", DMPUB_ORIENTATION), fields.dmOrientation,
             {{u"Portrait", "Portrait", DMORIENT_PORTRAIT},
              {u"Landscape", "Landscape", DMORIENT_LANDSCAPE}});
    AddForms(items, printer, fields);
    AddSources(items, model, fields);
    AddField(items, Spec(u"Media Type", "MediaType", DMPUB_MEDIATYPE), fields.dmMediaType,
             {{u"Plain Paper", "PlainPaper", 1},
              {u"Recycled Paper", "RecycledPaper", 257},
              {u"Letterhead", "Letterhead", 258},
              {u"Thick Stock", "ThickStock", 259},
              {u"Transparency", "Transparency", 2},
              {u"Postcard", "Postcard", 260},
              {u"Labels", "Labels", 261},
              {u"Glossy", "Glossy", 3},
              {u"Envelope", "Envelope", 262}});
}

void AddOutput(OptionItems& items, DEVMODEW& fields, DriverBlock& driver) {
    items.AddGroup(u"Output", 0);
    items.AddNumber(Spec(u"Copies", "Copies", DMPUB_COPIES_COLLATE), 1, kMostCopies,
                    fields.dmCopies, [&fields](LONG copies) {
                        fields.dmCopies = static_cast<SHORT>(std::clamp(copies, 1, kMostCopies));
                    });
    AddField(items, Spec(u"Collate", "Collate", DMPUB_NONE), fields.dmCollate,
             {{u"Off", "Off", DMCOLLATE_FALSE}, {u"On", "On", DMCOLLATE_TRUE}});
    AddField(items, Spec(u"Duplex", "Duplex", DMPUB_DUPLEX), fields.dmDuplex,
             {{u"None", "None", DMDUP_SIMPLEX},
              {u"Long Edge", "LongEdge", DMDUP_VERTICAL},
              {u"Short Edge", "ShortEdge", DMDUP_HORIZONTAL}});
    // The values are the choices' numbers, which is what the driver's block keeps.
    AddField(items, Spec(u"Pages per Sheet", "N-up", DMPUB_NUP), driver.NupSelection,
             {{u"1 Page per Sheet", "1", 0},
              {u"2 Pages per Sheet", "2", 1},
              {u"4 Pages per Sheet", "4", 2},
              {u"6 Pages per Sheet", "6", 3},
              {u"9 Pages per Sheet", "9", 4},
              {u"16 Pages per Sheet", "16", 5},
              {u"Booklet", "Booklet", kBookletSelection}});
}

void AddGraphics(OptionItems& items, DEVMODEW& fields) {
    items.AddGroup(u"Graphics", 0);
    AddField(
        items, Spec(u"Color", "ColorModel", DMPUB_COLOR), fields.dmColor,
        {{u"Color", "Color", DMCOLOR_COLOR}, {u"Monochrome", "Monochrome", DMCOLOR_MONOCHROME}});
    AddField(items, Spec(u"Color Management Method", "ICMMethod", DMPUB_ICMMETHOD),
             fields.dmICMMethod,
             {{u"Off", "Off", DMICMMETHOD_NONE},
              {u"By the System", "System", DMICMMETHOD_SYSTEM},
              {u"By the Driver", "Driver", DMICMMETHOD_DRIVER}});
    AddField(items, Spec(u"Color Management Intent", "ICMIntent", DMPUB_ICMINTENT),
             fields.dmICMIntent,
             {{u"Saturation", "Saturation", 1},
              {u"Contrast", "Contrast", 2},
              {u"Exact Color", "ExactColor", 3}});
}

}  // namespace

OptionItems DocumentPageItems(HANDLE printer, const Model& model, Devmode& devmode) {
    OptionItems items;
    AddPaper(items, printer, model, devmode.Public());
    AddOutput(items, devmode.Public(), devmode.Driver());
    AddGraphics(items, devmode.Public());
    // The plug-in's items come behind the driver's last group.
    items.AddGroup(u"Printer Features", 0);
    return items;
}

}  // namespace host
