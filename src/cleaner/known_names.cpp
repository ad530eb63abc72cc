#include "cleaner/known_names.h"

#include <algorithm>
#include <iterator>

namespace brovin::cleaner {
namespace {

constexpr KnownName kNames[] = {
    {".ds_store", Origin::Safe, "knownDsStore"},
    {"thumbs.db", Origin::Safe, "knownThumbs"},
    {"ehthumbs.db", Origin::Safe, "knownThumbs"},
    {"ehthumbs_vista.db", Origin::Safe, "knownThumbs"},
    {".fseventsd", Origin::Safe, "knownFsEvents"},
    {".spotlight-v100", Origin::Safe, "knownSpotlight"},
    {".temporaryitems", Origin::Safe, "knownTemporary"},
    {".apdisk", Origin::Safe, "knownApDisk"},
    {".@__thumb", Origin::Safe, "knownStationThumbs"},
    {"desktop.ini", Origin::Caution, "knownDesktopIni"},
    {".appledouble", Origin::Caution, "knownAppleDouble"},
    {"__macosx", Origin::Caution, "knownMacOsx"},
    {".documentrevisions-v100", Origin::Caution, "knownVersions"},
    {".volumeicon.icns", Origin::Caution, "knownVolumeIcon"},
    {".metadata_never_index", Origin::Caution, "knownIndexWish"},
    {"@eadir", Origin::Caution, "knownEaDir"},
    {".appledb", Origin::Caution, "knownAppleServer"},
    {".appledesktop", Origin::Caution, "knownAppleServer"},
    {".directory", Origin::Caution, "knownDirectory"},
    {".trashes", Origin::Trash, "knownTrash"},
    {".trash", Origin::Trash, "knownTrash"},
    {"$recycle.bin", Origin::Trash, "knownTrash"},
    {"recycler", Origin::Trash, "knownTrash"},
    {".trash-1000", Origin::Trash, "knownTrash"},
    {"network trash folder", Origin::Trash, "knownTrash"},
};

} // namespace

std::span<const KnownName> knownNames() {
    return kNames;
}

std::optional<KnownName> knownName(std::string_view name) {
    const auto* const found = std::find_if(std::begin(kNames), std::end(kNames),
                                           [name](const KnownName& known) { return known.name == name; });
    if (found != std::end(kNames))
        return *found;
    if (name.starts_with("._"))
        return KnownName{"._", Origin::Caution, "knownDotUnderscore"};
    if (name == "icon?")
        return KnownName{"icon?", Origin::Caution, "knownIcon"};
    return std::nullopt;
}

} // namespace brovin::cleaner
