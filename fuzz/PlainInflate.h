#pragma once

#include "core/Exception.h"
#include "migration/deflate/DeflateTables.h"

#include <map>
#include <utility>
#include <vector>

namespace VORN::Migration {

/// Decodes DEFLATE one bit at a time, as RFC 1951 tells it: what the fast decoder is held to.
class PlainInflate {
public:
    explicit PlainInflate(std::span<const std::uint8_t> input) : input_{input} {}

    std::vector<std::uint8_t> run() {
        for (bool isLast = false; !isLast;) {
            isLast = bits(1) != 0;
            const unsigned type = bits(2);
            require(type != 3, "Reserved block type detected. ");
            if (type == 0)
                stored();
            else if (type == 1)
                compressed(codeOf(kFixedLiteralLengths), codeOf(kFixedDistanceLengths));
            else
                dynamic();
        }
        return out_;
    }
    std::size_t bytesRead() const { return (position_ + 7) / 8; }

private:
    using Code = std::map<std::pair<unsigned, unsigned>, unsigned>; // by length and code

    static void require(bool condition, const char* otherwise) {
        if (!condition)
            throw FormatException{kNoOrigin, "deflate", otherwise};
    }
    unsigned bits(unsigned count) {
        unsigned value = 0;
        for (unsigned i = 0; i < count; ++i, ++position_) {
            if (position_ / 8 == input_.size())
                throw VORN::StreamException{kNoOrigin, "Attempted to read over end of buffer. "};
            value |= (input_[position_ / 8] >> position_ % 8 & 1U) << i;
        }
        return value;
    }
    unsigned member(const ExtraBitsCode& code) { return code.base + bits(code.extraBits); }

    static Code codeOf(std::span<const std::uint8_t> lengths) {
        Code code;
        unsigned next = 0;
        for (unsigned length = 1; length <= 15; ++length, next <<= 1)
            for (unsigned symbol = 0; symbol < lengths.size(); ++symbol)
                if (lengths[symbol] == length)
                    code[{length, next++}] = symbol;
        return code;
    }
    /// The next symbol, which must be below `count`.
    unsigned symbol(const Code& code, unsigned maximumBits, unsigned count, const char* name) {
        for (unsigned length = 1, word = 0; length <= maximumBits; ++length) {
            const auto found = code.find({length, word = word << 1 | bits(1)});
            if (found == code.end())
                continue;
            require(found->second < count, name);
            return found->second;
        }
        require(false, name);
        return 0;
    }
    void stored() {
        position_ = bytesRead() * 8;
        const unsigned length = bits(16);
        require((length ^ bits(16)) == 0xFFFF,
                "Missmatching length and length complement in no compression block. ");
        for (unsigned i = 0; i < length; ++i)
            out_.push_back(static_cast<std::uint8_t>(bits(8)));
    }
    void dynamic() {
        const unsigned literals = bits(5) + 257;
        const unsigned count = literals + bits(5) + 1;
        std::vector<std::uint8_t> lengths(19);
        for (unsigned i = 0, codeLengths = bits(4) + 4; i < codeLengths; ++i)
            lengths[kCodeLengthOrder[i]] = static_cast<std::uint8_t>(bits(3));
        const Code code = codeOf(lengths);
        lengths.clear();
        while (lengths.size() < count) {
            const unsigned length = symbol(code, 7, 19, "Invalid code word in code length code. ");
            require(length != 16 || !lengths.empty(),
                    "Repeated code length without a previous one. ");
            if (length < 16)
                lengths.push_back(static_cast<std::uint8_t>(length));
            else if (length == 16)
                lengths.insert(lengths.end(), 3 + bits(2), std::uint8_t{lengths.back()});
            else
                lengths.resize(lengths.size() + (length == 17 ? 3 + bits(3) : 11 + bits(7)));
        }
        require(lengths.size() == count, "Invalid number of code length symbols unpacked. ");
        compressed(codeOf(std::span{lengths}.first(literals)),
                   codeOf(std::span{lengths}.subspan(literals)));
    }
    void compressed(const Code& literals, const Code& distances) {
        constexpr const char* kLiteral = "Invalid code word in literal and length code. ";
        constexpr const char* kDistance = "Invalid code word in distance code. ";
        for (unsigned literal = 0; literal != kEndOfBlock;) {
            literal = symbol(literals, 15, 286, kLiteral);
            if (literal < kEndOfBlock)
                out_.push_back(static_cast<std::uint8_t>(literal));
            if (literal <= kEndOfBlock)
                continue;
            const unsigned length = member(kLengthCodes[literal - kFirstLength]);
            const unsigned distance = member(kDistanceCodes[symbol(distances, 15, 30, kDistance)]);
            require(distance <= out_.size(), "Back reference refer beyond beginning of buffer. ");
            for (unsigned i = 0; i < length; ++i)
                out_.push_back(std::uint8_t{out_[out_.size() - distance]});
        }
    }

    std::span<const std::uint8_t> input_;
    std::size_t position_ = 0; // in bits
    std::vector<std::uint8_t> out_;
};

} // namespace VORN::Migration
