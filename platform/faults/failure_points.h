/// Failure injection: every function of the layer that can fail passes one named point.
///
/// A test arms a point (or counts all of them) and sees the n-th call fail with the error given.
/// Unarmed, a point costs one relaxed atomic load.
#pragma once

#include <windef.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace platform {

/// Passed by a function of the layer at its start.
/// \param point  the function's name, such as "SetPrinterDataW"; a literal.
/// \return the code that the call must fail with now, in its own way (last error, status, result)
///         and without doing anything else; nothing when it may go on.
[[nodiscard]] std::optional<DWORD> InjectedFailure(const char* point);

/// Whether a plan fails one call, or that call and every later one.
enum class Failing { kOnce, kForEver };

/// Counts calls, and fails some of them, for as long as it lives. One at a time in a process; calls
/// of every thread count. A plan that names no point passes over the calls that only give something
/// back ("RegCloseKey", "closesocket", "WSACleanup"): whoever they fail cannot help keeping it.
class FailurePlan {
public:
    /// Counts only.
    FailurePlan();
    /// Fails the n-th call (from 1) of any point, or all from it on.
    FailurePlan(int nthCall, DWORD error, Failing failing = Failing::kOnce);
    /// Fails the n-th call (from 1) of the named point; 0 fails every call of it.
    FailurePlan(std::string point, int nthCall, DWORD error);
    /// Does something, as another program would, just before the n-th call (from 1) of the named
    /// point, which then goes on. What it calls itself is not counted.
    FailurePlan(std::string point, int nthCall, std::function<void()> meanwhile);
    ~FailurePlan();
    FailurePlan(const FailurePlan&) = delete;
    FailurePlan& operator=(const FailurePlan&) = delete;

    /// How many calls passed a point so far.
    [[nodiscard]] int Calls() const;
    /// Whether the armed failure has happened.
    [[nodiscard]] bool Fired() const;
    /// The names of the points passed, in order.
    [[nodiscard]] std::vector<std::string> Passed() const;
};

}  // namespace platform
