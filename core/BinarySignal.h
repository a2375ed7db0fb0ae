#pragma once

#include "core/Signal.h"

#include <limits>

namespace VORN {

/// Bits packed into words of type T, least significant first; every row begins a new word.
template <std::size_t N, class T, class P>
class BinarySignalBase {
public:
    static constexpr unsigned kWordBits = std::numeric_limits<T>::digits;

    const Tuple<N, unsigned>& size() const { return size_; }
    std::span<const T> words() const { return {words_, wordCount(size_)}; }

    bool get(unsigned x, unsigned y) const {
        return (words_[wordIndex(x, y)] >> (x % kWordBits) & 1) != 0;
    }
    void set(unsigned x, unsigned y) { words_[wordIndex(x, y)] |= T{1} << (x % kWordBits); }

protected:
    static std::size_t rowWords(unsigned width) {
        return (std::size_t{width} + kWordBits - 1) / kWordBits;
    }
    static std::size_t wordCount(const Tuple<N, unsigned>& size) {
        return rowWords(size[0]) * size[1];
    }
    void refer(const Tuple<N, unsigned>& size, P words) {
        size_ = size;
        words_ = words;
    }

private:
    std::size_t wordIndex(unsigned x, unsigned y) const {
        return y * rowWords(size_[0]) + x / kWordBits;
    }

    Tuple<N, unsigned> size_;
    P words_ = nullptr;
};

/// A bit signal that can be written.
template <std::size_t N, class T, class P>
class BinarySignalSerializable : public BinarySignalBase<N, T, P>, public Serializable {
public:
    /// Not implemented: always a `SupportException`.
    virtual void Resize(const Tuple<N, unsigned>&) {
        throw SupportException{kNoOrigin, "binary signal resize"};
    }
    void serialize(Serializer& out) const override {
        this->size().serialize(out);
        for (const T word : this->words())
            out.put(word);
    }
};

/// A two-dimensional bit signal that owns its words, all bits clear at first.
template <std::size_t N, class T>
requires(N == 2) class BinarySignal : public BinarySignalSerializable<N, T, T*> {
public:
    explicit BinarySignal(const Tuple<N, unsigned>& size) : storage_(this->wordCount(size)) {
        this->refer(size, storage_.data());
    }
    BinarySignal(const BinarySignal&) = delete;
    BinarySignal& operator=(const BinarySignal&) = delete;

private:
    std::vector<T> storage_;
};

} // namespace VORN
