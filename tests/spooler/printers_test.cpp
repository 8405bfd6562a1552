#include <array>
#include <cstring>
#include <set>

#include "platform/faults/failure_points.h"
#include "platform/spooler/printer_page.h"
#include "tests/spooler/spooler_fixture.h"

namespace {

namespace spooler = platform::spooler;
using namespace std::string_literals;
using tests::SpoolerTest;

constexpr char16_t kOfficeKey[] = u"System\\CurrentControlSet\\Control\\Print\\Printers\\Office";

class Printers : public SpoolerTest {};

TEST_F(Printers, AreFoundByNameInAnyCaseWithServerAndPorts) {
    Install(u"Office");
    for (const char16_t* name :
         {u"\\\\server\\Office", u"Office,LPT1:", u"\\\\server\\office,LPT1:,LPT2:"}) {
        const HANDLE printer = Open(name);
        ASSERT_NE(printer, nullptr);
        EXPECT_EQ(Text(Info(ReadPrinter(printer)).pPrinterName), "Office");
        EXPECT_TRUE(ClosePrinter(printer));
    }
    for (const auto& name : {u"Offic"s, u""s, u"\\\\server"s, u"\\\\server\\"s, u",LPT1:"s,
                             u"Office\\PrinterDriverData"s, std::u16string(300, u'x')})
        EXPECT_EQ(ErrorOf(Open(name)), ERROR_INVALID_PRINTER_NAME);
}

TEST_F(Printers, AreReadBackAsAddedWithTheirWholeDevmode) {
    struct {
        DEVMODEW shown = {};
        BYTE drivers[37] = {};
    } devmode;
    devmode.shown.dmSize = sizeof(DEVMODEW);
    devmode.shown.dmDriverExtra = sizeof devmode.drivers;
    std::memset(devmode.drivers, 0xA5, sizeof devmode.drivers);
    PRINTER_INFO_2W record = Record(u"Office", u"USB001,LPT1:");
    record.pComment = Keep(u"By the window");
    record.pDevMode = &devmode.shown;
    record.Attributes = PRINTER_ATTRIBUTE_ENABLE_BIDI;
    const HANDLE printer = Add(record);
    const auto buffer = ReadPrinter(printer);
    const PRINTER_INFO_2W& info = Info(buffer);
    EXPECT_EQ(Text(info.pPortName), "USB001,LPT1:");
    EXPECT_EQ(Text(info.pDriverName), "Laser");
    EXPECT_EQ(Text(info.pPrintProcessor), "winprint");
    EXPECT_EQ(Text(info.pComment), "By the window");
    EXPECT_EQ(Text(info.pShareName), "");
    EXPECT_EQ(info.pServerName, nullptr);
    EXPECT_EQ(info.Attributes, DWORD{PRINTER_ATTRIBUTE_ENABLE_BIDI | PRINTER_ATTRIBUTE_LOCAL});
    EXPECT_EQ(std::memcmp(info.pDevMode, &devmode, sizeof(DEVMODEW) + 37), 0);
    EXPECT_TRUE(ClosePrinter(printer));
}

TEST_F(Printers, AreChangedWholeAndOnlyByAnAdministrator) {
    Install(u"Office");
    const HANDLE user = Open(u"Office", PRINTER_ACCESS_USE);
    const HANDLE administrator = Open(u"Office", PRINTER_ACCESS_ADMINISTER | PRINTER_ACCESS_USE);
    const auto set = [](HANDLE printer, PRINTER_INFO_2W record) {
        return ErrorOf(SetPrinterW(printer, 2, reinterpret_cast<BYTE*>(&record), 0));
    };
    EXPECT_EQ(set(user, Record(u"Office", u"LPT2:")), ERROR_ACCESS_DENIED);
    EXPECT_EQ(set(administrator, Record(u"Office", u"LPT2:")), ERROR_SUCCESS);
    const struct {
        LPWSTR PRINTER_INFO_2W::*field;
        const char16_t* value;
        LSTATUS error;
    } refused[] = {
        {&PRINTER_INFO_2W::pDriverName, u"No Such", ERROR_UNKNOWN_PRINTER_DRIVER},
        {&PRINTER_INFO_2W::pPrintProcessor, u"No Such", ERROR_UNKNOWN_PRINTPROCESSOR},
        {&PRINTER_INFO_2W::pPortName, u"", ERROR_UNKNOWN_PORT},
        {&PRINTER_INFO_2W::pPrinterName, u"Other", ERROR_INVALID_PRINTER_NAME},
    };
    for (const auto& [field, value, error] : refused) {
        PRINTER_INFO_2W wrong = Record(u"Office", u"LPT3:");
        wrong.*field = Keep(value);
        EXPECT_EQ(set(administrator, wrong), error);
    }
    EXPECT_EQ(Text(Info(ReadPrinter(user)).pPortName), "LPT2:") << "refused, nothing changes";
    for (const HANDLE printer : {user, administrator}) EXPECT_TRUE(ClosePrinter(printer));
}

TEST_F(Printers, AreAddedOnceAndWithWhatTheyNeed) {
    Install(u"Office");
    EXPECT_EQ(ErrorOf(Add(Record(u"office"))), ERROR_PRINTER_ALREADY_EXISTS);
    for (const char16_t* name : {u"", u"a,b", u"a\\b"})
        EXPECT_EQ(ErrorOf(Add(Record(name))), ERROR_INVALID_PRINTER_NAME);
    PRINTER_INFO_2W record = Record(u"Second");
    record.pDriverName = Keep(u"No Such");
    EXPECT_EQ(ErrorOf(Add(record)), ERROR_UNKNOWN_PRINTER_DRIVER);
    Install(u"Annexe");
    DWORD count = 0;
    const auto buffer = ReadWhole([&count](BYTE* bytes, DWORD size, DWORD* needed) {
        return EnumPrintersW(PRINTER_ENUM_LOCAL, nullptr, 2, bytes, size, needed, &count);
    });
    ASSERT_EQ(count, 2u);
    EXPECT_EQ(Text((&Info(buffer))[0].pPrinterName), "Annexe");
    EXPECT_EQ(Text((&Info(buffer))[1].pPrinterName), "Office");
}

TEST_F(Printers, AreGoneWithTheirDataAndKeepNoHandleAlive) {
    Install(u"Office");
    const HANDLE printer = Open(u"Office");
    const HANDLE other = Open(u"Office");
    EXPECT_EQ(SetValue(printer, u"Kept", "value"), ERROR_SUCCESS);
    EXPECT_TRUE(DeletePrinter(printer));
    DWORD needed = 0;
    for (const HANDLE wrong : {other, HANDLE{HKEY_LOCAL_MACHINE}})
        EXPECT_EQ(ErrorOf(GetPrinterW(wrong, 2, nullptr, 0, &needed)), ERROR_INVALID_HANDLE);
    EXPECT_EQ(ErrorOf(EnumFormsW(other, 1, nullptr, 0, &needed, &needed)), ERROR_INVALID_HANDLE);
    EXPECT_EQ(SetValue(other, u"Kept", "back"), ERROR_INVALID_HANDLE);
    EXPECT_EQ(Value(other, u"Kept"), Failed(ERROR_INVALID_HANDLE));
    EXPECT_EQ(Open(u"Office"), nullptr);
    for (const HANDLE handle : {printer, other}) EXPECT_TRUE(ClosePrinter(handle));
    EXPECT_EQ(ErrorOf(ClosePrinter(printer)), ERROR_INVALID_HANDLE);
}

TEST_F(Printers, DataIsReplacedWholeAndLiesInTheRegistry) {
    Install(u"Office");
    const HANDLE printer = Open(u"Office");
    DWORD type = 0;
    EXPECT_EQ(Value(printer, u"List"), Failed(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(SetValue(printer, u"List", std::string(5000, 'x')), ERROR_SUCCESS);
    EXPECT_EQ(SetValue(printer, u"list", "a\0b"s), ERROR_SUCCESS);
    for (const std::size_t size : {0u, 2u})
        EXPECT_EQ(Value(printer, u"List", size), Failed(ERROR_MORE_DATA, 3));
    EXPECT_EQ(Value(printer, u"LIST", 3, &type), "a\0b"s);
    EXPECT_EQ(type, DWORD{REG_BINARY});
    HKEY key = nullptr;
    const std::u16string path = kOfficeKey + u"\\PrinterDriverData"s;
    ASSERT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_ALL_ACCESS, &key), 0);
    const BYTE number[4] = {1, 0, 0, 0};
    EXPECT_EQ(RegSetValueExW(key, u"LIST", 0, REG_DWORD, number, sizeof number), 0);
    EXPECT_EQ(RegCloseKey(key), 0);
    EXPECT_EQ(Value(printer, u"List", 100, &type), "\1\0\0\0"s);
    EXPECT_EQ(type, DWORD{REG_DWORD});
    EXPECT_TRUE(ClosePrinter(printer));
}

TEST_F(Printers, DataIsWrittenOnlyByAnAdministratorAndReadByEveryUser) {
    Install(u"Office");
    const HANDLE user = Open(u"Office", PRINTER_ACCESS_USE);
    EXPECT_EQ(SetValue(user, u"List", "x"), ERROR_ACCESS_DENIED);
    const HANDLE administrator = Open(u"Office");
    EXPECT_EQ(SetValue(administrator, u"List", "old"), ERROR_SUCCESS);
    {
        const platform::FailurePlan plan("SetPrinterDataW", 1, ERROR_WRITE_FAULT);
        EXPECT_EQ(SetValue(administrator, u"List", "new"), ERROR_WRITE_FAULT);
    }
    EXPECT_EQ(Value(user, u"List"), "old");
    EXPECT_EQ(SetValue(administrator, u"List", ""), ERROR_SUCCESS);
    EXPECT_EQ(Value(user, u"List", 0), "") << "an empty value";
    for (const HANDLE printer : {user, administrator}) EXPECT_TRUE(ClosePrinter(printer));
    EXPECT_EQ(SetValue(user, u"List", "x"), ERROR_INVALID_HANDLE);
}

TEST_F(Printers, WrittenIntoTheRegistryByHandAreReadWithoutTrust) {
    Install(u"Office");
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, kOfficeKey, 0, KEY_ALL_ACCESS, &key), 0);
    const auto set = [key](const char16_t* name, DWORD type, std::string bytes) {
        EXPECT_EQ(RegSetValueExW(key, name, 0, type, reinterpret_cast<BYTE*>(bytes.data()),
                                 static_cast<DWORD>(bytes.size())),
                  0);
    };
    set(u"Name", REG_SZ, std::string("a\0,\0b\0", 6));
    set(u"Port", REG_SZ, std::string("U\0S\0B", 5));
    set(u"Description", REG_BINARY, "no text");
    set(u"Attributes", REG_DWORD, "\x01");
    std::string devmode(sizeof(DEVMODEW), '\0');
    devmode[offsetof(DEVMODEW, dmSize)] = static_cast<char>(sizeof(DEVMODEW));
    devmode[offsetof(DEVMODEW, dmDriverExtra)] = 1;
    set(u"Default DevMode", REG_BINARY, devmode);
    EXPECT_EQ(RegCloseKey(key), 0);
    const HANDLE printer = Open(u"Office");
    const auto buffer = ReadPrinter(printer);
    EXPECT_EQ(Text(Info(buffer).pPrinterName), "Office") << "by which it can be opened";
    EXPECT_EQ(Text(Info(buffer).pPortName), "US");
    EXPECT_EQ(Text(Info(buffer).pComment), "");
    EXPECT_EQ(Info(buffer).Attributes, 0u);
    EXPECT_EQ(Info(buffer).pDevMode, nullptr) << "it claims a byte more than there is";
    EXPECT_TRUE(ClosePrinter(printer));
}

TEST_F(Printers, AnswerTheirDriverByFullPath) {
    Install(u"Office");
    const HANDLE printer = Open(u"Office", PRINTER_ACCESS_USE);
    const auto buffer = ReadWhole([printer](BYTE* bytes, DWORD size, DWORD* needed) {
        return GetPrinterDriverW(printer, nullptr, 2, bytes, size, needed);
    });
    const auto& driver = *reinterpret_cast<const DRIVER_INFO_2W*>(buffer.data());
    EXPECT_EQ(driver.cVersion, 3u);
    EXPECT_EQ(Text(driver.pName), "Laser");
    EXPECT_EQ(Text(driver.pEnvironment), "Windows x64");
    EXPECT_EQ(Text(driver.pDriverPath),
              "C:\\Windows\\System32\\spool\\drivers\\x64\\3\\QVRT__UI.DLL");
    EXPECT_EQ(Text(driver.pDataFile), "C:\\Windows\\System32\\spool\\drivers\\x64\\3\\laser.gpd");
    DWORD needed = 0;
    EXPECT_EQ(ErrorOf(GetPrinterDriverW(printer, Keep(u"Other"), 2, nullptr, 0, &needed)),
              ERROR_INVALID_ENVIRONMENT);
    EXPECT_EQ(ErrorOf(GetPrinterDriverW(printer, nullptr, 7, nullptr, 0, &needed)),
              ERROR_INVALID_LEVEL);
    EXPECT_TRUE(ClosePrinter(printer));
    const auto remove = [this] {
        return ErrorOf(DeletePrinterDriverW(nullptr, nullptr, Keep(u"laser")));
    };
    EXPECT_EQ(remove(), ERROR_PRINTER_DRIVER_IN_USE);
    const HANDLE last = Open(u"Office");
    EXPECT_TRUE(DeletePrinter(last));
    EXPECT_TRUE(ClosePrinter(last));
    EXPECT_EQ(remove(), ERROR_SUCCESS);
    EXPECT_EQ(remove(), ERROR_UNKNOWN_PRINTER_DRIVER);
}

TEST_F(Printers, TakePrintProcessorsThatAreInstalled) {
    const auto add = [this](const char16_t* name) {
        return AddPrintProcessorW(nullptr, nullptr, Keep(u"QVRT__PP.DLL"), Keep(name));
    };
    const auto names = [] {
        DWORD count = 0;
        const auto buffer = ReadWhole([&count](BYTE* bytes, DWORD size, DWORD* needed) {
            return EnumPrintProcessorsW(nullptr, nullptr, 1, bytes, size, needed, &count);
        });
        std::vector<std::u16string> all;
        const auto* infos = reinterpret_cast<const PRINTPROCESSOR_INFO_1W*>(buffer.data());
        for (DWORD i = 0; i < count; ++i) all.emplace_back(infos[i].pName);
        return all;
    };
    EXPECT_TRUE(add(u"QVRT__PP"));
    EXPECT_EQ(names(), (std::vector<std::u16string>{u"winprint", u"QVRT__PP"}));
    for (const char16_t* taken : {u"qvrt__pp", u"WinPrint"})
        EXPECT_EQ(ErrorOf(add(taken)), ERROR_PRINT_PROCESSOR_ALREADY_INSTALLED);
    PRINTER_INFO_2W record = Record(u"Office");
    record.pPrintProcessor = Keep(u"QVRT__PP");
    EXPECT_TRUE(ClosePrinter(Add(record)));
}

TEST_F(Printers, ListFormsAndPapersInOneOrder) {
    Install(u"Office");
    const HANDLE printer = Open(u"Office");
    const auto addForm = [this, printer](const std::u16string& name, LONG width, LONG length) {
        FORM_INFO_1W form = {FORM_USER, Keep(name), {width, length}, {0, 0, width, length}};
        return ErrorOf(AddFormW(printer, 1, reinterpret_cast<BYTE*>(&form)));
    };
    EXPECT_EQ(addForm(u"Banner", 210000, 900000), ERROR_SUCCESS);
    EXPECT_EQ(addForm(u"A very small one", 50049, 50050), ERROR_SUCCESS);
    EXPECT_EQ(addForm(u"LETTER", 1000, 1000), ERROR_FILE_EXISTS);
    EXPECT_EQ(addForm(std::u16string(32, u'x'), 1000, 1000), ERROR_INVALID_FORM_NAME);
    EXPECT_EQ(addForm(u"Flat", 1000, 0), ERROR_INVALID_FORM_SIZE);
    HANDLE server = nullptr;
    ASSERT_TRUE(OpenPrinterW(nullptr, &server, nullptr));
    DWORD count = 0;
    const auto buffer = ReadWhole([&](BYTE* bytes, DWORD size, DWORD* needed) {
        return EnumFormsW(server, 1, bytes, size, needed, &count);
    });
    EXPECT_EQ(ErrorOf(DeletePrinter(server)), ERROR_INVALID_HANDLE);
    EXPECT_EQ(Value(server, u"List"), Failed(ERROR_FILE_NOT_FOUND));
    EXPECT_TRUE(ClosePrinter(server));
    const auto* forms = reinterpret_cast<const FORM_INFO_1W*>(buffer.data());
    const auto list = [](WORD what, void* to) {
        return DeviceCapabilitiesW(u"Office", u"LPT1", what, static_cast<WCHAR*>(to), nullptr);
    };
    ASSERT_EQ(list(DC_PAPERSIZE, nullptr), static_cast<int>(count));
    std::vector<POINT> sizes(count);
    std::vector<std::array<WCHAR, 64>> names(count);
    std::vector<WORD> numbers(count);
    list(DC_PAPERSIZE, sizes.data());
    list(DC_PAPERNAMES, names.data());
    list(DC_PAPERS, numbers.data());
    for (std::size_t i = 0; i < count; ++i) {
        EXPECT_EQ(Text(names[i].data()), Text(forms[i].pName));
        EXPECT_NEAR(sizes[i].x, forms[i].Size.cx / 100.0, 0.5);
        EXPECT_NEAR(sizes[i].y, forms[i].Size.cy / 100.0, 0.5);
    }
    EXPECT_EQ(std::set<WORD>(numbers.begin(), numbers.end()).size(), count) << "numbers differ";
    EXPECT_EQ(Text(forms[0].pName), "Letter");
    EXPECT_EQ(sizes[0].x, 2159);
    EXPECT_EQ(sizes[0].y, 2794);
    EXPECT_EQ(Text(forms[count - 2].pName), "Banner");
    EXPECT_EQ(sizes[count - 1].x, 500);
    EXPECT_EQ(sizes[count - 1].y, 501);
    EXPECT_EQ(DeviceCapabilitiesW(u"Other", u"LPT1", DC_PAPERSIZE, nullptr, nullptr), -1);
    EXPECT_EQ(list(99, nullptr), -1);
    EXPECT_TRUE(ClosePrinter(printer));
}

TEST_F(Printers, HaveTheDefaultPageOfTheirDevmode) {
    const auto page = [this](DWORD fields, const char16_t* form, SHORT paper, SHORT orientation) {
        DEVMODEW devmode = {};
        devmode.dmSize = sizeof devmode;
        devmode.dmFields = fields;
        devmode.dmPaperSize = paper;
        devmode.dmOrientation = orientation;
        devmode.dmPaperWidth = 1234;
        devmode.dmPaperLength = 2345;
        std::u16string_view(form).copy(devmode.dmFormName, CCHFORMNAME);
        PRINTER_INFO_2W record = Record(u"Office");
        record.pDevMode = &devmode;
        const HANDLE printer = Add(record);
        spooler::PageSize size = {};
        EXPECT_TRUE(spooler::PrinterPage(u"\\\\server\\Office,LPT1:", &size));
        EXPECT_TRUE(DeletePrinter(printer));
        EXPECT_TRUE(ClosePrinter(printer));
        return std::to_string(size.width) + "x" + std::to_string(size.height) +
               (size.landscape ? " landscape" : "");
    };
    const DWORD own = DM_PAPERWIDTH | DM_PAPERLENGTH;
    EXPECT_EQ(page(0, u"Legal", DMPAPER_A3, DMORIENT_LANDSCAPE), "2100x2970");
    EXPECT_EQ(page(DM_PAPERSIZE | DM_ORIENTATION, u"", DMPAPER_A3, DMORIENT_LANDSCAPE),
              "2970x4200 landscape");
    EXPECT_EQ(page(DM_PAPERSIZE | DM_FORMNAME, u"legal", DMPAPER_A3, 0), "2159x3556");
    EXPECT_EQ(page(DM_FORMNAME | own, u"an unterminated name, too long, ", 0, 0), "1234x2345");
    EXPECT_EQ(page(own | DM_PAPERSIZE, u"", DMPAPER_USER, 0), "1234x2345");
    EXPECT_EQ(page(DM_PAPERSIZE, u"", -1, 0), "2100x2970");
    spooler::PageSize size = {};
    EXPECT_FALSE(spooler::PrinterPage(u"Other", &size));
    Install(u"Plain");
    EXPECT_TRUE(spooler::PrinterPage(u"Plain", &size));
    EXPECT_EQ(size.height, 2970);
}

// Every operation once, with names of this use's own. \return how many failed.
int UseEverything(PRINTER_INFO_2W record, std::u16string name) {
    int failed = 0;
    const auto expect = [&failed](bool succeeded) { failed += succeeded ? 0 : 1; };
    DWORD needed = 0;
    DWORD count = 0;
    std::vector<BYTE> buffer(20000);
    BYTE* bytes = buffer.data();
    const auto size = static_cast<DWORD>(buffer.size());
    std::u16string file = u"x.dll", value = u"Value";
    record.pPrinterName = name.data();
    DRIVER_INFO_2W driver = {3, name.data(), nullptr, file.data(), file.data(), file.data()};
    FORM_INFO_1W form = {FORM_USER, name.data(), {1000, 1000}, {}};
    expect(AddPrinterDriverW(nullptr, 2, reinterpret_cast<BYTE*>(&driver)));
    expect(AddPrintProcessorW(nullptr, nullptr, file.data(), name.data()));
    expect(EnumPrintProcessorsW(nullptr, nullptr, 1, bytes, size, &needed, &count));
    const HANDLE added = AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&record));
    HANDLE opened = nullptr;
    expect(OpenPrinterW(record.pPrinterName, &opened, nullptr));
    expect(GetPrinterW(opened, 2, bytes, size, &needed));
    expect(GetPrinterDriverW(opened, nullptr, 2, bytes, size, &needed));
    expect(SetPrinterW(added, 2, reinterpret_cast<BYTE*>(&record), 0));
    expect(SetPrinterDataW(added, value.data(), REG_BINARY, bytes, 10) == ERROR_SUCCESS);
    expect(GetPrinterDataW(opened, value.data(), nullptr, bytes, size, &needed) == ERROR_SUCCESS);
    expect(AddFormW(added, 1, reinterpret_cast<BYTE*>(&form)));
    expect(EnumFormsW(opened, 1, bytes, size, &needed, &count));
    expect(DeviceCapabilitiesW(record.pPrinterName, nullptr, DC_PAPERS, nullptr, nullptr) > 0);
    expect(EnumPrintersW(PRINTER_ENUM_LOCAL, nullptr, 2, bytes, size, &needed, &count));
    expect(DeletePrinter(added));
    expect(DeletePrinterDriverW(nullptr, nullptr, name.data()));
    for (const HANDLE handle : {opened, added}) expect(ClosePrinter(handle));
    return failed;
}

TEST_F(Printers, EveryOperationCanBeMadeToFail) {
    const PRINTER_INFO_2W record = Record(u"");
    int calls = 0;
    {
        const platform::FailurePlan plan;
        EXPECT_EQ(UseEverything(record, u"Name A"), 0);
        const std::vector<std::string> passed = plan.Passed();
        calls = plan.Calls();
        EXPECT_EQ(std::set<std::string>(passed.begin(), passed.end()).size(), 16u);
    }
    for (int call = 1; call <= calls; ++call) {
        const platform::FailurePlan plan(call, ERROR_GEN_FAILURE);
        const std::u16string name =
            u"Name " + std::u16string(1, static_cast<char16_t>(u'A' + call));
        EXPECT_GE(UseEverything(record, name), 1)
            << plan.Passed()[static_cast<std::size_t>(call - 1)];
        EXPECT_TRUE(plan.Fired());
    }
    EXPECT_EQ(UseEverything(record, u"Name"), 0) << "nothing is left behind by the failures";
}

}  // namespace
