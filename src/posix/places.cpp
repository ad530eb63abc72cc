#include "posix/places.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <initializer_list>

namespace brovin::posix {
namespace {

namespace fs = std::filesystem;

/// A folder that the environment names; relative ones do not count.
std::string fromEnvironment(const char* variable) {
    const char* const value = std::getenv(variable);
    return value != nullptr && value[0] == '/' ? value : "";
}

std::string home() {
    std::string folder = fromEnvironment("HOME");
    if (!folder.empty())
        return folder;
    const passwd* const user = ::getpwuid(::geteuid());
    return user != nullptr && user->pw_dir != nullptr && user->pw_dir[0] == '/' ? user->pw_dir : "";
}

/// Empty: there is none.
std::string baseFolder(const char* variable, const char* belowHome) {
    std::string folder = fromEnvironment(variable);
    if (!folder.empty())
        return folder;
    folder = home();
    return folder.empty() ? folder : folder + belowHome;
}

/// The folder for what runs, which is this user's alone.
std::optional<std::string> runtimeFolder() {
    const std::string folder = fromEnvironment("XDG_RUNTIME_DIR");
    struct stat facts {};
    if (folder.empty() || ::stat(folder.c_str(), &facts) != 0 || !S_ISDIR(facts.st_mode) ||
        facts.st_uid != ::geteuid())
        return std::nullopt;
    return folder;
}

/// Eight bytes that differ where the texts do, the same in every build (FNV-1a).
std::string fingerprint(const std::string& text) {
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3;
    std::string digits;
    for (; hash != 0; hash >>= 4U)
        digits.push_back("0123456789abcdef"[hash & 15U]);
    return digits;
}

fs::path executableFolder() {
    std::error_code unknown;
    return fs::read_symlink("/proc/self/exe", unknown).parent_path();
}

/// The first that is there, as seen from the executable; empty: none.
std::string besideExecutable(std::initializer_list<const char*> candidates) {
    std::error_code missing;
    const fs::path folder = executableFolder();
    for (const char* candidate : candidates)
        if (fs::exists(folder / candidate, missing))
            return (folder / candidate).lexically_normal().string();
    return {};
}

} // namespace

std::optional<Places> findPlaces(const std::string& programFolder) {
    const std::string config = baseFolder("XDG_CONFIG_HOME", "/.config");
    const std::string data = baseFolder("XDG_DATA_HOME", "/.local/share");
    if (config.empty() || data.empty())
        return std::nullopt;
    Places places;
    places.settingsFolder = config + "/Brovin";
    places.settingsFile = places.settingsFolder + "/Brovin.conf";
    places.autostartFolder = config + "/autostart";
    if (const auto runtime = runtimeFolder())
        places.runningLock = *runtime + "/brovin-" + fingerprint(places.settingsFolder) + ".lock";
    else
        places.runningLock = places.settingsFolder + "/brovin.lock";
    places.ownFolder = data + "/brovin";
    // In a build tree the folder is beside the executables, installed it is beside "bin" and "lib".
    places.installedFolder = besideExecutable({"share/brovin", "../share/brovin", "../../share/brovin"});
    if (!programFolder.empty())
        places.installedFolder = places.ownFolder = absolutePath(programFolder);
    return places;
}

std::string homeFolder() {
    return home();
}

std::string homeTrashFolder() {
    const std::string data = baseFolder("XDG_DATA_HOME", "/.local/share");
    return data.empty() ? data : data + "/Trash";
}

std::string programFile() {
    const std::string found = besideExecutable({"brovin", "../../bin/brovin"});
    std::error_code unknown;
    return found.empty() ? fs::read_symlink("/proc/self/exe", unknown).string() : found;
}

std::string windowProgramFile() {
    return besideExecutable({"brovin-desktop", "../lib/brovin/brovin-desktop"});
}

std::string moduleFile(const std::string& name) {
    const std::string found =
        besideExecutable({("modules/" + name).c_str(), ("../lib/brovin/" + name).c_str(), name.c_str()});
    return found.empty() ? name : found;
}

std::string absolutePath(const std::string& path) {
    std::error_code failed;
    const fs::path whole = fs::absolute(path, failed);
    if (failed)
        return path;
    if (std::find(whole.begin(), whole.end(), "..") != whole.end()) {
        const fs::path resolved = fs::canonical(whole, failed);
        return failed ? whole.string() : resolved.string();
    }
    std::string plain = whole.lexically_normal().string(); // only "." and slashes are left to tidy up
    if (plain.size() > 1 && plain.ends_with('/'))
        plain.pop_back();
    return plain;
}

} // namespace brovin::posix
