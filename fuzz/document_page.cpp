// The document page with any devmodes, any driver items and any list that the printer keeps, or
// none: building it and every call of its callback, but the button that opens the editor (whose
// paper is captured all the same), keep the settings that are indexed in range.

#include <gtest/gtest.h>

#include "docprops/watermark_button.h"
#include "fuzz/fuzz_machine.h"
#include "fuzz/fuzz_text.h"
#include "platform/faults/live_objects.h"
#include "tests/support/document_page.h"
#include "tests/support/patient_user.h"
#include "tests/support/plugin_fixture.h"
#include "tests/support/test_printer.h"
#include "watermark/watermark_list.h"

namespace {

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

/// A driver that answers all questions alike, with one item for each public ID that the plug-in
/// looks for.
void Fill(tests::DocumentPage* page, Input input) {
    // The last one ends at once; one of eight drivers knows no feature.
    const std::string answers[] = {"OFF", "Yes", "No", std::string(1, '\0')};
    const BYTE answer = input.Take<BYTE>();
    for (const char* feature : {"AutoConfig", "Tray2", "DuplexUnit", "Tray3"})
        page->Setting(feature, answer % 8 == 7 ? "" : answers[answer % std::size(answers)]);
    page->privateDevmode = input.Take<oemui::PrivateDevmode>();
    page->publicDevmode = input.Take<DEVMODEW>();
    page->publicDevmode.dmSize = sizeof page->publicDevmode;
    constexpr BYTE kPublicIds[] = {DMPUB_NUP,         DMPUB_DUPLEX,    DMPUB_FORMNAME,
                                   DMPUB_ORIENTATION, DMPUB_ICMMETHOD, DMPUB_ICMINTENT,
                                   DMPUB_DEFSOURCE,   DMPUB_MEDIATYPE};
    for (const BYTE publicId : kPublicIds) {
        page->With(publicId, input.Take<LONG>(), std::vector<std::string>(7, "Choice"));
        page->Driver(publicId).Flags = input.Take<DWORD>();
    }
}

/// Stores a list's header and first entry from the input, zeros behind them, cut or made longer to
/// the length that the input begins with. Without a length there is no list: the defaults are
/// built.
void StoreList(tests::TestPrinter* printer, Input* input) {
    struct Beginning {
        UINT32 header[4];
        oemui::WatermarkRecord entry;
    };
    const std::size_t length = input->Take<WORD>() % (2 * sizeof(oemui::WatermarkList));
    const auto beginning = input->Take<Beginning>();
    std::string stored(reinterpret_cast<const char*>(&beginning), sizeof beginning);
    stored.resize(length);
    printer->StoreValue(TEXT("WaterMarkList"), stored);
}

void Report(tests::DocumentPage* page, WORD reason, Input* input) {
    for (DWORD place = 0; place < oemui::kDocumentItemCount; ++place)
        page->Own(static_cast<oemui::DocumentItem>(place)).Sel = input->Take<LONG>();
    page->Report(reason, &page->Own(oemui::DocumentItem{}));
    if (reason == CPSUICB_REASON_APPLYNOW) fuzz::Require(page->privateDevmode.PagesPerSheet <= 16);
}

constexpr WORD kUnknownReason = 77;
constexpr WORD kReasons[] = {CPSUICB_REASON_SETACTIVE, CPSUICB_REASON_SEL_CHANGED,
                             CPSUICB_REASON_APPLYNOW, kUnknownReason};

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
    testing::FLAGS_gtest_break_on_failure = true;
    fuzz::UseMachineInMemory();
    tests::LoadPlugin();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    static tests::TestPrinter printer(TEXT("Office"));
    const tests::PatientUser user;
    Input input(bytes, size);
    StoreList(&printer, &input);
    const auto held = platform::LiveObjects();
    {
        tests::DocumentPage page(printer.Name());
        Fill(&page, input);
        page.Build();
        fuzz::Require(page.Params().cOEMOptItems == oemui::kDocumentItemCount);
        fuzz::Require(oemui::IsValidScaling(page.privateDevmode.Scaling));
        static_cast<void>(oemui::CaptureEditorPageSetup(page.Params()));
        Input selections(bytes, size);
        for (const WORD reason : kReasons) Report(&page, reason, &selections);
    }
    fuzz::Require(platform::LiveObjects() == held);
    return 0;
}
