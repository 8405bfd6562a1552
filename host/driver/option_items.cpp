#include "host/driver/option_items.h"

#include <algorithm>
#include <utility>

namespace host {

LPTSTR OptionItems::KeepText(std::u16string text) {
    return texts_.emplace_back(std::move(text)).data();
}

OPTITEM& OptionItems::AddRecord(const ItemSpec& spec, std::vector<ChoiceSpec> choices,
                                TakeValue take) {
    OPTITEM& record = records_.emplace_back();
    record.cbSize = sizeof(OPTITEM);
    record.Level = spec.level;
    record.pName = KeepText(spec.name);
    record.DMPubID = spec.publicId;
    details_.push_back({spec.keyword, std::move(choices), std::move(take)});
    return record;
}

void OptionItems::AddType(OPTITEM& record, BYTE type, std::vector<OPTPARAM> parameters) {
    std::vector<OPTPARAM>& kept = parameters_.emplace_back(std::move(parameters));
    for (OPTPARAM& parameter : kept) parameter.cbSize = sizeof(OPTPARAM);
    OPTTYPE& optType = types_.emplace_back();
    optType.cbSize = sizeof(OPTTYPE);
    optType.Type = type;
    optType.Count = static_cast<WORD>(kept.size());
    optType.pOptParam = kept.data();
    record.pOptType = &optType;
    // The driver wants to hear of every change, so that the public devmode is never behind.
    record.Flags = OPTIF_CALLBACK;
}

void OptionItems::AddGroup(std::u16string name, BYTE level) {
    AddRecord({std::move(name), "", level, DMPUB_NONE}, {}, nullptr);
}

void OptionItems::AddList(const ItemSpec& spec, std::vector<ChoiceSpec> choices, LONG value,
                          TakeValue take) {
    std::vector<OPTPARAM> parameters;
    for (const ChoiceSpec& choice : choices) {
        parameters.emplace_back().pData = KeepText(choice.text);
    }
    const auto selected = std::ranges::find(choices, value, &ChoiceSpec::value);
    const auto selection = selected == choices.end() ? 0 : selected - choices.begin();
    OPTITEM& record = AddRecord(spec, std::move(choices), std::move(take));
    record.Sel = static_cast<LONG>(selection);
    AddType(record, TVOT_COMBOBOX, std::move(parameters));
}

void OptionItems::AddNumber(const ItemSpec& spec, LONG lowest, LONG highest, LONG number,
                            TakeValue take) {
    std::vector<OPTPARAM> parameters(2);
    parameters[1].IconID = static_cast<ULONG_PTR>(lowest);
    parameters[1].lParam = highest;
    OPTITEM& record = AddRecord(spec, {}, std::move(take));
    record.Sel = number;
    AddType(record, TVOT_UDARROW, std::move(parameters));
}

// A selection that is none of the choices means the first.
LONG OptionItems::Value(std::size_t item) const {
    const std::vector<ChoiceSpec>& choices = Choices(item);
    const LONG selection = records_[item].Sel;
    if (choices.empty()) return selection;
    const bool known = selection >= 0 && std::cmp_less(selection, choices.size());
    return choices[known ? static_cast<std::size_t>(selection) : 0].value;
}

void OptionItems::Take(const OPTITEM* record) const {
    for (std::size_t i = 0; i < records_.size(); ++i) {
        if (&records_[i] == record && details_[i].take) details_[i].take(Value(i));
    }
}

void OptionItems::TakeAll() const {
    for (const OPTITEM& record : records_) Take(&record);
}

}  // namespace host
