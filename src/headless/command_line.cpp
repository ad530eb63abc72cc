#include "headless/command_line.h"

#include <algorithm>

namespace brovin::headless {
namespace {

/// One option: a switch, one of a pair of switches, or an option that wants a value.
struct Option {
    std::string_view name;
    bool CommandLine::*flag = nullptr;
    bool ScanOptions::*scanFlag = nullptr;
    std::optional<bool> ScanOptions::*choice = nullptr;
    bool chosen = false;
    std::string CommandLine::*text = nullptr;
    std::vector<std::string> ScanOptions::*list = nullptr;

    [[nodiscard]] bool wantsValue() const { return text != nullptr || list != nullptr; }
    [[nodiscard]] bool belongsToScan() const {
        return scanFlag != nullptr || choice != nullptr || list != nullptr;
    }
};

constexpr Option kOptions[] = {
    {.name = "--help", .flag = &CommandLine::help},
    {.name = "--version", .flag = &CommandLine::version},
    {.name = "--scan", .flag = &CommandLine::scan},
    {.name = "--dry-run", .scanFlag = &ScanOptions::dryRun},
    {.name = "--json", .scanFlag = &ScanOptions::json},
    {.name = "--folder", .list = &ScanOptions::folders},
    {.name = "--yes-this-folder", .scanFlag = &ScanOptions::yesThisFolder},
    {.name = "--nasty", .list = &ScanOptions::nasty},
    {.name = "--keep", .list = &ScanOptions::keep},
    {.name = "--dot-underscore", .choice = &ScanOptions::dotUnderscore, .chosen = true},
    {.name = "--no-dot-underscore", .choice = &ScanOptions::dotUnderscore},
    {.name = "--icon-files", .choice = &ScanOptions::iconFiles, .chosen = true},
    {.name = "--no-icon-files", .choice = &ScanOptions::iconFiles},
    {.name = "--spare-carriers", .choice = &ScanOptions::spareCarriers, .chosen = true},
    {.name = "--no-spare-carriers", .choice = &ScanOptions::spareCarriers},
    {.name = "--force", .choice = &ScanOptions::force, .chosen = true},
    {.name = "--no-force", .choice = &ScanOptions::force},
    {.name = "--confirm", .choice = &ScanOptions::confirm, .chosen = true},
    {.name = "--no-confirm", .choice = &ScanOptions::confirm},
    {.name = "--trash", .choice = &ScanOptions::trash, .chosen = true},
    {.name = "--no-trash", .choice = &ScanOptions::trash},
    {.name = "--starter-names", .flag = &CommandLine::starterNames},
    {.name = "--scan-now", .flag = &CommandLine::scanNow},
    {.name = "--quiet", .flag = &CommandLine::quiet},
    {.name = "--check-language", .text = &CommandLine::checkLanguage},
    {.name = "--program-folder", .text = &CommandLine::programFolder},
    {.name = "--update-server", .text = &CommandLine::updateServer},
};

void apply(const Option& option, std::string_view value, CommandLine& line) {
    if (option.flag != nullptr)
        line.*option.flag = true;
    if (option.scanFlag != nullptr)
        line.scanOptions.*option.scanFlag = true;
    if (option.choice != nullptr)
        (line.scanOptions.*option.choice).emplace(option.chosen);
    if (option.text != nullptr)
        line.*option.text = value;
    if (option.list != nullptr)
        (line.scanOptions.*option.list).emplace_back(value);
}

/// A value that could not do what was asked is refused before anything is touched.
std::string problemOf(const CommandLine& line, std::string_view scanOnly) {
    if (!scanOnly.empty() && !line.scan)
        return std::string(scanOnly) + " goes with --scan";
    if (line.scanNow + line.quiet + line.scan > 1)
        return "--scan, --scan-now and --quiet do not go together";
    for (const std::string& name : line.scanOptions.nasty)
        if (name.empty() || name == "." || name == ".." || name.find('/') != std::string::npos)
            return "--nasty wants the bare name of a file or folder, not \"" + name + "\"";
    for (const std::string& entry : line.scanOptions.keep)
        if (entry == "." || entry == "..")
            return "--keep wants a name or a path, not \"" + entry + "\"";
    return {};
}

} // namespace

CommandLine parseCommandLine(std::span<const std::string_view> arguments) {
    CommandLine line;
    std::string_view scanOnly;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string_view argument = arguments[i];
        const std::size_t equals = argument.find('=');
        const std::string_view name = argument.substr(0, equals);
        const auto* option = std::find_if(std::begin(kOptions), std::end(kOptions),
                                          [name](const Option& known) { return known.name == name; });
        if (option == std::end(kOptions) || (equals != std::string_view::npos && !option->wantsValue())) {
            line.problem = "unknown option " + std::string(argument);
            return line;
        }
        std::string_view value = equals == std::string_view::npos ? "" : argument.substr(equals + 1);
        if (option->wantsValue() && equals == std::string_view::npos && i + 1 < arguments.size())
            value = arguments[++i];
        if (option->wantsValue() && value.empty()) {
            line.problem = std::string(name) + " wants a value";
            return line;
        }
        if (option->belongsToScan())
            scanOnly = option->name;
        apply(*option, value, line);
    }
    line.problem = problemOf(line, scanOnly);
    return line;
}

std::string_view usage() {
    return R"(Usage: brovin [OPTION]...
The desktop companion and file cleaner. Without options it starts hidden behind its icon in the notification area.

  --scan                 scan the watched folders once, without a display; the result goes to standard output
    --dry-run            say what would be deleted, and delete, log and count nothing
    --json               one JSON object per deletion and a summary
    --folder DIR         sweep DIR instead of the watched folders (may be repeated)
    --yes-this-folder    --folder may name a home, a system folder, a whole disk or the program's own folder
    --keep NAME-OR-PATH  never delete entries of this name, or what stands there, with all that is in it; what is on
                         the Keep List stays too (may be repeated)
    --nasty NAME         delete NAME and nothing else, instead of the names on the Nasty File List and what goes
                         with them (may be repeated)
    --dot-underscore, --icon-files, --spare-carriers, --force, --confirm, --trash
                         delete "._" files, delete icon files, leave "._" files that carry something, delete read-only
                         entries, ask before each deletion, move to the trash instead of deleting; each with "no-"
                         before its name, too. Without them the stored options hold; with --nasty "._" and icon files
                         stay
  --starter-names        print names that systems leave behind: name, "safe" or "caution", and what goes with it
  --scan-now             as a click on "Scan NOW": by the Brovin that runs, or by one that is started for it
  --quiet                as a click on "Quiet" in the icon's menu, which switches it on or off
  --check-language FILE  say what is wrong with a language file (see "Language files" in the manual)
  --program-folder DIR   language files, pictures and the deletion log are in DIR
  --update-server URL    ask there for updates
  --help                 show this help
  --version              show the version

Exit status: 0 every folder was swept, and everything was reported; 1 a deletion failed, a folder was not swept or not
as a whole, nobody could be asked, the settings are damaged, or totals or log could not be written; 2 bad usage, no home
folder or no language file; 3 another scan is running; 4 nothing to scan; 5 the output could not be written; 127 the
window is not installed; 128 + n ended by signal n.
)";
}

} // namespace brovin::headless
