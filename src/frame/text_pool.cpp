#include "frame/text_pool.h"

#include <algorithm>
#include <cstring>

#include "data/basic_text.h"

namespace numarel {

std::uint64_t TextPool::Hash(std::string_view text) {
    std::uint64_t h = 1469598103934665603ull;  // FNV-1a: texts are short
    for (char c : text) {
        h ^= static_cast<unsigned char>(c);
        h *= 1099511628211ull;
    }
    return h ^ (h >> 29);
}

std::string_view TextPool::Store(std::string_view text) {
    if (text.size() > kChunkBytes / 4) {  // a long text gets a block of its own
        blocks_.push_back(std::make_unique<char[]>(text.size()));
        std::memcpy(blocks_.back().get(), text.data(), text.size());
        blockBytes_ += text.size();
        return {blocks_.back().get(), text.size()};
    }
    if (chunkUsed_ + text.size() > kChunkBytes) {
        chunks_.push_back(std::make_unique<char[]>(kChunkBytes));
        chunkUsed_ = 0;
    }
    char* at = chunks_.back().get() + chunkUsed_;
    std::memcpy(at, text.data(), text.size());
    chunkUsed_ += text.size();
    return {at, text.size()};
}

void TextPool::Grow(std::size_t slotCount) {
    std::vector<std::uint32_t> slots(slotCount, 0);
    const std::size_t mask = slots.size() - 1;
    for (std::uint32_t handle = 1; handle <= views_.size(); ++handle) {
        std::size_t i = Hash(views_[handle - 1]) & mask;
        while (slots[i] != 0)
            i = (i + 1) & mask;
        slots[i] = handle;
    }
    slots_ = std::move(slots);
}

void TextPool::Reserve(std::size_t count) {
    views_.reserve(count);
    values_.reserve(count);
    // The table is kept at most half full, as Intern keeps it.
    std::size_t slotCount = std::max<std::size_t>(64, slots_.size());
    while ((count + 1) * 2 > slotCount)
        slotCount *= 2;
    if (slotCount != slots_.size()) Grow(slotCount);
}

std::uint32_t TextPool::Intern(std::string_view text) {
    if (text.size() <= 3) {
        std::uint32_t key = static_cast<std::uint32_t>(text.size());
        for (std::size_t k = 0; k < text.size(); ++k)
            key |= static_cast<std::uint32_t>(static_cast<unsigned char>(text[k])) << (8 * (k + 1));
        ShortText& entry = shortTexts_[(key * 2654435769u) >> (32 - kShortBits)];
        if (entry.key == key) return last_ = entry.handle;
        entry = {key, InternHashed(text)};
        return entry.handle;
    }
    return InternHashed(text);
}

std::uint32_t TextPool::InternHashed(std::string_view text) {
    if (last_ != 0 && views_[last_ - 1] == text) return last_;
    if ((views_.size() + 1) * 2 > slots_.size()) Grow(std::max<std::size_t>(64, slots_.size() * 2));
    const std::size_t mask = slots_.size() - 1;
    std::size_t i = Hash(text) & mask;
    while (slots_[i] != 0) {
        if (views_[slots_[i] - 1] == text) return last_ = slots_[i];
        i = (i + 1) & mask;
    }
    views_.push_back(Store(text));
    values_.push_back(LeadingValue(text));
    slots_[i] = static_cast<std::uint32_t>(views_.size());
    return last_ = slots_[i];
}

std::size_t TextPool::MemoryBytes() const {
    std::size_t bytes = chunks_.size() * kChunkBytes + blockBytes_;
    bytes += views_.capacity() * sizeof(std::string_view) + values_.capacity() * sizeof(double);
    bytes += slots_.capacity() * sizeof(std::uint32_t);
    return bytes;
}

}  // namespace numarel
