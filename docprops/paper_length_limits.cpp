#include "docprops/paper_length_limits.h"

#include <algorithm>

#include "common/current_printer.h"
#include "common/message.h"
#include "common/page_records.h"
#include "common/spooler_records.h"
#include "docprops/driver_choices.h"
#include "docprops/driver_strings.h"
#include "resources/resource_ids.h"

namespace oemui {
namespace {

// String ID of the platform driver's resource library.
constexpr UINT kDriverPlainPaper = 10512;

/// The media of the plain group; an empty name takes no part.
struct PlainMediaNames {
    PaperName Names[3] = {};
};

/// Lengths in thousandths of a millimetre; the number is the one that the message shows.
struct LengthRule {
    LONG Limit;
    UINT TextId;
    int Millimetres;
};

constexpr LengthRule kLongestSpecialPaper = {297000, IDS_PAPER_TOO_LONG, 297};
constexpr LengthRule kShortestPlainPaper = {198000, IDS_PAPER_TOO_SHORT, 198};
constexpr LengthRule kShortestDuplexPaper = {279400, IDS_PAPER_TOO_SHORT_FOR_DUPLEX, 279};

/// The length of the first form of this name; 0 when the printer has none.
LONG FindFormLength(HANDLE printer, const PaperName& name) {
    const SpoolerRecords<FORM_INFO_1W> forms(
        [printer](BYTE* buffer, DWORD size, DWORD* needed, DWORD* count) {
            return ::EnumFormsW(printer, 1, buffer, size, needed, count);
        });
    for (const FORM_INFO_1W& form : forms.All()) {
        if (form.pName != nullptr && EqualCollated(form.pName, name.c_str())) {
            return form.Size.cy;
        }
    }
    return 0;
}

/// The length of the devmode's paper; 0 when it cannot be found out.
LONG FindPaperLength(const OEMCUIPPARAM& params) {
    if (params.pPublicDM == nullptr) return 0;
    const UniquePrinter printer = OpenPrinterFor(CurrentPrinterName(), PRINTER_ACCESS_USE);
    return printer ? FindFormLength(printer.Get(), FormName(*params.pPublicDM)) : 0;
}

bool LoadPlainMediaNames(PlainMediaNames* names) {
    {
        const UniqueLibrary library = OpenDriverStrings();
        if (library && !LoadName(library.Get(), kDriverPlainPaper, names->Names[0])) return false;
    }
    return PluginModule() != nullptr &&
           LoadName(PluginModule(), IDS_RECYCLED_PAPER, names->Names[1]) &&
           LoadName(PluginModule(), IDS_LETTERHEAD, names->Names[2]);
}

bool IsPlainMedia(const OEMCUIPPARAM& params, const PlainMediaNames& plain) {
    const OPTITEM* media = FindDriverItem(params, DMPUB_MEDIATYPE);
    const OPTPARAM* choice = media == nullptr ? nullptr : FindChoice(*media, media->Sel);
    if (choice == nullptr) return false;
    const TextView name = ItemText(choice->pData);
    return !name.empty() && std::ranges::any_of(plain.Names, [name](const PaperName& entry) {
        return EqualIgnoringAsciiCase(entry.View(), name);
    });
}

bool IsDuplexSelected(const OEMCUIPPARAM& params) {
    const OPTITEM* duplex = FindDriverItem(params, DMPUB_DUPLEX);
    return duplex != nullptr && duplex->Sel != kDuplexOff;
}

void TellBrokenRule(const LengthRule& rule) {
    if (PluginModule() == nullptr) return;
    const auto text = PrintText(MessageText(rule.TextId).c_str(), rule.Millimetres);
    ShowMessageText(text.c_str(), IDS_CAPTION_CONFLICT, MB_OK);
}

bool BreaksMediaRule(LONG length, bool isPlain) {
    const LengthRule& rule = isPlain ? kShortestPlainPaper : kLongestSpecialPaper;
    const bool isBroken = isPlain ? length < rule.Limit : length > rule.Limit;
    if (isBroken) TellBrokenRule(rule);
    return isBroken;
}

bool BreaksDuplexRule(LONG length, bool isDuplex) {
    const bool isBroken = isDuplex && length < kShortestDuplexPaper.Limit;
    if (isBroken) TellBrokenRule(kShortestDuplexPaper);
    return isBroken;
}

}  // namespace

bool CheckCustomPaperLength(const OEMCUIPPARAM& params) {
    const LONG length = FindPaperLength(params);
    if (length == 0) return false;
    // Between the limits no rule can be broken, whatever the media and the sides.
    if (length > kShortestDuplexPaper.Limit && length < kLongestSpecialPaper.Limit) return false;
    PlainMediaNames plain;
    if (!LoadPlainMediaNames(&plain)) return false;
    const bool breaksMediaRule = BreaksMediaRule(length, IsPlainMedia(params, plain));
    const bool breaksDuplexRule = BreaksDuplexRule(length, IsDuplexSelected(params));
    return breaksMediaRule || breaksDuplexRule;
}

void ResetPaperToFirstForm(const OEMCUIPPARAM& params) {
    POPTITEM form = FindDriverItem(params, DMPUB_FORMNAME);
    if (form == nullptr) return;
    form->Sel = kFirstForm;
    form->Flags |= OPTIF_CHANGED;
    const OPTPARAM* first = FindChoice(*form, kFirstForm);
    const bool isNamed = first != nullptr && !IS_INTRESOURCE(first->pData);
    if (params.pPublicDM != nullptr && isNamed) {
        CopyText(params.pPublicDM->dmFormName, first->pData);
    }
    ReportSelectionToDriver(params, form);
}

}  // namespace oemui
