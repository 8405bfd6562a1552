#include "host/page/session.h"

#include <array>
#include <utility>

#include "host/driver/page_items.h"
#include "host/errors/failure.h"
#include "platform/text/text_encoding.h"
#include "resources/resource_ids.h"

namespace host {
namespace {

// More items than any page could show are a sign of a broken plug-in.
constexpr DWORD kMostPlugInItems = 256;

constexpr int kMostTextCharacters = 260;

// A user who may not administer the printer can still look at its pages.
oemui::UniquePrinter OpenForPage(const std::string& name) {
    oemui::UniquePrinter printer =
        oemui::OpenPrinterFor(platform::Utf16(name).c_str(), PRINTER_ALL_ACCESS);
    return printer ? std::move(printer) : OpenNamedPrinter(name, PRINTER_ACCESS_USE);
}

const Model* ModelOf(const PrinterSummary& printer) {
    const Model* model = ModelOfDriver(printer.driver);
    if (model != nullptr) return model;
    throw Failure("printer " + Quoted(platform::Utf8(printer.name)) + " has the driver " +
                  Quoted(platform::Utf8(printer.driver)) + ", which is none of the family's");
}

void RequireUsable(const PageItem& item) {
    if (!item.Visible()) throw Failure(Quoted(item.Name()) + " is not on the page");
    if (!item.IsSetting()) throw Failure(Quoted(item.Name()) + " has no choices");
    if (!item.Enabled()) throw Failure(Quoted(item.Name()) + " is not available now");
}

DWORD PropertyMode(PageKind kind) {
    return kind == PageKind::Document ? OEMCUIP_DOCPROP : OEMCUIP_PRNPROP;
}

}  // namespace

PageSession::PageSession(const std::string& printerName, PageKind kind, HWND owner,
                         const PageSession* shown)
    : kind_(kind),
      owner_(owner),
      printerHandle_(OpenForPage(printerName)),
      printer_(SummaryOf(printerHandle_.Get())),
      model_(ModelOf(printer_)),
      module_(LoadPrinterModule(printerHandle_.Get())),
      devmode_((shown == nullptr ? PrinterDevmode : DefaultDevmode)(module_, printerHandle_.Get(),
                                                                    printer_.name)),
      options_(shown == nullptr ? InstalledOptions::Read(printerHandle_.Get())
                                : InstalledOptions{}),
      driverItems_(MakeDriverItems()),
      heap_(::HeapCreate(0, 0, 0)) {
    if (!heap_) FailWithLastError("the page has no memory");
    MakeParams();
    AddPlugInItems();
    CollectItems();
    if (shown != nullptr) ReportChangesFrom(*shown);
    Report(CPSUICB_REASON_SETACTIVE, nullptr, 0);
}

OptionItems PageSession::MakeDriverItems() {
    return kind_ == PageKind::Document ? DocumentPageItems(printerHandle_.Get(), *model_, devmode_)
                                       : PrinterPageItems(*model_, options_);
}

void PageSession::MakeParams() {
    procedures_ = {&PageSession::GetDriverSetting, &PageSession::UpdateUiSetting};
    driverObject_ = {{sizeof(OEMUIOBJ), &procedures_}, this};
    std::vector<OPTITEM>& driverRecords = driverItems_.Records();
    params_.cbSize = sizeof(params_);
    params_.poemuiobj = &driverObject_.object;
    params_.hPrinter = printerHandle_.Get();
    params_.pPrinterName = printer_.name.data();
    params_.hModule = module_.Handle();
    params_.hOEMHeap = heap_.Get();
    params_.pPublicDM = &devmode_.Public();
    params_.pOEMDM = devmode_.PlugIn().data();
    params_.pDrvOptItems = driverRecords.data();
    params_.cDrvOptItems = static_cast<DWORD>(driverRecords.size());
}

// The plug-in is asked twice: for the number of its items, then to fill them.
void PageSession::AddPlugInItems() {
    IPrintOemUI& plugIn = module_.PlugIn();
    const DWORD mode = PropertyMode(kind_);
    if (FAILED(plugIn.CommonUIProp(mode, &params_)) || params_.cOEMOptItems > kMostPlugInItems) {
        throw Failure("the plug-in refuses the page");
    }
    plugInItems_.assign(params_.cOEMOptItems, OPTITEM{});
    params_.pOEMOptItems = plugInItems_.data();
    if (!plugInItems_.empty() && FAILED(plugIn.CommonUIProp(mode, &params_))) {
        throw Failure("the plug-in refuses the page");
    }
}

void PageSession::CollectItems() {
    std::vector<OPTITEM>& records = driverItems_.Records();
    for (std::size_t i = 0; i < records.size(); ++i) {
        items_.emplace_back(records[i], driverItems_.Keyword(i), driverItems_.Choices(i));
    }
    for (OPTITEM& record : plugInItems_) {
        if (record.pName == nullptr && record.pOptType == nullptr) continue;
        items_.emplace_back(record, std::as_const(devmode_).PlugIn());
    }
}

void PageSession::ReportChangesFrom(const PageSession& shown) {
    const std::size_t common = std::min(items_.size(), shown.items_.size());
    for (std::size_t i = 0; i < common; ++i) {
        ReportChange(items_[i].Record(), shown.items_[i].Record().Sel);
    }
}

void PageSession::Choose(PageItem& item, std::size_t choice) {
    RequireUsable(item);
    const std::vector<PageChoice> choices = item.Choices();
    if (item.Kind() != ItemKind::List || choice >= choices.size() || !choices[choice].visible) {
        throw Failure(Quoted(item.Name()) + " has no such choice");
    }
    if (!choices[choice].Usable()) {
        throw Failure(Quoted(choices[choice].text) + " of " + Quoted(item.Name()) +
                      " is not available now");
    }
    Select(item, static_cast<LONG>(choice));
}

void PageSession::SetNumber(PageItem& item, LONG number) {
    RequireUsable(item);
    if (item.Kind() != ItemKind::Number) throw Failure(Quoted(item.Name()) + " is no number");
    if (number < item.Lowest() || number > item.Highest()) {
        throw Failure(Quoted(item.Name()) + " must be " + item.Range(" to ") + ", not " +
                      std::to_string(number));
    }
    Select(item, number);
}

void PageSession::Select(PageItem& item, LONG selection) {
    const LONG oldSelection = std::exchange(item.Record().Sel, selection);
    ReportChange(item.Record(), oldSelection);
}

// What was selected already is no change, and nobody hears of it.
void PageSession::ReportChange(OPTITEM& record, LONG oldSelection) {
    if (record.Sel == oldSelection) return;
    record.Flags |= OPTIF_CHANGED;
    // The driver hears of its items first: the plug-in finds the public devmode in step.
    driverItems_.Take(&record);
    if ((record.Flags & OPTIF_CALLBACK) != 0) {
        Report(CPSUICB_REASON_SEL_CHANGED, &record, oldSelection);
    }
}

LONG PageSession::PressButton(PageItem& item) {
    RequireUsable(item);
    if (!item.HasButton()) throw Failure(Quoted(item.Name()) + " has no button");
    return Report(CPSUICB_REASON_EXTPUSH, &item.Record(), item.Record().Sel);
}

std::unique_ptr<PageSession> PageSession::WithDefaults() const {
    return std::unique_ptr<PageSession>(
        new PageSession(platform::Utf8(printer_.name), kind_, owner_, this));
}

std::u16string PageSession::ErrorCaption() const {
    std::array<WCHAR, kMostTextCharacters> text{};
    ::LoadStringW(module_.Handle(), IDS_CAPTION_ERROR, text.data(), kMostTextCharacters);
    return text.data();
}

bool PageSession::Apply() {
    driverItems_.TakeAll();
    const LONG action = Report(CPSUICB_REASON_APPLYNOW, nullptr, 0);
    if (action == CPSUICB_ACTION_NO_APPLY_EXIT) return false;
    // The plug-in may have put back what cannot be.
    driverItems_.TakeAll();
    if (kind_ == PageKind::Document) {
        StorePrinterDevmode(printerHandle_.Get(), devmode_);
    } else {
        options_.Store(printerHandle_.Get());
    }
    return true;
}

LONG PageSession::Report(WORD reason, OPTITEM* current, LONG oldSelection) {
    if (params_.OEMCUIPCallback == nullptr) return CPSUICB_ACTION_NONE;
    std::vector<OPTITEM>& driverRecords = driverItems_.Records();
    CPSUICBPARAM callback{};
    callback.cbSize = sizeof(callback);
    callback.Reason = reason;
    callback.hDlg = owner_;
    callback.pOptItem = driverRecords.data();
    callback.cOptItem = static_cast<WORD>(driverRecords.size());
    // Reasons that concern no item come with the first one.
    callback.pCurItem = current != nullptr ? current : driverRecords.data();
    callback.OldSel = oldSelection;
    return params_.OEMCUIPCallback(&callback, &params_);
}

BOOL APIENTRY PageSession::GetDriverSetting(PVOID driver, PCSTR feature, PVOID output,
                                            DWORD outputSize, PDWORD needed, PDWORD returned) {
    const PageSession* session = static_cast<DriverObject*>(driver)->session;
    return session->options_.Answer(*session->model_, feature, output, outputSize, needed,
                                    returned);
}

BOOL APIENTRY PageSession::UpdateUiSetting(PVOID driver, PVOID optItem, DWORD, DWORD) {
    PageSession* session = static_cast<DriverObject*>(driver)->session;
    session->driverItems_.Take(static_cast<const OPTITEM*>(optItem));
    return TRUE;
}

}  // namespace host
