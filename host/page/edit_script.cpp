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
constexpr auto kLists = std::to_array<NamedNumber>({
    {"Watermark List", IDC_WATERMARK_LIST},
    {"Typeface", IDC_TYPEFACE},
    {"Color", IDC_COLOR},
    {"Angle", IDC_ANGLE},
});

constexpr auto kEdits = std::to_array<NamedNumber>({
    {"Name", IDC_NAME},
    {"String", IDC_TEXT},
    {"Size", IDC_POINT_SIZE},
    {"User Angle", IDC_USER_ANGLE},
    {"Horizontal", IDC_HORIZONTAL},
    {"Vertical", IDC_VERTICAL},
});

constexpr auto kButtons = std::to_array<NamedNumber>({
    {"New", IDC_NEW},
    {"Delete", IDC_DELETE},
    {"OK", IDOK},
    {"Cancel", IDC_CANCEL},
    {"Help", IDC_HELP_BUTTON},
    {"Bold", IDC_BOLD},
    {"Italic", IDC_ITALIC},
    {"Center", IDC_CENTER},
    {"User Setting", IDC_USER_POSITION},
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
    return line == 0 ? what : "script line " + std::to_string(line) + ": " + what;
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
            kEdits, [&](const char* name) { return EqualIgnoringAsciiCase(name, label); },
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

std::vector<std::string> ItemsOf(HWND dialog, int listId) {
    std::vector<std::string> items;
    for (const std::u16string& item : platform::hands::ItemsOf(dialog, listId)) {
        items.push_back(platform::Utf8(item));
    }
    return items;
}

// The item as it is written, or but for the case.
const std::string* ItemNamed(const std::vector<std::string>& items, std::string_view wanted) {
    auto found = std::ranges::find(items, wanted);
    if (found == items.end()) {
        found = std::ranges::find_if(
            items, [&](const auto& item) { return EqualIgnoringAsciiCase(item, wanted); });
    }
    return found == items.end() ? nullptr : &*found;
}

std::string Objection(bool isDone, const std::string& object) {
    return isDone ? "" : Quoted(object) + " cannot be used now";
}

void RequireUtf8(std::string_view text) {
    if (platform::Utf8(platform::Utf16(text)) != text) {
        throw UsageFailure("the script is not in UTF-8");
    }
}

}  // namespace

struct EditScript::Verb {
    std::string_view name;
    const char* kind;                      ///< of the objects
    std::span<const NamedNumber> objects;  ///< none: it stands alone
    Operands (*split)(const std::string& rest);
    /// Answers why it cannot be done, or nothing. Null: an answer, for which no dialog waits.
    std::string (*carryOut)(HWND, const Action&);
};

std::span<const EditScript::Verb> EditScript::Verbs() {
    namespace hands = platform::hands;
    static constexpr auto kVerbs = std::to_array<Verb>({
        {"choose", "list", kLists, SplitAtEquals,
         [](HWND dialog, const Action& action) {
             const std::vector<std::string> items = ItemsOf(dialog, action.number);
             const std::string* item = ItemNamed(items, action.value);
             if (item == nullptr) {
                 return UnknownName("item of " + Quoted(action.object), action.value, items);
             }
             return Objection(hands::Choose(dialog, action.number, platform::Utf16(*item)),
                              action.object);
         }},
        {"type", "edit", kEdits, SplitEdit,
         [](HWND dialog, const Action& action) {
             return Objection(hands::TypeText(dialog, action.number, platform::Utf16(action.value)),
                              action.object);
         }},
        {"press", "button", kButtons, TakeWhole,
         [](HWND dialog, const Action& action) {
             return Objection(hands::Click(dialog, action.number), action.object);
         }},
        {"step", "up-down", kUpDowns, SplitSteps,
         [](HWND dialog, const Action& action) {
             const int steps = ParseInteger(action.value).value_or(0);
             return Objection(hands::StepUpDown(dialog, action.number, steps), action.object);
         }},
        {"key", "key", kKeys, TakeWhole,
         [](HWND dialog, const Action& action) {
             return Objection(hands::PressKey(dialog, action.number), action.object);
         }},
        {"answer", "answer", kMessageButtons, TakeWhole, nullptr},
        {"close",
         "",
         {},
         TakeWhole,
         [](HWND dialog, const Action&) {
             hands::Close(dialog);
             return std::string();
         }},
    });
    return kVerbs;
}

const EditScript::Verb& EditScript::VerbNamed(std::string_view name) {
    return RowNamed(Verbs(), "action", name);
}

EditScript::Action EditScript::ParseLine(const std::string& line, int number) {
    const std::size_t blank = std::min(line.find_first_of(" \t"), line.size());
    const std::string rest = Trimmed(line.substr(blank));
    const Verb& verb = VerbNamed(line.substr(0, blank));
    if (verb.objects.empty()) return {&verb, number, 0, "", ""};
    if (rest.empty()) throw UsageFailure(Quoted(verb.name) + " says not what");
    const auto [object, value] = verb.split(rest);
    const std::optional<int> id = ParseInteger(object);
    const bool isNumber = id && std::ranges::count(verb.objects, *id, &NamedNumber::number) != 0;
    const int found = isNumber ? *id : RowNamed(verb.objects, verb.kind, object).number;
    return {&verb, number, found, object, value};
}

EditScript EditScript::Parse(std::string_view text) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    RequireUtf8(text);
    EditScript script;
    std::istringstream lines{std::string(text)};
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

EditScript EditScript::Selecting(const std::string& watermark) {
    EditScript script;
    script.actions_ = {{&VerbNamed("choose"), 0, IDC_WATERMARK_LIST, "Watermark List", watermark},
                       {&VerbNamed("press"), 0, IDOK, "OK", ""}};
    return script;
}

void EditScript::Stop(const std::string& why) {
    if (error_.empty()) error_ = AtLine(next_ > 0 ? actions_[next_ - 1].line : 0, why);
}

void EditScript::Work(HWND dialog) {
    dialog_ = dialog;
    while (next_ < actions_.size() && error_.empty()) {
        const Action& action = actions_[next_++];
        if (!platform::hands::IsOpen(dialog)) {
            Stop("the editor is closed already");
        } else if (action.verb->carryOut == nullptr) {
            Stop("there is no message to answer");
        } else if (const std::string why = action.verb->carryOut(dialog, action); !why.empty()) {
            Stop(why);
        }
    }
    dialog_ = nullptr;
    leavesOpen_ = platform::hands::IsOpen(dialog);
}

bool EditScript::AtAnswer() const {
    return next_ < actions_.size() && actions_[next_].verb->carryOut == nullptr;
}

// Why the editor cannot go on behind the box; empty when it can.
std::string EditScript::ObjectionTo(const platform::MessageBoxRequest& box) const {
    const std::string message = Quoted(platform::Utf8(box.text));
    if (box.caption == errorCaption_) return "the editor says " + message;
    if (!AtAnswer()) return "the message " + message + " is not answered";
    const Action& action = actions_[next_];
    return AnswersOf(box.type).Has(action.number)
               ? ""
               : "the message " + message + " has no button " + Quoted(action.object);
}

int EditScript::Answer(const platform::MessageBoxRequest& box) {
    const BoxAnswers answers = AnswersOf(box.type);
    if (dialog_ == nullptr) return answers.safe;
    const std::string objection = ObjectionTo(box);
    if (objection.empty()) return actions_[next_++].number;
    Stop(objection + "; nothing was stored");
    // Closed under its question the editor stores nothing, whatever the answer.
    platform::hands::Close(dialog_);
    return answers.safe;
}

}  // namespace host
