#include "cleaner/run_shares.h"

#include "text/utf8.h"

#include <utility>

namespace brovin::cleaner {

void RunShares::clear() {
    sums_.clear();
    shares_.clear();
}

void RunShares::enter(const std::string& folder) {
    for (const auto& [name, sum] : sums_)
        shares_.push_back({text::displayText(name), folder_, sum.items, sum.kilobytes});
    sums_.clear();
    folder_ = text::displayText(folder);
}

void RunShares::add(std::string_view name, std::int32_t kilobytes) {
    auto sum = sums_.find(name);
    if (sum == sums_.end())
        sum = sums_.emplace(std::string(name), Sum{}).first;
    ++sum->second.items;
    sum->second.kilobytes += kilobytes;
}

std::vector<platform::DeletedShare> RunShares::take() {
    enter({});
    return std::exchange(shares_, {});
}

} // namespace brovin::cleaner
