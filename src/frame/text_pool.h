#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <string_view>
#include <vector>

#include "data/basic_text.h"

namespace numarel {

// The texts of one sheet, each stored once. A handle (1, 2, ...) names a text for the life of
// the pool; the views it hands out stay valid as long as the pool lives, moves included.
// Beside them the pool keeps loose texts: added without a look-up, one handle each even when
// they are alike, and changed in place; a loose text's view lasts until it is replaced.
class TextPool {
public:
    TextPool() = default;
    TextPool(const TextPool&) = delete;
    TextPool& operator=(const TextPool&) = delete;
    TextPool(TextPool&&) = default;
    TextPool& operator=(TextPool&&) = default;

    // The handle of `text`, adding it when it is new. `text` must not be empty.
    std::uint32_t Intern(std::string_view text);
    // The handle Intern gives `text`, or 0 when the pool has no such text (loose texts aside).
    std::uint32_t Find(std::string_view text) const;
    // Adds `text` as a loose text, which Intern never hands out. `text` must not be empty.
    std::uint32_t AddLoose(std::string_view text);
    // Adds a loose text of `size` characters (1 to kRoomMax) and gives the room for them, which
    // the caller fills before the text is read: a text made in place, without a copy.
    static constexpr std::size_t kRoomMax = 64;
    char* AddLooseRoom(std::size_t size, std::uint32_t& handle) {
        if (chunkUsed_ + size > kChunkBytes) NewChunk();
        char* room = chunks_.back().get() + chunkUsed_;
        entries_.push_back(
            {static_cast<std::uint32_t>(((chunks_.size() - 1) << kChunkBits) | chunkUsed_),
             static_cast<std::uint32_t>(size) | kLoose});
        chunkUsed_ += size;
        handle = static_cast<std::uint32_t>(entries_.size());
        return room;
    }
    // Gives the loose text `handle` the characters of `text` (not empty), in place when they fit.
    void ReplaceLoose(std::uint32_t handle, std::string_view text);
    bool IsLoose(std::uint32_t handle) const { return (entries_[handle - 1].size & kLoose) != 0; }
    std::string_view View(std::uint32_t handle) const {
        const Entry e = entries_[handle - 1];
        if (e.size & kLong) return {blocks_[e.at].get(), e.size & kSizeMask};
        return {chunks_[e.at >> kChunkBits].get() + (e.at & (kChunkBytes - 1)), e.size & kSizeMask};
    }
    // The number at the start of the text, worked out the first time it is asked for: most texts
    // (drawing labels above all) are never read as numbers, and a pool none of whose texts is
    // read keeps no values at all.
    double Value(std::uint32_t handle) const {
        if (handle > values_.size())
            values_.resize(entries_.size(), std::numeric_limits<double>::quiet_NaN());
        double& value = values_[handle - 1];
        if (std::isnan(value)) value = LeadingValue(View(handle));
        return value;
    }
    // Value rounded half to even into a 16-bit counter and clamped, worked out once as Value is:
    // charts read their markers back as counters row after row.
    short Counter(std::uint32_t handle) const {
        if (handle > counters_.size()) counters_.resize(entries_.size(), kNoCounter);
        std::int32_t& counter = counters_[handle - 1];
        if (counter == kNoCounter) counter = RoundToInt16(Value(handle));
        return static_cast<short>(counter);
    }
    std::size_t Size() const { return entries_.size(); }
    // Makes room for `count` more loose texts.
    void ReserveLoose(std::size_t count) { entries_.reserve(entries_.size() + count); }
    std::size_t MemoryBytes() const;
    // Keeps only the texts whose `remap` entry (indexed by handle) is not 0, renumbered 1, 2, ...
    // in their order, and writes each kept text's new handle into its entry.
    void KeepOnly(std::vector<std::uint32_t>& remap);

private:
    // Where a text's characters are: chunk and offset packed in `at`, or for a long text the
    // index of its block, with kLong set in `size`; kLoose marks a loose text. Eight bytes a
    // text, a third of a view's.
    struct Entry {
        std::uint32_t at;
        std::uint32_t size;
    };
    static constexpr std::uint32_t kLong = 0x80000000u;
    static constexpr std::uint32_t kLoose = 0x40000000u;
    static constexpr std::uint32_t kSizeMask = kLoose - 1;

    static std::uint32_t Hash(std::string_view text);
    Entry Store(std::string_view text);
    void NewChunk();
    void Grow(std::size_t slotCount);
    // Intern by the hash table alone.
    std::uint32_t InternHashed(std::string_view text);

    static constexpr int kChunkBits = 16;
    static constexpr std::size_t kChunkBytes = std::size_t{1} << kChunkBits;
    std::vector<std::unique_ptr<char[]>> chunks_;  // characters, never moved once written
    std::size_t chunkUsed_ = kChunkBytes;
    std::vector<std::unique_ptr<char[]>> blocks_;  // long texts, one block each
    std::size_t blockBytes_ = 0;
    std::vector<Entry> entries_;
    // NaN until worked out (a text's value is never NaN); made on the first Value.
    mutable std::vector<double> values_;
    // Counter's, made on the first Counter; kNoCounter until worked out.
    static constexpr std::int32_t kNoCounter = std::numeric_limits<std::int32_t>::min();
    mutable std::vector<std::int32_t> counters_;
    // Open addressing, at most three quarters full; 0 is a free slot, else the text's hash (high
    // half) and handle (low half), so that a probe passes over other texts, and growing places
    // them, without reading them.
    std::vector<std::uint64_t> slots_;
    std::size_t looked_ = 0;  // the texts the slots find: all but the loose ones
    std::uint32_t last_ = 0;  // reports often write one text many times in a row
    // Letters, digits and markers of up to seven characters make up most cells, a few of them
    // over and over: each is found here without hashing. Keyed by the packed characters and the
    // length (never 0, as no key is empty).
    static constexpr std::size_t kShortLength = 7;
    struct ShortText {
        std::uint64_t key = 0;
        std::uint32_t handle = 0;
    };
    static constexpr int kShortBits = 8;
    std::array<ShortText, 1u << kShortBits> shortTexts_{};
};

}  // namespace numarel
