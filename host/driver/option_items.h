/// The driver's items of a property page, with the memory behind their records, and where their
/// values go.
#pragma once

#include <windows.h>

#include <compstui.h>

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace host {

/// A choice of a driver's list.
struct ChoiceSpec {
    std::u16string text;
    std::string keyword;  ///< empty: the text without its blanks
    LONG value;           ///< what the choice means in the driver's settings
};

/// A driver's item to be made.
struct ItemSpec {
    std::u16string name;
    std::string keyword;
    BYTE level;     ///< of the tree, from 0
    BYTE publicId;  ///< DMPUB_*
};

/// Brings the driver's settings in step with an item's value: the number, or what the selected
/// choice means.
using TakeValue = std::function<void(LONG)>;

/// The driver's part of a page. Items are added first; their records stay where they are after the
/// last one was added.
class OptionItems {
public:
    void AddGroup(std::u16string name, BYTE level);
    /// \param value  selects the choice that means it; the first when none does.
    void AddList(const ItemSpec& spec, std::vector<ChoiceSpec> choices, LONG value, TakeValue take);
    void AddNumber(const ItemSpec& spec, LONG lowest, LONG highest, LONG number, TakeValue take);

    [[nodiscard]] std::vector<OPTITEM>& Records() { return records_; }
    [[nodiscard]] const std::string& Keyword(std::size_t item) const {
        return details_[item].keyword;
    }
    [[nodiscard]] const std::vector<ChoiceSpec>& Choices(std::size_t item) const {
        return details_[item].choices;
    }

    /// Brings the driver's settings in step with the item of a record; other records are ignored.
    void Take(const OPTITEM* record) const;
    void TakeAll() const;

private:
    struct Details {
        std::string keyword;
        std::vector<ChoiceSpec> choices;
        TakeValue take;  ///< none for groups
    };

    LPTSTR KeepText(std::u16string text);
    OPTITEM& AddRecord(const ItemSpec& spec, std::vector<ChoiceSpec> choices, TakeValue take);
    void AddType(OPTITEM& record, BYTE type, std::vector<OPTPARAM> parameters);
    [[nodiscard]] LONG Value(std::size_t item) const;

    std::vector<OPTITEM> records_;
    std::vector<Details> details_;  ///< one for each record
    std::deque<std::u16string> texts_;
    std::deque<OPTTYPE> types_;
    std::deque<std::vector<OPTPARAM>> parameters_;
};

}  // namespace host
