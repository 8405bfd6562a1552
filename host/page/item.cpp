#include "host/page/item.h"

#include "host/errors/failure.h"
#include "host/page/stored_records.h"
#include "platform/text/text_encoding.h"

namespace host {
namespace {

// Of the item with the button, as the plug-in builds it.
constexpr LONG kWatermarkEnabled = 0;

std::string TextOf(const WCHAR* text) {
    return text != nullptr ? platform::Utf8(text) : std::string();
}

}  // namespace

std::string KeywordFrom(std::string_view text) {
    std::string keyword(text);
    std::erase(keyword, ' ');
    return keyword;
}

std::string PageItem::Keyword() const {
    const bool own = driverKeyword_ != nullptr && !driverKeyword_->empty();
    return own ? *driverKeyword_ : KeywordFrom(Name());
}

std::string PageItem::Name() const {
    return TextOf(record_->pName);
}

ItemKind PageItem::Kind() const {
    const OPTTYPE* type = record_->pOptType;
    if (type == nullptr || type->pOptParam == nullptr) return ItemKind::Group;
    if (type->Type != TVOT_UDARROW) return ItemKind::List;
    return type->Count >= 2 ? ItemKind::Number : ItemKind::Group;
}

bool PageItem::HasButton() const {
    return Has(OPTIF_EXT_IS_EXTPUSH) && record_->pExtPush != nullptr;
}

const WCHAR* PageItem::ButtonTitle() const {
    return HasButton() ? record_->pExtPush->pTitle : nullptr;
}

const OIEXT* PageItem::Help() const {
    return Has(OPTIF_HAS_POIEXT) ? record_->pOIExt : nullptr;
}

std::span<const OPTPARAM> PageItem::Parameters() const {
    if (Kind() == ItemKind::Group) return {};
    return {record_->pOptType->pOptParam, record_->pOptType->Count};
}

PageChoice PageItem::Choice(std::size_t choice) const {
    const OPTPARAM& parameter = Parameters()[choice];
    const bool range = Kind() == ItemKind::Number && choice == 1;
    const std::string text = range ? Range("..") : TextOf(parameter.pData);
    const bool driver = driverChoices_ != nullptr && choice < driverChoices_->size();
    const std::string keyword = driver ? (*driverChoices_)[choice].keyword : "";
    return {text, keyword.empty() ? KeywordFrom(text) : keyword,
            (parameter.Flags & OPTPF_HIDE) == 0, (parameter.Flags & OPTPF_DISABLED) == 0,
            (parameter.Flags & OPTPF_OVERLAY_STOP_ICON) != 0};
}

std::vector<PageChoice> PageItem::Choices() const {
    std::vector<PageChoice> choices;
    for (std::size_t i = 0; i < Parameters().size(); ++i) choices.push_back(Choice(i));
    return choices;
}

LONG PageItem::Lowest() const {
    return static_cast<LONG>(Parameters()[1].IconID);
}

LONG PageItem::Highest() const {
    return static_cast<LONG>(Parameters()[1].lParam);
}

std::string PageItem::Unit() const {
    return TextOf(Parameters()[0].pData);
}

std::string PageItem::Range(std::string_view between) const {
    return std::to_string(Lowest()) + std::string(between) + std::to_string(Highest());
}

std::optional<PageChoice> PageItem::SelectedChoice() const {
    const LONG selection = record_->Sel;
    const bool known =
        Kind() == ItemKind::List && selection >= 0 && std::cmp_less(selection, Parameters().size());
    return known ? std::optional(Choice(static_cast<std::size_t>(selection))) : std::nullopt;
}

std::string PageItem::SelectionText() const {
    if (Kind() == ItemKind::Number) {
        return std::to_string(record_->Sel) + (Unit().empty() ? "" : " " + Unit());
    }
    return SelectedChoice().value_or(PageChoice{}).text;
}

std::string PageItem::Detail() const {
    if (!HasButton() || record_->Sel != kWatermarkEnabled) return "";
    const std::string name = WatermarkNameIn(block_);
    return name.empty() ? "" : Quoted(name);
}

bool PageItem::SelectionStopped() const {
    return SelectedChoice().value_or(PageChoice{}).stopped;
}

}  // namespace host
