#include "host/page/session.h"

#include "host/driver/document_page_items.h"
#include "host/driver/printer_page_items.h"
#include "host/errors/failure.h"
#include "platform/text/text_encoding.h"

namespace host {
namespace {

// More items than any page could show are a sign of a broken plug-in.
constexpr DWORD kMostPlugInItems = 256;

// A user who may not administer the printer can still look at its pages.
PrinterHandle OpenForPage(const std::string& name) {
    std::u16string wideName = platform::Utf16(name);
    PRINTER_DEFAULTSW defaults{nullptr, nullptr, PRINTER_ALL_ACCESS};
    HANDLE printer = nullptr;
    if (::OpenPrinterW(wideName.data(), &printer, &defaults)) return PrinterHandle(printer);
    return OpenNamedPrinter(name, PRINTER_ACCESS_USE);
}

const Model* RequireModel(const PrinterSummary& printer) {
    const Model* model = ModelOfDriver(printer.driver);
    if (model) return model;
    throw Failure("printer \"" + platform::Utf8(printer.name) + "\" has the driver \"" +
                  platform::Utf8(printer.driver) + "\", which is none of the family's");
}

DWORD PropertyMode(PageKind kind) {
    return kind == PageKind::Document ? OEMCUIP_DOCPROP : OEMCUIP_PRNPROP;
}

}  // namespace

PageSession::PageSession(const std::string& printerName, PageKind kind, HWND owner)
    : kind_(kind),
      owner_(owner),
      printerHandle_(OpenForPage(printerName)),
      printer_(SummaryOf(printerHandle_.get())),
      model_(RequireModel(printer_)),
      module_(LoadPrinterModule(printerHandle_.get())),
      devmode_(PrinterDevmode(*module_, printerHandle_.get(), printer_.name)),
      options_(InstalledOptions::Read(printerHandle_.get())),
      heap_(::HeapCreate(0, 0, 0)) {
    if (!heap_) FailWithLastError("the page has no memory");
    MakeDriverItems();
    MakeParams();
    AddPlugInItems();
    CollectItems();
    Activate();
}

PageSession::~PageSession() = default;

void PageSession::MakeDriverItems() {
    if (kind_ == PageKind::Document) {
        driverItems_ = std::make_unique<DocumentPageItems>(printerHandle_.get(), *model_, devmode_);
    } else {
        driverItems_ = std::make_unique<PrinterPageItems>(printerHandle_.get(), *model_, options_);
    }
}

void PageSession::MakeParams() {
    procedures_ = {&PageSession::GetDriverSetting, &PageSession::UpdateUiSetting};
    driverObject_ = {{sizeof(OEMUIOBJ), &procedures_}, this};
    std::vector<OPTITEM>& driverRecords = driverItems_->Tree().Records();
    params_.cbSize = sizeof(params_);
    params_.poemuiobj = &driverObject_.object;
    params_.hPrinter = printerHandle_.get();
    params_.pPrinterName = printer_.name.data();
    params_.hModule = module_->Handle();
    params_.hOEMHeap = heap_.get();
    params_.pPublicDM = &devmode_.Public();
    params_.pOEMDM = devmode_.PlugIn().data();
    params_.pDrvOptItems = driverRecords.data();
    params_.cDrvOptItems = static_cast<DWORD>(driverRecords.size());
}

// The plug-in is asked twice: for the number of its items, then to fill them.
void PageSession::AddPlugInItems() {
    IPrintOemUI& plugIn = module_->PlugIn();
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
    ItemTree& tree = driverItems_->Tree();
    for (std::size_t i = 0; i < tree.Records().size(); ++i) {
        PageItem& item = items_.emplace_back(tree.Records()[i], true, tree.Keyword(i));
        item.SetChoiceKeywords(tree.Choices(i));
    }
    for (OPTITEM& record : plugInItems_) {
        if (record.pName || record.pOptType) items_.emplace_back(record, false, "");
    }
}

LONG PageSession::Activate() {
    return Report(CPSUICB_REASON_SETACTIVE, nullptr, 0);
}

void PageSession::RequireUsable(const PageItem& item) const {
    if (!item.Visible()) throw Failure("\"" + item.Name() + "\" is not on the page");
    if (item.Kind() == ItemKind::Group) throw Failure("\"" + item.Name() + "\" has no choices");
    if (!item.Enabled()) throw Failure("\"" + item.Name() + "\" is not available now");
}

LONG PageSession::Choose(PageItem& item, std::size_t choice) {
    RequireUsable(item);
    if (item.Kind() != ItemKind::List || choice >= item.ChoiceCount() ||
        !item.ChoiceVisible(choice)) {
        throw Failure("\"" + item.Name() + "\" has no such choice");
    }
    if (!item.ChoiceEnabled(choice) || item.ChoiceStopped(choice)) {
        throw Failure("\"" + item.ChoiceText(choice) + "\" of \"" + item.Name() +
                      "\" is not available now");
    }
    return Select(item, static_cast<LONG>(choice));
}

LONG PageSession::SetNumber(PageItem& item, LONG number) {
    RequireUsable(item);
    if (item.Kind() != ItemKind::Number) throw Failure("\"" + item.Name() + "\" is no number");
    if (number < item.Lowest() || number > item.Highest()) {
        throw Failure("\"" + item.Name() + "\" must be " + std::to_string(item.Lowest()) + " to " +
                      std::to_string(item.Highest()) + ", not " + std::to_string(number));
    }
    return Select(item, number);
}

// What was selected already is no change, and nobody hears of it.
LONG PageSession::Select(PageItem& item, LONG selection) {
    OPTITEM& record = item.Record();
    const LONG oldSelection = record.Sel;
    if (oldSelection == selection) return CPSUICB_ACTION_NONE;
    record.Sel = selection;
    record.Flags |= OPTIF_CHANGED;
    // The driver hears of its items first: the plug-in finds the public devmode in step.
    if (item.FromDriver()) TakeDriverItem(&record);
    if ((record.Flags & OPTIF_CALLBACK) == 0) return CPSUICB_ACTION_NONE;
    return Report(CPSUICB_REASON_SEL_CHANGED, &record, oldSelection);
}

LONG PageSession::PressButton(PageItem& item) {
    RequireUsable(item);
    if (!item.HasButton()) throw Failure("\"" + item.Name() + "\" has no button");
    return Report(CPSUICB_REASON_EXTPUSH, &item.Record(), item.Record().Sel);
}

bool PageSession::Apply() {
    driverItems_->TakeAll();
    const LONG action = Report(CPSUICB_REASON_APPLYNOW, nullptr, 0);
    if (action == CPSUICB_ACTION_NO_APPLY_EXIT) return false;
    // The plug-in may have put back what cannot be.
    driverItems_->TakeAll();
    driverItems_->Save();
    return true;
}

void PageSession::TakeDriverItem(const OPTITEM* record) {
    const std::vector<OPTITEM>& records = driverItems_->Tree().Records();
    for (std::size_t i = 0; i < records.size(); ++i) {
        if (&records[i] == record) driverItems_->Take(i);
    }
}

LONG PageSession::Report(WORD reason, OPTITEM* current, LONG oldSelection) {
    if (!params_.OEMCUIPCallback) return CPSUICB_ACTION_NONE;
    std::vector<OPTITEM>& driverRecords = driverItems_->Tree().Records();
    CPSUICBPARAM callback{};
    callback.cbSize = sizeof(callback);
    callback.Reason = reason;
    callback.hDlg = owner_;
    callback.pOptItem = driverRecords.data();
    callback.cOptItem = static_cast<WORD>(driverRecords.size());
    // Reasons that concern no item come with the first one.
    callback.pCurItem = current ? current : driverRecords.data();
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
    session->TakeDriverItem(static_cast<const OPTITEM*>(optItem));
    return TRUE;
}

}  // namespace host
