#include "offers.h"

#include "language/language_catalogue.h"
#include "language/language_file.h"
#include "text/numbers.h"
#include "text/strings.h"

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

namespace brovin::update_server {
namespace {

constexpr std::string_view kProgram = "program.txt";

std::optional<std::string> contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    return file ? std::optional(content.str()) : std::nullopt;
}

std::map<std::string, std::string, std::less<>> keysOf(std::string_view text) {
    std::map<std::string, std::string, std::less<>> keys;
    for (const std::string& line : language::linesOf(text))
        if (const auto keyed = language::keyedLine(line))
            keys[std::string(keyed->key)] = text::trim(keyed->value);
    return keys;
}

} // namespace

std::string Offers::program(const std::string& baseUrl) const {
    const auto described = contentOf(folder_ + "/" + std::string(kProgram));
    const auto keys = keysOf(described.value_or(""));
    const auto version = keys.find("version");
    const auto file = keys.find("file");
    const auto path = file == keys.end() ? std::nullopt : document(file->second);
    if (version == keys.end() || !path)
        return "none";
    std::error_code unreadable;
    const auto bytes = std::filesystem::file_size(*path, unreadable);
    if (unreadable)
        return "none";
    const auto changes = keys.find("changes");
    // A comma would end the list.
    const std::string list = changes == keys.end() ? "" : text::replaceAll(changes->second, ",", ";");
    return "Version:" + text::replaceAll(version->second, ".", ",") + "," + baseUrl + "/download/files/" +
           file->second + "," + list + "," + std::to_string((bytes + 1023) / 1024);
}

std::string Offers::pack(const std::string& file, std::string_view version,
                         const std::string& baseUrl) const {
    const auto path = file.ends_with(".blp") ? document(file) : std::nullopt;
    const auto content = path ? contentOf(*path) : std::nullopt;
    const auto info = content ? language::languageInfo(*content) : std::nullopt;
    if (!info || text::leadingNumber(info->version) <= text::leadingNumber(version))
        return "none";
    // The protocol wants "http:/"; a program without a key makes https of it by itself.
    const std::string base =
        baseUrl.starts_with("https:") ? "http" + baseUrl.substr(std::string_view("https").size()) : baseUrl;
    return base + "/download/files/" + file + "," + info->version;
}

std::optional<std::string> Offers::document(const std::string& name) const {
    if (name.empty() || name.front() == '.' || name == kProgram || name.find('/') != std::string::npos ||
        name.find('\0') != std::string::npos)
        return std::nullopt;
    std::string path = folder_ + "/" + name;
    std::error_code missing;
    return std::filesystem::is_regular_file(path, missing) ? std::optional(std::move(path)) : std::nullopt;
}

} // namespace brovin::update_server
