#include "Allocations.h"

#if defined(__SANITIZE_ADDRESS__)
// g++ 12 does not ship the header of these two.
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*)(const volatile void *, std::size_t),
                                                         void (*)(const volatile void *));
extern "C" std::size_t __sanitizer_get_allocated_size(const volatile void *);
#else
#include <malloc.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>
#endif

namespace {

Allocations s_alive{0, 0}; // the tests have one thread

void countIn(std::size_t bytes)
{
    ++s_alive.blocks;
    s_alive.bytes += static_cast<long long>(bytes);
}

void countOut(std::size_t bytes)
{
    --s_alive.blocks;
    s_alive.bytes -= static_cast<long long>(bytes);
}

} // namespace

Allocations Allocations::alive()
{
    return s_alive;
}

#if defined(__SANITIZE_ADDRESS__)

namespace {

[[maybe_unused]] const int s_hooks =
    __sanitizer_install_malloc_and_free_hooks([](const volatile void *, std::size_t size) { countIn(size); },
                                              [](const volatile void *block) {
                                                  if (block)
                                                      countOut(__sanitizer_get_allocated_size(block));
                                              });

} // namespace

#else

// The C library's own, under the names by which it lets itself be replaced.
extern "C" {
void *__libc_malloc(std::size_t);
void *__libc_calloc(std::size_t, std::size_t);
void *__libc_realloc(void *, std::size_t);
void *__libc_memalign(std::size_t, std::size_t);
void __libc_free(void *);

void *malloc(std::size_t size)
{
    void *block = __libc_malloc(size);
    if (block)
        countIn(malloc_usable_size(block));
    return block;
}

void *calloc(std::size_t count, std::size_t size)
{
    void *block = __libc_calloc(count, size);
    if (block)
        countIn(malloc_usable_size(block));
    return block;
}

void *realloc(void *old, std::size_t size)
{
    const std::size_t before = old ? malloc_usable_size(old) : 0;
    void *block = __libc_realloc(old, size);
    if (old && (block || size == 0))
        countOut(before);
    if (block)
        countIn(malloc_usable_size(block));
    return block;
}

void *aligned_alloc(std::size_t alignment, std::size_t size)
{
    void *block = __libc_memalign(alignment, size);
    if (block)
        countIn(malloc_usable_size(block));
    return block;
}

void *memalign(std::size_t alignment, std::size_t size)
{
    return aligned_alloc(alignment, size);
}

int posix_memalign(void **block, std::size_t alignment, std::size_t size)
{
    *block = aligned_alloc(alignment, size);
    return *block ? 0 : 12; // ENOMEM
}

void free(void *block)
{
    if (block)
        countOut(malloc_usable_size(block));
    __libc_free(block);
}

void *mmap(void *address, std::size_t size, int protection, int flags, int file, off_t offset)
{
    void *pages = reinterpret_cast<void *>(syscall(SYS_mmap, address, size, protection, flags, file, offset));
    if (pages != MAP_FAILED)
        countIn(size);
    return pages;
}

void *mmap64(void *address, std::size_t size, int protection, int flags, int file, off_t offset)
{
    return mmap(address, size, protection, flags, file, offset);
}

int munmap(void *pages, std::size_t size)
{
    countOut(size);
    return int(syscall(SYS_munmap, pages, size));
}
}

#endif
