#include "watermark/default_watermarks.h"

#include "common/model_identity.h"
#include "resources/resource_ids.h"
#include "watermark/watermark_angle.h"
#include "watermark/watermark_codec.h"
#include "watermark/watermark_store.h"

namespace oemui {

constinit WatermarkList WorkingWatermarkList = {};

namespace {

/// One value of the default file, at most 511 characters; empty when it is missing.
FixedText<512> DefaultFileValue(LPCWSTR key) {
    FixedText<512> value;
    ::GetPrivateProfileStringW(TEXT("WatermarkInfo"), key, TEXT(""), value.Room(), 512,
                               Model().DefaultWatermarkFile);
    return value;
}

/// How many entries the file gives; a file that declares more than a list holds is read that far.
INT32 DeclaredCount() {
    const auto value = DefaultFileValue(TEXT("NUM"));
    const TextView number = value.View().substr(0, value.View().find(TEXT(',')));
    return std::clamp(ParseInteger(number, kDecimal), INT32{0}, kWatermarkCapacity);
}

void ReadDefaultFile(WatermarkList* list) {
    const INT32 count = DeclaredCount();
    for (INT32 i = 0; i < count; ++i) {
        const auto line = DefaultFileValue(PrintText(TEXT("dat%ld"), i).c_str());
        ParseDefaultWatermarkLine(line.View(), &list->Entries[i]);
    }
    list->NoneSelected = 0;
    list->Count = count;
    list->Selected = 0;
    list->Orientation = StoredValue(PageOrientation::kPortrait);
}

}  // namespace

void InitPrinterWatermarkList(LPCWSTR printerName) {
    WatermarkList list{};
    ReadDefaultFile(&list);
    WritePrinterWatermarkList(printerName, list, IDS_DEFAULTS_NOT_LOADED);
}

void LoadDefaultWatermarks(WatermarkList* list) {
    ReadDefaultFile(list);
    for (WatermarkRecord& entry : ListedEntries(*list)) RefreshDiagonalAngle(&entry);
}

}  // namespace oemui
