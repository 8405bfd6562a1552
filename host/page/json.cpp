#include "host/page/json.h"

#include "host/page/stored_records.h"
#include "platform/text/text_encoding.h"

namespace host {
namespace {

using Json = nlohmann::ordered_json;

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
                           {"keyword", choice.keyword},
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
                   {"keyword", item.Keyword()},
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
    if (item.Kind() == ItemKind::Number) {
        object["minimum"] = item.Lowest();
        object["maximum"] = item.Highest();
        object["unit"] = item.Unit();
    }
    return object;
}

}  // namespace

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
