#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace numarel {

// The texts of one sheet, each stored once. A handle (1, 2, ...) names a text for the life of
// the pool; the views it hands out stay valid as long as the pool lives, moves included.
class TextPool {
public:
    TextPool() = default;
    TextPool(const TextPool&) = delete;
    TextPool& operator=(const TextPool&) = delete;
    TextPool(TextPool&&) = default;
    TextPool& operator=(TextPool&&) = default;

    // The handle of `text`, adding it when it is new. `text` must not be empty.
    std::uint32_t Intern(std::string_view text);
    std::string_view View(std::uint32_t handle) const { return views_[handle - 1]; }
    // The number at the start of the text, worked out once when the text was added.
    double Value(std::uint32_t handle) const { return values_[handle - 1]; }
    std::size_t Size() const { return views_.size(); }
    // Makes room for `count` texts in all, so that a pool filled to a known size is not left
    // with twice the room it needs.
    void Reserve(std::size_t count);
    std::size_t MemoryBytes() const;

private:
    static std::uint64_t Hash(std::string_view text);
    std::string_view Store(std::string_view text);
    void Grow(std::size_t slotCount);
    // Intern by the hash table alone.
    std::uint32_t InternHashed(std::string_view text);

    static constexpr std::size_t kChunkBytes = 64 * 1024;
    std::vector<std::unique_ptr<char[]>> chunks_;  // characters, never moved once written
    std::size_t chunkUsed_ = kChunkBytes;
    std::vector<std::unique_ptr<char[]>> blocks_;  // long texts, one block each
    std::size_t blockBytes_ = 0;
    std::vector<std::string_view> views_;
    std::vector<double> values_;
    std::vector<std::uint32_t> slots_;  // open addressing; 0 is a free slot
    std::uint32_t last_ = 0;            // reports often write one text many times in a row
    // Letters, digits and markers of up to three characters make up most cells, a few of them
    // over and over: each is found here without hashing. Keyed by the packed characters and the
    // length (never 0, as no key is empty).
    struct ShortText {
        std::uint32_t key = 0;
        std::uint32_t handle = 0;
    };
    static constexpr int kShortBits = 6;
    std::array<ShortText, 1u << kShortBits> shortTexts_{};
};

}  // namespace numarel
