/// The models of the family, as the driver's maker tells them apart.
#pragma once

#include <windef.h>

#include <string>
#include <string_view>

namespace host {

struct Model {
    char letter;  ///< the fourth character of the model's file names
    DWORD index;
    std::u16string_view driverName;
    bool hasTray3;  ///< whether a third tray can be installed at all

    [[nodiscard]] std::u16string FileName(
        std::u16string_view rest) const;  ///< "QVR" + letter + rest
    [[nodiscard]] std::u16string ModuleName() const { return FileName(u"__UI.DLL"); }
};

/// The model of a letter, in either case; null for any other text.
[[nodiscard]] const Model* FindModel(std::string_view letter);

/// The model of a registered driver's name; null for a driver that is none of the family's.
[[nodiscard]] const Model* ModelOfDriver(std::u16string_view driverName);

}  // namespace host
