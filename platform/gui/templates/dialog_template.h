/// Dialog templates in the platform's binary form.
#pragma once

#include <windef.h>

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace platform {

/// One control; position and size in dialog units.
struct ControlTemplate {
    DWORD Style;
    int X, Y, Width, Height;
    int Id;
    std::u16string ClassName;  ///< also of the classes that templates give by number
    std::u16string Text;
};

struct DialogTemplate {
    DWORD Style;
    DWORD ExtendedStyle;
    int Width, Height;  ///< dialog units
    std::u16string Caption;
    int PointSize;
    std::u16string FontFace;
    std::vector<ControlTemplate> Controls;  ///< in tab order
};

/// Reads a template that sets its font. Nothing when the bytes are cut short, the template is of
/// the extended kind, or a control is of a class that the platform does not have.
std::optional<DialogTemplate> ParseDialogTemplate(std::span<const unsigned char> bytes);

}  // namespace platform
