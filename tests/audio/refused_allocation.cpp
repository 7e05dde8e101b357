#include "refused_allocation.h"

#include <cstdlib>
#include <new>

// In a separate file, because the compiler must not see these when it inlines a container.

namespace {

constexpr std::size_t mostAtOnce = 1U << 30U;
std::size_t refused = 0;

}  // namespace

std::size_t kzq::test::refusedAllocation() {
    return refused;
}

// NOLINTBEGIN(*-no-malloc): the replacements stand on malloc, as the originals do
void* operator new(std::size_t size) {
    void* const memory = size > mostAtOnce ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (memory != nullptr) {
        return memory;
    }
    refused = size;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
// NOLINTEND(*-no-malloc)
