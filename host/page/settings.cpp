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
        throw Failure(Quoted(item.Name()) + " is a number from " + item.Range(" to ") + ", not " +
                      Quoted(text));
    }
    return number;
}

std::size_t FindChoice(const PageItem& item, std::string_view name) {
    const std::vector<PageChoice> choices = item.Choices();
    std::vector<std::string> known;
    for (std::size_t i = 0; i < choices.size(); ++i) {
        const PageChoice& choice = choices[i];
        if (!choice.visible) continue;
        if (EqualIgnoringAsciiCase(choice.text, name) ||
            EqualIgnoringAsciiCase(choice.keyword, name)) {
            return i;
        }
        known.push_back(choice.text);
    }
    throw Failure(UnknownName("choice of " + Quoted(item.Name()), name, known));
}

}  // namespace

PageItem& FindItem(PageSession& page, std::string_view name) {
    std::vector<std::string> known;
    for (PageItem& item : page.Items()) {
        if (!item.IsSetting()) continue;
        if (EqualIgnoringAsciiCase(item.Name(), name) ||
            EqualIgnoringAsciiCase(item.Keyword(), name)) {
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
        throw UsageFailure(Quoted(setting) + " is no setting: expected Item=Choice");
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
