#include "frame/cell_memory.h"

#include <cstdlib>
#include <cstring>
#include <new>

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace numarel {

#ifdef __linux__
namespace {

// Blocks of this size or more are mapped from the system, asking for huge pages, so that a 30 MB
// sheet is not faulted in 4 KB at a time.
constexpr std::size_t kMapThreshold = std::size_t{1} << 20;
// The most a thread keeps for its next sheet once a sheet lets its cells go.
constexpr std::size_t kSpareLimit = std::size_t{64} << 20;

// The cells of the last large sheet a thread let go, kept for the next one: a report window
// opened after another, or the command line building report after report, then finds its memory
// ready and only clears it, instead of having the system fault in and clear fresh pages.
class SpareCells {
public:
    ~SpareCells() {
        if (data_) munmap(data_, bytes_);
        data_ = nullptr;
        closed_ = true;  // a sheet that outlives its thread's spare lets its cells go itself
    }
    // The kept memory when it holds at least `bytes`, else nullptr; `mapped` gets its size.
    void* Take(std::size_t bytes, std::size_t& mapped) {
        if (!data_ || bytes_ < bytes) return nullptr;
        void* out = data_;
        data_ = nullptr;
        mapped = bytes_;
        return out;
    }
    // Keeps the larger of what is kept and `data`, up to the limit; lets the other go.
    void Give(void* data, std::size_t bytes) {
        if (closed_ || bytes > kSpareLimit || (data_ && bytes_ >= bytes)) {
            munmap(data, bytes);
            return;
        }
        if (data_) munmap(data_, bytes_);
        data_ = data;
        bytes_ = bytes;
    }

private:
    void* data_ = nullptr;
    std::size_t bytes_ = 0;
    bool closed_ = false;
};

thread_local SpareCells spareCells;

}  // namespace
#endif

CellMemory::CellMemory(std::size_t bytes) : size_(bytes) {
    if (bytes == 0) return;
#ifdef __linux__
    if (bytes >= kMapThreshold) {
        if (void* kept = spareCells.Take(bytes, mappedBytes_)) {
            std::memset(kept, 0, bytes);
            data_ = kept;
            return;
        }
        void* p = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (p != MAP_FAILED) {
            madvise(p, bytes, MADV_HUGEPAGE);
            data_ = p;
            mappedBytes_ = bytes;
            return;
        }
    }
#endif
    data_ = std::calloc(bytes, 1);
    if (!data_) throw std::bad_alloc();
}

CellMemory::~CellMemory() {
    if (!data_) return;
#ifdef __linux__
    if (mappedBytes_ != 0) {
        spareCells.Give(data_, mappedBytes_);
        return;
    }
#endif
    std::free(data_);
}

}  // namespace numarel
