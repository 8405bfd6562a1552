/// The driver's items of a property page, with the memory behind their records; and what any item,
/// the driver's or the plug-in's, means to a person.
#pragma once

#include <windows.h>

#include <compstui.h>

#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host {

/// A choice of a driver's list.
struct ChoiceSpec {
    std::u16string text;
    std::string keyword;
    LONG value;  ///< what the choice means in the driver's settings
};

/// A driver's item to be made.
struct ItemSpec {
    std::u16string name;
    std::string keyword;
    BYTE level;     ///< of the tree, from 0
    BYTE publicId;  ///< DMPUB_*
};

/// The driver's part of a page. Items are added first; their records stay where they are after the
/// last one was added.
class ItemTree {
public:
    void AddGroup(std::u16string name, BYTE level);
    void AddList(const ItemSpec& spec, std::vector<ChoiceSpec> choices);
    void AddNumber(const ItemSpec& spec, LONG lowest, LONG highest);

    std::vector<OPTITEM>& Records() { return records_; }
    const std::string& Keyword(std::size_t item) const { return details_[item].keyword; }
    const std::vector<ChoiceSpec>& Choices(std::size_t item) const {
        return details_[item].choices;
    }

    /// The choice that stands for a value; the first when none does.
    LONG ChoiceOfValue(std::size_t item, LONG value) const;
    /// The value of the selected choice; the first's when the selection is none of them.
    LONG SelectedValue(std::size_t item) const;

private:
    struct Details {
        std::string keyword;
        std::vector<ChoiceSpec> choices;
    };

    LPTSTR KeepText(std::u16string text);
    OPTITEM& AddRecord(const ItemSpec& spec, std::vector<ChoiceSpec> choices);
    OPTTYPE& AddType(OPTITEM& record, BYTE type, std::vector<OPTPARAM> parameters);

    std::vector<OPTITEM> records_;
    std::vector<Details> details_;
    std::deque<std::u16string> texts_;
    std::deque<OPTTYPE> types_;
    std::deque<std::vector<OPTPARAM>> parameters_;
};

enum class ItemKind { Group, List, Number };

/// One item of a page as it is shown, whoever made it. Nothing of the record is trusted further
/// than its counts and null pointers tell.
class PageItem {
public:
    /// \param keyword  the driver's; the plug-in's items have none and get one from their name.
    PageItem(OPTITEM& record, bool fromDriver, std::string keyword);

    OPTITEM& Record() const { return *record_; }
    bool FromDriver() const { return fromDriver_; }
    const std::string& Keyword() const { return keyword_; }
    std::string Name() const;  ///< UTF-8
    ItemKind Kind() const;
    bool Visible() const { return (record_->Flags & OPTIF_HIDE) == 0; }
    bool Enabled() const { return (record_->Flags & OPTIF_DISABLED) == 0; }
    bool Changed() const { return (record_->Flags & OPTIF_CHANGED) != 0; }
    bool HasButton() const;
    const OIEXT* Help() const;  ///< null without help

    // Lists.
    std::size_t ChoiceCount() const;
    const OPTPARAM& Choice(std::size_t choice) const;
    std::string ChoiceText(std::size_t choice) const;  ///< UTF-8
    std::string ChoiceKeyword(std::size_t choice) const;
    bool ChoiceVisible(std::size_t choice) const;
    bool ChoiceEnabled(std::size_t choice) const;
    bool ChoiceStopped(std::size_t choice) const;

    // Numbers.
    LONG Lowest() const;
    LONG Highest() const;
    std::string Unit() const;  ///< UTF-8

    /// The selection for a person: a choice's text, or the number with its unit.
    std::string SelectionText() const;

    void SetChoiceKeywords(const std::vector<ChoiceSpec>& choices) { choices_ = &choices; }

private:
    OPTITEM* record_;
    bool fromDriver_;
    std::string keyword_;
    const std::vector<ChoiceSpec>* choices_ = nullptr;
};

/// A text without its blanks: the keyword of what has no keyword of its own.
std::string KeywordFrom(std::string_view text);

}  // namespace host
