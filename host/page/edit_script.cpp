#include "host/page/edit_script.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <fstream>
#include <optional>
#include <sstream>

#include "host/errors/failure.h"
#include "host/errors/suggestions.h"
#include "host/page/message_buttons.h"
#include "platform/gui/dialogs/hands.h"
#include "platform/text/text_encoding.h"
#include "resources/resource_ids.h"

namespace host {
namespace {

// Lists and edits by the labels before them, buttons by their own.
constexpr auto kControls = std::to_array<NamedNumber>({
    {"Watermark List", IDC_WATERMARK_LIST},
    {"Name", IDC_NAME},
    {"String", IDC_TEXT},
    {"Typeface", IDC_TYPEFACE},
    {"Size", IDC_POINT_SIZE},
    {"Bold", IDC_BOLD},
    {"Italic", IDC_ITALIC},
    {"Color", IDC_COLOR},
    {"Angle", IDC_ANGLE},
    {"User Angle", IDC_USER_ANGLE},
    {"Center", IDC_CENTER},
    {"User Setting", IDC_USER_POSITION},
    {"Horizontal", IDC_HORIZONTAL},
    {"Vertical", IDC_VERTICAL},
    {"New", IDC_NEW},
    {"Delete", IDC_DELETE},
    {"OK", IDOK},
    {"Cancel", IDC_CANCEL},
    {"Help", IDC_HELP_BUTTON},
});

// An up-down is told by the edit that it belongs to.
constexpr auto kUpDowns = std::to_array<NamedNumber>({
    {"Size", IDC_POINT_SIZE_SPIN},
    {"User Angle", IDC_USER_ANGLE_SPIN},
    {"Horizontal", IDC_HORIZONTAL_SPIN},
    {"Vertical", IDC_VERTICAL_SPIN},
});

constexpr auto kKeys = std::to_array<NamedNumber>({
    {"Enter", VK_RETURN},
    {"Escape", VK_ESCAPE},
    {"Tab", VK_TAB},
    {"F1", VK_F1},
    {"Up", VK_UP},
    {"Down", VK_DOWN},
});

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

std::string AtLine(int line, const std::string& what) {
    return "line " + std::to_string(line) + ": " + what;
}

std::optional<int> ParseInteger(const std::string& text) {
    int number = 0;
    const auto [rest, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || rest != text.data() + text.size()) return std::nullopt;
    return number;
}

struct Operands {
    std::string object;
    std::string value;
};

Operands TakeWhole(const std::string& rest) {
    return {rest, ""};
}

// "Watermark List = Copy"
Operands SplitAtEquals(const std::string& rest) {
    const std::size_t equals = rest.find('=');
    if (equals == std::string::npos) throw UsageFailure("expected \"choose LIST = CHOICE\"");
    return {Trimmed(rest.substr(0, equals)), Unquoted(Trimmed(rest.substr(equals + 1)))};
}

// `Name "Zebra"`, or `Name Zebra`: without quotes the label is the longest one that fits.
Operands SplitEdit(const std::string& rest) {
    const std::size_t quote = rest.find('"');
    if (quote != std::string::npos) {
        return {Trimmed(rest.substr(0, quote)), Unquoted(rest.substr(quote))};
    }
    for (std::size_t blank = rest.rfind(' '); blank != std::string::npos && blank > 0;
         blank = rest.rfind(' ', blank - 1)) {
        const std::string label = rest.substr(0, blank);
        const bool known = std::ranges::any_of(
            kControls, [&](const char* name) { return EqualIgnoringAsciiCase(name, label); },
            &NamedNumber::name);
        if (known || ParseInteger(label)) return {label, Trimmed(rest.substr(blank))};
    }
    throw UsageFailure("expected \"type EDIT \"TEXT\"\"");
}

// More steps than any of the editor's numbers has.
constexpr int kMostSteps = 500;
constexpr std::size_t kLongestScript = 1 << 20;  // bytes

// "User Angle -2"
Operands SplitSteps(const std::string& rest) {
    const std::size_t blank = std::min(rest.rfind(' '), rest.size());
    Operands operands = {Trimmed(rest.substr(0, blank)), Trimmed(rest.substr(blank))};
    const std::optional<int> steps = ParseInteger(operands.value);
    if (!steps || *steps < -kMostSteps || *steps > kMostSteps) {
        const std::string most = std::to_string(kMostSteps);
        throw UsageFailure("expected \"step EDIT NUMBER\", a number from -" + most + " to " + most);
    }
    return operands;
}

}  // namespace

struct EditScript::Verb {
    std::string_view name;
    const char* kind;                      ///< of the objects
    std::span<const NamedNumber> objects;  ///< none: it stands alone
    Operands (*split)(const std::string& rest);
    bool (*carryOut)(HWND, const Action&);  ///< null: an answer, for which no dialog waits
};

std::span<const EditScript::Verb> EditScript::Verbs() {
    namespace hands = platform::hands;
    static constexpr auto kVerbs = std::to_array<Verb>({
        {"choose", "control", kControls, SplitAtEquals,
         [](HWND dialog, const Action& action) {
             return hands::Choose(dialog, action.number, platform::Utf16(action.value));
         }},
        {"type", "control", kControls, SplitEdit,
         [](HWND dialog, const Action& action) {
             return hands::TypeText(dialog, action.number, platform::Utf16(action.value));
         }},
        {"press", "control", kControls, TakeWhole,
         [](HWND dialog, const Action& action) { return hands::Click(dialog, action.number); }},
        {"step", "up-down", kUpDowns, SplitSteps,
         [](HWND dialog, const Action& action) {
             const int steps = ParseInteger(action.value).value_or(0);
             return hands::StepUpDown(dialog, action.number, steps);
         }},
        {"key", "key", kKeys, TakeWhole,
         [](HWND dialog, const Action& action) { return hands::PressKey(dialog, action.number); }},
        {"answer", "answer", kMessageButtons, TakeWhole, nullptr},
        {"close",
         "",
         {},
         TakeWhole,
         [](HWND dialog, const Action&) {
             hands::Close(dialog);
             return true;
         }},
    });
    return kVerbs;
}

EditScript::Action EditScript::ParseLine(const std::string& line, int number) {
    const std::size_t blank = std::min(line.find(' '), line.size());
    const std::string name = line.substr(0, blank);
    const std::string rest = Trimmed(line.substr(blank));
    const auto verb = std::ranges::find(Verbs(), name, &Verb::name);
    const bool known = verb != Verbs().end();
    if (known && verb->objects.empty()) return {&*verb, number, 0, "", ""};
    if (rest.empty()) throw UsageFailure(Quoted(name) + " says not what");
    if (!known) throw UsageFailure(UnknownName("action", name, NamesOf(Verbs())));
    const auto [object, value] = verb->split(rest);
    const std::optional<int> id = ParseInteger(object);
    const int found = id ? *id : RowNamed(verb->objects, verb->kind, object).number;
    return {&*verb, number, found, object, value};
}

EditScript EditScript::Parse(const std::string& text) {
    EditScript script;
    std::istringstream lines(text);
    std::string line;
    for (int number = 1; std::getline(lines, line); ++number) {
        const std::string trimmed = Trimmed(line);
        if (trimmed.empty() || trimmed.front() == '#') continue;
        try {
            script.actions_.push_back(ParseLine(trimmed, number));
        } catch (const UsageFailure& failure) {
            throw UsageFailure(AtLine(number, failure.what()));
        }
    }
    return script;
}

EditScript EditScript::Read(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream) throw Failure("script " + Quoted(file.native()) + " cannot be read");
    std::string text(kLongestScript + 1, ' ');
    stream.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(stream.gcount()));
    if (stream.bad()) throw Failure("script " + Quoted(file.native()) + " cannot be read");
    if (text.size() > kLongestScript) {
        throw Failure("script " + Quoted(file.native()) + " is too long");
    }
    return Parse(text);
}

void EditScript::Work(HWND dialog) {
    while (next_ < actions_.size() && error_.empty()) {
        const Action& action = actions_[next_++];
        if (action.verb->carryOut == nullptr) {
            error_ = AtLine(action.line, "there is no message to answer");
        } else if (!action.verb->carryOut(dialog, action) && error_.empty()) {
            error_ = AtLine(action.line, Quoted(action.object) + " cannot be used now");
            if (action.verb->name == "choose") {
                error_ += ", or has no choice " + Quoted(action.value);
            }
        }
    }
}

int EditScript::TakeAnswer(UINT type) {
    if (next_ >= actions_.size() || actions_[next_].verb->carryOut != nullptr) return 0;
    const Action& action = actions_[next_++];
    if (AnswersOf(type).Has(action.number)) return action.number;
    error_ = AtLine(action.line, "the message has no button " + Quoted(action.object));
    return 0;
}

std::string EditScript::Error() const {
    if (!error_.empty() || next_ >= actions_.size()) return error_;
    return AtLine(actions_[next_].line, "not reached");
}

}  // namespace host
