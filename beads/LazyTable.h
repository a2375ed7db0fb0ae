#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>
#include <type_traits>

namespace VORN {

/// A table of `Count` values whose bytes are all 0 at first. The system provides memory only for
/// pages that are touched, so a large table of which little is used costs little.
template <class Value, std::size_t Count>
    requires std::is_trivial_v<Value>
class LazyTable {
public:
    /// Running out of memory is a `std::bad_alloc`.
    LazyTable() : values_{static_cast<Value*>(std::calloc(Count, sizeof(Value)))} {
        if (!values_)
            throw std::bad_alloc{};
    }

    /// The value number `index`, below `Count`; not checked.
    Value& operator[](std::size_t index) { return values_[index]; }

private:
    struct Free {
        void operator()(Value* values) const { std::free(values); }
    };
    std::unique_ptr<Value[], Free> values_;
};

} // namespace VORN
