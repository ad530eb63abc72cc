#pragma once

#include "platform/internet_transfer.h"

#include <chrono>
#include <string>

namespace brovin::update {

/// The questions of one update check, and how long their answers may take in all.
class MakersAnswers {
public:
    /// `server` is the maker's, without a path.
    MakersAnswers(platform::InternetTransfer& transfer, std::string server)
        : transfer_(transfer), server_(std::move(server)) {}

    /// The answer to a query. Failure: there was none; once `givenUp`, no further one is asked for.
    platform::Result<std::string> ask(const std::string& query);

    /// Whether the server has been silent so often, or slow for so long, that the rest is left out: each
    /// further question would have to run out of time too, language after language.
    [[nodiscard]] bool givenUp() const;

private:
    platform::InternetTransfer& transfer_;
    std::string server_;
    std::chrono::milliseconds left_{25'000};
    int ranOut_ = 0;
};

} // namespace brovin::update
