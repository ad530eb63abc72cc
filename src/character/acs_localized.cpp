#include "character/acs_localized.h"

#include "character/acs_basics.h"
#include "character/acs_format.h"
#include "character/acs_limits.h"

#include <cstdint>
#include <utility>

namespace brovin::character {

std::vector<LocalizedInfo> readLocalized(ByteReader& in) {
    std::vector<LocalizedInfo> info;
    const std::uint16_t count = in.u16();
    if (count > kMostLocalized)
        in.fail("has too many languages");
    if (!in.canHold(count, kSmallestLocalized))
        return info;
    for (std::uint16_t i = 0; i < count && in.ok(); ++i) {
        LocalizedInfo entry;
        entry.language = in.u16();
        entry.name = readText(in, kMostNameUnits);
        entry.description = readText(in, kMostTextUnits);
        entry.extraData = readText(in, kMostTextUnits);
        info.push_back(std::move(entry));
    }
    return info;
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
