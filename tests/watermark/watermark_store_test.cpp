#include "watermark/watermark_store.h"

#include <cstring>

#include "common/unique_handle.h"
#include "resources/resource_ids.h"
#include "tests/support/plugin_fixture.h"
#include "tests/support/test_printer.h"

using namespace oemui;

namespace {

constexpr LPCWSTR kValueName = TEXT("WaterMarkList");

class WatermarkStore : public tests::PluginTest {
protected:
    DWORD Read(WatermarkList* list) {
        std::memset(static_cast<void*>(list), 0x5A, sizeof *list);
        const UniquePrinter handle = OpenPrinterFor(printer_.Name().c_str(), PRINTER_ACCESS_USE);
        return ReadPrinterWatermarkList(handle.Get(), list);
    }

    tests::TestPrinter printer_{TEXT("Store Test")};
};

/// A full list, terminated where it must be and odd everywhere else.
WatermarkList FullList() {
    WatermarkList list;
    std::memset(static_cast<void*>(&list), 0x41, sizeof list);
    list.Count = kWatermarkCapacity;
    list.Selected = 15;
    for (WatermarkRecord& record : list.Entries) TerminateTexts(&record);
    return list;
}

std::string BytesOf(const WatermarkList& list) {
    return {reinterpret_cast<const char*>(&list), sizeof list};
}

TEST_F(WatermarkStore, WhatIsWrittenIsReadByteForByte) {
    const WatermarkList written = FullList();
    WritePrinterWatermarkList(printer_.Name().c_str(), written, IDS_LIST_NOT_STORED);
    EXPECT_EQ(printer_.StoredValue(kValueName), BytesOf(written));
    WatermarkList read;
    EXPECT_EQ(Read(&read), static_cast<DWORD>(ERROR_SUCCESS));
    EXPECT_EQ(BytesOf(read), BytesOf(written));
}

TEST_F(WatermarkStore, ShortValuesAreFilledWithZerosAndLongOnesFail) {
    const WatermarkList full = FullList();
    for (const std::size_t size : {0U, 1U, 4U, 8U, 16U, 100U, 315U, 316U, 4815U, 4816U}) {
        SCOPED_TRACE(size);
        std::string stored = BytesOf(full).substr(0, size);
        printer_.StoreValue(kValueName, stored);
        WatermarkList read;
        EXPECT_EQ(Read(&read), static_cast<DWORD>(ERROR_SUCCESS));
        stored.resize(sizeof full, '\0');
        WatermarkList expected;
        std::memcpy(static_cast<void*>(&expected), stored.data(), sizeof expected);
        EXPECT_EQ(BytesOf(read), BytesOf(expected));
    }
    for (const std::size_t size : {4817U, 5000U}) {
        printer_.StoreValue(kValueName, std::string(size, 'A'));
        WatermarkList read;
        EXPECT_EQ(Read(&read), static_cast<DWORD>(ERROR_MORE_DATA));
        EXPECT_EQ(BytesOf(read), std::string(sizeof read, '\0'));
    }
}

TEST_F(WatermarkStore, MissingOrDamagedListsReadAsFailedAndEmpty) {
    WatermarkList read;
    EXPECT_NE(Read(&read), static_cast<DWORD>(ERROR_SUCCESS));
    EXPECT_EQ(BytesOf(read), std::string(sizeof read, '\0'));
    for (const INT32 count : {-1, 17, INT_MAX, INT_MIN}) {
        WatermarkList damaged = FullList();
        damaged.Count = count;
        printer_.StoreValue(kValueName, BytesOf(damaged));
        EXPECT_EQ(Read(&read), static_cast<DWORD>(ERROR_INVALID_DATA)) << count;
        EXPECT_EQ(BytesOf(read), std::string(sizeof read, '\0'));
    }
}

}  // namespace
