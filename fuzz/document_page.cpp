// The document page with any devmodes and any driver items: building it and every call of its
// callback, but the button that opens the editor, keep the settings that are indexed in range.

#include <array>
#include <filesystem>
#include <iterator>

#include "common/model_identity.h"
#include "common/plugin_module.h"
#include "devmode/private_devmode.h"
#include "docprops/document_callback.h"
#include "docprops/document_items.h"
#include "fuzz/fuzz_text.h"
#include "platform/base/machine.h"
#include "platform/faults/live_objects.h"
#include "platform/user/user.h"

namespace {

/// Agrees to every message.
class Reader : public platform::User {
public:
    int AnswerMessageBox(const platform::MessageBoxRequest& request) override {
        return request.type == MB_YESNO ? IDYES : IDOK;
    }
    void WorkInDialog(HWND) override {}
    void ReadHelp(const platform::HelpRequest&) override {}
};

/// Takes the input apart from its front; zeros once it is used up.
class Input {
public:
    Input(const unsigned char* bytes, std::size_t size) : bytes_(bytes), left_(size) {}

    template <typename Record>
    Record Take() {
        Record record{};
        const std::size_t taken = left_ < sizeof record ? left_ : sizeof record;
        fuzz::FillFrom(&record, bytes_, taken);
        bytes_ += taken;
        left_ -= taken;
        return record;
    }

private:
    const unsigned char* bytes_;
    std::size_t left_;
};

BOOL APIENTRY UpdateSetting(PVOID, PVOID, DWORD, DWORD) {
    return TRUE;
}

/// A page with one item for each public ID that the plug-in looks for.
class Page {
public:
    explicit Page(Input input) {
        answer_ = input.Take<BYTE>();
        devmode_ = input.Take<oemui::PrivateDevmode>();
        TakePublicFields(&input);
        for (std::size_t i = 0; i < items_.size(); ++i) TakeItem(&input, i);
        driver_.cbSize = sizeof(OEMUIOBJ);
        driver_.pOemUIProcs = &functions_;
        driver_.page = this;
        params_.cbSize = sizeof params_;
        params_.poemuiobj = &driver_;
        params_.pPrinterName = printer_;
        params_.hModule = oemui::PluginModule();
        params_.hOEMHeap = ::HeapCreate(0, 0, 0);
        params_.pPublicDM = &public_;
        params_.pOEMDM = &devmode_;
        params_.pDrvOptItems = items_.data();
        params_.cDrvOptItems = static_cast<DWORD>(items_.size());
    }
    ~Page() { ::HeapDestroy(params_.hOEMHeap); }
    Page(const Page&) = delete;
    Page& operator=(const Page&) = delete;

    void Build() {
        oemui::BuildDocumentItems(OEMCUIP_DOCPROP, &params_);
        fuzz::Require(params_.cOEMOptItems == own_.size());
        params_.pOEMOptItems = own_.data();
        oemui::BuildDocumentItems(OEMCUIP_DOCPROP, &params_);
        fuzz::Require(oemui::IsValidScaling(devmode_.Scaling));
    }

    void Report(WORD reason, Input* input) {
        for (OPTITEM& item : own_) item.Sel = input->Take<LONG>();
        CPSUICBPARAM callback = {};
        callback.cbSize = sizeof callback;
        callback.Reason = reason;
        callback.pCurItem = own_.data();
        oemui::DocumentPropertyCallback(&callback, &params_);
        if (reason == CPSUICB_REASON_APPLYNOW) fuzz::Require(devmode_.PagesPerSheet <= 16);
    }

private:
    struct DriverObject : OEMUIOBJ {
        Page* page;
    };

    void TakePublicFields(Input* input) {
        public_ = input->Take<DEVMODEW>();
        public_.dmSize = sizeof public_;
    }

    void TakeItem(Input* input, std::size_t place) {
        static constexpr BYTE kPublicIds[] = {DMPUB_NUP,         DMPUB_DUPLEX,    DMPUB_FORMNAME,
                                              DMPUB_ORIENTATION, DMPUB_ICMMETHOD, DMPUB_ICMINTENT,
                                              DMPUB_DEFSOURCE,   DMPUB_MEDIATYPE};
        OPTITEM& item = items_[place];
        item.cbSize = sizeof item;
        item.DMPubID = kPublicIds[place % std::size(kPublicIds)];
        item.Sel = input->Take<LONG>();
        item.Flags = input->Take<DWORD>();
        for (OPTPARAM& choice : choices_[place]) {
            choice.cbSize = sizeof choice;
            choice.pData = choiceName_;
        }
        types_[place].Count = static_cast<WORD>(choices_[place].size());
        types_[place].pOptParam = choices_[place].data();
        item.pOptType = &types_[place];
    }

    static BOOL APIENTRY GetSetting(PVOID driver, PCSTR, PVOID output, DWORD size, PDWORD, PDWORD) {
        static constexpr const char* kAnswers[] = {"OFF", "Yes", "No", ""};
        const Page& page = *static_cast<DriverObject*>(static_cast<OEMUIOBJ*>(driver))->page;
        if (page.answer_ % 8 == 7) return static_cast<BOOL>(E_NOTIMPL);
        const char* answer = kAnswers[page.answer_ % std::size(kAnswers)];
        fuzz::Require(std::strlen(answer) < size);
        std::memcpy(output, answer, std::strlen(answer) + 1);
        return TRUE;
    }

    static constexpr std::size_t kItems = 8;

    WCHAR printer_[16] = TEXT("No such printer");
    WCHAR choiceName_[8] = TEXT("Choice");
    BYTE answer_ = 0;
    oemui::PrivateDevmode devmode_{};
    DEVMODEW public_{};
    std::array<OPTITEM, kItems> items_{};
    std::array<OPTTYPE, kItems> types_{};
    std::array<std::array<OPTPARAM, 7>, kItems> choices_{};
    std::array<OPTITEM, oemui::kDocumentItemCount> own_{};
    OEMUIPROCS functions_ = {GetSetting, UpdateSetting};
    DriverObject driver_{};
    OEMCUIPPARAM params_{};
};

constexpr WORD kUnknownReason = 77;
constexpr WORD kReasons[] = {CPSUICB_REASON_SETACTIVE, CPSUICB_REASON_SEL_CHANGED,
                             CPSUICB_REASON_APPLYNOW, kUnknownReason};

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
    platform::UseMachine(std::filesystem::temp_directory_path() / "oemui-fuzz-document-page");
    oemui::RecordPluginModule(::GetModuleHandleW(nullptr));
    oemui::DeriveModelIdentity(TEXT("C:\\driver\\QVRT__UI.DLL"));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    Reader reader;
    const platform::UserScope scope(reader);
    const auto held = platform::LiveObjects();
    {
        Page page(Input(bytes, size));
        page.Build();
        Input selections(bytes, size);
        for (const WORD reason : kReasons) page.Report(reason, &selections);
    }
    fuzz::Require(platform::LiveObjects() == held);
    return 0;
}
