#include "frame/text_pool.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <stdexcept>

#include "data/basic_text.h"

namespace numarel {

std::uint32_t TextPool::Hash(std::string_view text) {
    std::uint64_t h = 1469598103934665603ull;  // FNV-1a: texts are short
    for (char c : text) {
        h ^= static_cast<unsigned char>(c);
        h *= 1099511628211ull;
    }
    return static_cast<std::uint32_t>(h ^ (h >> 29));
}

TextPool::Entry TextPool::Store(std::string_view text) {
    if (text.size() > kChunkBytes / 4) {  // a long text gets a block of its own
        if (text.size() > kSizeMask) throw std::length_error("text too long for a sheet cell");
        blocks_.push_back(std::make_unique<char[]>(text.size()));
        std::memcpy(blocks_.back().get(), text.data(), text.size());
        blockBytes_ += text.size();
        return {static_cast<std::uint32_t>(blocks_.size() - 1),
                static_cast<std::uint32_t>(text.size()) | kLong};
    }
    if (chunkUsed_ + text.size() > kChunkBytes) NewChunk();
    std::memcpy(chunks_.back().get() + chunkUsed_, text.data(), text.size());
    Entry e{static_cast<std::uint32_t>(((chunks_.size() - 1) << kChunkBits) | chunkUsed_),
            static_cast<std::uint32_t>(text.size())};
    chunkUsed_ += text.size();
    return e;
}

void TextPool::NewChunk() {
    chunks_.push_back(std::make_unique<char[]>(kChunkBytes));
    chunkUsed_ = 0;
}

namespace {

// True when `texts` texts need a larger table than `slots` slots.
bool Crowded(std::size_t texts, std::size_t slots) {
    return texts * 4 > slots * 3;
}

}  // namespace

namespace {

std::uint32_t HashOf(std::uint64_t slot) {
    return static_cast<std::uint32_t>(slot >> 32);
}
std::uint32_t HandleOf(std::uint64_t slot) {
    return static_cast<std::uint32_t>(slot);
}

}  // namespace

void TextPool::Grow(std::size_t slotCount) {
    std::vector<std::uint64_t> slots(slotCount, 0);
    const std::size_t mask = slots.size() - 1;
    for (std::uint64_t slot : slots_) {
        if (slot == 0) continue;
        std::size_t i = HashOf(slot) & mask;
        while (slots[i] != 0)
            i = (i + 1) & mask;
        slots[i] = slot;
    }
    slots_ = std::move(slots);
}

std::uint32_t TextPool::Intern(std::string_view text) {
    if (text.size() <= kShortLength) {
        std::uint64_t key = text.size();
        for (std::size_t k = 0; k < text.size(); ++k)
            key |= static_cast<std::uint64_t>(static_cast<unsigned char>(text[k])) << (8 * (k + 1));
        ShortText& entry = shortTexts_[(key * 0x9E3779B97F4A7C15ull) >> (64 - kShortBits)];
        if (entry.key == key) return last_ = entry.handle;
        entry = {key, InternHashed(text)};
        return entry.handle;
    }
    return InternHashed(text);
}

std::uint32_t TextPool::InternHashed(std::string_view text) {
    if (last_ != 0 && View(last_) == text) return last_;
    if (slots_.empty() || Crowded(looked_ + 1, slots_.size()))
        Grow(std::max<std::size_t>(64, slots_.size() * 2));
    const std::size_t mask = slots_.size() - 1;
    const std::uint32_t hash = Hash(text);
    std::size_t i = hash & mask;
    for (; slots_[i] != 0; i = (i + 1) & mask)
        if (HashOf(slots_[i]) == hash && View(HandleOf(slots_[i])) == text)
            return last_ = HandleOf(slots_[i]);
    entries_.push_back(Store(text));
    ++looked_;
    last_ = static_cast<std::uint32_t>(entries_.size());
    slots_[i] = (static_cast<std::uint64_t>(hash) << 32) | last_;
    return last_;
}

std::uint32_t TextPool::AddLoose(std::string_view text) {
    Entry e = Store(text);
    e.size |= kLoose;
    entries_.push_back(e);
    return static_cast<std::uint32_t>(entries_.size());
}

void TextPool::ReplaceLoose(std::uint32_t handle, std::string_view text) {
    Entry& e = entries_[handle - 1];
    if (!(e.size & kLong) && text.size() <= (e.size & kSizeMask)) {
        // A label shortened or rewritten to its own length, as reports do, takes no new room.
        // The new text may be a view of the old one.
        char* at = chunks_[e.at >> kChunkBits].get() + (e.at & (kChunkBytes - 1));
        std::memmove(at, text.data(), text.size());
        e.size = static_cast<std::uint32_t>(text.size()) | kLoose;
    } else {
        const Entry stored = Store(text);  // never moves entries_
        entries_[handle - 1] = {stored.at, stored.size | kLoose};
    }
    if (handle <= values_.size()) values_[handle - 1] = std::numeric_limits<double>::quiet_NaN();
    if (handle <= counters_.size()) counters_[handle - 1] = kNoCounter;
}

std::uint32_t TextPool::Find(std::string_view text) const {
    if (slots_.empty() || text.empty()) return 0;
    const std::size_t mask = slots_.size() - 1;
    const std::uint32_t hash = Hash(text);
    for (std::size_t i = hash & mask; slots_[i] != 0; i = (i + 1) & mask)
        if (HashOf(slots_[i]) == hash && View(HandleOf(slots_[i])) == text)
            return HandleOf(slots_[i]);
    return 0;
}

void TextPool::KeepOnly(std::vector<std::uint32_t>& remap) {
    TextPool kept;
    std::size_t count = 0;
    std::size_t looked = 0;  // kept texts that the slots find
    for (std::size_t h = 1; h <= entries_.size(); ++h)
        if (remap[h]) {
            remap[h] = static_cast<std::uint32_t>(++count);
            if (!(entries_[h - 1].size & kLoose)) ++looked;
        }
    kept.entries_.reserve(count);
    for (std::size_t h = 1; h <= entries_.size(); ++h)
        if (remap[h]) {
            Entry e = kept.Store(View(static_cast<std::uint32_t>(h)));
            e.size |= entries_[h - 1].size & kLoose;
            kept.entries_.push_back(e);
        }
    // The texts are known to differ and their hashes are in the slots: they are placed without
    // being hashed or compared again.
    std::size_t slotCount = 64;
    while (Crowded(looked + 1, slotCount))
        slotCount *= 2;
    kept.slots_.assign(slotCount, 0);
    kept.looked_ = looked;
    const std::size_t mask = slotCount - 1;
    for (std::uint64_t slot : slots_) {
        if (slot == 0 || remap[HandleOf(slot)] == 0) continue;
        std::size_t i = HashOf(slot) & mask;
        while (kept.slots_[i] != 0)
            i = (i + 1) & mask;
        kept.slots_[i] = (slot & 0xFFFFFFFF00000000ull) | remap[HandleOf(slot)];
    }
    *this = std::move(kept);
}

std::size_t TextPool::MemoryBytes() const {
    std::size_t bytes = chunks_.size() * kChunkBytes + blockBytes_;
    bytes += entries_.capacity() * sizeof(Entry) + values_.capacity() * sizeof(double) +
             counters_.capacity() * sizeof(std::int32_t);
    bytes += slots_.capacity() * sizeof(std::uint64_t);
    return bytes;
}

}  // namespace numarel
