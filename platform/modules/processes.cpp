// Starting programs. A program here is a native executable or a script under its platform name.

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <winbase.h>
#include <winerror.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "platform/base/fail.h"
#include "platform/base/handles.h"
#include "platform/base/machine.h"
#include "platform/base/paths.h"
#include "platform/faults/failure_points.h"
#include "platform/text/text_encoding.h"

using platform::Fail;

namespace {

namespace fs = std::filesystem;

struct Process {
    pid_t id;
};

platform::HandleTable<Process>& Processes() {
    static platform::HandleTable<Process> processes("process");
    return processes;
}

platform::HandleTable<Process>& Threads() {
    static platform::HandleTable<Process> threads("thread");
    return threads;
}

bool IsBlank(char16_t character) {
    return character == u' ' || character == u'\t';
}

// The file that one spelling names: a path on the machine's own drive as it stands, a name without
// a drive below the folders for programs.
fs::path FindSpelling(std::u16string_view name) {
    if (name.find(u':') != std::u16string_view::npos) {
        const bool isInside = name.starts_with(u"C:") || name.starts_with(u"c:");
        return isInside ? platform::ExistingFile(name) : fs::path{};
    }
    const fs::path windows = platform::MachineFolder() / "Windows";
    return platform::FindFile(
        {platform::ProgramFolder(), platform::CurrentFolder(), windows / "System32", windows},
        name);
}

fs::path FindProgram(std::u16string_view name) {
    if (name.empty()) return {};
    fs::path file = FindSpelling(name);
    const std::size_t lastPart = name.find_last_of(u"\\/:") + 1;
    const bool hasEnding = name.find(u'.', lastPart) != std::u16string_view::npos;
    return file.empty() && !hasEnding ? FindSpelling(std::u16string(name) + u".exe") : file;
}

struct Command {
    fs::path program;
    std::u16string_view arguments;
};

// An unquoted path with blanks may end at any of them: the shortest that names a file wins.
Command ParseCommand(std::u16string_view line) {
    while (!line.empty() && IsBlank(line.front())) line.remove_prefix(1);
    if (!line.empty() && line.front() == u'"') {
        const std::size_t close = std::min(line.find(u'"', 1), line.size());
        return {FindProgram(line.substr(1, close - 1)),
                line.substr(std::min(close + 1, line.size()))};
    }
    for (std::size_t end = 0; end <= line.size(); ++end) {
        if (end < line.size() && !IsBlank(line[end])) continue;
        fs::path program = FindProgram(line.substr(0, end));
        if (!program.empty()) return {std::move(program), line.substr(end)};
    }
    return {};
}

// One argument: blanks end it outside quotes; a backslash counts only before a quote, where each
// pair is one and an odd one makes the quote a character.
std::u16string TakeArgument(std::u16string_view line, std::size_t& at) {
    std::u16string argument;
    bool quoted = false;
    for (; at < line.size() && (quoted || !IsBlank(line[at])); ++at) {
        std::size_t backslashes = 0;
        while (at + backslashes < line.size() && line[at + backslashes] == u'\\') ++backslashes;
        at += backslashes;
        const bool beforeQuote = at < line.size() && line[at] == u'"';
        argument.append(beforeQuote ? backslashes / 2 : backslashes, u'\\');
        if (beforeQuote && backslashes % 2 == 0) {
            quoted = !quoted;
        } else if (at < line.size() && (quoted || !IsBlank(line[at]))) {
            argument += line[at];
        } else {
            break;
        }
    }
    return argument;
}

std::vector<std::string> SplitArguments(const Command& command) {
    std::vector<std::string> arguments{command.program.native()};
    const std::u16string_view line = command.arguments;
    for (std::size_t at = 0; at < line.size();) {
        if (IsBlank(line[at])) {
            ++at;
        } else {
            arguments.push_back(platform::Utf8(TakeArgument(line, at)));
        }
    }
    return arguments;
}

bool IsExecutable(const fs::path& file) {
    std::array<char, 4> begin{};
    std::ifstream(file, std::ios::binary).read(begin.data(), begin.size());
    const std::string_view mark(begin.data(), begin.size());
    return (mark == "\177ELF" || mark.starts_with("#!")) && access(file.c_str(), X_OK) == 0;
}

// Programs from outside are never started, whatever leads to them. The file so found is what is
// started, not the name.
DWORD CheckInside(Command* command) {
    const fs::path named = std::exchange(command->program, platform::IfInside(command->program));
    if (named.empty() || command->program.empty()) return ERROR_FILE_NOT_FOUND;
    return IsExecutable(command->program) ? ERROR_SUCCESS : ERROR_BAD_EXE_FORMAT;
}

DWORD ErrorFromErrno(int error) {
    switch (error) {
        case ENOENT:
            return ERROR_FILE_NOT_FOUND;
        case ENOEXEC:
            return ERROR_BAD_EXE_FORMAT;
        case ENOMEM:
        case EAGAIN:
            return ERROR_NOT_ENOUGH_MEMORY;
        default:
            return ERROR_ACCESS_DENIED;
    }
}

// The machine's log, opened for appending; below 0 on failure. Never what a link leads to, and no
// device or pipe, which could keep us waiting.
int OpenLog() {
    const int log = open((platform::MachineFolder() / "machine.log").c_str(),
                         O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0644);
    struct stat file {};
    if (log < 0 || (fstat(log, &file) == 0 && S_ISREG(file.st_mode) && file.st_nlink == 1)) {
        return log;
    }
    close(log);
    return -1;
}

// Takes back what was just written, unless somebody has written behind it.
void TakeBack(int log, ssize_t written) {
    struct stat file {};
    const off_t end = lseek(log, 0, SEEK_CUR);
    if (written <= 0 || fstat(log, &file) != 0 || file.st_size != end) return;
    // A log that cannot be shortened has one line too many; the caller has the error all the same.
    [[maybe_unused]] const int failure = ftruncate(log, end - written);
}

// What the program starts with: nothing to read, the log to write to, no other file of ours.
class FileActions {
public:
    explicit FileActions(int log) {
        posix_spawn_file_actions_init(&actions_);
        posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_adddup2(&actions_, log, STDOUT_FILENO);
        posix_spawn_file_actions_adddup2(&actions_, log, STDERR_FILENO);
        posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1);
    }
    ~FileActions() { posix_spawn_file_actions_destroy(&actions_); }
    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;

    [[nodiscard]] const posix_spawn_file_actions_t* Get() const { return &actions_; }

private:
    posix_spawn_file_actions_t actions_;
};

// Takes the exit status when the program ends, so that no zombie stays.
void ReapWhenEnded(pid_t id) {
    try {
        std::thread([id] {
            while (waitpid(id, nullptr, 0) < 0 && errno == EINTR) {
            }
        }).detach();
    } catch (const std::system_error&) {
        // Without a thread the program's entry stays until this process ends; it runs all the same.
    }
}

// 0, or the error number.
int Spawn(const Command& command, int log, pid_t* id) {
    std::vector<std::string> arguments = SplitArguments(command);
    std::vector<char*> pointers;
    pointers.reserve(arguments.size() + 1);
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    const FileActions actions(log);
    return posix_spawn(id, command.program.c_str(), actions.Get(), nullptr, pointers.data(),
                       environ);
}

DWORD Start(const Command& command, std::u16string_view commandLine, pid_t* id) {
    const int log = OpenLog();
    if (log < 0) return ERROR_WRITE_FAULT;
    // The line stands before what the program writes, but only when the program was started.
    const std::string line = platform::Utf8(commandLine) + "\n";
    const ssize_t written = write(log, line.data(), line.size());
    DWORD error = ERROR_WRITE_FAULT;
    if (written == static_cast<ssize_t>(line.size())) {
        const int failure = Spawn(command, log, id);
        error = failure == 0 ? ERROR_SUCCESS : ErrorFromErrno(failure);
    }
    if (error != ERROR_SUCCESS) TakeBack(log, written);
    close(log);
    return error;
}

}  // namespace

BOOL WINAPI CreateProcessW(LPCWSTR applicationName, LPWSTR commandLine, LPSECURITY_ATTRIBUTES,
                           LPSECURITY_ATTRIBUTES, BOOL, DWORD, LPVOID environment,
                           LPCWSTR currentDirectory, LPSTARTUPINFOW startup,
                           LPPROCESS_INFORMATION process) {
    if (const auto error = platform::InjectedFailure("CreateProcessW")) return Fail(*error);
    if (applicationName != nullptr || environment != nullptr || currentDirectory != nullptr ||
        commandLine == nullptr || startup == nullptr || process == nullptr) {
        return Fail(ERROR_INVALID_PARAMETER);
    }
    if (platform::MachineFolder().empty()) return Fail(ERROR_PATH_NOT_FOUND);
    Command command = ParseCommand(commandLine);
    if (const DWORD error = CheckInside(&command)) return Fail(error);
    pid_t id = 0;
    if (const DWORD error = Start(command, commandLine, &id)) return Fail(error);
    ReapWhenEnded(id);
    const auto started = std::make_shared<Process>(Process{id});
    *process = {Processes().Insert(started), Threads().Insert(started), static_cast<DWORD>(id),
                static_cast<DWORD>(id)};
    return TRUE;
}

BOOL WINAPI CloseHandle(HANDLE handle) {
    if (Processes().Remove(handle) || Threads().Remove(handle)) return TRUE;
    return Fail(ERROR_INVALID_HANDLE);
}
