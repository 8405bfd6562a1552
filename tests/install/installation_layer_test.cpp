// What needs the layer's machine: its print processors, its programs and its failure points.
#include <winspool.h>

#include <platform/base/machine.h>
#include <platform/faults/failure_points.h>
#include <platform/faults/live_objects.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <thread>

#include "common/oem_driver_interface.h"
#include "common/unique_handle.h"
#include "install/install_events.h"
#include "install/pending_deletions.h"
#include "install/print_processor.h"
#include "tests/support/plugin_fixture.h"
#include "tests/support/test_printer.h"

using namespace oemui;
using namespace tests;
using platform::FailurePlan;

namespace {

const Text kSessionManager = TEXT("System\\CurrentControlSet\\Control\\Session Manager");
const Text kProcessors = TEXT(
    "System\\CurrentControlSet\\Control\\Print\\Environments\\Windows x64\\Print "
    "Processors\\");
constexpr LPCWSTR kPending = TEXT("PendingFileRenameOperations");
constexpr std::string_view kSettings =
    "[EAIDCData]\nEAIDCDisable=5\n[OEMUninstall]\nExecutable=UNINST.EXE\n";

std::string Bytes(const Text& text) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(WCHAR)};
}

class Installation : public PluginTest {
protected:
    Installation() {
        WriteFile("Windows/System32/spool/prtprocs/x64/QVRT__PP.DLL", "a print processor");
        WriteFile("Windows/QVRT_UNI.INI", kSettings);
        StorePending();
    }

    static void StorePending() {
        const Text value(TEXT("C:\\UNINST.EXE\0\0\0"), 16);
        WriteRegistryValue(kSessionManager, kPending, REG_MULTI_SZ, value.data(), 32);
    }
    static std::string AssignedProcessor() {
        const std::string bytes =
            ReadRegistryValue(TEXT("System\\CurrentControlSet\\Control\\Print\\Printers\\Office"),
                              TEXT("Print Processor"));
        return Narrow(reinterpret_cast<const WCHAR*>(bytes.c_str()));
    }
    static void Install() {
        Text name = TEXT("Office");
        HandlePrinterEvent(name.data(), PRINTER_EVENT_INITIALIZE);
    }
    std::string Log() const { return ReadFile("machine.log"); }

    void WaitForLog(std::string_view end) const {
        for (int attempt = 0; attempt < 500 && !Log().ends_with(end); ++attempt) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
    }

    TestPrinter printer_{TEXT("Office")};
};

TEST_F(Installation, ThePrintProcessorIsInstalledOnceAndAssigned) {
    {
        const FailurePlan plan("AddPrintProcessorW", 1, ERROR_ACCESS_DENIED);
        Install();
        EXPECT_EQ(AssignedProcessor(), "winprint");
    }
    for (int times = 0; times < 2; ++times) {
        const FailurePlan plan;
        Install();
        const auto passed = plan.Passed();
        EXPECT_EQ(std::ranges::count(passed, "AddPrintProcessorW"), times == 0 ? 1 : 0);
        EXPECT_EQ(std::ranges::count(passed, "SetPrinterW"), times == 0 ? 1 : 0);
        EXPECT_TRUE(IsPrintProcessorInstalled(TEXT("qvrt__pp")));
        EXPECT_EQ(AssignedProcessor(), "QVRT__PP");
    }
}

TEST_F(Installation, WithoutANameOnlyTheStepsThatNeedNoneAreDone) {
    HandlePrinterEvent(nullptr, PRINTER_EVENT_INITIALIZE);
    EXPECT_EQ(ReadRegistryValue(kSessionManager, kPending)[20], '_');
    EXPECT_TRUE(IsPrintProcessorInstalled(TEXT("QVRT__PP")));
    EXPECT_EQ(AssignedProcessor(), "winprint");
}

TEST_F(Installation, AnEntryThatAnotherProgramAddsMeanwhileIsKept) {
    const std::string path = Bytes(TEXT("C:\\UNINST.EXE"));
    const std::string end(4, '\0');
    const std::string added = path + end + Bytes(TEXT("C:\\b")) + end + end;
    {
        const FailurePlan another("RegQueryValueExW", 3, [&added] {
            WriteRegistryValue(kSessionManager, kPending, REG_MULTI_SZ, added.data(),
                               static_cast<DWORD>(added.size()));
        });
        KeepFromPendingDeletion(TEXT("UNINST.EXE"));
    }
    std::string expected = added;
    expected[20] = '_';
    EXPECT_EQ(ReadRegistryValue(kSessionManager, kPending), expected);
}

TEST_F(Installation, WhateverFailsCostsOneStepAndLeavesNothingOpen) {
    std::vector<std::string> points(1);
    for (std::size_t failing = 0; failing <= points.size(); ++failing) {
        const std::string point = failing == 0 ? "" : points[failing - 1];
        const TestPrinter fresh(TEXT("Office"));
        RemoveRegistryKey(kProcessors + TEXT("QVRT__PP"));
        StorePending();
        const auto before = platform::LiveObjects();
        {
            // The first time around nothing fails.
            const FailurePlan plan(failing == 0 ? -1 : static_cast<int>(failing),
                                   ERROR_ACCESS_DENIED);
            Install();
            if (failing == 0) points = plan.Passed();
        }
        EXPECT_EQ(platform::LiveObjects(), before) << point;
        const int done = (ReadRegistryValue(kSessionManager, kPending)[20] == '_' ? 1 : 0) +
                         (fresh.StoredValue(TEXT("EAIDCDisable")).empty() ? 0 : 1) +
                         (AssignedProcessor() == "QVRT__PP" ? 1 : 0);
        EXPECT_GE(done, failing == 0 ? 3 : 2) << point;
    }
    EXPECT_GT(points.size(), 12u);
}

TEST_F(Installation, RemovingTheDriverStartsTheUninstallerWithTheSettingsFile) {
    HandleDriverEvent(DRIVER_EVENT_DELETE);
    HandleDriverEvent(DRIVER_EVENT_INITIALIZE);
    EXPECT_EQ(Log(), "");
    std::filesystem::copy_file(UNINSTALLER, Folder() / "Windows/System32/UNINST.EXE");
    WriteFile(platform::DriverFolder() / "QVRT__UI.DLL", "the module");
    WriteFile(platform::DriverFolder() / "QVRU__UI.DLL", "another model's");
    HandleDriverEvent(DRIVER_EVENT_DELETE);
    WaitForLog("done\n");
    EXPECT_EQ(Log().find("UNINST.EXE QVRT_UNI.INI \n"), 0u) << Log();
    EXPECT_EQ(Log().rfind("QVRT_UNI.INI \n"), 11u) << Log();
    EXPECT_FALSE(std::filesystem::exists(platform::DriverFolder() / "QVRT__UI.DLL"));
    EXPECT_FALSE(
        std::filesystem::exists(Folder() / "Windows/System32/spool/prtprocs/x64/QVRT__PP.DLL"));
    EXPECT_TRUE(std::filesystem::exists(platform::DriverFolder() / "QVRU__UI.DLL"));
}

TEST_F(Installation, AProgramWithBlanksIsStartedAsTheSettingsNameIt) {
    const std::filesystem::path file = WriteFile("Sub Dir/A B.EXE", "#!/bin/sh\necho started\n");
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
    WriteFile("Windows/QVRT_UNI.INI", "[OEMUninstall]\nExecutable=C:\\Sub Dir\\A B.EXE\n");
    HandleDriverEvent(DRIVER_EVENT_DELETE);
    WaitForLog("started\n");
    EXPECT_EQ(Log(), "C:\\Sub Dir\\A B.EXE QVRT_UNI.INI \nstarted\n");
}

}  // namespace
