/// What tests of the spooler share: a registered driver, printers, reading into buffers.
#pragma once

#include <windows.h>
#include <winspool.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/text/text_encoding.h"
#include "tests/support/machine_fixture.h"

namespace tests {

class SpoolerTest : public MachineTest {
protected:
    void SetUp() override {
        std::u16string name = u"Laser", file = u"C:\\somewhere\\QVRT__UI.DLL", gpd = u"laser.gpd";
        DRIVER_INFO_2W driver = {3, name.data(), nullptr, file.data(), gpd.data(), file.data()};
        ASSERT_TRUE(AddPrinterDriverW(nullptr, 2, reinterpret_cast<BYTE*>(&driver)));
    }

    /// Texts live as long as the fixture; the record may be changed before it is used.
    PRINTER_INFO_2W Record(const std::u16string& name, const std::u16string& port = u"LPT1:") {
        PRINTER_INFO_2W record = {};
        record.pPrinterName = Keep(name);
        record.pPortName = Keep(port);
        record.pDriverName = Keep(u"Laser");
        record.pPrintProcessor = Keep(u"winprint");
        return record;
    }

    LPWSTR Keep(const std::u16string& text) {
        texts_.push_back(std::make_unique<std::u16string>(text));
        return texts_.back()->data();
    }

    static HANDLE Add(PRINTER_INFO_2W record) {
        return AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&record));
    }

    /// Adds a printer and closes it.
    void Install(const std::u16string& name, const std::u16string& port = u"LPT1:") {
        const HANDLE printer = Add(Record(name, port));
        ASSERT_NE(printer, nullptr) << GetLastError();
        EXPECT_TRUE(ClosePrinter(printer));
    }

    /// Null when refused.
    HANDLE Open(std::u16string name, DWORD access = PRINTER_ALL_ACCESS) {
        PRINTER_DEFAULTSW defaults = {nullptr, nullptr, access};
        HANDLE printer = this;
        const BOOL opened = OpenPrinterW(name.data(), &printer, &defaults);
        EXPECT_EQ(opened != FALSE, printer != nullptr);
        return printer;
    }

    using Read = std::function<BOOL(BYTE* buffer, DWORD size, DWORD* needed)>;

    /// Asks for the size, checks that one byte less is refused untouched, and reads.
    static std::vector<BYTE> ReadWhole(const Read& read) {
        DWORD needed = 0;
        EXPECT_FALSE(read(nullptr, 0, &needed));
        EXPECT_EQ(GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});
        std::vector<BYTE> buffer(needed, 0xEE);
        EXPECT_FALSE(read(buffer.data(), needed - 1, &needed));
        EXPECT_EQ(buffer, std::vector<BYTE>(needed, 0xEE));
        EXPECT_TRUE(read(buffer.data(), needed, &needed)) << GetLastError();
        EXPECT_EQ(needed, buffer.size());
        return buffer;
    }

    static std::vector<BYTE> ReadPrinter(HANDLE printer) {
        return ReadWhole([printer](BYTE* buffer, DWORD size, DWORD* needed) {
            return GetPrinterW(printer, 2, buffer, size, needed);
        });
    }

    static std::string Text(LPCWSTR text) { return text ? platform::Utf8(text) : "null"; }

    static const PRINTER_INFO_2W& Info(const std::vector<BYTE>& buffer) {
        return *reinterpret_cast<const PRINTER_INFO_2W*>(buffer.data());
    }

    /// The error of an operation that returned nothing; ERROR_SUCCESS of one that succeeded.
    template <typename Result>
    static LSTATUS ErrorOf(Result result) {
        return result ? ERROR_SUCCESS : static_cast<LSTATUS>(GetLastError());
    }

    static LSTATUS SetValue(HANDLE printer, std::u16string name, std::string bytes) {
        return static_cast<LSTATUS>(SetPrinterDataW(printer, name.data(), REG_BINARY,
                                                    reinterpret_cast<BYTE*>(bytes.data()),
                                                    static_cast<DWORD>(bytes.size())));
    }

    /// What stands for a value that cannot be read; with the size when only room is missing.
    static std::string Failed(LSTATUS error, DWORD needed = 0) {
        return "error " + std::to_string(error) + ", " + std::to_string(needed) + " bytes";
    }

    /// Reads into a buffer of this size.
    static std::string Value(HANDLE printer, std::u16string name, std::size_t size = 1024,
                             DWORD* type = nullptr) {
        std::string buffer(size, '#');
        DWORD needed = 0;
        const DWORD status =
            GetPrinterDataW(printer, name.data(), type, reinterpret_cast<BYTE*>(buffer.data()),
                            static_cast<DWORD>(size), &needed);
        if (status == ERROR_SUCCESS) return buffer.substr(0, needed);
        return Failed(static_cast<LSTATUS>(status), status == ERROR_MORE_DATA ? needed : 0);
    }

private:
    std::vector<std::unique_ptr<std::u16string>> texts_;
};

}  // namespace tests
