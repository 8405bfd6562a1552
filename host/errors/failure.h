/// How a command of the host fails: an exception with the text for the person who gave it.
#pragma once

#include <windef.h>

#include <stdexcept>
#include <string>
#include <string_view>

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

/// A name as messages have it: "NAME", with the marks.
[[nodiscard]] std::string Quoted(std::string_view name);

/// Throws a `Failure` "what: why", the error code in words and with its number.
[[noreturn]] void FailWith(const std::string& what, DWORD error);

/// The same with the thread's last error.
[[noreturn]] void FailWithLastError(const std::string& what);

}  // namespace host
