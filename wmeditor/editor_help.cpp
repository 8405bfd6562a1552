#include "wmeditor/editor_help.h"

#include <algorithm>
#include <array>

#include "common/current_printer.h"
#include "common/driver_info.h"
#include "common/model_identity.h"
#include "common/unique_handle.h"
#include "resources/resource_ids.h"

namespace oemui {
namespace {

constexpr DWORD kEditorTopic = 1114;
constexpr DWORD kFirstControlTopic = 1301;
constexpr DWORD kSettingsTopic = 1302;
constexpr DWORD kLastControlTopic = 1305;

struct HelpContext {
    int controlId;
    DWORD context;
};

constexpr auto kEditorHelpContexts = std::to_array<HelpContext>({
    {IDC_PREVIEW_GROUP, 1300},
    {IDC_PREVIEW_AREA, 1301},
    {IDC_PREVIEW_PAGE, 1301},
    {IDC_OPERATIONS_GROUP, 1302},
    {IDC_WATERMARK_LIST_LABEL, 1303},
    {IDC_WATERMARK_LIST, 1303},
    {IDC_NEW, 1304},
    {IDC_DELETE, 1305},
    {IDOK, 1306},
    {IDC_CANCEL, 1307},
    {IDC_HELP_BUTTON, 1308},
    {IDC_SETTINGS_GROUP, 1309},
    {IDC_NAME_LABEL, 1310},
    {IDC_TEXT_LABEL, 1311},
    {IDC_NAME, 1310},
    {IDC_TEXT, 1311},
    {IDC_FONT_GROUP, 1312},
    {IDC_TYPEFACE_LABEL, 1313},
    {IDC_TYPEFACE, 1313},
    {IDC_POINT_SIZE_LABEL, 1314},
    {IDC_POINT_SIZE, 1314},
    {IDC_POINT_SIZE_SPIN, 1314},
    {IDC_POINT_SIZE_RANGE_LABEL, 1314},
    {IDC_STYLE_LABEL, 1315},
    {IDC_BOLD, 1315},
    {IDC_ITALIC, 1315},
    {IDC_COLOR_LABEL, 1316},
    {IDC_COLOR, 1316},
    {IDC_ANGLE_GROUP, 1317},
    {IDC_USER_ANGLE_LABEL, 1317},
    {IDC_DEGREES_LABEL, 1317},
    {IDC_ANGLE, 1317},
    {IDC_USER_ANGLE, 1317},
    {IDC_USER_ANGLE_SPIN, 1317},
    {IDC_POSITION_GROUP, 1318},
    {IDC_HORIZONTAL_LABEL, 1318},
    {IDC_HORIZONTAL, 1318},
    {IDC_HORIZONTAL_SPIN, 1318},
    {IDC_VERTICAL_LABEL, 1318},
    {IDC_VERTICAL, 1318},
    {IDC_VERTICAL_SPIN, 1318},
    {IDC_CENTER, 1318},
    {IDC_USER_POSITION, 1318},
});
static_assert(kEditorHelpContexts.size() == 43);

/// The help file in the directory of the driver's own file.
bool BesideDriver(LPCWSTR driverPath, HelpPath* path) {
    const TextView driver(driverPath);
    const std::size_t lastBackslash = driver.rfind(TEXT('\\'));
    if (lastBackslash == TextView::npos) return false;
    return path->Join({driver.substr(0, lastBackslash + 1), TextIn(Model().HelpFile)});
}

/// Asks with the extended version record first: not every system knows it.
bool ReadSystemPlatform(DWORD* platform) {
    OSVERSIONINFOEXW version{};
    auto* const plain = reinterpret_cast<OSVERSIONINFOW*>(&version);
    for (const std::size_t size : {sizeof(OSVERSIONINFOEXW), sizeof(OSVERSIONINFOW)}) {
        version.dwOSVersionInfoSize = static_cast<DWORD>(size);
        if (!::GetVersionExW(plain)) continue;
        *platform = version.dwPlatformId;
        return true;
    }
    return false;
}

}  // namespace

void ShowControlHelp(HWND dialog, const HELPINFO* request) {
    HelpPath path;
    if (request == nullptr || !FindHelpFilePath(&path)) return;
    ::WinHelpW(dialog, path.c_str(), HELP_CONTEXTPOPUP, HelpTopicOfControl(request->iCtrlId));
}

void ShowEditorHelp(HWND dialog) {
    HelpPath path;
    if (FindHelpFilePath(&path)) ::WinHelpW(dialog, path.c_str(), HELP_CONTEXT, kEditorTopic);
}

DWORD HelpTopicOfControl(int controlId) {
    const auto found = std::ranges::find(kEditorHelpContexts, controlId, &HelpContext::controlId);
    const DWORD context = found != kEditorHelpContexts.end() ? found->context : 0;
    // The help file has one topic for all settings and buttons without a topic of their own.
    if (context > kLastControlTopic) return kSettingsTopic;
    return std::max(context, kFirstControlTopic);
}

bool FindHelpFilePath(HelpPath* path) {
    const UniquePrinter printer = OpenPrinterFor(CurrentPrinterName(), PRINTER_ACCESS_USE);
    if (!printer) return DefaultHelpFilePath(path);
    const HeapBlock info = QueryDriverInfo(::GetProcessHeap(), printer.Get(), 2);
    if (!info) return false;
    const LPCWSTR driver = info.As<DRIVER_INFO_2W>().pDriverPath;
    return driver != nullptr && BesideDriver(driver, path);
}

bool DefaultHelpFilePath(HelpPath* path) {
    DWORD platform = 0;
    if (!ReadSystemPlatform(&platform)) return false;
    FixedText<MAX_PATH> system;
    const UINT length = ::GetSystemDirectoryW(system.Room(), MAX_PATH);
    if (length == 0 || length >= MAX_PATH) return false;
    if (platform != VER_PLATFORM_WIN32_NT) return path->Join({system.View()});
    return path->Join(
        {system.View(), TEXT("\\spool\\drivers\\x64\\3\\"), TextIn(Model().HelpFile)});
}

}  // namespace oemui
