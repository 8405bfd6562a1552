// Sheets in an application: two at once in every order, and many one after the other.
#include <algorithm>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "tests/guest/import_counts.h"
#include "tests/guest/sheet.h"
#include "tests/support/machine_fixture.h"
#include "tests/support/test_printer.h"
#include "watermark/watermark_list.h"

namespace {

namespace fs = std::filesystem;
using tests::Sheet;
using tests::Text;

constexpr LPCWSTR kDriver = L"C:\\Windows\\System32\\spool\\drivers\\x64\\3\\QVRU__UI.DLL";
constexpr const char* kDefaultName = "Urgent";  // of the last watermark of the default file

/// The name of the last watermark that a printer keeps.
std::string StoredName(const tests::TestPrinter& printer) {
    const std::string bytes = printer.StoredValue(TEXT("WaterMarkList"));
    oemui::WatermarkList list{};
    if (bytes.size() != sizeof list) return "no list";
    std::memcpy(&list, bytes.data(), sizeof list);
    const INT32 last = list.Count - 1;
    return oemui::IsListed(list, last) ? tests::Narrow(oemui::TextIn(list.Entries[last].Name))
                                       : "no entry";
}

/// Blocks of all heaps of the process that are in use.
int BusyBlocks() {
    HANDLE heaps[64] = {};
    const DWORD count = std::min<DWORD>(::GetProcessHeaps(64, heaps), 64);
    int busy = 0;
    for (DWORD i = 0; i < count; ++i) {
        ::HeapLock(heaps[i]);
        for (PROCESS_HEAP_ENTRY entry = {}; ::HeapWalk(heaps[i], &entry);) {
            if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) ++busy;
        }
        ::HeapUnlock(heaps[i]);
    }
    return busy;
}

class Sheets : public tests::MachineTest {
protected:
    Sheets() {
        const fs::path package = fs::path("Z:" PACKAGE_FOLDER) / "U";
        const fs::path windows = Folder() / "Windows";
        const fs::path driver = windows / "System32/spool/drivers/x64/3";
        fs::create_directories(driver);
        Copy(package / "QVRU__WM.INI", windows / "QVRU__WM.INI");
        Copy(package / "QVRU_UNI.INI", windows / "QVRU_UNI.INI");
        Copy(package / "QVRU__UI.DLL", driver / "QVRU__UI.DLL");
        Copy("Z:" OWN_STRINGS, driver / "UNIRES.DLL");
        module_ = std::make_unique<tests::LoadedModule>(kDriver);
        plugin_ = module_->CreatePlugin();
    }
    ~Sheets() override { plugin_->Release(); }

    static void Copy(const fs::path& from, const fs::path& to) {
        fs::copy_file(from, to, fs::copy_options::overwrite_existing);
    }

    /// Two sheets, named by the letters of the order: the n-th place of a letter is that sheet's
    /// n-th step of opening, editing, OK and closing. What each printer is to keep is the name
    /// given in its own editor, unless another one was opened since.
    void Go(const std::string& order) {
        const tests::TestPrinter printers[] = {tests::TestPrinter(TEXT("First Printer")),
                                               tests::TestPrinter(TEXT("Second Printer"))};
        Sheet sheets[] = {{*module_, *plugin_, printers[0].Name()},
                          {*module_, *plugin_, printers[1].Name()}};
        std::string expected[] = {kDefaultName, kDefaultName};
        int steps[2] = {};
        int lastEdited = 0;
        for (const char letter : order) {
            const int place = letter - 'A';
            const std::string name = std::string("Of ") + letter;
            switch (steps[place]++) {
                case 0:
                    sheets[place].Open();
                    break;
                case 1:
                    sheets[place].Edit();
                    sheets[place].Rename(tests::Wide(name));
                    lastEdited = place;
                    break;
                case 2:
                    sheets[place].Confirm();
                    if (lastEdited == place) expected[place] = name;
                    break;
                default:
                    sheets[place].Close();
            }
        }
        for (const int place : {0, 1}) EXPECT_EQ(StoredName(printers[place]), expected[place]);
    }

    void LiveOnce(Sheet& sheet, Text& printerName, bool withEditor) {
        plugin_->PrinterEvent(printerName.data(), PRINTER_EVENT_INITIALIZE, 0, 0);
        sheet.Open();
        if (withEditor) {
            sheet.Edit();
            sheet.Confirm();
        }
        sheet.Close();
        plugin_->DriverEvent(DRIVER_EVENT_DELETE, 3, nullptr, 0);
    }
    /// Rounds from one editor to the next. An editor takes the platform here some 40 ms.
    static int RoundsPerEditor() { return std::getenv("GUEST_PATIENT") == nullptr ? 5 : 1; }

    /// All that a printer's life has for the plug-in, so many times.
    void Live(Sheet& sheet, Text& printerName, int rounds) {
        for (int i = 0; i < rounds; ++i) LiveOnce(sheet, printerName, i % RoundsPerEditor() == 0);
    }

    std::unique_ptr<tests::LoadedModule> module_;
    IPrintOemUI* plugin_ = nullptr;
};

TEST_F(Sheets, TwoInEveryOrderEachStoreUnderTheirOwnPrinter) {
    int orders = 0;
    std::string order = "AAAABBBB";
    do {
        SCOPED_TRACE(order);
        Go(order);
        ++orders;
        std::next_permutation(order.begin(), order.end());
    } while (order.front() == 'A');  // the other half is the same by other names
    EXPECT_EQ(orders, 35);
}

TEST_F(Sheets, FiveHundredLeaveNothingAndTheModuleGoesAndComesBack) {
    constexpr int kWarmUp = 20;
    constexpr int kRounds = 500;
    constexpr int kMostOfThePlatforms = 50;  // blocks and handles that it keeps for itself
    const tests::TestPrinter printer(TEXT("Office"));
    Text name = printer.Name();
    {
        const tests::ImportCounts counts(module_->Handle());
        Sheet sheet(*module_, *plugin_, name);
        Live(sheet, name, kWarmUp);
        const int blocks = BusyBlocks();
        DWORD handlesBefore = 0;
        ::GetProcessHandleCount(::GetCurrentProcess(), &handlesBefore);
        Live(sheet, name, kRounds);
        DWORD handles = 0;
        ::GetProcessHandleCount(::GetCurrentProcess(), &handles);
        EXPECT_LE(BusyBlocks(), blocks + kMostOfThePlatforms);
        EXPECT_LE(handles, handlesBefore + kMostOfThePlatforms);
        EXPECT_EQ(counts.Open(), (std::map<std::string, int>{}));
        for (const auto& [kind, opened] : counts.Opened()) {
            EXPECT_GE(opened, kRounds / RoundsPerEditor()) << kind;
        }
    }
    EXPECT_EQ(module_->CanUnload(), S_FALSE);
    plugin_->Release();
    EXPECT_EQ(module_->CanUnload(), S_OK);
    module_.reset();
    EXPECT_EQ(::GetModuleHandleW(L"QVRU__UI.DLL"), nullptr);
    module_ = std::make_unique<tests::LoadedModule>(kDriver);
    plugin_ = module_->CreatePlugin();
    ASSERT_NE(plugin_, nullptr);
    Sheet sheet(*module_, *plugin_, name);
    Live(sheet, name, 1);
}

}  // namespace
