/// What an item of a page, the driver's or the plug-in's, means to a person.
#pragma once

#include <windows.h>

#include <compstui.h>

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/driver/option_items.h"

namespace host {

enum class ItemKind { Group, List, Number };

/// A choice of an item as it is shown.
struct PageChoice {
    std::string text;  ///< UTF-8
    std::string keyword;
    bool visible = false;
    bool enabled = false;
    bool stopped = false;  ///< marked as not installed

    [[nodiscard]] bool Usable() const { return enabled && !stopped; }
};

/// One item of a page as it is shown, whoever made it. Nothing of the record is trusted further
/// than its counts and null pointers tell.
class PageItem {
public:
    /// One of the plug-in's, whose keywords come from the texts.
    /// \param block  the plug-in's of the page's devmode, which must live as long.
    PageItem(OPTITEM& record, std::span<const BYTE> block) : record_(&record), block_(block) {}
    /// One of the driver's, which must live as long.
    PageItem(OPTITEM& record, const std::string& keyword, const std::vector<ChoiceSpec>& choices)
        : record_(&record), driverKeyword_(&keyword), driverChoices_(&choices) {}

    [[nodiscard]] OPTITEM& Record() const { return *record_; }
    [[nodiscard]] bool FromDriver() const { return driverChoices_ != nullptr; }
    [[nodiscard]] std::string Keyword() const;
    [[nodiscard]] std::string Name() const;  ///< UTF-8
    [[nodiscard]] ItemKind Kind() const;
    [[nodiscard]] bool Visible() const { return !Has(OPTIF_HIDE); }
    [[nodiscard]] bool Enabled() const { return !Has(OPTIF_DISABLED); }
    [[nodiscard]] bool Changed() const { return Has(OPTIF_CHANGED); }
    /// Whether it is on the page and has something to set, now or later.
    [[nodiscard]] bool IsSetting() const { return Visible() && Kind() != ItemKind::Group; }
    [[nodiscard]] bool HasButton() const;
    [[nodiscard]] const WCHAR* ButtonTitle() const;  ///< null without a button or a title
    [[nodiscard]] const OIEXT* Help() const;         ///< null without help

    /// A list's choices, hidden ones too; of a number the unit and the range; of a group none.
    [[nodiscard]] std::vector<PageChoice> Choices() const;

    // Numbers.
    [[nodiscard]] LONG Lowest() const;
    [[nodiscard]] LONG Highest() const;
    [[nodiscard]] std::string Unit() const;  ///< UTF-8
    /// Both limits with something between them.
    [[nodiscard]] std::string Range(std::string_view between) const;

    /// The selection for a person: a choice's text, or the number with its unit.
    [[nodiscard]] std::string SelectionText() const;
    /// What belongs to the selection and is set by the item's button: the name of the watermark
    /// that is printed, in quotation marks. Empty for other items, and when none is printed.
    [[nodiscard]] std::string Detail() const;
    /// Whether the selected choice of a list carries a stop mark.
    [[nodiscard]] bool SelectionStopped() const;

private:
    [[nodiscard]] bool Has(DWORD flag) const { return (record_->Flags & flag) != 0; }
    [[nodiscard]] std::span<const OPTPARAM> Parameters() const;
    [[nodiscard]] PageChoice Choice(std::size_t choice) const;
    [[nodiscard]] std::optional<PageChoice> SelectedChoice() const;  ///< of a list

    OPTITEM* record_;
    std::span<const BYTE> block_;
    const std::string* driverKeyword_ = nullptr;
    const std::vector<ChoiceSpec>* driverChoices_ = nullptr;
};

/// A text without its blanks: the keyword of what has no keyword of its own.
[[nodiscard]] std::string KeywordFrom(std::string_view text);

}  // namespace host
