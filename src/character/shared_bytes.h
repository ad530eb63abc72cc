#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <utility>
#include <vector>

namespace brovin::character {

/// A run of bytes in a buffer that is never changed and lives as long as anyone looks at a part of it. Copies
/// and parts cost nothing, so that thousands of records that lie upon one another in a file take no more
/// memory than the file. Two runs are equal when their bytes are.
class SharedBytes {
public:
    SharedBytes() = default;
    explicit SharedBytes(std::vector<std::uint8_t> bytes)
        : buffer_(std::make_shared<const std::vector<std::uint8_t>>(std::move(bytes))), view_(*buffer_) {}

    [[nodiscard]] std::span<const std::uint8_t> view() const { return view_; }
    [[nodiscard]] std::size_t size() const { return view_.size(); }
    [[nodiscard]] bool empty() const { return view_.empty(); }

    /// At most `count` bytes from `offset` on; fewer, or none, where the run ends before.
    [[nodiscard]] SharedBytes part(std::size_t offset, std::size_t count) const {
        SharedBytes result(*this);
        const std::size_t start = std::min(offset, size());
        result.view_ = view_.subspan(start, std::min(count, size() - start));
        return result;
    }

    friend bool operator==(const SharedBytes& a, const SharedBytes& b) {
        return std::equal(a.view_.begin(), a.view_.end(), b.view_.begin(), b.view_.end());
    }

private:
    std::shared_ptr<const std::vector<std::uint8_t>> buffer_;
    std::span<const std::uint8_t> view_;
};

} // namespace brovin::character
