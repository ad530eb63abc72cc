#include "headless/deletion_json.h"

#include "cleaner/known_names.h"
#include "headless/json_text.h"
#include "headless/starter_command.h"

#include <string_view>

namespace brovin::headless {
namespace {

std::string_view jsonBool(bool value) {
    return value ? "true" : "false";
}

std::string_view whyOf(cleaner::Match match) {
    if (match == cleaner::Match::Icon)
        return "icon";
    return match == cleaner::Match::DotDash ? "._" : "name";
}

std::string appleDoubleJson(const cleaner::AppleDouble& told) {
    std::string json = "{\"nothingLost\":";
    json.append(jsonBool(told.nothingLost()));
    json += ",\"resourceFork\":" + std::to_string(told.resourceFork) + ",\"finderInfo\":";
    json.append(jsonBool(told.finderInfo));
    json += ",\"otherParts\":" + std::to_string(told.otherParts) + ",\"damaged\":";
    json.append(jsonBool(told.damaged)).append(",\"attributes\":[");
    for (std::size_t i = 0; i < told.attributes.size(); ++i)
        json += (i == 0 ? "{\"name\":" : ",{\"name\":") + jsonString(told.attributes[i].name) +
                ",\"bytes\":" + std::to_string(told.attributes[i].length) + "}";
    return json + "]}";
}

} // namespace

std::string deletionJson(const cleaner::Deletion& deletion, bool dryRun,
                         const language::MessageTable& messages) {
    const bool folder = deletion.kind == platform::EntryKind::Folder;
    std::string json = "{\"path\":" + jsonString(deletion.path());
    json += std::string(",\"kind\":\"") + (folder ? "folder" : "file") + "\",\"why\":\"";
    json.append(whyOf(deletion.match)).append("\",\"kb\":" + std::to_string(deletion.kb));
    json.append(",\"deleted\":").append(jsonBool(deletion.deleted && !dryRun));
    if (!deletion.deleted)
        json += ",\"reason\":" + jsonString(deletion.reason);
    if (const auto known = cleaner::knownName(deletion.listed))
        json += ",\"known\":\"" + std::string(nameOf(known->origin)) +
                "\",\"lost\":" + jsonString(messages.getText(known->told));
    if (deletion.carried != nullptr && deletion.carried->told)
        json += ",\"appledouble\":" + appleDoubleJson(*deletion.carried->told);
    return json + "}";
}

} // namespace brovin::headless
