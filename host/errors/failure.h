/// How a command of the host fails: an exception with the text for the person who gave it.
#pragma once

#include <windef.h>

#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

namespace host {

/// The command could not be done; the program ends with 1.
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The command was not understood; the program ends with 2.
class UsageFailure : public Failure {
public:
    using Failure::Failure;
};

/// A text that came from outside, safe to write to a terminal: control characters become "\x1B".
[[nodiscard]] std::string Escaped(std::string_view text);

/// The beginning of a UTF-8 text, with "..." when bytes were cut off.
[[nodiscard]] std::string Shortened(std::string_view text, std::size_t mostBytes);

/// A name as messages have it: "NAME", with the marks; escaped, and at most 200 bytes of it.
[[nodiscard]] std::string Quoted(std::string_view name);

/// Throws a `Failure` "what: why", the error code in words and with its number.
[[noreturn]] void FailWith(const std::string& what, DWORD error);

/// The same with the thread's last error, or with an error of a file.
[[noreturn]] void FailWithLastError(const std::string& what);
[[noreturn]] void FailWith(const std::string& what, const std::error_code& error);

/// What an exception that ended a command says to the person who gave it: a `Failure` its own text,
/// any other the reason in words.
[[nodiscard]] std::string MessageOf(const std::exception& error);

}  // namespace host
