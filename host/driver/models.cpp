#include "host/driver/models.h"

#include <algorithm>
#include <array>

#include "host/errors/suggestions.h"

namespace host {
namespace {

constexpr auto kModels = std::to_array<Model>({
    {'U', 0, u"pigmentra 7120RZ", false},
    {'T', 1, u"pigmentra 7140RZ", true},
    {'V', 2, u"pigmentra 7160RZ", true},
});

template <typename Condition>
const Model* FirstModel(Condition condition) {
    const auto* found = std::ranges::find_if(kModels, condition);
    return found == kModels.end() ? nullptr : &*found;
}

}  // namespace

std::u16string Model::FileName(std::u16string_view rest) const {
    std::u16string name = u"QVR";
    name += static_cast<char16_t>(letter);
    name += rest;
    return name;
}

const Model* FindModel(std::string_view letter) {
    return FirstModel([&](const Model& model) {
        return EqualIgnoringAsciiCase(letter, std::string_view(&model.letter, 1));
    });
}

const Model* ModelOfDriver(std::u16string_view driverName) {
    return FirstModel([&](const Model& model) { return model.driverName == driverName; });
}

}  // namespace host
