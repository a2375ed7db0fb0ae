#pragma once

#include "core/Exception.h"
#include "migration/DeflateTables.h"

#include <map>
#include <utility>
#include <vector>

namespace VORN::Migration {

/// Decodes DEFLATE one bit at a time, as RFC 1951 tells it: what the fast decoder is held to.
class PlainInflate {
public:
    explicit PlainInflate(std::span<const std::uint8_t> input) : input_{input} {}

    std::vector<std::uint8_t> run() {
        while (!block())
            ;
        return out_;
    }
    std::size_t bytesRead() const { return (position_ + 7) / 8; }

private:
    using Code = std::map<std::pair<unsigned, unsigned>, unsigned>; // by length and code

    unsigned bit() {
        if (position_ / 8 == input_.size())
            throw VORN::StreamException{kNoOrigin, "Attempted to read over end of buffer. "};
        const unsigned bit = input_[position_ / 8] >> position_ % 8 & 1;
        ++position_;
        return bit;
    }
    unsigned bits(unsigned count) {
        unsigned value = 0;
        for (unsigned i = 0; i < count; ++i)
            value |= bit() << i;
        return value;
    }
    [[noreturn]] static void refuse(const char* detail) {
        throw FormatException{kNoOrigin, "deflate", detail};
    }

    static Code codeOf(std::span<const std::uint8_t> lengths) {
        Code code;
        unsigned next = 0;
        for (unsigned length = 1; length <= 15; ++length, next <<= 1)
            for (unsigned symbol = 0; symbol < lengths.size(); ++symbol)
                if (lengths[symbol] == length)
                    code[{length, next++}] = symbol;
        return code;
    }
    unsigned symbol(const Code& code, unsigned maximumBits, const char* complaint) {
        unsigned word = 0;
        for (unsigned length = 1; length <= maximumBits; ++length) {
            word = word << 1 | bit();
            if (const auto found = code.find({length, word}); found != code.end())
                return found->second;
        }
        refuse(complaint);
    }

    bool block() {
        const bool isLast = bit() != 0;
        const unsigned type = bits(2);
        if (type == 0)
            stored();
        else if (type == 1)
            compressed(codeOf(kFixedLiteralLengths), codeOf(kFixedDistanceLengths));
        else if (type == 2)
            dynamic();
        else
            refuse("Reserved block type detected. ");
        return isLast;
    }
    void stored() {
        position_ = (position_ + 7) / 8 * 8;
        const unsigned length = bits(16);
        if ((length ^ bits(16)) != 0xFFFF)
            refuse("Missmatching length and length complement in no compression block. ");
        for (unsigned i = 0; i < length; ++i)
            out_.push_back(static_cast<std::uint8_t>(bits(8)));
    }
    void dynamic() {
        const unsigned literals = bits(5) + 257;
        const unsigned count = literals + bits(5) + 1;
        std::vector<std::uint8_t> lengths(19);
        const unsigned codeLengths = bits(4) + 4;
        for (unsigned i = 0; i < codeLengths; ++i)
            lengths[kCodeLengthOrder[i]] = static_cast<std::uint8_t>(bits(3));
        const Code code = codeOf(lengths);
        lengths.clear();
        while (lengths.size() < count) {
            const unsigned length = symbol(code, 7, "Invalid code word in code length code. ");
            if (length == 16 && lengths.empty())
                refuse("Repeated code length without a previous one. ");
            if (length < 16)
                lengths.push_back(static_cast<std::uint8_t>(length));
            else if (length == 16)
                lengths.insert(lengths.end(), 3 + bits(2), std::uint8_t{lengths.back()});
            else
                lengths.insert(lengths.end(), length == 17 ? 3 + bits(3) : 11 + bits(7), 0);
        }
        if (lengths.size() != count)
            refuse("Invalid number of code length symbols unpacked. ");
        compressed(codeOf(std::span{lengths}.first(literals)),
                   codeOf(std::span{lengths}.subspan(literals)));
    }
    void compressed(const Code& literals, const Code& distances) {
        constexpr const char* kLiteral = "Invalid code word in literal and length code. ";
        constexpr const char* kDistance = "Invalid code word in distance code. ";
        for (;;) {
            const unsigned literal = symbol(literals, 15, kLiteral);
            if (literal == kEndOfBlock)
                return;
            if (literal < kEndOfBlock) {
                out_.push_back(static_cast<std::uint8_t>(literal));
                continue;
            }
            if (literal >= kFirstLength + kLengthCodes.size())
                refuse(kLiteral);
            const unsigned length = member(kLengthCodes[literal - kFirstLength]);
            const unsigned code = symbol(distances, 15, kDistance);
            if (code >= kDistanceCodes.size())
                refuse(kDistance);
            const unsigned distance = member(kDistanceCodes[code]);
            if (distance > out_.size())
                refuse("Back reference refer beyond beginning of buffer. ");
            for (unsigned i = 0; i < length; ++i)
                out_.push_back(std::uint8_t{out_[out_.size() - distance]});
        }
    }
    unsigned member(const ExtraBitsCode& code) { return code.base + bits(code.extraBits); }

    std::span<const std::uint8_t> input_;
    std::size_t position_ = 0; // in bits
    std::vector<std::uint8_t> out_;
};

} // namespace VORN::Migration
