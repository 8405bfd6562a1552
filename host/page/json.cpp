#include "host/page/json.h"

#include <array>
#include <cstdint>
#include <cstring>

#include "platform/text/text_encoding.h"

namespace host {
namespace {

using Json = nlohmann::ordered_json;

enum class FieldType { Unsigned, Signed, Byte, Text };

/// One field of a stored record, little-endian.
struct Field {
    const char* name;
    std::size_t offset;  ///< bytes
    FieldType type;
    std::size_t capacity = 0;  ///< of a text, in 16-bit units
};

constexpr std::size_t kWatermarkOffset = 48;
constexpr std::size_t kPrivateDevmodeSize = 348;

constexpr std::array kPrivateFields = {
    Field{"dwSize", 0, FieldType::Unsigned},
    Field{"dwSignature", 4, FieldType::Unsigned},
    Field{"dwVersion", 8, FieldType::Unsigned},
    Field{"CappedLevel", 12, FieldType::Signed},
    Field{"Reserved1", 16, FieldType::Unsigned},
    Field{"Scaling", 20, FieldType::Unsigned},
    Field{"WatermarkIndex", 24, FieldType::Unsigned},
    Field{"WatermarkOn", 28, FieldType::Unsigned},
    Field{"Reserved2", 32, FieldType::Unsigned},
    Field{"TransmitOnce", 36, FieldType::Unsigned},
    Field{"RenderingIntent", 40, FieldType::Unsigned},
    Field{"PagesPerSheet", 44, FieldType::Unsigned},
};

constexpr std::array kWatermarkFields = {
    Field{"Index", 0, FieldType::Unsigned},
    Field{"InUse", 4, FieldType::Unsigned},
    Field{"Name", 8, FieldType::Text, 32},
    Field{"Text", 72, FieldType::Text, 64},
    Field{"FaceName", 200, FieldType::Text, 32},
    Field{"PointSize", 264, FieldType::Signed},
    Field{"Bold", 268, FieldType::Byte},
    Field{"Italic", 269, FieldType::Byte},
    Field{"Red", 270, FieldType::Byte},
    Field{"Green", 271, FieldType::Byte},
    Field{"Blue", 272, FieldType::Byte},
    Field{"AngleKind", 276, FieldType::Unsigned},
    Field{"AngleDegrees", 280, FieldType::Signed},
    Field{"PositionKind", 284, FieldType::Unsigned},
    Field{"OffsetX", 288, FieldType::Signed},
    Field{"OffsetY", 292, FieldType::Signed},
    Field{"ColorIndex", 296, FieldType::Unsigned},
};

template <typename Number>
Number ReadNumber(std::span<const BYTE> bytes) {
    Number number;
    std::memcpy(&number, bytes.data(), sizeof(number));
    return number;
}

std::string ReadText(std::span<const BYTE> bytes, std::size_t capacity) {
    std::u16string text(capacity, u'\0');
    std::memcpy(text.data(), bytes.data(), capacity * sizeof(char16_t));
    return platform::Utf8(std::u16string_view(text).substr(0, text.find(u'\0')));
}

Json FieldToJson(const Field& field, std::span<const BYTE> record) {
    const std::span<const BYTE> bytes = record.subspan(field.offset);
    switch (field.type) {
        case FieldType::Unsigned:
            return ReadNumber<std::uint32_t>(bytes);
        case FieldType::Signed:
            return ReadNumber<std::int32_t>(bytes);
        case FieldType::Byte:
            return bytes[0];
        case FieldType::Text:
            return ReadText(bytes, field.capacity);
    }
    return nullptr;
}

template <std::size_t Count>
Json RecordToJson(const std::array<Field, Count>& fields, std::span<const BYTE> record) {
    Json object = Json::object();
    for (const Field& field : fields) object[field.name] = FieldToJson(field, record);
    return object;
}

const char* TypeName(ItemKind kind) {
    switch (kind) {
        case ItemKind::Group:
            return "group";
        case ItemKind::List:
            return "list";
        case ItemKind::Number:
            return "up-down";
    }
    return "";
}

Json ChoicesToJson(const PageItem& item) {
    Json choices = Json::array();
    for (const PageChoice& choice : item.Choices()) {
        choices.push_back({{"text", choice.text},
                           {"enabled", choice.enabled},
                           {"visible", choice.visible},
                           {"stop", choice.stopped}});
    }
    return choices;
}

Json ItemToJson(const PageItem& item) {
    const OPTITEM& record = item.Record();
    const OIEXT* help = item.Help();
    Json object = {{"name", item.Name()},
                   {"owner", item.FromDriver() ? "driver" : "plug-in"},
                   {"level", record.Level},
                   {"type", TypeName(item.Kind())},
                   {"choices", ChoicesToJson(item)},
                   {"selection", record.Sel},
                   {"enabled", item.Enabled()},
                   {"visible", item.Visible()},
                   {"changed", item.Changed()},
                   {"helpFile", nullptr},
                   {"helpIndex", record.HelpIndex}};
    if (help != nullptr && help->pHelpFile != nullptr)
        object["helpFile"] = platform::Utf8(help->pHelpFile);
    return object;
}

}  // namespace

Json PrivateDevmodeToJson(std::span<const BYTE> block) {
    if (block.size() < kPrivateDevmodeSize) return nullptr;
    Json object = RecordToJson(kPrivateFields, block);
    object["Watermark"] = RecordToJson(kWatermarkFields, block.subspan(kWatermarkOffset));
    return object;
}

Json PageToJson(PageSession& page) {
    Json items = Json::array();
    for (const PageItem& item : page.Items()) items.push_back(ItemToJson(item));
    return {{"printer", platform::Utf8(page.Printer().name)},
            {"model", std::string(1, page.PrinterModel().letter)},
            {"modelIndex", page.PrinterModel().index},
            {"items", std::move(items)},
            {"privateDevmode", PrivateDevmodeToJson(page.Settings().PlugIn())}};
}

}  // namespace host
