#include "posix/ini_settings_store.h"
#include "posix/ini_text.h"
#include "require.h"
#include "settings/settings.h"
#include "text/date_text.h"
#include "text/numbers.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace {

using namespace brovin;
using fuzz::require;
using posix::IniSettingsStore;

/// The place of the file, in a folder of the process's own; TMPDIR is best in memory.
class Place {
public:
    Place() : folder_((std::filesystem::temp_directory_path() / "brovin-fuzz-XXXXXX").string()) {
        require(::mkdtemp(folder_.data()) != nullptr);
    }
    ~Place() {
        std::error_code leftBehind;
        std::filesystem::remove_all(folder_, leftBehind);
    }
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;

    [[nodiscard]] std::string file() const { return folder_ + "/a.conf"; }

private:
    std::string folder_;
};

void checkTexts(std::string_view text) {
    require(posix::textOfIniValue(posix::iniValue(text)) == text);
    static_cast<void>(posix::textOfIniValue(text));
    static_cast<void>(posix::iniKey(text));
    static_cast<void>(text::leadingInt16(text));
    if (const auto date = text::dateOf(text))
        require(text::dateOf(text::isoText(*date)) == date);
}

/// A value that is stored is read again by whoever comes next, and no other is lost or changed by it.
void checkWrite(const std::string& file, std::string_view value) {
    const auto& written = settings::setting::kReminder;
    const auto& other = settings::setting::kUser;
    IniSettingsStore first(file);
    const auto before = settings::Settings(first).stored(other);
    const platform::SettingsEntry entry{std::string(written.key), std::string(value)};
    require(first.write(settings::kSettingsSection, {&entry, 1}));
    require(settings::Settings(first).stored(other) == before);
    IniSettingsStore next(file);
    require(!next.damaged());
    require(settings::Settings(next).stored(written) == value);
    require(settings::Settings(next).stored(other) == before);
}

} // namespace

/// The first line is the text of a value, what follows it is the file.
// NOLINTNEXTLINE(readability-identifier-naming): the name that libFuzzer calls
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Place place;
    const std::string_view all(reinterpret_cast<const char*>(data), size);
    const std::string_view value = all.substr(0, all.find('\n'));
    checkTexts(value);
    std::ofstream(place.file(), std::ios::binary | std::ios::trunc)
        << all.substr(std::min(value.size() + 1, size));
    checkWrite(place.file(), value);
    return 0;
}
