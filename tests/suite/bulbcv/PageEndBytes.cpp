#include "tests/suite/bulbcv/PageEndBytes.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

namespace k4test {

PageEndBytes::PageEndBytes(std::size_t size, std::uint8_t value) : m_size(size) {
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    const std::size_t usable = (size + page - 1) / page * page;
    m_mapped = usable + page;
    void* const map =
        mmap(nullptr, m_mapped, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (map == MAP_FAILED)
        std::abort();
    m_map = static_cast<std::uint8_t*>(map);
    if (mprotect(m_map + usable, page, PROT_NONE) != 0)
        std::abort();
    m_begin = m_map + usable - size;
    std::fill(begin(), end(), value);
}

PageEndBytes::~PageEndBytes() {
    munmap(m_map, m_mapped);
}

}  // namespace k4test
