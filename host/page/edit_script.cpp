#include "host/page/edit_script.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>

#include "host/errors/failure.h"
#include "host/errors/suggestions.h"
#include "platform/gui/dialogs/hands.h"
#include "platform/text/text_encoding.h"
#include "resources/resource_ids.h"

namespace host {
namespace {

struct NamedNumber {
    const char* name;
    int number;
};

// Lists and edits by the labels before them, buttons by their own.
constexpr std::array kControls = {
    NamedNumber{"Watermark List", IDC_WATERMARK_LIST},
    NamedNumber{"Name", IDC_NAME},
    NamedNumber{"String", IDC_TEXT},
    NamedNumber{"Typeface", IDC_TYPEFACE},
    NamedNumber{"Size", IDC_POINT_SIZE},
    NamedNumber{"Bold", IDC_BOLD},
    NamedNumber{"Italic", IDC_ITALIC},
    NamedNumber{"Color", IDC_COLOR},
    NamedNumber{"Angle", IDC_ANGLE},
    NamedNumber{"User Angle", IDC_USER_ANGLE},
    NamedNumber{"Center", IDC_CENTER},
    NamedNumber{"User Setting", IDC_USER_POSITION},
    NamedNumber{"Horizontal", IDC_HORIZONTAL},
    NamedNumber{"Vertical", IDC_VERTICAL},
    NamedNumber{"New", IDC_NEW},
    NamedNumber{"Delete", IDC_DELETE},
    NamedNumber{"OK", IDOK},
    NamedNumber{"Cancel", IDC_CANCEL},
    NamedNumber{"Help", IDC_HELP_BUTTON},
};

// An up-down is told by the edit that it belongs to.
constexpr std::array kUpDowns = {
    NamedNumber{"Size", IDC_POINT_SIZE_SPIN},
    NamedNumber{"User Angle", IDC_USER_ANGLE_SPIN},
    NamedNumber{"Horizontal", IDC_HORIZONTAL_SPIN},
    NamedNumber{"Vertical", IDC_VERTICAL_SPIN},
};

constexpr std::array kKeys = {
    NamedNumber{"Enter", VK_RETURN}, NamedNumber{"Escape", VK_ESCAPE}, NamedNumber{"Tab", VK_TAB},
    NamedNumber{"F1", VK_F1},        NamedNumber{"Up", VK_UP},         NamedNumber{"Down", VK_DOWN},
};

constexpr std::array kAnswers = {
    NamedNumber{"OK", IDOK},
    NamedNumber{"Cancel", IDCANCEL},
    NamedNumber{"Yes", IDYES},
    NamedNumber{"No", IDNO},
};

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r';
}

std::string Trimmed(const std::string& text) {
    const auto begin = std::find_if_not(text.begin(), text.end(), IsBlank);
    const auto end = std::find_if_not(text.rbegin(), text.rend(), IsBlank).base();
    return begin < end ? std::string(begin, end) : std::string();
}

std::string Unquoted(const std::string& text) {
    const bool quoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
    return quoted ? text.substr(1, text.size() - 2) : text;
}

[[noreturn]] void FailAtLine(int line, const std::string& why) {
    throw UsageFailure("line " + std::to_string(line) + ": " + why);
}

std::optional<int> ParseInteger(const std::string& text) {
    int number = 0;
    const auto [rest, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || rest != text.data() + text.size()) return std::nullopt;
    return number;
}

template <std::size_t Count>
int FindNumber(const std::array<NamedNumber, Count>& table, const std::string& kind,
               const std::string& name, int line) {
    if (const std::optional<int> number = ParseInteger(name)) return *number;
    std::vector<std::string> known;
    for (const NamedNumber& entry : table) {
        if (EqualIgnoringCase(entry.name, name)) return entry.number;
        known.emplace_back(entry.name);
    }
    FailAtLine(line, UnknownName(kind, name, known));
}

struct Operands {
    std::string object;
    std::string value;
};

// "Watermark List = Copy"
Operands SplitAtEquals(const std::string& rest, int line) {
    const std::size_t equals = rest.find('=');
    if (equals == std::string::npos) FailAtLine(line, "expected \"choose LIST = CHOICE\"");
    return {Trimmed(rest.substr(0, equals)), Unquoted(Trimmed(rest.substr(equals + 1)))};
}

// `Name "Zebra"`, or `Name Zebra`: without quotes the label is the longest one that fits.
Operands SplitEdit(const std::string& rest, int line) {
    const std::size_t quote = rest.find('"');
    if (quote != std::string::npos) {
        return {Trimmed(rest.substr(0, quote)), Unquoted(rest.substr(quote))};
    }
    for (std::size_t blank = rest.rfind(' '); blank != std::string::npos && blank > 0;
         blank = rest.rfind(' ', blank - 1)) {
        const std::string label = rest.substr(0, blank);
        const bool known = std::any_of(
            kControls.begin(), kControls.end(),
            [&](const NamedNumber& control) { return EqualIgnoringCase(control.name, label); });
        if (known || ParseInteger(label)) return {label, Trimmed(rest.substr(blank))};
    }
    FailAtLine(line, "expected \"type EDIT \"TEXT\"\"");
}

bool BoxHasButton(UINT type, int button) {
    switch (type) {
        case MB_YESNO:
            return button == IDYES || button == IDNO;
        case MB_OKCANCEL:
            return button == IDOK || button == IDCANCEL;
        default:
            return button == IDOK;
    }
}

}  // namespace

EditScript::Action EditScript::ParseLine(const std::string& line, int number) {
    const std::size_t blank = line.find(' ');
    const std::string verb = line.substr(0, blank);
    const std::string rest = blank == std::string::npos ? "" : Trimmed(line.substr(blank));
    if (verb == "close") return {Verb::Close, number, 0, 0, "", u""};
    if (rest.empty()) FailAtLine(number, "\"" + verb + "\" says not what");
    if (verb == "choose" || verb == "type") {
        const bool choose = verb == "choose";
        const Operands operands = choose ? SplitAtEquals(rest, number) : SplitEdit(rest, number);
        const int control = FindNumber(kControls, "control", operands.object, number);
        return {choose ? Verb::Choose : Verb::Type, number, control, 0, operands.object,
                platform::Utf16(operands.value)};
    }
    if (verb == "press") {
        return {Verb::Press, number, FindNumber(kControls, "control", rest, number), 0, rest, u""};
    }
    if (verb == "key") {
        return {Verb::Key, number, FindNumber(kKeys, "key", rest, number), 0, rest, u""};
    }
    if (verb == "answer") {
        return {Verb::Answer, number, FindNumber(kAnswers, "answer", rest, number), 0, rest, u""};
    }
    if (verb == "step") {
        const std::size_t last = rest.rfind(' ');
        const std::string object = last == std::string::npos ? rest : Trimmed(rest.substr(0, last));
        const std::optional<int> steps =
            last == std::string::npos ? std::nullopt : ParseInteger(Trimmed(rest.substr(last)));
        if (!steps) FailAtLine(number, "expected \"step EDIT NUMBER\"");
        return {Verb::Step, number, FindNumber(kUpDowns, "up-down", object, number),
                *steps,     object, u""};
    }
    FailAtLine(number, UnknownName("action", verb,
                                   {"choose", "type", "press", "step", "key", "answer", "close"}));
}

EditScript EditScript::Parse(const std::string& text) {
    EditScript script;
    std::istringstream lines(text);
    std::string line;
    for (int number = 1; std::getline(lines, line); ++number) {
        const std::string trimmed = Trimmed(line);
        if (trimmed.empty() || trimmed.front() == '#') continue;
        script.actions_.push_back(ParseLine(trimmed, number));
    }
    return script;
}

EditScript EditScript::Read(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream) throw Failure("script " + file.native() + " cannot be read");
    return Parse(std::string(std::istreambuf_iterator<char>(stream), {}));
}

bool EditScript::Do(HWND dialog, const Action& action) const {
    using namespace platform::hands;
    switch (action.verb) {
        case Verb::Choose:
            return Choose(dialog, action.number, action.text);
        case Verb::Type:
            return TypeText(dialog, action.number, action.text);
        case Verb::Press:
            return Click(dialog, action.number);
        case Verb::Step:
            return StepUpDown(dialog, action.number, action.steps);
        case Verb::Key:
            return PressKey(dialog, action.number);
        case Verb::Close:
            Close(dialog);
            return true;
        case Verb::Answer:
            break;
    }
    return false;
}

void EditScript::Work(HWND dialog) {
    while (next_ < actions_.size() && error_.empty()) {
        const Action& action = actions_[next_++];
        const std::string line = "line " + std::to_string(action.line) + ": ";
        if (action.verb == Verb::Answer) {
            error_ = line + "there is no message to answer";
        } else if (!Do(dialog, action) && error_.empty()) {
            error_ = line + "\"" + action.object + "\" cannot be used now";
            if (action.verb == Verb::Choose) {
                error_ += ", or has no choice \"" + platform::Utf8(action.text) + "\"";
            }
        }
    }
}

int EditScript::TakeAnswer(UINT type) {
    if (next_ >= actions_.size() || actions_[next_].verb != Verb::Answer) return 0;
    const Action& action = actions_[next_++];
    if (BoxHasButton(type, action.number)) return action.number;
    error_ = "line " + std::to_string(action.line) + ": the message has no button \"" +
             action.object + "\"";
    return 0;
}

std::string EditScript::Error() const {
    if (!error_.empty() || next_ >= actions_.size()) return error_;
    return "line " + std::to_string(actions_[next_].line) + ": not reached";
}

}  // namespace host
