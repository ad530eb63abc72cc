#include "server.h"
#include "signing.h"
#include "static_answers.h"

#include "language/language_catalogue.h"
#include "text/date_text.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace brovin;

constexpr std::string_view kUsage = R"(The maker's side of the updates.

  brovin_update_server serve --folder DIR [--address 127.0.0.1] [--port 8080] [--public-url URL]
      answers the programs that ask for updates; port 0 takes a free one and tells it
  brovin_update_server publish --folder DIR --public-url URL --to TARGET
      writes all answers as files, with an nginx.conf that hands them out, into a folder that is not there yet
  brovin_update_server keys --secret FILE
      makes a pair of keys; the secret one goes into FILE, the public one is printed for BROVIN_UPDATE_KEY
  brovin_update_server sign --secret FILE [--version VERSION] DOCUMENT
      writes DOCUMENT.sig; a language file tells its version by itself
)";

/// "--name value" pairs, and what stands by itself.
struct Arguments {
    std::map<std::string, std::string, std::less<>> options;
    std::vector<std::string> rest;

    [[nodiscard]] std::string get(std::string_view name, const std::string& fallback = {}) const {
        const auto found = options.find(name);
        return found == options.end() ? fallback : found->second;
    }
};

Arguments parse(const std::vector<std::string>& words) {
    Arguments arguments;
    for (std::size_t i = 0; i < words.size(); ++i)
        if (words[i].starts_with("--") && i + 1 < words.size()) {
            arguments.options[words[i].substr(2)] = words[i + 1];
            ++i;
        } else
            arguments.rest.push_back(words[i]);
    return arguments;
}

int complain(std::string_view text) {
    std::cerr << "brovin_update_server: " << text << "\n";
    return 1;
}

int serve(const Arguments& arguments) {
    const std::string folder = arguments.get("folder");
    if (folder.empty())
        return complain("--folder is missing");
    const std::string address = arguments.get("address", "127.0.0.1");
    update_server::Server server(folder, arguments.get("public-url"));
    const int port = server.bind(address, std::atoi(arguments.get("port", "8080").c_str()));
    if (port <= 0)
        return complain("the port cannot be used");
    std::cout << "listening on http://" << address << ":" << port << std::endl;
    return server.listen() ? 0 : complain("the server has stopped");
}

int publish(const Arguments& arguments) {
    return update_server::publish(arguments.get("folder"), arguments.get("public-url"), arguments.get("to"))
               ? 0
               : complain(
                     "publish wants --folder, --public-url, and a folder for --to that is not there yet");
}

int makeKeys(const Arguments& arguments) {
    const std::string file = arguments.get("secret");
    const auto key = file.empty() ? std::nullopt : update_server::makeKeys(file);
    if (!key)
        return complain("--secret wants a file that is not there yet and can be written");
    std::cout << *key << "\n";
    return 0;
}

std::string versionOf(const std::string& document) {
    std::ifstream file(document, std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    const auto info = document.ends_with(".blp") ? language::languageInfo(content) : std::nullopt;
    return info ? info->version : std::string();
}

int sign(const Arguments& arguments) {
    if (arguments.rest.size() != 1)
        return complain("sign wants one document");
    const std::string& document = arguments.rest.front();
    std::string version = arguments.get("version");
    if (version.empty())
        version = versionOf(document);
    if (version.empty())
        return complain("--version is missing");
    const bool pack = document.ends_with(".blp");
    const auto today = std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
    const update::Claim claim{
        .kind = pack ? update::Kind::Pack : update::Kind::Program,
        .file = std::filesystem::path(document).filename().string(),
        .version = version,
        .date = text::isoText(std::chrono::local_days(today.time_since_epoch())),
    };
    const auto statement = update_server::statementAbout(document, claim, arguments.get("secret"));
    if (!statement)
        return complain("the secret key or the document cannot be read");
    std::ofstream file(document + ".sig", std::ios::binary);
    file << *statement << std::flush;
    return file ? 0 : complain(document + ".sig cannot be written");
}

} // namespace

int main(int argc, char** argv) {
    std::vector<std::string> words(argv + 1, argv + argc);
    const std::string command = words.empty() ? "" : words.front();
    const Arguments arguments = parse({words.begin() + (words.empty() ? 0 : 1), words.end()});
    if (command == "serve")
        return serve(arguments);
    if (command == "publish")
        return publish(arguments);
    if (command == "keys")
        return makeKeys(arguments);
    if (command == "sign")
        return sign(arguments);
    const bool asked = command == "--help";
    (asked ? std::cout : std::cerr) << kUsage;
    return asked ? 0 : 2;
}
