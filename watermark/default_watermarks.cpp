#include "watermark/default_watermarks.h"

#include <iterator>

#include "common/model_identity.h"
#include "resources/resource_ids.h"
#include "watermark/watermark_angle.h"
#include "watermark/watermark_codec.h"
#include "watermark/watermark_store.h"

namespace oemui {

constinit WatermarkList WorkingWatermarkList = {};

namespace {

constexpr int kDecimal = 10;

/// One value of the default file, at most 511 characters; empty when it is missing.
class DefaultFileValue {
public:
    explicit DefaultFileValue(LPCWSTR key) {
        ::GetPrivateProfileStringW(TEXT("WatermarkInfo"), key, TEXT(""), characters_,
                                   static_cast<DWORD>(std::size(characters_)),
                                   Model().DefaultWatermarkFile);
    }

    TextView View() const { return TextIn(characters_); }

private:
    WCHAR characters_[512] = {};
};

/// How many entries the file gives; a file that declares more than a list holds is read that far.
INT32 DeclaredCount() {
    const DefaultFileValue value(TEXT("NUM"));
    const TextView number = value.View().substr(0, value.View().find(TEXT(',')));
    const INT32 count = ParseInteger(number, kDecimal);
    return std::clamp(count, INT32{0}, kWatermarkCapacity);
}

void ReadEntry(INT32 index, WatermarkRecord* record) {
    WCHAR key[16];
    ::wsprintfW(key, TEXT("dat%ld"), index);
    ParseDefaultWatermarkLine(DefaultFileValue(key).View(), record);
}

void ReadDefaultFile(WatermarkList* list) {
    const INT32 count = DeclaredCount();
    for (INT32 i = 0; i < count; ++i) ReadEntry(i, &list->Entries[i]);
    list->NoneSelected = 0;
    list->Count = count;
    list->Selected = 0;
    list->Orientation = StoredValue(PageOrientation::kPortrait);
}

}  // namespace

void InitPrinterWatermarkList(LPCWSTR printerName) {
    ReadDefaultFile(&WorkingWatermarkList);
    WritePrinterWatermarkList(printerName, WorkingWatermarkList, IDS_DEFAULTS_NOT_LOADED);
}

void LoadDefaultWatermarks(WatermarkList* list) {
    ReadDefaultFile(list);
    for (WatermarkRecord& entry : ListedEntries(*list)) RefreshDiagonalAngle(&entry);
}

}  // namespace oemui
