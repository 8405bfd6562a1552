#include "tests/support/states/watermark_state.h"

#include <algorithm>
#include <cstring>

namespace tests {
namespace {

std::string Number(auto number) {
    return std::to_string(number);
}

std::string Pair(auto first, auto second) {
    return Number(first) + ' ' + Number(second);
}

}  // namespace

std::string Describe(const oemui::WatermarkRecord& record) {
    std::string line = Quoted(oemui::TextIn(record.Name)) + " prints " +
                       Quoted(oemui::TextIn(record.Text)) + " in " +
                       Quoted(oemui::TextIn(record.FaceName)) + ' ' + Number(record.PointSize);
    if (record.Bold != 0) line += " bold " + Number(record.Bold);
    if (record.Italic != 0) line += " italic " + Number(record.Italic);
    line += " colour " + Number(record.ColorIndex) + " (" + Number(record.Red) + ' ' +
            Pair(record.Green, record.Blue) + ") angle " +
            Pair(record.AngleKind, record.AngleDegrees) + " position " +
            Number(record.PositionKind) + " (" + Pair(record.OffsetX, record.OffsetY) + ") index " +
            Number(record.Index);
    if (record.InUse != 1) line += " in use " + Number(record.InUse);
    return line;
}

State ListState(const std::string& name, const oemui::WatermarkList& list) {
    State state;
    state.Add(name, Number(list.Count) + " entries, selected " + Number(list.Selected) + ", none " +
                        Number(list.NoneSelected) + ", orientation " + Number(list.Orientation));
    int place = 0;
    for (const auto& entry : oemui::ListedEntries(list)) {
        state.Add(name + ' ' + Number(place++), Describe(entry));
    }
    return state;
}

State StoredListState(const std::string& name, const std::string& bytes) {
    oemui::WatermarkList list{};
    std::memcpy(&list, bytes.data(), std::min(bytes.size(), sizeof list));
    State state;
    state.Add(name + " size", Number(bytes.size()));
    state.Add(ListState(name, list));
    return state;
}

State BlockState(const oemui::PrivateDevmode& block) {
    State state;
    state.Add("block header", Number(block.Header.dwSize) + ' ' +
                                  Pair(block.Header.dwSignature, block.Header.dwVersion));
    state.Add("block carried",
              Number(block.CappedLevel) + ' ' + Pair(block.Reserved1, block.Reserved2));
    state.Add("block scaling", Number(block.Scaling));
    state.Add("block watermark", (block.WatermarkOn != 0 ? "on " : "off ") +
                                     Pair(block.WatermarkOn, block.WatermarkIndex));
    state.Add("block once, intent, pages",
              Number(block.TransmitOnce) + ' ' + Pair(block.RenderingIntent, block.PagesPerSheet));
    state.Add("block record", Describe(block.Watermark));
    return state;
}

}  // namespace tests
