#include "cleaner/stored_list.h"

#include "text/numbers.h"

#include <cstdint>

namespace brovin::cleaner {

std::vector<ListEntry> loadList(const settings::Settings& settings, std::string_view section,
                                const platform::Letters& letters) {
    const std::string number = settings.readFrom(section, "Number").value_or("0");
    const std::int16_t count = text::leadingInt16(number).value_or(std::int16_t{0});
    std::vector<ListEntry> entries;
    for (int i = 1; i <= count; ++i) {
        const std::string index = std::to_string(i);
        ListEntry entry;
        entry.text = letters.lowerCase(settings.readFrom(section, "Entry" + index).value_or(""));
        if (entry.text.empty())
            continue;
        entry.path = settings.readFrom(section, "Path" + index).value_or("");
        if (letters.lowerCase(entry.path) != entry.text)
            entry.path.clear();
        entry.identity = settings.readFrom(section, "Known" + index).value_or("");
        entry.refused = settings.readFrom(section, "Refused" + index).value_or("");
        entries.push_back(std::move(entry));
    }
    return entries;
}

bool saveList(settings::Settings& settings, std::string_view section, const std::vector<ListEntry>& entries,
              WithPaths withPaths, const platform::Letters& letters) {
    std::vector<platform::SettingsEntry> keys;
    keys.push_back({"Number", std::to_string(entries.size())});
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const std::string index = std::to_string(i + 1);
        keys.push_back({"Entry" + index, letters.lowerCase(entries[i].text)});
        if (withPaths == WithPaths::No)
            continue;
        keys.push_back({"Path" + index, entries[i].path});
        keys.push_back({"Known" + index, entries[i].identity});
        if (entries[i].refused != settings.readFrom(section, "Refused" + index).value_or(""))
            keys.push_back({"Refused" + index, entries[i].refused});
    }
    return settings.writeTo(section, keys);
}

} // namespace brovin::cleaner
