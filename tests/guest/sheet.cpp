#include "tests/guest/sheet.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "resources/resource_ids.h"

namespace tests {
namespace {

constexpr SIZE_T kPageSize = 4096;
constexpr SIZE_T kUsablePages = 2;
constexpr SIZE_T kGuardedSize = (kUsablePages + 1) * kPageSize;
constexpr int kLongestWait = 10000;  // milliseconds

void Protect(BYTE* memory, SIZE_T size) {
    DWORD before = 0;
    EXPECT_TRUE(::VirtualProtect(memory, size, PAGE_NOACCESS, &before));
}

BOOL CALLBACK FindEditor(HWND window, LPARAM found) {
    const bool isEditor =
        ::IsWindowVisible(window) && ::GetDlgItem(window, IDC_WATERMARK_LIST) != nullptr;
    if (isEditor) *reinterpret_cast<HWND*>(found) = window;
    return !isEditor;
}

void SendCommand(HWND dialog, int controlId, WORD notification) {
    ::SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(controlId, notification),
                   reinterpret_cast<LPARAM>(::GetDlgItem(dialog, controlId)));
}

}  // namespace

Sheet::Sheet(const LoadedModule& module, IPrintOemUI& plugin, const Text& printerName)
    : plugin_(plugin),
      module_(module.Handle()),
      printerName_(printerName),
      thread_([this] { Serve(); }) {
    Do([this] { threadId_ = ::GetCurrentThreadId(); });
}

Sheet::~Sheet() {
    Start(nullptr);
    thread_.join();
    if (memory_ != nullptr) ::VirtualFree(memory_, 0, MEM_RELEASE);
}

void Sheet::Serve() {
    for (Await(Turn::kSheet); work_ != nullptr; Await(Turn::kSheet)) {
        work_();
        Give(Turn::kCaller);
    }
}

void Sheet::Await(Turn turn) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return turn_ == turn; });
}

void Sheet::Give(Turn turn) {
    const std::lock_guard lock(mutex_);
    turn_ = turn;
    changed_.notify_all();
}

void Sheet::Start(std::function<void()> work) {
    work_ = std::move(work);
    Give(Turn::kSheet);
}

void Sheet::Do(std::function<void()> work) {
    Start(std::move(work));
    Await(Turn::kCaller);
}

void Sheet::Open() {
    if (memory_ != nullptr) ::VirtualFree(memory_, 0, MEM_RELEASE);
    memory_ = static_cast<BYTE*>(
        ::VirtualAlloc(nullptr, kGuardedSize, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE));
    Protect(memory_ + kUsablePages * kPageSize, kPageSize);
    records_ = new (memory_) Records{};
    Do([this] { Build(); });
    EXPECT_NE(records_->items[oemui::kWatermarkItem].pOptType, nullptr);
}

void Sheet::Build() {
    // The name's terminator is the last thing that can be read.
    const SIZE_T nameSize = (printerName_.size() + 1) * sizeof(WCHAR);
    auto* name = reinterpret_cast<WCHAR*>(memory_ + kUsablePages * kPageSize - nameSize);
    std::copy_n(printerName_.c_str(), printerName_.size() + 1, name);
    printer_ = oemui::OpenPrinterFor(name, PRINTER_ACCESS_USE);
    OEMDMPARAM defaults = {};
    defaults.pOEMDMOut = &records_->privateDevmode;
    plugin_.DevMode(OEMDM_DEFAULT, &defaults);
    OEMCUIPPARAM& params = records_->params;
    params.cbSize = sizeof params;
    params.hPrinter = printer_.Get();
    params.pPrinterName = name;
    params.hModule = module_;
    params.hOEMHeap = ::HeapCreate(0, 0, 0);
    params.pPublicDM = &records_->publicDevmode;
    params.pOEMDM = &records_->privateDevmode;
    plugin_.CommonUIProp(OEMCUIP_DOCPROP, &params);
    params.pOEMOptItems = records_->items;
    plugin_.CommonUIProp(OEMCUIP_DOCPROP, &params);
}

void Sheet::Edit() {
    records_->items[oemui::kWatermarkItem].Sel = oemui::kWatermarkEnabled;
    CPSUICBPARAM& callback = records_->callback;
    callback.cbSize = sizeof callback;
    callback.Reason = CPSUICB_REASON_EXTPUSH;
    callback.pCurItem = &records_->items[oemui::kWatermarkItem];
    Start([this] { records_->params.OEMCUIPCallback(&records_->callback, &records_->params); });
    AwaitEditor();
}

void Sheet::Rename(const Text& newName) {
    const HWND list = ::GetDlgItem(editor_, IDC_WATERMARK_LIST);
    const LRESULT count = ::SendMessageW(list, CB_GETCOUNT, 0, 0);
    ::SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(count - 1), 0);
    SendCommand(editor_, IDC_WATERMARK_LIST, CBN_SELCHANGE);
    // Whenever the list gets or loses the focus, it shows its entry anew.
    const HWND name = ::GetDlgItem(editor_, IDC_NAME);
    ::SendMessageW(editor_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(name), TRUE);
    ::SetWindowTextW(name, newName.c_str());
}

void Sheet::AwaitEditor() {
    editor_ = nullptr;
    for (int waited = 0; editor_ == nullptr && waited < kLongestWait; ++waited) {
        ::EnumThreadWindows(threadId_, FindEditor, reinterpret_cast<LPARAM>(&editor_));
        if (editor_ == nullptr) ::Sleep(1);
    }
    ASSERT_NE(editor_, nullptr) << "no editor";
}

void Sheet::Confirm() {
    SendCommand(editor_, IDOK, BN_CLICKED);
    Await(Turn::kCaller);
}

void Sheet::Close() {
    Do([this] {
        ::HeapDestroy(records_->params.hOEMHeap);
        printer_.Reset();
    });
    Protect(memory_, kGuardedSize);
}

}  // namespace tests
