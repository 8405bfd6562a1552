#include "watermark/watermark_store.h"

#include <cstring>

#include "common/unique_handle.h"
#include "resources/resource_ids.h"
#include "tests/support/plugin_fixture.h"
#include "tests/support/test_printer.h"
#include "watermark/damaged_list.h"

using namespace oemui;

namespace {

constexpr LPCWSTR kValueName = TEXT("WaterMarkList");

/// A full list, terminated where it must be and odd everywhere else.
WatermarkList FullList() {
    WatermarkList list;
    std::memset(static_cast<void*>(&list), 0x41, sizeof list);
    list.Count = kWatermarkCapacity;
    list.Selected = 15;
    for (WatermarkRecord& record : list.Entries) {
        record.InUse = 1;
        TerminateTexts(&record);
    }
    return list;
}

std::string BytesOf(const WatermarkList& list) {
    return {reinterpret_cast<const char*>(&list), sizeof list};
}

class WatermarkStore : public tests::PluginTest {
protected:
    /// Reads over old bytes. What is not stored must come as zeros.
    void ExpectRead(DWORD result, std::string bytes) {
        WatermarkList list;
        std::memset(static_cast<void*>(&list), 0x5A, sizeof list);
        const UniquePrinter handle = OpenPrinterFor(printer_.Name().c_str(), PRINTER_ACCESS_USE);
        EXPECT_EQ(ReadPrinterWatermarkList(handle.Get(), &list), result);
        bytes.resize(sizeof list, '\0');
        EXPECT_EQ(BytesOf(list), bytes);
    }

    tests::TestPrinter printer_{TEXT("Store Test")};
};

TEST_F(WatermarkStore, ListsAreReadByteForByteAndKeptWhenDamaged) {
    ExpectRead(ERROR_FILE_NOT_FOUND, "");
    const std::string full = BytesOf(FullList());
    WritePrinterWatermarkList(printer_.Name().c_str(), FullList(), IDS_LIST_NOT_STORED);
    EXPECT_EQ(printer_.StoredValue(kValueName), full);
    ExpectRead(ERROR_SUCCESS, full);
    for (const std::size_t size : {0U, 1U, 8U, 16U, 315U, 4815U}) {
        SCOPED_TRACE(size);
        printer_.StoreValue(kValueName, full.substr(0, size));
        ExpectRead(ERROR_SUCCESS, full.substr(0, size));
    }
    printer_.StoreValue(kValueName, full + 'A');
    ExpectRead(ERROR_MORE_DATA, "");
    for (const INT32 count : {-1, 17, INT_MAX, INT_MIN}) {
        SCOPED_TRACE(count);
        WatermarkList damaged = FullList();
        damaged.Count = count;
        printer_.StoreValue(kValueName, BytesOf(damaged));
        ExpectRead(ERROR_SUCCESS, full);
    }
}

}  // namespace
