#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>

namespace VORN {

/// A run of bytes in memory.
class Buffer {
public:
    virtual ~Buffer() = default;
    /// All its bytes, valid until the buffer's size is changed.
    virtual std::span<const std::uint8_t> data() const = 0;
    /// Throws `AccessException` when the bytes are read-only.
    virtual std::span<std::uint8_t> writableData() = 0;

    std::size_t size() const { return data().size(); }
};

/// Read-only bytes owned elsewhere, which must outlive the buffer.
class BorrowConstBuffer : public Buffer {
public:
    explicit BorrowConstBuffer(std::span<const std::uint8_t> bytes) : bytes_{bytes} {}
    std::span<const std::uint8_t> data() const override { return bytes_; }
    std::span<std::uint8_t> writableData() override;

private:
    std::span<const std::uint8_t> bytes_;
};

/// A fixed number of bytes, all 0 at first.
template <std::size_t N>
class ArrayBuffer : public Buffer {
public:
    std::span<const std::uint8_t> data() const override { return bytes_; }
    std::span<std::uint8_t> writableData() override { return bytes_; }

private:
    std::array<std::uint8_t, N> bytes_{};
};

/// A buffer whose size can be changed; what no memory can be had for throws `AllocateException`.
class DynamicBuffer : public Buffer {
public:
    /// Keeps the bytes up to `size`; bytes that are new have no defined value.
    virtual void resize(std::uint64_t size) = 0;
    /// Makes room for `capacity` bytes in all without changing the size.
    virtual void reserve(std::uint64_t capacity) = 0;
};

/// A buffer that grows as it is written, by a constant factor, so that appending is linear.
///
/// Memory that has not been written yet is not touched.
class IncrementalBuffer : public DynamicBuffer {
public:
    std::span<const std::uint8_t> data() const override { return {bytes_.get(), size_}; }
    std::span<std::uint8_t> writableData() override { return {bytes_.get(), size_}; }
    void resize(std::uint64_t size) override;
    void reserve(std::uint64_t capacity) override;

    /// The bytes that it can hold without asking for memory.
    std::size_t capacity() const { return capacity_; }

private:
    struct Free {
        void operator()(std::uint8_t* bytes) const { std::free(bytes); }
    };

    std::unique_ptr<std::uint8_t[], Free> bytes_;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};

} // namespace VORN
