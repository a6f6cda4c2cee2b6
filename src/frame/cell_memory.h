#pragma once

#include <cstddef>
#include <utility>

namespace numarel {

// Zeroed memory for a sheet's cells, taken and given back whole. Large blocks come straight from
// the system, and the thread keeps the last large block let go for its next one.
class CellMemory {
public:
    CellMemory() = default;
    // At least `bytes` bytes, all zero; throws std::bad_alloc when there is no memory.
    explicit CellMemory(std::size_t bytes);
    ~CellMemory();
    CellMemory(CellMemory&& other) noexcept { Swap(other); }
    CellMemory& operator=(CellMemory&& other) noexcept {
        CellMemory(std::move(other)).Swap(*this);
        return *this;
    }
    CellMemory(const CellMemory&) = delete;
    CellMemory& operator=(const CellMemory&) = delete;

    void* data() const { return data_; }
    // The bytes asked for.
    std::size_t size() const { return size_; }
    void Swap(CellMemory& other) noexcept {
        std::swap(data_, other.data_);
        std::swap(size_, other.size_);
        std::swap(mappedBytes_, other.mappedBytes_);
    }

private:
    void* data_ = nullptr;
    std::size_t size_ = 0;
    std::size_t mappedBytes_ = 0;  // the size of a mapping; 0 for memory from the heap
};

}  // namespace numarel
