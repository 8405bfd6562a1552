#include "tests/support/document_page.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "common/model_identity.h"
#include "docprops/document_callback.h"
#include "tests/support/plugin_fixture.h"

namespace tests {

DocumentPage::DocumentPage(std::basic_string<WCHAR> printerName)
    : printerName_(std::move(printerName)),
      printer_(oemui::OpenPrinterFor(printerName_.c_str(), PRINTER_ACCESS_USE)),
      heap_(::HeapCreate(0, 0, 0)) {
    driver_.cbSize = sizeof(OEMUIOBJ);
    driver_.pOemUIProcs = &functions_;
    driver_.page = this;
    driver_.settings = {
        {"AutoConfig", "OFF"}, {"Tray2", "Yes"}, {"DuplexUnit", "Yes"}, {"Tray3", "Yes"}};
    publicDevmode.dmCopies = 1;
    publicDevmode.dmColor = DMCOLOR_COLOR;
    OEMDMPARAM defaults = {};
    defaults.pOEMDMOut = &privateDevmode;
    oemui::HandleDevMode(OEMDM_DEFAULT, &defaults);
}

DocumentPage::~DocumentPage() {
    ::HeapDestroy(heap_);
}

DocumentPage& DocumentPage::With(BYTE publicId, LONG selection,
                                 const std::vector<std::string>& choices) {
    DriverChoices& made = driverChoices_.emplace_back();
    for (const std::string& choice : choices) {
        OPTPARAM record = {};
        record.cbSize = sizeof record;
        record.pData = made.texts.emplace_back(Wide(choice)).data();
        made.records.push_back(record);
    }
    made.type = {};
    made.type.Count = static_cast<WORD>(made.records.size());
    made.type.pOptParam = made.records.data();
    OPTITEM item = {};
    item.cbSize = sizeof item;
    item.DMPubID = publicId;
    item.Sel = selection;
    item.pOptType = &made.type;
    driverItems_.push_back(item);
    return *this;
}

DocumentPage& DocumentPage::Setting(const std::string& feature, const std::string& option) {
    driver_.settings[feature] = option;
    if (option.empty()) driver_.settings.erase(feature);
    return *this;
}

DocumentPage& DocumentPage::WithoutFunctions() {
    driver_.pOemUIProcs = nullptr;
    return *this;
}

DocumentPage& DocumentPage::WithoutQuestions() {
    functions_.DrvGetDriverSetting = nullptr;
    return *this;
}

void DocumentPage::Build() {
    OEMCUIPPARAM& params = Params();
    params.pOEMOptItems = nullptr;
    EXPECT_EQ(oemui::BuildDocumentItems(OEMCUIP_DOCPROP, &params), S_OK);
    MakeRoom(params.cOEMOptItems);
    EXPECT_EQ(oemui::BuildDocumentItems(OEMCUIP_DOCPROP, &Params()), S_OK);
}

void DocumentPage::MakeRoom(DWORD count) {
    static OPTTYPE built = {};
    OPTITEM item = {};
    item.pOptType = &built;
    ownItems_.assign(count, item);
}

LONG DocumentPage::Report(WORD reason, OPTITEM* current) {
    CPSUICBPARAM callback = {};
    callback.cbSize = sizeof callback;
    callback.Reason = reason;
    callback.pCurItem = current;
    return oemui::DocumentPropertyCallback(&callback, &Params());
}

OEMCUIPPARAM& DocumentPage::Params() {
    params_.cbSize = sizeof params_;
    params_.poemuiobj = &driver_;
    params_.hPrinter = printer_.Get();
    params_.pPrinterName = printerName_.data();
    params_.hModule = oemui::PluginModule();
    params_.hOEMHeap = heap_;
    params_.pPublicDM = &publicDevmode;
    params_.pOEMDM = &privateDevmode;
    params_.pDrvOptItems = driverItems_.data();
    params_.cDrvOptItems = static_cast<DWORD>(driverItems_.size());
    params_.pOEMOptItems = ownItems_.data();
    params_.cOEMOptItems = static_cast<DWORD>(ownItems_.size());
    return params_;
}

OPTITEM& DocumentPage::Driver(BYTE publicId) {
    return *FindDriver(publicId);
}

OPTITEM* DocumentPage::FindDriver(BYTE publicId) {
    const auto found = std::ranges::find(driverItems_, publicId, &OPTITEM::DMPubID);
    return found == driverItems_.end() ? nullptr : &*found;
}

OPTPARAM& DocumentPage::Choice(BYTE publicId, std::size_t place) {
    return Driver(publicId).pOptType->pOptParam[place];
}

BOOL DocumentPage::GetSetting(PVOID driver, PCSTR feature, PVOID output, DWORD size,
                              PDWORD /*needed*/, PDWORD /*options*/) {
    auto* self = static_cast<DriverObject*>(static_cast<OEMUIOBJ*>(driver));
    self->page->asked.emplace_back(feature);
    const auto found = self->settings.find(feature);
    if (found == self->settings.end()) return static_cast<BOOL>(E_NOTIMPL);
    EXPECT_LT(found->second.size(), size);
    std::memcpy(output, found->second.c_str(), found->second.size() + 1);
    return TRUE;
}

BOOL DocumentPage::UpdateSetting(PVOID driver, PVOID item, DWORD previous, DWORD mode) {
    auto* self = static_cast<DriverObject*>(static_cast<OEMUIOBJ*>(driver));
    EXPECT_EQ(previous, 0U);
    EXPECT_EQ(mode, static_cast<DWORD>(OEMCUIP_DOCPROP));
    self->page->toldAbout.push_back(static_cast<OPTITEM*>(item)->DMPubID);
    return TRUE;
}

}  // namespace tests
