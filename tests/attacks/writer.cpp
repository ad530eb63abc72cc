// Writes once as the program does, for the attack that kills it on the way.
// Usage: attack_writer pack|download FOLDER

#include "net/private_downloads.h"
#include "posix/disk_program_folder.h"

#include <cstdio>
#include <string>
#include <string_view>

namespace {

constexpr std::string_view kPrefix = "Brovin";
const std::string kPiece(100'000, 'n');

bool replacePack(const std::string& folder) {
    brovin::posix::DiskProgramFolder files({folder, folder});
    return static_cast<bool>(files.replace("german.blp", kPiece));
}

/// Until the user has installed it; then it goes.
bool download(const std::string& folder) {
    brovin::net::PrivateDownloads downloads(folder);
    for (const std::string_view ending : {".tmp", ".tmp.exe"})
        downloads.removeLeftOvers(kPrefix, ending);
    const auto file = downloads.create(kPrefix);
    if (!file || !(*file)->append(kPiece) || !(*file)->append(kPiece) || !(*file)->close())
        return false;
    const bool named = static_cast<bool>((*file)->alsoNamed(".exe"));
    const bool whole = (*file)->size() == 2 * kPiece.size();
    (*file)->remove();
    return named && whole;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3)
        return 2;
    return (argv[1] == std::string_view("pack") ? replacePack(argv[2]) : download(argv[2])) ? 0 : 1;
}
