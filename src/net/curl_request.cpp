#include "net/curl_request.h"

#include "platform/reasons.h"
#include "text/numbers.h"
#include "text/strings.h"
#include "update/address.h"

#include <curl/curl.h>

#include <array>
#include <memory>
#include <utility>

namespace brovin::net {
namespace {

namespace reason = platform::reason;
using platform::Failure;

static_assert(platform::kTimedOut == CURLE_OPERATION_TIMEDOUT);

/// Small enough to stay in the processor's nearest memory on the way from thread to thread, which doubles the
/// speed.
constexpr std::size_t kBuffer = std::size_t{128} * 1024;
constexpr std::uint64_t kPage = std::uint64_t{64} * 1024;
constexpr long kReceiveBuffer = 64L * 1024;
constexpr int kRedirects = 5;
constexpr long kSuccess = 200;
constexpr std::chrono::milliseconds kLookAround{200};

bool isRedirect(long status) {
    return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

/// What there has to be before the first request, once for the whole program.
void prepareCurl() {
    static const bool ready = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
    static_cast<void>(ready);
}

} // namespace

/// One address on the way to the document.
struct CurlRequest::Hop {
    CurlRequest& owner;
    std::string url;
    std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> easy{curl_easy_init(), &curl_easy_cleanup};
    std::array<char, CURL_ERROR_SIZE> reason{};
    std::map<std::string, std::string> headers{};
    long status = 0;
    std::optional<std::uint64_t> announced{};
    std::uint64_t come = 0;
    Clock::time_point begun = Clock::now();
    Clock::time_point last = begun;
    Clock::duration held{}; ///< time in which the buffer was full
};

CurlRequest::CurlRequest(platform::TransferRequest request, const Patience& patience,
                         std::function<void()> wake)
    : request_(std::move(request)), patience_(patience), wake_(std::move(wake)) {
    prepareCurl();
    multi_ = curl_multi_init();
    thread_ = std::thread([this] { run(); });
}

CurlRequest::~CurlRequest() {
    {
        const std::lock_guard lock(mutex_);
        cancelled_ = true;
    }
    taken_.notify_all();
    curl_multi_wakeup(multi_);
    thread_.join();
    curl_multi_cleanup(multi_);
}

Arrival CurlRequest::take() {
    Arrival taken;
    {
        const std::lock_guard lock(mutex_);
        taken.bytes.swap(arrival_.bytes);
        taken.response = arrival_.response;
        taken.ended = arrival_.ended;
        taken.failure = arrival_.failure;
    }
    taken_.notify_all();
    return taken;
}

std::optional<std::string> CurlRequest::header(const std::string& name) {
    const std::lock_guard lock(mutex_);
    const auto found = headers_.find(name);
    return found == headers_.end() ? std::nullopt : std::optional(found->second);
}

void CurlRequest::run() {
    auto failure = follow();
    {
        const std::lock_guard lock(mutex_);
        arrival_.ended = true;
        arrival_.failure = std::move(failure);
    }
    wake_();
}

std::optional<Failure> CurlRequest::follow() {
    std::string url = request_.url;
    if (!update::mayFetch(url, request_.plainHttp))
        return Failure{0, reason::kUnsafeAddress};
    for (int redirects = 0;; ++redirects) {
        Hop hop{*this, url};
        if (auto failure = fetch(hop))
            return failure;
        if (!isRedirect(hop.status))
            return std::nullopt;
        const char* next = nullptr;
        curl_easy_getinfo(hop.easy.get(), CURLINFO_REDIRECT_URL, &next);
        if (redirects == kRedirects)
            return Failure{0, reason::kLedOn};
        if (next == nullptr || !update::mayFollow(url, next, request_.plainHttp))
            return Failure{0, reason::kLedAstray};
        url = next;
    }
}

std::optional<Failure> CurlRequest::fetch(Hop& hop) {
    CURL* easy = hop.easy.get();
    const std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)> headers(
        curl_slist_append(nullptr, "Connection: close"), &curl_slist_free_all);
    curl_easy_setopt(easy, CURLOPT_URL, hop.url.c_str());
    curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(easy, CURLOPT_SSLVERSION, static_cast<long>(CURL_SSLVERSION_TLSv1_2));
    curl_easy_setopt(easy, CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
    curl_easy_setopt(easy, CURLOPT_HTTPHEADER, headers.get());
    curl_easy_setopt(easy, CURLOPT_BUFFERSIZE, kReceiveBuffer);
    // The body is read to the end of the connection, so that one longer than announced does not go unnoticed.
    curl_easy_setopt(easy, CURLOPT_IGNORE_CONTENT_LENGTH, 1L);
    curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(patience_.connect.count()));
    curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(easy, CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L); // a proxy's, which are not the answer's
    curl_easy_setopt(easy, CURLOPT_QUICK_EXIT, 1L); // a name that is being looked up holds nobody up
    curl_easy_setopt(easy, CURLOPT_ERRORBUFFER, hop.reason.data());
    curl_easy_setopt(easy, CURLOPT_HEADERFUNCTION, &CurlRequest::headerCallback);
    curl_easy_setopt(easy, CURLOPT_HEADERDATA, &hop);
    curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, &CurlRequest::bytesCallback);
    curl_easy_setopt(easy, CURLOPT_WRITEDATA, &hop);
    const auto address = update::addressOf(hop.url);
    if (address && address->loopback())
        curl_easy_setopt(easy, CURLOPT_NOPROXY, "*"); // what is for this machine does not leave it

    curl_multi_add_handle(multi_, easy);
    std::optional<Failure> failure;
    int running = 1;
    while (running > 0 && !failure) {
        curl_multi_perform(multi_, &running);
        if (running > 0)
            curl_multi_poll(multi_, nullptr, 0, static_cast<int>(kLookAround.count()), nullptr);
        failure = whyGiveUp(hop);
        if (!failure && hop.announced == hop.come && Clock::now() - hop.last > patience_.afterEnd)
            break; // the server leaves the line open, and nothing more comes
    }
    if (!failure) {
        int left = 0;
        const CURLMsg* message = curl_multi_info_read(multi_, &left);
        failure = outcomeOf(hop, message == nullptr ? CURLE_OK : message->data.result);
    }
    curl_multi_remove_handle(multi_, easy);
    return failure;
}

/// Why a request that is under way is not waited for any longer.
std::optional<Failure> CurlRequest::whyGiveUp(const Hop& hop) {
    {
        const std::lock_guard lock(mutex_);
        if (cancelled_)
            return Failure{CURLE_ABORTED_BY_CALLBACK, "Cancelled"};
    }
    const auto now = Clock::now();
    if (now - hop.last > patience_.silence)
        return Failure{CURLE_OPERATION_TIMEDOUT, reason::kSilent};
    const auto waited = std::chrono::duration_cast<std::chrono::milliseconds>(now - hop.begun - hop.held);
    const auto overdue = waited - patience_.firstMinute;
    if (overdue.count() > 0 &&
        hop.come * 1000 < patience_.bytesPerSecond * static_cast<std::uint64_t>(overdue.count()))
        return Failure{CURLE_OPERATION_TIMEDOUT, reason::kTooSlow};
    return std::nullopt;
}

std::optional<Failure> CurlRequest::outcomeOf(Hop& hop, int code) const {
    if (hop.status != 0 && hop.status != kSuccess && !isRedirect(hop.status))
        return Failure{static_cast<int>(hop.status),
                       text::replaceAll(reason::kAnswered, "%1", std::to_string(hop.status))};
    if (hop.status == kSuccess && hop.announced && hop.come > *hop.announced)
        return Failure{CURLE_RECV_ERROR, reason::kTooMuch};
    if (code != CURLE_OK)
        return Failure{code, hop.reason[0] == '\0' ? curl_easy_strerror(static_cast<CURLcode>(code))
                                                   : hop.reason.data()};
    if (hop.status == kSuccess && hop.announced && hop.come != *hop.announced)
        return Failure{CURLE_PARTIAL_FILE, reason::kTooLittle};
    return std::nullopt;
}

void CurlRequest::takeHeader(Hop& hop, std::string_view line) {
    if (line.starts_with("HTTP/"))
        hop.headers.clear();
    while (line.ends_with('\n') || line.ends_with('\r'))
        line.remove_suffix(1);
    hop.last = Clock::now();
    const std::size_t colon = line.find(':');
    if (colon != std::string_view::npos)
        hop.headers[text::asciiLower(line.substr(0, colon))] = text::trim(line.substr(colon + 1));
    if (!line.empty())
        return;
    curl_easy_getinfo(hop.easy.get(), CURLINFO_RESPONSE_CODE, &hop.status);
    if (hop.status != kSuccess)
        return;
    const auto length = hop.headers.find("content-length");
    if (length != hop.headers.end())
        hop.announced = text::wholeNumber<std::uint64_t>(length->second);
    {
        const std::lock_guard lock(mutex_);
        headers_ = hop.headers;
        arrival_.response = true;
    }
    wake_();
}

/// False: the request is over.
bool CurlRequest::takeBytes(Hop& hop, std::string_view bytes) {
    hop.come += bytes.size();
    if (hop.status !=
        kSuccess) // the page that goes with a redirect has to end, or libcurl forgets the redirect
        return isRedirect(hop.status) && hop.come < kPage;
    {
        std::unique_lock lock(mutex_);
        const auto before = Clock::now();
        taken_.wait(lock, [this] { return cancelled_ || arrival_.bytes.size() < kBuffer; });
        hop.last = Clock::now();
        hop.held += hop.last - before;
        if (cancelled_)
            return false;
        arrival_.bytes.append(bytes);
    }
    wake_();
    return !hop.announced || hop.come <= *hop.announced;
}

std::size_t CurlRequest::headerCallback(char* data, std::size_t size, std::size_t count, void* hop) {
    Hop& to = *static_cast<Hop*>(hop);
    to.owner.takeHeader(to, {data, size * count});
    return size * count;
}

std::size_t CurlRequest::bytesCallback(char* data, std::size_t size, std::size_t count, void* hop) {
    Hop& to = *static_cast<Hop*>(hop);
    return to.owner.takeBytes(to, {data, size * count}) ? size * count : 0;
}

/// What the module is loaded for.
extern "C" WebRequest* brovinOpenRequest(const platform::TransferRequest& request, const Patience& patience,
                                         const std::function<void()>& wake) {
    return std::make_unique<CurlRequest>(request, patience, wake).release();
}

} // namespace brovin::net
