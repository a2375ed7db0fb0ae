#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>
#include <type_traits>

namespace VORN {

/// `Count` values whose bytes are 0 at first; memory is touched only where values are.
template <class Value, std::size_t Count>
requires std::is_trivial_v<Value>
class LazyTable {
public:
    /// Nothing but running out of memory can fail: a `std::bad_alloc`.
    LazyTable() : values_{static_cast<Value*>(std::calloc(Count, sizeof(Value)))} {
        if (!values_)
            throw std::bad_alloc{};
    }

    /// `index` is below `Count`.
    Value& operator[](std::size_t index) { return values_[index]; }

private:
    struct Free {
        void operator()(Value* values) const { std::free(values); }
    };
    std::unique_ptr<Value[], Free> values_;
};

} // namespace VORN
