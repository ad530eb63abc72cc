#include "character/acs_localized.h"

#include "character/acs_basics.h"
#include "character/acs_format.h"
#include "character/acs_limits.h"

#include <cstdint>
#include <utility>

namespace brovin::character {

std::vector<LocalizedInfo> readLocalized(ByteReader& in) {
    return readList(in, in.u16(), {kSmallestLocalized, kMostLocalized, "has too many languages"}, [&in] {
        LocalizedInfo entry;
        entry.language = in.u16();
        entry.name = readText(in, kMostNameUnits);
        entry.description = readText(in, kMostTextUnits);
        entry.extraData = readText(in, kMostTextUnits);
        return entry;
    });
}

void writeLocalized(ByteWriter& out, const std::vector<LocalizedInfo>& info) {
    out.u16(static_cast<std::uint16_t>(info.size()));
    for (const LocalizedInfo& entry : info) {
        out.u16(entry.language);
        writeText(out, entry.name);
        writeText(out, entry.description);
        writeText(out, entry.extraData);
    }
}

} // namespace brovin::character
