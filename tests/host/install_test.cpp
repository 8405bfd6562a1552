// Installing, listing and removing, as the spooler and a person see it.
#include <windows.h>

#include <chrono>
#include <fstream>
#include <iterator>
#include <tuple>

#include "common/unique_handle.h"
#include "host/spooler/printers.h"
#include "platform/base/machine.h"
#include "platform/spooler/ports.h"
#include "platform/text/text_encoding.h"
#include "tests/host/host_fixture.h"

namespace host {
namespace {

namespace fs = std::filesystem;

using Installation = HostTest;

TEST_F(Installation, ListsThePrinterWithWhatTheEventWrote) {
    Install("\\\\server\\Office", "T", "USB001", "on");
    const nlohmann::json printers = Do({"list", "--json"}).Json();
    ASSERT_EQ(printers.size(), 1u);
    EXPECT_EQ(printers[0]["name"], "Office");
    EXPECT_EQ(printers[0]["model"], "T");
    EXPECT_EQ(printers[0]["port"], "USB001");
    EXPECT_EQ(printers[0]["bidi"], true);
    EXPECT_EQ(printers[0]["printProcessor"], "QVRT__PP");
    EXPECT_EQ(printers[0]["driverData"]["EAIDCDisable"], 1);
    EXPECT_THAT(Do({"list"}).out, HasSubstr("print processor  QVRT__PP"));
    EXPECT_EQ(Do({"profile", "Office"}).out, "OEMPROFILE.icm (flags 2)\n");
}

TEST_F(Installation, KeepsTheUninstallerFromAPendingDeletion) {
    std::u16string pending(u"C:\\Windows\\System32\\QVR_UNINST.EXE\0\0\0", 37);
    const auto size = static_cast<DWORD>(pending.size() * sizeof(WCHAR));
    HKEY key = nullptr;
    const LPCWSTR path = u"System\\CurrentControlSet\\Control\\Session Manager";
    const LPCWSTR name = u"PendingFileRenameOperations";
    ::RegCreateKeyExW(HKEY_LOCAL_MACHINE, path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                      nullptr);
    ::RegSetValueExW(key, name, 0, REG_MULTI_SZ, reinterpret_cast<const BYTE*>(pending.data()),
                     size);
    Install("Office", "T");
    DWORD type = 0;
    DWORD storedSize = size;
    std::u16string stored(pending.size(), u'#');
    ::RegQueryValueExW(key, name, nullptr, &type, reinterpret_cast<BYTE*>(stored.data()),
                       &storedSize);
    ::RegCloseKey(key);
    pending.replace(pending.find(u".EXE") + 1, 1, u"_");
    EXPECT_EQ(stored, pending);
    EXPECT_EQ(storedSize, size);
    EXPECT_EQ(type, DWORD{REG_MULTI_SZ});
}

TEST_F(Installation, RegistersPortsOfEveryKind) {
    const struct {
        std::vector<std::string> options;
        const char16_t* port;
        std::optional<ULONG> address;  // network byte order
    } rows[] = {
        {{"--port", "IP_127.0.0.5"}, u"IP_127.0.0.5", 0x0500007F},
        {{"--port", "Desk", "--address", "127.0.0.6"}, u"Desk", 0x0600007F},
        {{"--port", "127.0.0.7:queue"}, u"127.0.0.7:queue", 0x0700007F},
        {{"--port", "Line", "--port-kind", "lpr", "--address", "127.0.0.8"}, u"Line", 0x0800007F},
        {{"--port", "REGAL_127.0.0.9"}, u"REGAL_127.0.0.9", 0x0900007F},
        {{"--port", "Named", "--address", "localhost"}, u"Named", 0x0100007F},
        {{"--port", "\\\\127.0.0.9\\SMB_PRI1"}, u"\\\\127.0.0.9\\SMB_PRI1", std::nullopt},
        {{"--port", "http://127.0.0.9:631/ipp"}, u"http://127.0.0.9:631/ipp", std::nullopt},
        {{"--port", "LPT1:"}, u"LPT1:", std::nullopt},
    };
    for (const auto& row : rows) {
        std::vector<std::string> command = {"install", platform::Utf8(row.port), "--model", "V"};
        // The port's name is no name for a printer when it has backslashes or commas in it.
        command[1] = "Printer " + std::to_string(&row - rows);
        command.insert(command.end(), row.options.begin(), row.options.end());
        Do(command);
        EXPECT_EQ(platform::spooler::FindPortAddress(row.port), row.address) << row.options[1];
    }
    EXPECT_EQ(Do({"list", "--json"}).Json().size(), std::size(rows));
}

TEST_F(Installation, CompletesWhatAKilledOneLeft) {
    Install("Office", "T");
    {
        // As it was before its devmode was stored, with a file half copied.
        const oemui::UniquePrinter printer = OpenNamedPrinter("Office", PRINTER_ALL_ACCESS);
        ASSERT_TRUE(::DeletePrinter(printer.Get()));
        PRINTER_INFO_2W record{};
        std::u16string texts[] = {u"Office", u"USB001", u"pigmentra 7140RZ", u"winprint"};
        record.pPrinterName = texts[0].data();
        record.pPortName = texts[1].data();
        record.pDriverName = texts[2].data();
        record.pPrintProcessor = texts[3].data();
        const oemui::UniquePrinter half(
            ::AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&record)));
        ASSERT_TRUE(half);
    }
    const fs::path left = WriteFile(platform::DriverFolder() / "QVRU__UI.DLL.1.new", "half");
    EXPECT_EQ(Run({"install", "Office", "--model", "T", "--port", "LPT1:"}).code, 1);
    Install("Office", "T");
    EXPECT_EQ(Do({"list", "--json"}).Json()[0]["driverData"]["EAIDCDisable"], 1);
    EXPECT_FALSE(fs::exists(left));
    EXPECT_EQ(Run({"install", "Office", "--model", "T", "--port", "USB001"}).code, 1);
    // An uninstallation that was killed after the uninstaller had done its work.
    fs::remove(platform::DriverFolder() / "QVRT__UI.DLL");
    Do({"uninstall", "--model", "T"});
}

TEST_F(Installation, KeepsWhatIsInstalledBehindAnUninstaller) {
    for (int round = 0; round < 5; ++round) {
        Install("Office", "T");
        Do({"uninstall", "--model", "T"});
    }
    Install("Office", "T");
    const auto started = [this] {
        const std::string log = ReadFile("machine.log");
        std::size_t ended = 0;
        for (const char* end : {"\ndone\n", "its files stay\n"}) {
            for (std::size_t at = 0; (at = log.find(end, at)) != log.npos; ++at) ++ended;
        }
        return ended;
    };
    for (int wait = 0; wait < 200 && started() < 5; ++wait) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    EXPECT_EQ(started(), 5u);
    EXPECT_TRUE(fs::exists(platform::DriverFolder() / "QVRT__UI.DLL"));
    EXPECT_TRUE(fs::exists(Folder() / "Windows/QVRT_UNI.INI"));
    Do({"document", "Office"});
}

TEST_F(Installation, NothingLeavesTheMachineOverLinks) {
    const fs::path outside = Folder().parent_path() / (Folder().filename().native() + "-outside");
    fs::create_directories(outside);
    std::ofstream(outside / "file") << "kept";
    fs::create_symlink(outside / "file", Folder() / "machine.log");
    Install("Office", "T");
    const fs::path module = platform::DriverFolder() / "QVRT__UI.DLL";
    fs::rename(module, outside / "QVRT__UI.DLL");
    fs::create_symlink(outside / "QVRT__UI.DLL", module);
    EXPECT_THAT(Run({"document", "Office"}).err, HasSubstr("outside the machine"));
    Install("Second", "T");
    Do({"uninstall", "--model", "T"});
    fs::create_directories(platform::MachineFolder() / "Windows/System32/spool/prtprocs");
    fs::remove_all(platform::MachineFolder() / "Windows/System32/spool/prtprocs");
    fs::create_symlink(outside, platform::MachineFolder() / "Windows/System32/spool/prtprocs");
    EXPECT_THAT(Run({"install", "Third", "--model", "U", "--port", "P"}).err,
                HasSubstr("is a link elsewhere"));
    EXPECT_FALSE(fs::exists(outside / "x64"));
    std::string kept;
    std::ifstream(outside / "file") >> kept;
    EXPECT_EQ(kept, "kept");
    fs::remove_all(outside);
}

TEST_F(Installation, ListsTheOthersWhenOneNameIsDamaged) {
    Install("Office", "T");
    Install("Studio", "U");
    HKEY key = nullptr;
    ::RegOpenKeyW(HKEY_LOCAL_MACHINE,
                  u"System\\CurrentControlSet\\Control\\Print\\Printers\\Office", &key);
    const char16_t damaged[] = u"\x1B[2J";
    for (const char16_t* value : {u"Name", u"Port"}) {
        ::RegSetValueExW(key, value, 0, REG_SZ, reinterpret_cast<const BYTE*>(damaged),
                         sizeof damaged);
    }
    ::RegCloseKey(key);
    const std::string list = Do({"list"}).out;
    EXPECT_THAT(list, HasSubstr("Office\n"));
    EXPECT_THAT(list, HasSubstr("\\x1B[2J\n"));
    EXPECT_THAT(list, HasSubstr("Studio\n"));
}

TEST_F(Installation, FormsAreListedAsTheyAreAdded) {
    Install("Office", "T");
    Do({"forms", "Office", "--add", "Banner=210x900"});
    Do({"forms", "Office", "--add", "Ticket=54.5x86"});
    const std::string forms = Do({"forms", "Office"}).out;
    EXPECT_THAT(forms, HasSubstr("A4=210.0x297.0\n"));
    EXPECT_THAT(forms, HasSubstr("Banner=210.0x900.0 (added)\n"));
    EXPECT_THAT(forms, HasSubstr("Ticket=54.5x86.0 (added)\n"));
    Do({"forms", "Office", "--remove", "banner"});
    EXPECT_EQ(Do({"forms", "Office"}).out.find("Banner"), std::string::npos);
}

TEST_F(Installation, RemovesPrinterAndDriver) {
    Install("Office", "T");
    Install("Second", "T");
    Install("Studio", "U");
    Do({"remove", "Office"});
    EXPECT_EQ(Do({"list", "--json"}).Json().size(), 2u);
    const CommandResult result = Do({"uninstall", "--model", "t"});
    EXPECT_EQ(result.out, "removed Second\nuninstalled the driver of model T\n");
    const nlohmann::json left = Do({"list", "--json"}).Json();
    ASSERT_EQ(left.size(), 1u);
    EXPECT_EQ(left[0]["name"], "Studio");
    // The uninstaller is a process of its own.
    const fs::path module = Folder() / "Windows/System32/spool/drivers/x64/3/QVRT__UI.DLL";
    for (int wait = 0; wait < 100 && fs::exists(module); ++wait) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    EXPECT_FALSE(fs::exists(module));
    EXPECT_TRUE(fs::exists(module.parent_path() / "QVRU__UI.DLL"));
    const std::string log = ReadFile("machine.log");
    EXPECT_EQ(log.find("QVR_UNINST.EXE QVRT_UNI.INI \n"), 0u) << log;
    EXPECT_EQ(log.rfind("QVR_UNINST.EXE QVRT_UNI.INI \n"), 0u) << log;
    EXPECT_EQ(Run({"uninstall", "--model", "T"}).code, 1);
}

TEST_F(Installation, DamagedStoreIsToldAndLeftAlone) {
    Install("Office", "T");
    platform::UseMachine(Folder() / "another");  // the store is closed
    const std::string damage = "this is no store" + std::string(8192, 'x');
    WriteFile("registry.sqlite", damage);
    for (const char* command : {"list", "document", "printer"}) {
        const CommandResult result = std::string(command) == "list"
                                         ? Run({command})
                                         : Run({command, "Office", "-o", "Copies=2", "--apply"});
        EXPECT_EQ(result.code, 1) << command;
        EXPECT_THAT(result.err, HasSubstr("damaged"));
    }
    EXPECT_EQ(ReadFile("registry.sqlite"), damage);
}

TEST_F(Installation, DemoMakesAPrinterOfEachModelOnce) {
    for (int run = 0; run < 2; ++run) {
        const std::string pages = Do({"demo", (Folder() / "demo").native()}).out;
        for (const char* model : {"model U", "model T", "model V"}) {
            EXPECT_THAT(pages, HasSubstr(model));
        }
    }
}

}  // namespace
}  // namespace host
