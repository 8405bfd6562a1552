#include "host/driver/option_items.h"

#include <algorithm>

#include "platform/text/text_encoding.h"

namespace host {
namespace {

std::string TextOf(const WCHAR* text) {
    return text ? platform::Utf8(text) : std::string();
}

}  // namespace

std::string KeywordFrom(std::string_view text) {
    std::string keyword(text);
    keyword.erase(std::remove(keyword.begin(), keyword.end(), ' '), keyword.end());
    return keyword;
}

LPTSTR ItemTree::KeepText(std::u16string text) {
    return texts_.emplace_back(std::move(text)).data();
}

OPTITEM& ItemTree::AddRecord(const ItemSpec& spec, std::vector<ChoiceSpec> choices) {
    OPTITEM& record = records_.emplace_back();
    record.cbSize = sizeof(OPTITEM);
    record.Level = spec.level;
    record.pName = KeepText(spec.name);
    record.DMPubID = spec.publicId;
    details_.push_back({spec.keyword, std::move(choices)});
    return record;
}

OPTTYPE& ItemTree::AddType(OPTITEM& record, BYTE type, std::vector<OPTPARAM> parameters) {
    std::vector<OPTPARAM>& kept = parameters_.emplace_back(std::move(parameters));
    OPTTYPE& optType = types_.emplace_back();
    optType.cbSize = sizeof(OPTTYPE);
    optType.Type = type;
    optType.Count = static_cast<WORD>(kept.size());
    optType.pOptParam = kept.data();
    record.pOptType = &optType;
    // The driver wants to hear of every change, so that the public devmode is never behind.
    record.Flags = OPTIF_CALLBACK;
    return optType;
}

void ItemTree::AddGroup(std::u16string name, BYTE level) {
    AddRecord({std::move(name), "", level, DMPUB_NONE}, {});
}

void ItemTree::AddList(const ItemSpec& spec, std::vector<ChoiceSpec> choices) {
    std::vector<OPTPARAM> parameters;
    for (const ChoiceSpec& choice : choices) {
        OPTPARAM& parameter = parameters.emplace_back();
        parameter.cbSize = sizeof(OPTPARAM);
        parameter.pData = KeepText(choice.text);
    }
    OPTITEM& record = AddRecord(spec, std::move(choices));
    AddType(record, TVOT_COMBOBOX, std::move(parameters));
}

void ItemTree::AddNumber(const ItemSpec& spec, LONG lowest, LONG highest) {
    std::vector<OPTPARAM> parameters(2);
    parameters[0].cbSize = parameters[1].cbSize = sizeof(OPTPARAM);
    parameters[1].IconID = static_cast<ULONG_PTR>(lowest);
    parameters[1].lParam = highest;
    OPTITEM& record = AddRecord(spec, {});
    AddType(record, TVOT_UDARROW, std::move(parameters));
}

LONG ItemTree::ChoiceOfValue(std::size_t item, LONG value) const {
    const std::vector<ChoiceSpec>& choices = Choices(item);
    const auto found = std::find_if(choices.begin(), choices.end(), [&](const ChoiceSpec& choice) {
        return choice.value == value;
    });
    return found == choices.end() ? 0 : static_cast<LONG>(found - choices.begin());
}

LONG ItemTree::SelectedValue(std::size_t item) const {
    const std::vector<ChoiceSpec>& choices = Choices(item);
    const LONG selection = records_[item].Sel;
    const bool known = selection >= 0 && static_cast<std::size_t>(selection) < choices.size();
    return choices[known ? static_cast<std::size_t>(selection) : 0].value;
}

PageItem::PageItem(OPTITEM& record, bool fromDriver, std::string keyword)
    : record_(&record),
      fromDriver_(fromDriver),
      keyword_(keyword.empty() ? KeywordFrom(TextOf(record.pName)) : std::move(keyword)) {}

std::string PageItem::Name() const {
    return TextOf(record_->pName);
}

ItemKind PageItem::Kind() const {
    const OPTTYPE* type = record_->pOptType;
    if (!type || !type->pOptParam) return ItemKind::Group;
    if (type->Type == TVOT_UDARROW && type->Count >= 2) return ItemKind::Number;
    return type->Type == TVOT_UDARROW ? ItemKind::Group : ItemKind::List;
}

bool PageItem::HasButton() const {
    return (record_->Flags & OPTIF_EXT_IS_EXTPUSH) != 0 && record_->pExtPush != nullptr;
}

const OIEXT* PageItem::Help() const {
    return (record_->Flags & OPTIF_HAS_POIEXT) != 0 ? record_->pOIExt : nullptr;
}

std::size_t PageItem::ChoiceCount() const {
    return Kind() == ItemKind::Group ? 0 : record_->pOptType->Count;
}

const OPTPARAM& PageItem::Choice(std::size_t choice) const {
    return record_->pOptType->pOptParam[choice];
}

std::string PageItem::ChoiceText(std::size_t choice) const {
    return TextOf(Choice(choice).pData);
}

std::string PageItem::ChoiceKeyword(std::size_t choice) const {
    if (choices_ && choice < choices_->size()) return (*choices_)[choice].keyword;
    return KeywordFrom(ChoiceText(choice));
}

bool PageItem::ChoiceVisible(std::size_t choice) const {
    return (Choice(choice).Flags & OPTPF_HIDE) == 0;
}

bool PageItem::ChoiceEnabled(std::size_t choice) const {
    return (Choice(choice).Flags & OPTPF_DISABLED) == 0;
}

bool PageItem::ChoiceStopped(std::size_t choice) const {
    return (Choice(choice).Flags & OPTPF_OVERLAY_STOP_ICON) != 0;
}

LONG PageItem::Lowest() const {
    return static_cast<LONG>(Choice(1).IconID);
}

LONG PageItem::Highest() const {
    return static_cast<LONG>(Choice(1).lParam);
}

std::string PageItem::Unit() const {
    return ChoiceText(0);
}

std::string PageItem::SelectionText() const {
    const LONG selection = record_->Sel;
    if (Kind() == ItemKind::Number) {
        const std::string unit = Unit();
        return std::to_string(selection) + (unit.empty() ? "" : " " + unit);
    }
    const bool known = selection >= 0 && static_cast<std::size_t>(selection) < ChoiceCount();
    return known ? ChoiceText(static_cast<std::size_t>(selection)) : std::string();
}

}  // namespace host
