#include "install/install_events.h"

#include <string>

#include "common/oem_driver_interface.h"
#include "install/color_profile.h"
#include "install/pending_deletions.h"
#include "install/uninstaller.h"
#include "tests/support/plugin_fixture.h"
#include "tests/support/test_printer.h"

using namespace oemui;
using tests::Text;

namespace {

const Text kSessionManager = TEXT("System\\CurrentControlSet\\Control\\Session Manager");
constexpr LPCWSTR kPending = TEXT("PendingFileRenameOperations");

/// Texts with '|' for the terminators.
Text Pairs(std::string_view text) {
    Text value = tests::Wide(text);
    std::replace(value.begin(), value.end(), TEXT('|'), WCHAR{0});
    return value;
}

TEST(PendingOperations, OnlyDeletionsOfTheUninstallerAreSpoilt) {
    const struct {
        const char* before;
        const char* after;
    } rows[] = {
        {"\\??\\C:\\Temp\\a.tmp||C:\\W\\UNINST.EXE|||",
         "\\??\\C:\\Temp\\a.tmp||C:\\W\\UNINST._XE|||"},
        {"C:\\W\\uninst.exe||", "C:\\W\\uninst._xe||"},
        {"C:UNINST.EXE||c:/UNINST.EXE|||", "C:UNINST._XE||c:/UNINST._XE|||"},
        {"C:\\UNINST.EXE|C:\\b||", nullptr},  // renamed, not deleted
        {"a|C:\\UNINST.EXE|b|||", nullptr},   // the second text of a pair
        {"a|b|C:\\UNINST.EXE|||", "a|b|C:\\UNINST._XE|||"},
        {"||C:\\UNINST.EXE|||", nullptr},  // behind the end
        {"C:\\UNINST.EXE|", nullptr},      // cut before the second text
        {"C:\\UNINST.EXE.BAK||C:\\XUNINST.EXE|||", nullptr},
        {"C:\\UNINST.EXE\\a|||", nullptr},
        {"C:\\a:UNINST.EXE|||", nullptr},
        {"", nullptr},
    };
    for (const auto& row : rows) {
        // A copy of its own size: reading past the value's end is seen.
        Text value = Pairs(row.before);
        const std::vector<WCHAR> before(value.begin(), value.end());
        std::vector<WCHAR> operations = before;
        EXPECT_EQ(SpoilPendingDeletions(operations, TEXT("UNINST.EXE")), row.after != nullptr)
            << row.before;
        value = Pairs(row.after == nullptr ? row.before : row.after);
        EXPECT_EQ(Text(operations.begin(), operations.end()), value) << row.before;
    }
    Text empty = Pairs("C:\\W\\||ab||");
    EXPECT_FALSE(SpoilPendingDeletions(empty, {}));
    EXPECT_FALSE(SpoilPendingDeletions(empty, TEXT("W\\")));
}

class PrinterEvent : public tests::PluginTest {
protected:
    ~PrinterEvent() override { StorePending(REG_NONE, ""); }

    void StorePending(DWORD type, const std::string& bytes) {
        tests::WriteRegistryValue(kSessionManager, kPending, type, bytes.data(),
                                  static_cast<DWORD>(bytes.size()));
    }
    std::string Install(Text name) {
        HandlePrinterEvent(name.data(), PRINTER_EVENT_INITIALIZE);
        return tests::Narrow(name.c_str());
    }
};

std::string Bytes(const Text& text) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(WCHAR)};
}

TEST_F(PrinterEvent, TheSettingReachesTheDriverDataOfThePrinterByItsShortName) {
    const struct {
        const char* name;
        const char* ini;
        DWORD number;
    } rows[] = {
        {"\\\\server\\Office Printer,LPT1:", "[EAIDCData]\r\nEAIDCDisable=7\r\n", 7},
        {"Office Printer", "[EAIDCData]\r\nEAIDCDisable=-1\r\n", 0xFFFFFFFF},
        {"Office Printer,", "[Other]\r\n", 1},
    };
    for (const auto& row : rows) {
        const tests::TestPrinter printer(TEXT("Office Printer"));
        WriteFile("Windows/QVRT_UNI.INI", row.ini);
        for (int times = 0; times < 2; ++times) {
            EXPECT_EQ(Install(tests::Wide(row.name)), "Office Printer");
            EXPECT_EQ(printer.StoredValue(TEXT("EAIDCDisable")),
                      std::string(reinterpret_cast<const char*>(&row.number), 4));
        }
    }
}

TEST_F(PrinterEvent, OddNamesAndOtherEventsWriteNothing) {
    const tests::TestPrinter printer(TEXT("Office"));
    for (const char* name : {"", ",", "\\\\server\\", "\\\\server\\,LPT1:"}) {
        EXPECT_EQ(Install(tests::Wide(name)), "");
    }
    Install(Text(1000, TEXT('x')));
    Text name = TEXT("\\\\server\\Office");
    for (const INT event : {1, 2, 4, -3}) {
        HandlePrinterEvent(name.data(), event);
    }
    HandlePrinterEvent(nullptr, PRINTER_EVENT_INITIALIZE);
    EXPECT_EQ(name, TEXT("\\\\server\\Office"));
    EXPECT_EQ(printer.StoredValue(TEXT("EAIDCDisable")), "");
    EXPECT_FALSE(SetPrinterDriverDataValue(TEXT(""), 1));
    // A bare name may lie where nothing can be written.
    static constexpr WCHAR kBare[] = TEXT("Nobody");
    HandlePrinterEvent(const_cast<PWSTR>(kBare), PRINTER_EVENT_INITIALIZE);
}

TEST_F(PrinterEvent, APendingDeletionOfTheUninstallerIsSpoiltInPlace) {
    WriteFile("Windows/QVRT_UNI.INI", "[OEMUninstall]\r\nExecutable=UNINST.EXE\r\n");
    Text large;
    for (int i = 0; i < 10000; ++i) large += Pairs("C:\\Temp\\old.tmp|!C:\\Temp\\new-name.tmp|");
    large += Pairs("C:\\Windows\\UNINST.EXE|||");
    Text spoilt = large;
    spoilt[spoilt.size() - 6] = TEXT('_');
    for (const DWORD type : {DWORD{REG_MULTI_SZ}, DWORD{REG_BINARY}}) {
        // Half a character at the end is kept, too.
        StorePending(type, Bytes(large) + "x");
        for (int times = 0; times < 2; ++times) {
            Install(TEXT("Nobody"));
            DWORD storedType = 0;
            EXPECT_EQ(tests::ReadRegistryValue(kSessionManager, kPending, &storedType),
                      Bytes(spoilt) + "x");
            EXPECT_EQ(storedType, type);
        }
    }
    for (const char* setting : {"C:\\Windows\\UNINST.EXE", "", "Windows"}) {
        const std::string ini = std::string("[OEMUninstall]\r\nExecutable=") + setting + "\r\n";
        WriteFile("Windows/QVRT_UNI.INI", ini);
        StorePending(REG_MULTI_SZ, Bytes(large));
        Install(TEXT("Nobody"));
        EXPECT_EQ(tests::ReadRegistryValue(kSessionManager, kPending), Bytes(large)) << setting;
    }
}

TEST(UninstallCommand, HoldsAProgramOfUpTo249Characters) {
    const auto command = [](const Text& program) {
        return Text(BuildUninstallCommand(program, TEXT("QVRT_UNI.INI")).c_str());
    };
    EXPECT_EQ(command(TEXT("UNINST.EXE")), TEXT("UNINST.EXE QVRT_UNI.INI "));
    const Text longest(249, TEXT('x'));
    EXPECT_EQ(command(longest), longest + TEXT(" QVRT_UNI.INI "));
    EXPECT_EQ(command(longest + TEXT("x")), Text());
    EXPECT_EQ(command({}), Text());
}

TEST(ColorProfile, IsNamedIntoABufferOfAtLeastThirtyTwoBytes) {
    const struct {
        ULONG mode;
        ULONG size;
        HRESULT result;
        ULONG sizeAfter;
        DWORD error;
    } rows[] = {
        {QCP_DEVICEPROFILE, 32, S_OK, 32, 1},
        {QCP_DEVICEPROFILE, 100, S_OK, 32, 1},
        {QCP_DEVICEPROFILE, 31, E_FAIL, 32, ERROR_INSUFFICIENT_BUFFER},
        {QCP_SOURCEPROFILE, 100, E_FAIL, 100, 1},
    };
    const std::string name = Bytes(Text(TEXT("OEMPROFILE.icm")) + WCHAR{0});
    for (const auto& row : rows) {
        std::string profile(100, '#');
        ULONG size = row.size;
        DWORD flags = 9;
        ::SetLastError(1);
        EXPECT_EQ(QueryColorProfile(row.mode, profile.data(), &size, &flags), row.result);
        EXPECT_EQ(::GetLastError(), row.error);
        EXPECT_EQ(size, row.sizeAfter);
        EXPECT_EQ(flags, row.result == S_OK ? 2u : 9u);
        EXPECT_EQ(profile.substr(0, 31), row.result == S_OK ? name + "#" : std::string(31, '#'));
    }
    ULONG size = 100;
    EXPECT_EQ(QueryColorProfile(QCP_DEVICEPROFILE, nullptr, &size, nullptr), E_FAIL);
    EXPECT_EQ(size, 32u);
}

}  // namespace
