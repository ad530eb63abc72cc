#include "posix/ini_content.h"

#include "posix/ini_text.h"

#include <SimpleIni.h>

namespace brovin::posix {

struct IniContent::Lines {
    CSimpleIniCaseA ini;

    [[nodiscard]] std::optional<std::string> find(const std::string& section, const std::string& key) const {
        const char* const value = ini.GetValue(section.c_str(), key.c_str());
        return value == nullptr ? std::nullopt : std::optional(textOfIniValue(value));
    }
};

IniContent::IniContent() : lines_(std::make_unique<Lines>()) {
    lines_->ini.SetSpaces(false);
}

IniContent::~IniContent() = default;

IniContent::Read IniContent::read(std::string_view file) {
    const SoundLines sound = soundLines(file); // the library makes odd sections of some others
    if (lines_->ini.LoadData(sound.text) < 0)
        return Read::Failed;
    return sound.lost ? Read::Damaged : Read::Whole;
}

std::optional<std::string> IniContent::find(std::string_view section, std::string_view key) const {
    return lines_->find(iniKey(section), iniKey(key));
}

bool IniContent::change(std::string_view section, std::span<const platform::SettingsEntry> entries,
                        Change change) {
    const std::string group = iniKey(section);
    bool differs = false;
    for (const auto& entry : entries) {
        const std::string key = iniKey(entry.key);
        if (lines_->find(group, key) == entry.value)
            continue;
        differs = true;
        if (change == Change::Make)
            lines_->ini.SetValue(group.c_str(), key.c_str(), iniValue(entry.value).c_str());
    }
    return differs;
}

std::optional<std::string> IniContent::file() const {
    std::string bytes;
    if (lines_->ini.Save(bytes) < 0)
        return std::nullopt;
    return bytes;
}

} // namespace brovin::posix
