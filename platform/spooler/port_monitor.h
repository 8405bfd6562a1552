/// The port monitor's side channel: printer-data names that stand for PJL sent to the printer.
///
/// A name is "#GET#" or "#SET#", a blank or line feed, and PJL text such as "@PJL INFO CONFIG".
/// "#GET#" reads the printer's answer up to its form feed, "#SET#" only sends.
#pragma once

#include <windef.h>

#include <atomic>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform::spooler {

/// What the questions of one open printer may wait for it, in all: a printer that is slow with the
/// first has the less time for the next.
struct AnswerTime {
    std::atomic<int> left = 15000;  ///< milliseconds
};

struct PjlRequest {
    bool wantsAnswer;  ///< "#GET#"
    std::string text;  ///< 8-bit; never empty
};

/// What a printer-data name asks for; nothing when it is an ordinary name. A request without text
/// keeps its `text` empty.
[[nodiscard]] std::optional<PjlRequest> ParsePjlName(std::u16string_view name);

/// Whether the printer can be asked at all. \param ports  the printer's ports.
/// \return ERROR_NOT_SUPPORTED when its port has no address, ERROR_GEN_FAILURE when the address is
/// outside the loopback range.
[[nodiscard]] DWORD CheckPrinterPort(std::u16string_view ports);

/// Carries a request to the printer's address, TCP port 9100, between two Universal Exit sequences.
/// Blocks the calling thread for no longer than the time that is left.
/// \param time  what the waiting takes is taken from it.
/// \param answer  up to 64 KiB up to the form feed; what there is when the printer closes without
/// one. Untouched without `wantsAnswer` and on failure.
/// \return a result code: as `CheckPrinterPort`; ERROR_INVALID_PARAMETER for a request without
/// text; ERROR_GEN_FAILURE when the printer cannot be reached or breaks off, or its answer is too
/// long; ERROR_TIMEOUT when the answer did not come to its end in time.
[[nodiscard]] DWORD AskPrinter(std::u16string_view ports, const PjlRequest& request,
                               AnswerTime& time, std::vector<BYTE>* answer);

}  // namespace platform::spooler
