#include "update/address.h"

#include "text/numbers.h"
#include "text/strings.h"

#include <algorithm>
#include <cstdint>

namespace brovin::update {
namespace {

constexpr std::size_t kLongestAddress = 2000;

bool isDigit(char sign) {
    return sign >= '0' && sign <= '9';
}
bool isPlain(char sign) {
    return isDigit(sign) || (sign >= 'a' && sign <= 'z') || (sign >= 'A' && sign <= 'Z') || sign == '-' ||
           sign == '.' || sign == '_' || sign == '~';
}
bool isVisibleAscii(char sign) {
    return sign > ' ' && sign < '\x7f';
}

/// Whether a host is written in the one way that all programs understand alike. What ends with a number is
/// four decimal octets, and not of the network 0, which is this machine; of addresses in hex there are this
/// machine's and the public ones, not those that stand for others. A name is none that means this machine by
/// its ending.
bool isUsualNumber(const std::vector<std::string_view>& parts) {
    return parts.size() == 4 && parts[0] != "0" &&
           std::all_of(parts.begin(), parts.end(), [](std::string_view part) {
               return text::wholeNumber<std::uint8_t>(part) && (part.size() == 1 || part.front() != '0');
           });
}
bool isUsualHost(std::string_view host) {
    if (host.find(':') != std::string_view::npos)
        return host == "::1" || (host.size() > 4 && (host[0] == '2' || host[0] == '3') && host[4] == ':' &&
                                 host.find(':') == 4);
    const auto parts = text::split(host, '.');
    if (parts.empty() || std::any_of(parts.begin(), parts.end(), [](auto part) { return part.empty(); }))
        return false;
    return isDigit(parts.back().front()) ? isUsualNumber(parts)
                                         : parts.size() == 1 || parts.back() != "localhost";
}

bool isPort(std::string_view text) {
    return !text.empty() && text.size() <= 5 && std::all_of(text.begin(), text.end(), isDigit);
}

/// The host of "host", "host:port", "[address]" or "[address]:port"; nullopt: none of these.
std::optional<std::string_view> hostOf(std::string_view authority) {
    std::string_view host = authority;
    std::string_view rest;
    if (authority.starts_with('[')) {
        const std::size_t end = authority.find(']');
        if (end == std::string_view::npos)
            return std::nullopt;
        host = authority.substr(1, end - 1);
        rest = authority.substr(end + 1);
        if (host.find(':') == std::string_view::npos ||
            host.find_first_not_of("0123456789abcdefABCDEF:") != std::string_view::npos)
            return std::nullopt;
    } else {
        const std::size_t colon = authority.find(':');
        host = authority.substr(0, colon);
        rest = colon == std::string_view::npos ? std::string_view() : authority.substr(colon);
        if (!std::all_of(host.begin(), host.end(), isPlain))
            return std::nullopt;
    }
    if (host.empty() || !(rest.empty() || (rest.front() == ':' && isPort(rest.substr(1)))))
        return std::nullopt;
    return host;
}

} // namespace

bool Address::loopback() const {
    return host == "localhost" || host == "::1" ||
           (host.starts_with("127.") && isUsualNumber(text::split(host, '.')));
}

std::optional<Address> addressOf(std::string_view url) {
    if (url.size() > kLongestAddress || !std::all_of(url.begin(), url.end(), isVisibleAscii))
        return std::nullopt;
    const std::size_t colon = url.find("://");
    if (colon == std::string_view::npos || url.find('\\') != std::string_view::npos)
        return std::nullopt;
    const std::string scheme = text::asciiLower(url.substr(0, colon));
    if (scheme != "http" && scheme != "https")
        return std::nullopt;
    url.remove_prefix(colon + 3);
    const auto written = hostOf(url.substr(0, url.find_first_of("/?#")));
    std::string host = text::asciiLower(written.value_or(""));
    if (!isUsualHost(host))
        return std::nullopt;
    return Address{scheme == "https" ? Address::Scheme::Https : Address::Scheme::Http, std::move(host)};
}

bool mayFetch(std::string_view url, platform::PlainHttp plainHttp) {
    const auto address = addressOf(url);
    return address && (address->scheme == Address::Scheme::Https ||
                       plainHttp == platform::PlainHttp::Anywhere || address->loopback());
}

bool mayFollow(std::string_view from, std::string_view to, platform::PlainHttp plainHttp) {
    const auto before = addressOf(from);
    const auto after = addressOf(to);
    if (!before || !after || !mayFetch(to, plainHttp))
        return false;
    // Another machine has no business with the servers of this one.
    if (after->loopback() && !before->loopback())
        return false;
    return before->scheme == Address::Scheme::Http || after->scheme == Address::Scheme::Https;
}

std::string byHttps(const std::string& url) {
    const auto address = addressOf(url);
    if (!address || address->scheme == Address::Scheme::Https || address->loopback())
        return url;
    return "https" + url.substr(std::string_view("http").size());
}

std::string fileNameOf(std::string_view url) {
    url = url.substr(0, url.find_first_of("?#"));
    return std::string(url.substr(url.rfind('/') + 1));
}

std::string queryValue(std::string_view text) {
    static constexpr char kHex[] = "0123456789ABCDEF";
    std::string value;
    for (const char sign : text) {
        const auto byte = static_cast<unsigned char>(sign);
        if (isPlain(sign))
            value += sign;
        else
            value.append({'%', kHex[byte >> 4U], kHex[byte & 15U]});
    }
    return value;
}

} // namespace brovin::update
