#include "printerprops/pjl_query.h"

#include <winspool.h>

#include <algorithm>

#include "common/unique_handle.h"
#include "printerprops/pjl_exchange.h"
#include "printerprops/socket_library.h"

namespace oemui {
namespace {

// The printer-data names through which the port monitor carries a question to the printer; the
// direct way takes the same texts as commands.
constexpr LPCWSTR kConfigQuestion = TEXT("#GET#\n@PJL INFO CONFIG");
constexpr LPCWSTR kDeviceStatusQuestion = TEXT("#GET#\n@PJL INFO DSTATUS");

constexpr std::string_view kEcho = "@PJL INFO CONFIG";
constexpr std::string_view kTray2Installed = "TRAY2=INSTALLED";
constexpr std::string_view kTray3Installed = "TRAY3=INSTALLED";
constexpr std::string_view kDuplexInstalled = "DUPLEX=INSTALLED";

/// What a printer sent.
struct Reply {
    char Bytes[kReplyCapacity];
    DWORD Length = 0;
};

bool SetQuestion(HANDLE printer, LPCWSTR question) {
    BYTE nothing = 0;
    // The name is not const in the platform's declaration, but only read.
    return ::SetPrinterDataW(printer, const_cast<LPWSTR>(question), REG_BINARY, &nothing, 0) ==
           ERROR_SUCCESS;
}

bool GetAnswer(HANDLE printer, LPCWSTR question, Reply* reply) {
    DWORD type = REG_NONE;
    DWORD needed = 0;
    reply->Length = 0;
    if (::GetPrinterDataW(printer, const_cast<LPWSTR>(question), &type,
                          reinterpret_cast<BYTE*>(reply->Bytes), kReplyCapacity,
                          &needed) != ERROR_SUCCESS) {
        return false;
    }
    reply->Length = std::min(needed, kReplyCapacity);
    return true;
}

bool AskDirectly(PrinterLink* link, Reply* reply) {
    const SocketLibrary library;
    if (!library) return false;
    return ExchangePjl(link, kConfigQuestion, reply->Bytes, &reply->Length);
}

/// Asks through the spooler. The device status only shows that the monitor answers at all.
/// \param reply  empty when the monitor answers but refuses the configuration.
bool AskThroughSpooler(LPCWSTR printerName, Reply* reply) {
    // Without a name the print server would be opened.
    if (printerName == nullptr || *printerName == 0) return false;
    const UniquePrinter printer = OpenPrinterFor(printerName, PRINTER_ALL_ACCESS);
    if (!printer) return false;
    // Only this family's monitors have to be told before they can be asked.
    const bool setsFirst = PlatformVersion().dwPlatformId == VER_PLATFORM_WIN32_NT;
    if (setsFirst && !SetQuestion(printer.Get(), kDeviceStatusQuestion)) return false;
    if (!GetAnswer(printer.Get(), kDeviceStatusQuestion, reply) || reply->Length == 0) return false;
    reply->Length = 0;
    if (!setsFirst || SetQuestion(printer.Get(), kConfigQuestion)) {
        GetAnswer(printer.Get(), kConfigQuestion, reply);
    }
    return true;
}

}  // namespace

std::optional<InstalledOptions> QueryInstalledOptions(LPCWSTR printerName, PrinterLink link) {
    Reply reply;
    const bool isAsked = IsDirectKind(link.Kind) ? AskDirectly(&link, &reply)
                                                 : AskThroughSpooler(printerName, &reply);
    if (!isAsked) return {};
    return ParseInstalledOptions({reply.Bytes, reply.Length}).value_or(InstalledOptions{});
}

std::optional<InstalledOptions> ParseInstalledOptions(std::string_view reply) {
    const std::string_view text = reply.substr(0, reply.find('\0'));
    const std::size_t echo = text.find(kEcho);
    if (echo == std::string_view::npos) return {};
    const std::size_t formFeed = text.find('\f', echo);
    if (formFeed == std::string_view::npos) return {};
    const std::string_view configuration = text.substr(echo, formFeed - echo);
    const auto names = [configuration](std::string_view option) {
        return configuration.find(option) != std::string_view::npos;
    };
    return InstalledOptions{names(kTray2Installed), names(kTray3Installed),
                            names(kDuplexInstalled)};
}

}  // namespace oemui
