#include "watermark/watermark_codec.h"

namespace oemui {
namespace {

constexpr std::size_t kDigitScratch = 255;
constexpr int kNoDigit = 36;

/// The digit's value in the largest radix; `kNoDigit` for any other character.
int DigitValue(WCHAR character) {
    if (character >= TEXT('0') && character <= TEXT('9')) return character - TEXT('0');
    if (character >= TEXT('A') && character <= TEXT('Z')) return character - TEXT('A') + kDecimal;
    if (character >= TEXT('a') && character <= TEXT('z')) return character - TEXT('a') + kDecimal;
    return kNoDigit;
}

/// The fields of a line, one after the other; empty ones behind the last.
class FieldReader {
public:
    explicit FieldReader(TextView line) : rest_(line.substr(0, line.find(WCHAR{0}))) {}

    TextView Text() {
        const TextView field = rest_.substr(0, rest_.find(TEXT(',')));
        rest_.remove_prefix(std::min(field.size() + 1, rest_.size()));
        return field;
    }

    INT32 Number() { return ParseInteger(Text(), kDecimal); }

    BYTE Byte() { return static_cast<BYTE>(Number()); }

private:
    TextView rest_;
};

}  // namespace

INT32 ParseInteger(TextView text, int radix) {
    // Unsigned: a value that does not fit wraps around.
    UINT32 value = 0;
    const TextView counted = text.substr(0, kDigitScratch);
    for (const WCHAR character : counted.substr(0, counted.find(WCHAR{0}))) {
        const int digit = DigitValue(character);
        if (digit == kNoDigit || digit >= radix) continue;
        value = value * static_cast<UINT32>(radix) + static_cast<UINT32>(digit);
    }
    return static_cast<INT32>(value);
}

void ParseDefaultWatermarkLine(TextView line, WatermarkRecord* record) {
    FieldReader fields(line);
    // Behind the terminators nothing of another line or list may travel on with the record.
    std::ranges::fill(record->Name, WCHAR{0});
    std::ranges::fill(record->Text, WCHAR{0});
    std::ranges::fill(record->FaceName, WCHAR{0});
    record->InUse = 1;
    record->Index = static_cast<UINT32>(fields.Number());
    CopyText(record->Name, fields.Text());
    CopyText(record->Text, fields.Text());
    CopyText(record->FaceName, fields.Text());
    record->PointSize = fields.Number();
    record->Bold = fields.Byte();
    record->Italic = fields.Byte();
    record->Red = fields.Byte();
    record->Green = fields.Byte();
    record->Blue = fields.Byte();
    record->AngleKind = fields.Byte();
    record->AngleDegrees = fields.Number();
    record->PositionKind = static_cast<UINT32>(fields.Number());
    record->OffsetX = fields.Number();
    record->OffsetY = fields.Number();
}

}  // namespace oemui
