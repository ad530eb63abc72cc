#pragma once

#include "character/acs_limits.h"
#include "character/character_data.h"
#include "character/indexed_image.h"

#include <cstddef>
#include <list>
#include <memory>
#include <unordered_map>
#include <vector>

namespace brovin::character {

/// The images of a character, decoded when they are first asked for. Keeps the decoded ones that were asked
/// for last, as far as they fit; what a caller holds stays valid beyond that.
class ImageStore {
public:
    /// `cacheBytes` bounds the pixels that are kept, one byte each.
    explicit ImageStore(std::vector<EncodedImage> images, std::size_t cacheBytes = kDecodedImageBytes);

    [[nodiscard]] std::size_t count() const { return images_.size(); }

    /// Null: there is no such image, or it is empty or damaged. None of these is an error; nothing is to be
    /// drawn.
    [[nodiscard]] std::shared_ptr<const IndexedImage> image(std::size_t index);

    [[nodiscard]] std::size_t cachedBytes() const { return cachedBytes_; }

private:
    using Decoded = std::shared_ptr<const IndexedImage>;
    struct Cached {
        std::size_t index;
        Decoded image;
    };

    void keep(std::size_t index, const Decoded& decoded);
    void dropOldest();

    std::vector<EncodedImage> images_;
    std::vector<bool> undrawable_; ///< by image: decoding it failed, and would again
    std::size_t cacheBytes_;
    std::size_t cachedBytes_ = 0;
    std::list<Cached> recent_; ///< asked for last first
    std::unordered_map<std::size_t, std::list<Cached>::iterator> places_;
};

} // namespace brovin::character
