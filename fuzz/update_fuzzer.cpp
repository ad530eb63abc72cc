#include "net/sodium_key.h"
#include "require.h"
#include "text/strings.h"
#include "update/address.h"
#include "update/answers.h"
#include "update/language_pack.h"
#include "update/proof.h"

#include <arpa/inet.h>
#include <curl/curl.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace {

using namespace brovin::update;
using brovin::fuzz::require;
using brovin::platform::PlainHttp;

void checkAnswers(std::string_view answer) {
    if (const auto offer = programOffer(answer))
        require(!countsAsNewer(offer->version, offer->version) && offer->version.major >= 0);
    if (const auto offer = packOffer(answer))
        require(offer->version.find_first_not_of("0123456789.") == std::string::npos &&
                offer->url.starts_with("http:/"));
    static_cast<void>(isLanguagePack(answer));
}

std::string part(CURLU* url, CURLUPart which) {
    char* text = nullptr;
    require(curl_url_get(url, which, &text, 0) == CURLUE_OK);
    std::string copy(text);
    curl_free(text);
    return copy;
}

/// The same text, or the same number of sixteen bytes in another form.
bool sameHost(const std::string& one, const std::string& other) {
    in6_addr first{};
    in6_addr second{};
    return one == other || (::inet_pton(AF_INET6, one.c_str(), &first) == 1 &&
                            ::inet_pton(AF_INET6, other.c_str(), &second) == 1 &&
                            std::memcmp(&first, &second, sizeof first) == 0);
}

/// An address that is trusted has to be the same one to what fetches it.
void checkAddress(const std::string& url) {
    const auto address = addressOf(url);
    require(mayFetch(url, PlainHttp::Anywhere) == address.has_value());
    if (!address)
        return;
    require(mayFetch(byHttps(url), PlainHttp::OnlyFromThisMachine));
    require(!mayFollow("https://a.example/", url, PlainHttp::Anywhere) ||
            (address->scheme == Address::Scheme::Https && !address->loopback()));
    const std::unique_ptr<CURLU, decltype(&curl_url_cleanup)> read(curl_url(), &curl_url_cleanup);
    if (curl_url_set(read.get(), CURLUPART_URL, url.c_str(), 0) != CURLUE_OK)
        return; // is not fetched at all
    std::string host = brovin::text::asciiLower(part(read.get(), CURLUPART_HOST));
    if (host.starts_with('['))
        host = host.substr(1, host.size() - 2);
    const bool https = part(read.get(), CURLUPART_SCHEME) == "https";
    require(https == (address->scheme == Address::Scheme::Https));
    require(sameHost(host, address->host));
}

void checkStatement(std::string_view text) {
    static const brovin::net::SodiumKey key(std::string(64, 'a'));
    if (const auto statement = statementOf(text)) {
        const auto again = statementOf(textToSign(statement->claim) + statement->signature);
        require(again && again->claim == statement->claim && text.starts_with(statement->signedText));
        const Claim& claim = statement->claim;
        require(whyNotOffered(text, {claim.kind, claim.file, claim.version, {}}, key).has_value());
    }
    static_cast<void>(key.fits("text", text));
}

} // namespace

/// All that a server can say: answers, where they lead, and what is claimed of a file.
// NOLINTNEXTLINE(readability-identifier-naming): the name that libFuzzer calls
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    checkAnswers(text);
    checkAddress(text);
    checkStatement(text);
    return 0;
}
