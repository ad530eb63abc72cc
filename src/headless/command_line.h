#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace brovin::headless {

/// What a scan from the command line is asked to do.
struct ScanOptions {
    bool dryRun = false;
    bool json = false;
    std::vector<std::string> folders; ///< instead of the Watched Folder List; empty: the list
    std::vector<std::string> nasty;   ///< instead of the Nasty File List and its rules; empty: the list
    std::vector<std::string> keep;    ///< names and paths that stay, beside what is on the Keep List
    bool yesThisFolder = false;       ///< `folders` may be ones that nobody sweeps by mistake
    // Instead of what is stored, or of the rules that go with the list; nullopt: no word about it.
    std::optional<bool> dotUnderscore;
    std::optional<bool> iconFiles;
    std::optional<bool> spareCarriers;
    std::optional<bool> force;
    std::optional<bool> confirm;
    std::optional<bool> trash;
};

struct CommandLine {
    bool help = false;
    bool version = false;
    bool scan = false;
    bool starterNames = false;
    bool scanNow = false; ///< by the program with the windows that runs already, or is started
    bool quiet = false;   ///< that program's switch, on or off
    ScanOptions scanOptions;
    std::string checkLanguage; ///< the language file to check; empty: none
    std::string programFolder; ///< empty: the usual one
    std::string updateServer;  ///< empty: the one of the build
    std::string problem;       ///< what is wrong with it; empty: nothing
};

/// Takes the arguments behind the program's name. "--option VALUE" and "--option=VALUE" both serve.
[[nodiscard]] CommandLine parseCommandLine(std::span<const std::string_view> arguments);

/// What "--help" prints.
[[nodiscard]] std::string_view usage();

} // namespace brovin::headless
