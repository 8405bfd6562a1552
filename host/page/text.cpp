#include "host/page/text.h"

#include <algorithm>
#include <ostream>

#include "host/errors/failure.h"
#include "platform/text/text_encoding.h"

namespace host {
namespace {

constexpr std::size_t kValueColumn = 34;

void PrintChoices(const PageItem& item, std::ostream& out) {
    const std::vector<PageChoice> choices = item.Choices();
    for (std::size_t i = 0; i < choices.size(); ++i) {
        if (!choices[i].visible) continue;
        const bool current = item.Record().Sel == static_cast<LONG>(i);
        const std::string keyword = (current ? "*" : "") + Escaped(choices[i].keyword);
        out << ' ' << (choices[i].Usable() ? keyword : "[" + keyword + "]");
    }
}

void PrintNumber(const PageItem& item, std::ostream& out) {
    out << ' ' << item.Range("..");
    if (!item.Unit().empty()) out << ' ' << item.Unit();
    out << " *" << item.Record().Sel;
}

std::string Notes(const PageItem& item) {
    std::string notes = item.Detail().empty() ? "" : "  " + item.Detail();
    const WCHAR* title = item.ButtonTitle();
    if (title != nullptr) notes += "  <" + platform::Utf8(title) + ">";
    if (item.SelectionStopped()) notes += "  (stop: not installed)";
    if (!item.Enabled()) notes += "  (not available)";
    return notes;
}

void PrintTreeItem(const PageItem& item, std::ostream& out) {
    std::string line(std::size_t{2} * item.Record().Level + 2, ' ');
    line += item.Name();
    if (item.Kind() != ItemKind::Group) {
        line.resize(std::max(line.size() + 2, kValueColumn), ' ');
        line += Escaped(item.SelectionText()) + Notes(item);
    }
    out << line << '\n';
}

}  // namespace

void PrintPage(PageSession& page, std::ostream& out) {
    out << Escaped(platform::Utf8(page.Printer().name)) << " ("
        << platform::Utf8(page.Printer().driver) << ", model " << page.PrinterModel().letter
        << "), " << (page.Kind() == PageKind::Document ? "document settings" : "printer settings")
        << '\n';
    for (const PageItem& item : page.Items()) {
        if (item.Visible()) PrintTreeItem(item, out);
    }
}

void PrintItemLines(PageSession& page, std::ostream& out) {
    for (const PageItem& item : page.Items()) {
        if (!item.IsSetting()) continue;
        out << item.Keyword() << '/' << item.Name() << ':';
        if (item.Kind() == ItemKind::Number) {
            PrintNumber(item, out);
        } else {
            PrintChoices(item, out);
        }
        if (!item.Detail().empty()) out << ' ' << item.Detail();
        if (!item.Enabled()) out << " (disabled)";
        out << '\n';
    }
}

}  // namespace host
