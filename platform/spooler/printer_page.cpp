#include "platform/spooler/printer_page.h"

#include <winspool.h>

#include <algorithm>
#include <cstring>

#include "platform/spooler/forms.h"
#include "platform/spooler/printer_record.h"

namespace platform::spooler {
namespace {

constexpr PageSize kA4 = {2100, 2970, false};

std::u16string_view FormName(const DEVMODEW& devmode) {
    const std::u16string_view name(devmode.dmFormName, CCHFORMNAME);
    return name.substr(0, name.find(u'\0'));
}

// The fields that the devmode has; those behind its public part, which may be short, are zero.
DEVMODEW PublicPart(const std::vector<BYTE>& bytes) {
    DEVMODEW devmode = {};
    std::memcpy(&devmode, bytes.data(), offsetof(DEVMODEW, dmFields));
    const std::size_t size = std::min({bytes.size(), sizeof devmode, std::size_t{devmode.dmSize}});
    std::memcpy(&devmode, bytes.data(), size);
    return devmode;
}

// The form that the devmode names, or else numbers.
const Form* FormOf(const DEVMODEW& devmode, const std::vector<Form>& forms) {
    const Form* form = nullptr;
    if ((devmode.dmFields & DM_FORMNAME) != 0) form = FindForm(forms, FormName(devmode));
    if (form == nullptr && (devmode.dmFields & DM_PAPERSIZE) != 0 && devmode.dmPaperSize > 0) {
        form = FindForm(forms, static_cast<WORD>(devmode.dmPaperSize));
    }
    return form;
}

PageSize PageOf(const DEVMODEW& devmode, const std::vector<Form>& forms) {
    PageSize page = kA4;
    constexpr DWORD kOwnSize = DM_PAPERWIDTH | DM_PAPERLENGTH;
    if (const Form* form = FormOf(devmode, forms)) {
        page.width = Tenths(form->size.cx);
        page.height = Tenths(form->size.cy);
    } else if ((devmode.dmFields & kOwnSize) == kOwnSize && devmode.dmPaperWidth > 0 &&
               devmode.dmPaperLength > 0) {
        page.width = devmode.dmPaperWidth;
        page.height = devmode.dmPaperLength;
    }
    page.landscape =
        (devmode.dmFields & DM_ORIENTATION) != 0 && devmode.dmOrientation == DMORIENT_LANDSCAPE;
    return page;
}

}  // namespace

bool PrinterPage(std::u16string_view printer, PageSize* page) {
    const std::u16string name = ShortPrinterName(printer);
    PrinterRecord record;
    if (name.empty() || LoadPrinter(name, &record) != ERROR_SUCCESS) return false;
    *page = kA4;
    std::vector<Form> forms;
    if (record.devmode.empty() || ListForms(&forms) != ERROR_SUCCESS) return true;
    *page = PageOf(PublicPart(record.devmode), forms);
    return true;
}

}  // namespace platform::spooler
