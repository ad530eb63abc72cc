#include "character/image_store.h"

#include <utility>

namespace brovin::character {

ImageStore::ImageStore(std::vector<EncodedImage> images, std::size_t cacheBytes)
    : images_(std::move(images)), undrawable_(images_.size()), cacheBytes_(cacheBytes) {}

std::shared_ptr<const IndexedImage> ImageStore::image(std::size_t index) {
    if (index >= images_.size() || undrawable_[index])
        return nullptr;
    if (const auto place = places_.find(index); place != places_.end()) {
        recent_.splice(recent_.begin(), recent_, place->second);
        return place->second->image;
    }
    auto pixels = decodeImage(images_[index]);
    if (!pixels) {
        undrawable_[index] = true;
        return nullptr;
    }
    auto decoded = std::make_shared<const IndexedImage>(*std::move(pixels));
    keep(index, decoded);
    return decoded;
}

void ImageStore::keep(std::size_t index, const Decoded& decoded) {
    const std::size_t bytes = decoded->pixels.size();
    if (bytes > cacheBytes_)
        return;
    while (cachedBytes_ + bytes > cacheBytes_)
        dropOldest();
    recent_.push_front({index, decoded});
    places_[index] = recent_.begin();
    cachedBytes_ += bytes;
}

void ImageStore::dropOldest() {
    cachedBytes_ -= recent_.back().image->pixels.size();
    places_.erase(recent_.back().index);
    recent_.pop_back();
}

} // namespace brovin::character
