#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>

namespace VORN {

/// Bytes in memory, side by side.
class Buffer {
public:
    virtual ~Buffer() = default;
    /// All bytes of the buffer; the span is valid until the buffer's size changes.
    virtual std::span<const std::uint8_t> data() const = 0;
    /// All bytes, to be changed; the span is valid until the buffer's size changes. Throws
    /// `AccessException` when they are read-only.
    virtual std::span<std::uint8_t> writableData() = 0;

    /// The number of bytes.
    std::size_t size() const { return data().size(); }
};

/// Read-only bytes owned elsewhere, which must outlive the buffer.
class BorrowConstBuffer : public Buffer {
public:
    /// A buffer over `bytes`.
    explicit BorrowConstBuffer(std::span<const std::uint8_t> bytes) : bytes_{bytes} {}
    std::span<const std::uint8_t> data() const override { return bytes_; }
    /// Always throws `AccessException`.
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

/// A buffer whose size can be changed. Running out of memory is an `AllocateException`.
class DynamicBuffer : public Buffer {
public:
    /// Makes the buffer `size` bytes long. Bytes up to there keep their values; new ones have no
    /// defined value.
    virtual void resize(std::uint64_t size) = 0;
    /// Makes room for `capacity` bytes in all without changing the size.
    virtual void reserve(std::uint64_t capacity) = 0;
};

/// A buffer whose memory grows by half when it is used up, so that n bytes appended in small pieces
/// take time proportional to n.
///
/// Memory that has not been written yet is not touched, so a large `resize` alone costs little.
class IncrementalBuffer : public DynamicBuffer {
public:
    std::span<const std::uint8_t> data() const override { return {bytes_.get(), size_}; }
    std::span<std::uint8_t> writableData() override { return {bytes_.get(), size_}; }
    void resize(std::uint64_t size) override;
    void reserve(std::uint64_t capacity) override;

    /// How many bytes it can hold without asking for memory.
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
