// Devmodes from the store are bytes from outside.
#include "host/driver/devmode.h"
#include "platform/text/text_encoding.h"

#include <cstdint>
#include <cstring>

#include "host/page/stored_records.h"
#include "host/spooler/printers.h"
#include "tests/host/host_fixture.h"

namespace host {
namespace {

constexpr DWORD kBlock = 348;

std::vector<BYTE> Stored(const Devmode& devmode) {
    return {devmode.Bytes().begin(), devmode.Bytes().end()};
}

TEST(StoredDevmode, IsTakenOverWhenItIsTheDriversOwn) {
    Devmode stored(u"Office", kBlock);
    stored.Public().dmCopies = 7;
    stored.Driver().NupSelection = 6;
    stored.PlugIn()[347] = 0x5A;
    Devmode devmode(u"Renamed", kBlock);
    const std::vector<BYTE> bytes = Stored(stored);
    const std::span<const BYTE> block = devmode.TakeStored(bytes);
    EXPECT_EQ(devmode.Public().dmCopies, 7);
    EXPECT_EQ(std::u16string(devmode.Public().dmDeviceName), u"Renamed");
    EXPECT_EQ(devmode.Driver().NupSelection, 6u);
    ASSERT_EQ(block.size(), kBlock);
    EXPECT_EQ(block[347], 0x5A);
}

TEST(StoredDevmode, CutAtAnyByteIsReadNoFurther) {
    const std::vector<BYTE> whole = Stored(Devmode(u"Office", kBlock));
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const std::vector<BYTE> cut(whole.begin(), whole.begin() + static_cast<long>(size));
        Devmode devmode(u"Office", kBlock);
        EXPECT_TRUE(devmode.TakeStored(cut).empty()) << size;
        EXPECT_EQ(Stored(devmode), whole) << size;
    }
}

TEST(StoredDevmode, ValuesOutsideTheirRangesAreNotTaken) {
    Devmode stored(u"Office", kBlock);
    DEVMODEW& fields = stored.Public();
    fields.dmCopies = 0;
    fields.dmOrientation = 3;
    fields.dmColor = -1;
    fields.dmDuplex = 9;
    fields.dmMediaType = 0x10000;
    std::fill_n(fields.dmFormName, CCHFORMNAME, u'x');
    stored.Driver().NupSelection = 7;
    Devmode devmode(u"Office", kBlock);
    devmode.TakeStored(Stored(stored));
    EXPECT_EQ(Stored(devmode), Stored(Devmode(u"Office", kBlock)));
}

TEST(PrivateDevmodeJson, NeedsAWholeBlockAndEndsTextsWithTheirArrays) {
    std::vector<BYTE> block(kBlock, 0);
    EXPECT_TRUE(PrivateDevmodeToJson(std::span(block).first(347)).is_null());
    std::fill_n(block.begin() + 48 + 8, 64, BYTE{'a'});
    block[12] = 0xFB;
    block[13] = block[14] = block[15] = 0xFF;
    const auto json = PrivateDevmodeToJson(block);
    EXPECT_EQ(json["CappedLevel"], -5);
    EXPECT_EQ(platform::Utf16(json["Watermark"]["Name"].get<std::string>()).size(), 32u);
    EXPECT_EQ(json["Watermark"]["Text"], "");
}

using PrinterDevmodes = HostTest;

// Whatever plug-in block is stored, the page comes up with settings that the plug-in accepts.
TEST_F(PrinterDevmodes, DamagedPlugInBlocksAreMergedSafely) {
    Install("Office", "T");
    const struct {
        const char* what;
        std::size_t offset;
        std::uint32_t value;
    } damages[] = {{"size", 0, 0xFFFFFFFF},   {"small size", 0, 0}, {"signature", 4, 1},
                   {"scaling", 20, 500},      {"level", 12, 101},   {"index", 24, 4000000000u},
                   {"intent", 40, 0xFFFFFFFF}};
    for (const auto& damage : damages) {
        SCOPED_TRACE(damage.what);
        {
            const oemui::UniquePrinter printer = OpenNamedPrinter("Office", PRINTER_ALL_ACCESS);
            auto module = LoadPrinterModule(printer.Get());
            Devmode devmode = DefaultDevmode(module, printer.Get(), u"Office");
            std::memcpy(devmode.PlugIn().data() + damage.offset, &damage.value, 4);
            StorePrinterDevmode(printer.Get(), devmode);
        }
        const nlohmann::json page = Do({"document", "Office", "--json"}).Json();
        EXPECT_EQ(page["privateDevmode"]["dwSize"], 348);
        EXPECT_EQ(page["privateDevmode"]["Scaling"], 100);
    }
}

}  // namespace
}  // namespace host
