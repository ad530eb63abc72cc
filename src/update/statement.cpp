#include "update/statement.h"

#include "text/date_text.h"
#include "text/numbers.h"
#include "text/strings.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace brovin::update {
namespace {

constexpr std::string_view kProduct = "Brovin";
constexpr std::array<std::string_view, 2> kKinds = {"program", "pack"}; // as in `Kind`
constexpr std::array<std::string_view, 7> kNames = {"product", "kind", "file",  "version",
                                                    "date",    "size", "sha512"};

bool isHex(char sign) {
    return (sign >= '0' && sign <= '9') || (sign >= 'a' && sign <= 'f');
}

/// The values of the lines, which have to stand in their order; nullopt: they do not.
std::optional<std::array<std::string_view, kNames.size()>>
valuesOf(const std::vector<std::string_view>& lines) {
    std::array<std::string_view, kNames.size()> values;
    for (std::size_t i = 0; i < kNames.size(); ++i) {
        const std::size_t length = kNames[i].size();
        if (!lines[i].starts_with(kNames[i]) || lines[i].substr(length, 1) != "=")
            return std::nullopt;
        values[i] = lines[i].substr(length + 1);
    }
    return values;
}

std::optional<Claim> claimOf(const std::array<std::string_view, kNames.size()>& values) {
    const auto& [product, kindName, file, version, date, size, sha512] = values;
    constexpr std::size_t kHashDigits = 128;
    const auto* const kind = std::ranges::find(kKinds, kindName);
    const auto bytes = text::wholeNumber<std::uint64_t>(size);
    const bool sound = product == kProduct && kind != kKinds.end() && !file.empty() && !version.empty() &&
                       text::dateOf(date) && bytes && sha512.size() == kHashDigits &&
                       std::ranges::all_of(sha512, isHex);
    if (!sound)
        return std::nullopt;
    return Claim{static_cast<Kind>(kind - kKinds.begin()),
                 std::string(file),
                 std::string(version),
                 std::string(date),
                 *bytes,
                 std::string(sha512)};
}

} // namespace

std::string textToSign(const Claim& claim) {
    const std::string values[] = {std::string(kProduct),
                                  std::string(kKinds[static_cast<std::size_t>(claim.kind)]),
                                  claim.file,
                                  claim.version,
                                  claim.date,
                                  std::to_string(claim.size),
                                  claim.sha512};
    std::string text;
    for (std::size_t i = 0; i < kNames.size(); ++i)
        text.append(kNames[i]).append("=").append(values[i]).append("\n");
    return text;
}

std::optional<Statement> statementOf(std::string_view text) {
    if (text.ends_with('\n'))
        text.remove_suffix(1);
    const auto lines = text::split(text, '\n');
    if (lines.size() != kNames.size() + 1)
        return std::nullopt;
    const auto values = valuesOf(lines);
    auto claim = values ? claimOf(*values) : std::nullopt;
    if (!claim)
        return std::nullopt;
    const std::string_view signature = lines.back();
    return Statement{*std::move(claim), std::string(signature),
                     std::string(text.substr(0, text.size() - signature.size()))};
}

} // namespace brovin::update
