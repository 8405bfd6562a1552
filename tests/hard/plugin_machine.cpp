#include "tests/hard/plugin_machine.h"

#include <cstring>
#include <fstream>
#include <stdexcept>

#include "platform/base/heap.h"
#include "platform/base/machine.h"
#include "platform/faults/live_objects.h"
#include "tests/support/plugin_fixture.h"
#include "tests/wmeditor/editor_lists.h"

namespace hard {
namespace {

constexpr LPCWSTR kListValue = TEXT("WaterMarkList");
constexpr std::size_t kMostOfTheHeap = 8192;  // bytes, for one page
const tests::Text kSessionManager = TEXT("System\\CurrentControlSet\\Control\\Session Manager");
const tests::Text kProcessor = TEXT(
    "System\\CurrentControlSet\\Control\\Print\\Environments\\Windows x64\\Print "
    "Processors\\QVRT__PP");
const tests::Text kOtherPort =
    TEXT("System\\CurrentControlSet\\Control\\Print\\Monitors\\LPR Port\\Ports\\Queue");

void WriteFiles() {
    const std::filesystem::path windows = platform::MachineFolder() / "Windows";
    WriteFile(windows / "QVRT_UNI.INI",
              "[EAIDCData]\nEAIDCDisable=5\n[OEMUninstall]\nExecutable=UNINST.EXE\n");
    WriteFile(windows / "QVRT__WM.INI",
              "[WatermarkInfo]\r\nNUM=2\r\ndat0=0,<NONE>,,Arial,72\r\n"
              "dat1=1,Copy,COPY,Arial,72\r\n");
    WriteFile(windows / "System32/spool/prtprocs/x64/QVRT__PP.DLL", "a print processor");
    const std::filesystem::path program = windows / "System32/UNINST.EXE";
    WriteFile(program, "#!/bin/sh\n");
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
}

bool IsWholeOrCleared(const OPTITEM& item) {
    if (item.cbSize != sizeof item) return false;
    if (item.pOptType == nullptr) return item.Flags == 0 && item.pName == nullptr;
    return item.pOptType->Count == 2 && item.pOptType->pOptParam != nullptr &&
           ((item.Flags & OPTIF_HAS_POIEXT) != 0) == (item.pOIExt != nullptr);
}

}  // namespace

const oemui::WatermarkList& StoredBefore() {
    static const oemui::WatermarkList list = [] {
        oemui::WatermarkList made = tests::MakeList(
            {TEXT("<NONE>"), TEXT("Alpha"), TEXT("Delta"), TEXT("Echo"), TEXT("Foxtrot")});
        made.Selected = 1;
        return made;
    }();
    return list;
}

std::string BytesOf(const oemui::WatermarkList& list) {
    return {reinterpret_cast<const char*>(&list), sizeof list};
}

std::string NamesIn(const std::string& storedList) {
    oemui::WatermarkList list{};
    std::memcpy(&list, storedList.data(), std::min(storedList.size(), sizeof list));
    std::string names;
    const auto entries = oemui::ListedEntries(list);
    // The first one, no watermark, is whatever the document brought along.
    for (const auto& entry : entries.subspan(std::min<std::size_t>(entries.size(), 1))) {
        names += tests::Narrow(oemui::TextIn(entry.Name)) + '|';
    }
    return names;
}

std::string WrongWith(const std::string& storedList) {
    if (storedList.empty()) return {};
    if (storedList.size() != sizeof(oemui::WatermarkList)) return "the stored list is cut";
    oemui::WatermarkList list;
    std::memcpy(&list, storedList.data(), sizeof list);
    if (list.Count < 0 || list.Count > oemui::kWatermarkCapacity) return "Count out of range";
    if (list.Selected != 0 && !oemui::IsListed(list, list.Selected)) return "Selected not listed";
    return {};
}

std::string ChangeSince(const std::map<std::string, int>& liveObjects) {
    auto changes = platform::LiveObjects();
    for (const auto& [kind, count] : liveObjects) changes[kind] -= count;
    std::string text;
    for (const auto& [kind, count] : changes) {
        if (count != 0) text += kind + " " + std::to_string(count) + " ";
    }
    return text.empty() ? text : "live objects: " + text;
}

void WriteFile(const std::filesystem::path& file, const std::string& contents) {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << contents;
}

PluginMachine::PluginMachine() {
    WriteFiles();
    printer_.SetBidirectional(true);
    // A port of another printer, past which a look-up walks.
    tests::WriteRegistryText(kOtherPort, TEXT("Server Name"), TEXT("127.0.0.1"));
}

void PluginMachine::Restore() {
    tests::LoadPlugin();
    StoreList(BytesOf(StoredBefore()));
    UsePort(TEXT("USB001"));
    tests::RemoveRegistryKey(kProcessor);
    const tests::Text pending(TEXT("C:\\UNINST.EXE\0\0\0"), 16);
    tests::WriteRegistryValue(kSessionManager, TEXT("PendingFileRenameOperations"), REG_MULTI_SZ,
                              pending.data(), 32);
}

std::string PluginMachine::StoredList() const {
    return printer_.StoredValue(kListValue);
}

void PluginMachine::StoreList(const std::string& bytes) {
    printer_.StoreValue(kListValue, bytes);
}

void BuildWhole(tests::DocumentPage* page) {
    constexpr BYTE kItems[] = {DMPUB_NUP,       DMPUB_DUPLEX,    DMPUB_ORIENTATION, DMPUB_FORMNAME,
                               DMPUB_ICMMETHOD, DMPUB_DEFSOURCE, DMPUB_MEDIATYPE};
    for (const BYTE item : kItems) page->With(item, 1, {"Auto", "Tray 2", "Tray 3"});
    page->Build();
    for (DWORD place = 0; place < oemui::kDocumentItemCount; ++place) {
        const OPTITEM& item = page->Own(static_cast<oemui::DocumentItem>(place));
        if (!IsWholeOrCleared(item)) throw std::runtime_error("an item is half built");
    }
    if (platform::HeapBytes(page->Params().hOEMHeap) > kMostOfTheHeap) {
        throw std::runtime_error("the page takes too much of the heap");
    }
}

void OpenEditor(tests::DocumentPage* page) {
    OPTITEM& item = page->Own(oemui::kWatermarkItem);
    item.Sel = oemui::kWatermarkEnabled;
    page->Report(CPSUICB_REASON_EXTPUSH, &item);
}

}  // namespace hard
