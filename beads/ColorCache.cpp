#include "beads/ColorCache.h"

#include <new>

namespace VORN {

ColorCache::ColorCache() : table_{static_cast<std::uint8_t*>(std::calloc(1U << 24U, 1))} {
    if (!table_)
        throw std::bad_alloc{};
}

} // namespace VORN
