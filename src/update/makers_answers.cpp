#include "update/makers_answers.h"
#include "platform/reasons.h"

#include <algorithm>
#include <cstddef>

namespace brovin::update {
namespace {

/// The longest answer that is read, in bytes.
constexpr std::size_t kLongestAnswer = std::size_t{64} * 1024;

constexpr std::chrono::milliseconds kOneAnswer{10'000};
constexpr int kOftenEnough = 2;

} // namespace

bool MakersAnswers::givenUp() const {
    return ranOut_ >= kOftenEnough || left_.count() <= 0;
}

platform::Result<std::string> MakersAnswers::ask(const std::string& query) {
    if (givenUp())
        return platform::Failure{platform::kTimedOut, platform::reason::kSilent};
    platform::TransferRequest request{server_ + "/download/brovinupdate.php?" + query};
    request.longest = std::min(kOneAnswer, left_);
    auto answer = transfer_.openUrl(request, kLongestAnswer);
    left_ -= transfer_.took();
    if (!answer && answer.failure().number == platform::kTimedOut)
        ++ranOut_;
    return answer;
}

} // namespace brovin::update
