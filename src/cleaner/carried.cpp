#include "cleaner/carried.h"

#include "text/utf8.h"

#include <array>
#include <vector>

namespace brovin::cleaner {

Carried lookInto(platform::FolderEntries& folder, std::string_view trueName, std::uint64_t bytes) {
    Carried carried;
    std::array<std::uint8_t, kAppleDoubleHead> memory;
    const auto length = folder.head(trueName, memory);
    if (!length)
        return carried;
    if (*length == 0 && bytes == 0)
        return {false, std::nullopt};
    carried.told = readAppleDouble(std::span(memory).first(*length), bytes);
    carried.something = !carried.told || !carried.told->nothingLost();
    return carried;
}

std::string carriedText(const Carried& carried, const language::MessageTable& messages,
                        const platform::Regional& regional) {
    if (!carried.something)
        return messages.getText("carriesNothing");
    if (!carried.told)
        return messages.getText("carriesUnknown");
    const AppleDouble& told = *carried.told;
    const auto number = [&regional](std::uint64_t count) {
        return regional.grouped(static_cast<std::int64_t>(count));
    };
    std::vector<std::string> parts;
    if (told.resourceFork > 0)
        parts.push_back(messages.getText("carriesResourceFork", {number(told.resourceFork)}));
    if (told.finderInfo)
        parts.push_back(messages.getText("carriesFinderInfo"));
    for (const AppleDouble::Attribute& attribute : told.attributes) {
        // What Mac users know by a name of its own.
        if (attribute.name == "com.apple.metadata:_kMDItemUserTags")
            parts.push_back(messages.getText("carriesTags"));
        else if (attribute.name == "com.apple.metadata:kMDItemFinderComment")
            parts.push_back(messages.getText("carriesComment"));
        else
            parts.push_back(messages.getText("carriesAttribute",
                                             {text::displayText(attribute.name), number(attribute.length)}));
    }
    if (told.otherParts > 0)
        parts.push_back(messages.getText("carriesOther", {number(told.otherParts)}));
    if (told.damaged)
        parts.push_back(messages.getText("carriesDamaged"));
    std::string line;
    for (const std::string& part : parts)
        line += (line.empty() ? "" : "; ") + part;
    return line;
}

} // namespace brovin::cleaner
