#include "common/spooler_records.h"

#include <gtest/gtest.h>

namespace {

TEST(SpoolerRecords, AreReadWhateverTheSizeIsToldWithAndNeverMoreThanFit) {
    constexpr DWORD kOne = sizeof(FORM_INFO_1W);
    const struct {
        DWORD sizeError;
        DWORD size;
        DWORD count;
        std::size_t expected;
    } rows[] = {{ERROR_INSUFFICIENT_BUFFER, 2 * kOne, 2, 2},
                {ERROR_MORE_DATA, 2 * kOne, 2, 2},
                {ERROR_INVALID_HANDLE, 0, 1, 0},
                {ERROR_INSUFFICIENT_BUFFER, 2 * kOne - 1, 2, 0},
                {ERROR_INSUFFICIENT_BUFFER, kOne - 1, 1, 0}};
    for (const auto& row : rows) {
        const oemui::SpoolerRecords<FORM_INFO_1W> records(
            [&row](const BYTE* buffer, DWORD /*size*/, DWORD* needed, DWORD* count) -> BOOL {
                *needed = row.size;
                *count = row.count;
                if (buffer == nullptr) ::SetLastError(row.sizeError);
                return buffer != nullptr ? TRUE : FALSE;
            });
        EXPECT_EQ(records.All().size(), row.expected) << row.size;
        EXPECT_EQ(records.SizeError(), row.sizeError);
    }
}

}  // namespace
