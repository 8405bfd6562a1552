/// A property sheet in an application, on the platform itself.
#pragma once

#include <windows.h>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

#include "devmode/private_devmode.h"
#include "docprops/document_items.h"
#include "tests/support/loaded_module.h"

namespace tests {

/// The document page of one printer, at a module loaded from its file: on a thread of its own, and
/// nobody can touch what it hands over once it is closed. Each step returns when it is done.
class Sheet {
public:
    Sheet(const LoadedModule& module, IPrintOemUI& plugin, const Text& printerName);
    ~Sheet();
    Sheet(const Sheet&) = delete;
    Sheet& operator=(const Sheet&) = delete;

    /// Builds the page.
    void Open();
    /// Presses "Edit".
    void Edit();
    /// Gives the last watermark of the list another name in the editor.
    void Rename(const Text& newName);
    /// Presses OK in the editor.
    void Confirm();
    /// Takes the page away, with its heap, its records and its printer's name.
    void Close();

private:
    /// What lies in memory that is guarded behind its end, and as a whole when the page is closed.
    struct Records {
        DEVMODEW publicDevmode;
        oemui::PrivateDevmode privateDevmode;
        OPTITEM items[oemui::kDocumentItemCount];
        OEMCUIPPARAM params;
        CPSUICBPARAM callback;
    };

    enum class Turn { kCaller, kSheet };

    void Serve();
    void Await(Turn turn);
    void Give(Turn turn);
    void Start(std::function<void()> work);
    void Do(std::function<void()> work);
    void Build();
    void AwaitEditor();

    IPrintOemUI& plugin_;
    HMODULE module_;
    Text printerName_;
    BYTE* memory_ = nullptr;
    Records* records_ = nullptr;
    oemui::UniquePrinter printer_;
    HWND editor_ = nullptr;
    std::function<void()> work_;
    std::mutex mutex_;
    std::condition_variable changed_;
    Turn turn_ = Turn::kCaller;
    std::thread thread_;
    DWORD threadId_ = 0;
};

}  // namespace tests
