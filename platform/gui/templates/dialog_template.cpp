#include "platform/gui/templates/dialog_template.h"

#include <winresrc.h>

#include <algorithm>
#include <cstdint>

namespace platform {
namespace {

constexpr WORD kOrdinalMark = 0xFFFF;
constexpr WORD kFirstClassAtom = 0x80;

/// The classes that templates give by number, from `kFirstClassAtom`.
constexpr const char16_t* kNumberedClasses[] = {u"BUTTON",  u"EDIT",      u"STATIC",
                                                u"LISTBOX", u"SCROLLBAR", u"COMBOBOX"};

/// Reads little-endian fields; once it has met the end everything is 0 and `Whole` is false.
class Reader {
public:
    explicit Reader(std::span<const unsigned char> bytes) : bytes_(bytes) {}

    [[nodiscard]] bool Whole() const { return whole_; }

    WORD Word() {
        if (bytes_.size() - position_ < 2) {
            whole_ = false;
            position_ = bytes_.size();
            return 0;
        }
        const auto value = static_cast<WORD>(bytes_[position_] | (bytes_[position_ + 1] << 8));
        position_ += 2;
        return value;
    }

    DWORD DoubleWord() {
        const DWORD low = Word();
        return low | (static_cast<DWORD>(Word()) << 16);
    }

    int Signed() { return static_cast<std::int16_t>(Word()); }

    std::u16string Text() {
        std::u16string text;
        for (WORD unit = Word(); unit != 0; unit = Word()) text.push_back(unit);
        return text;
    }

    /// A text, or the number of a resource or class, which is left in `*ordinal`.
    std::u16string TextOrOrdinal(WORD* ordinal) {
        *ordinal = 0;
        const std::size_t start = position_;
        if (Word() == kOrdinalMark) {
            *ordinal = Word();
            return {};
        }
        position_ = start;
        return Text();
    }

    void Skip(std::size_t count) {
        if (bytes_.size() - position_ < count) whole_ = false;
        position_ += std::min(count, bytes_.size() - position_);
    }

    void AlignToDoubleWord() { Skip((4 - position_ % 4) % 4); }

private:
    std::span<const unsigned char> bytes_;
    std::size_t position_ = 0;
    bool whole_ = true;
};

std::u16string ClassName(Reader& reader) {
    WORD atom;
    std::u16string name = reader.TextOrOrdinal(&atom);
    if (atom >= kFirstClassAtom && atom < kFirstClassAtom + std::size(kNumberedClasses)) {
        name = kNumberedClasses[atom - kFirstClassAtom];
    }
    return name;
}

ControlTemplate ReadControl(Reader& reader) {
    reader.AlignToDoubleWord();
    ControlTemplate control = {};
    control.Style = reader.DoubleWord();
    reader.DoubleWord();  // the extended style
    control.X = reader.Signed();
    control.Y = reader.Signed();
    control.Width = reader.Signed();
    control.Height = reader.Signed();
    control.Id = reader.Word();
    control.ClassName = ClassName(reader);
    WORD picture;
    control.Text = reader.TextOrOrdinal(&picture);
    reader.Skip(reader.Word());  // the control's creation data
    return control;
}

}  // namespace

std::optional<DialogTemplate> ParseDialogTemplate(std::span<const unsigned char> bytes) {
    Reader reader(bytes);
    DialogTemplate dialog = {};
    dialog.Style = reader.DoubleWord();
    dialog.ExtendedStyle = reader.DoubleWord();
    const int count = reader.Word();
    reader.Skip(4);  // where on the screen: dialogs are centred
    dialog.Width = reader.Signed();
    dialog.Height = reader.Signed();
    WORD ordinal;
    reader.TextOrOrdinal(&ordinal);  // the menu
    reader.TextOrOrdinal(&ordinal);  // the window class
    dialog.Caption = reader.Text();
    if ((dialog.Style & DS_SETFONT) == 0) return std::nullopt;
    dialog.PointSize = reader.Word();
    dialog.FontFace = reader.Text();
    for (int i = 0; i < count && reader.Whole(); ++i) {
        dialog.Controls.push_back(ReadControl(reader));
        if (dialog.Controls.back().ClassName.empty()) return std::nullopt;
    }
    if (!reader.Whole()) return std::nullopt;
    return dialog;
}

}  // namespace platform
