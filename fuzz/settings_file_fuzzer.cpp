#include "posix/ini_content.h"
#include "posix/ini_settings_store.h"
#include "posix/ini_text.h"
#include "require.h"
#include "settings/settings.h"
#include "text/date_text.h"
#include "text/numbers.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <string_view>

namespace {

using namespace brovin;
using fuzz::require;
using posix::IniContent;
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

const auto& kWritten = settings::setting::kReminder;
const auto& kOther = settings::setting::kUser;

/// A value that is stored is read again by whoever comes next, and no other is lost or changed by it.
void checkWrite(std::string_view file, std::string_view value) {
    const auto stored = [](const IniContent& content, const settings::Setting& setting) {
        return content.find(settings::kSettingsSection, setting.key);
    };
    IniContent first;
    require(first.read(file) != IniContent::Read::Failed);
    const auto before = stored(first, kOther);
    const platform::SettingsEntry entry{std::string(kWritten.key), std::string(value)};
    first.change(settings::kSettingsSection, {&entry, 1}, IniContent::Change::Make);
    require(!first.change(settings::kSettingsSection, {&entry, 1}, IniContent::Change::Ask));
    require(stored(first, kOther) == before);
    const auto bytes = first.file();
    require(bytes.has_value());
    IniContent next;
    require(next.read(*bytes) == IniContent::Read::Whole);
    require(stored(next, kWritten) == value);
    require(stored(next, kOther) == before);
}

/// The same by way of the disk.
void checkStore(const std::string& path, std::string_view file, std::string_view value) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << file;
    IniSettingsStore first(path);
    const auto before = settings::Settings(first).stored(kOther);
    const bool news =
        settings::Settings(first).stored(kWritten) != value; // else nothing is written, nor mended
    const platform::SettingsEntry entry{std::string(kWritten.key), std::string(value)};
    require(first.write(settings::kSettingsSection, {&entry, 1}));
    require(settings::Settings(first).stored(kOther) == before);
    IniSettingsStore next(path);
    require(!news || !next.damaged());
    require(settings::Settings(next).stored(kWritten) == value);
    require(settings::Settings(next).stored(kOther) == before);
}

} // namespace

/// The first line is the text of a value, what follows it is the file.
// NOLINTNEXTLINE(readability-identifier-naming): the name that libFuzzer calls
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kToTheDisk = 32; // which takes ten times as long: one input in so many
    static const Place place;
    const std::string_view all(reinterpret_cast<const char*>(data), size);
    const std::string_view value = all.substr(0, all.find('\n'));
    const std::string_view file = all.substr(std::min(value.size() + 1, size));
    checkTexts(value);
    checkWrite(file, value);
    if (std::hash<std::string_view>{}(all) % kToTheDisk == 0)
        checkStore(place.file(), file, value);
    return 0;
}
