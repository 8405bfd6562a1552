#include "host/page/settings.h"

#include <charconv>

#include "host/errors/failure.h"
#include "host/errors/suggestions.h"

namespace host {
namespace {

LONG ParseNumber(const PageItem& item, std::string_view text) {
    const std::string unit = item.Unit();
    std::string_view digits = text;
    if (!unit.empty() && digits.ends_with(unit)) digits.remove_suffix(unit.size());
    while (digits.ends_with(' ')) digits.remove_suffix(1);
    LONG number = 0;
    const char* end = digits.data() + digits.size();
    const auto [rest, error] = std::from_chars(digits.data(), end, number);
    if (error != std::errc() || rest != end) {
        throw Failure("\"" + item.Name() + "\" is a number from " + std::to_string(item.Lowest()) +
                      " to " + std::to_string(item.Highest()) + ", not \"" + std::string(text) +
                      "\"");
    }
    return number;
}

std::size_t FindChoice(const PageItem& item, std::string_view name) {
    std::vector<std::string> known;
    for (std::size_t i = 0; i < item.ChoiceCount(); ++i) {
        if (!item.ChoiceVisible(i)) continue;
        if (EqualIgnoringCase(item.ChoiceText(i), name) ||
            EqualIgnoringCase(item.ChoiceKeyword(i), name)) {
            return i;
        }
        known.push_back(item.ChoiceText(i));
    }
    throw Failure(UnknownName("choice of \"" + item.Name() + "\"", name, known));
}

}  // namespace

PageItem& FindItem(PageSession& page, std::string_view name) {
    std::vector<std::string> known;
    for (PageItem& item : page.Items()) {
        if (!item.Visible() || item.Kind() == ItemKind::Group) continue;
        if (EqualIgnoringCase(item.Name(), name) || EqualIgnoringCase(item.Keyword(), name)) {
            return item;
        }
        known.push_back(item.Name());
        if (item.Keyword() != KeywordFrom(item.Name())) known.push_back(item.Keyword());
    }
    throw Failure(UnknownName("item", name, known));
}

void SetItem(PageSession& page, const std::string& setting) {
    const std::size_t equals = setting.find('=');
    if (equals == std::string::npos || equals == 0) {
        throw UsageFailure("\"" + setting + "\" is no setting: expected Item=Choice");
    }
    const std::string_view value = std::string_view(setting).substr(equals + 1);
    PageItem& item = FindItem(page, std::string_view(setting).substr(0, equals));
    if (item.Kind() == ItemKind::Number) {
        page.SetNumber(item, ParseNumber(item, value));
    } else {
        page.Choose(item, FindChoice(item, value));
    }
}

}  // namespace host
