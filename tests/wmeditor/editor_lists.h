/// Watermarks and lists of them for the editor's tests.
#pragma once

#include <initializer_list>

#include "watermark/watermark_list.h"

namespace tests {

/// A watermark of 72 points, level and centred.
inline oemui::WatermarkRecord MakeWatermark(oemui::TextView name, oemui::TextView text) {
    oemui::WatermarkRecord record{};
    record.InUse = 1;
    oemui::CopyText(record.Name, name);
    oemui::CopyText(record.Text, text);
    oemui::CopyText(record.FaceName, TEXT("Arial"));
    record.PointSize = 72;
    return record;
}

/// A list with one entry for each name; each prints its own name.
inline oemui::WatermarkList MakeList(std::initializer_list<oemui::TextView> names) {
    oemui::WatermarkList list{};
    list.Orientation = 1;
    for (const oemui::TextView name : names) {
        oemui::WatermarkRecord& entry = list.Entries[list.Count];
        entry = MakeWatermark(name, name);
        entry.Index = static_cast<UINT32>(list.Count++);
    }
    return list;
}

/// The names of the listed entries, separated by blanks.
inline std::basic_string<WCHAR> NamesIn(const oemui::WatermarkList& list) {
    std::basic_string<WCHAR> names;
    for (INT32 i = 0; i < list.Count; ++i) {
        if (i > 0) names += TEXT(' ');
        names += oemui::TextIn(list.Entries[i].Name);
    }
    return names;
}

}  // namespace tests
