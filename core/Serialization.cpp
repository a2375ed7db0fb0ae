#include "core/Serialization.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <vector>

namespace VORN {

template <class T>
void ByteSerialization::processBytes(T& value) {
    std::array<std::uint8_t, sizeof(T)> bytes;
    std::memcpy(bytes.data(), &value, sizeof(T));
    if constexpr (std::endian::native == std::endian::big)
        std::ranges::reverse(bytes);
    transfer(bytes);
    if constexpr (std::endian::native == std::endian::big)
        std::ranges::reverse(bytes);
    std::memcpy(&value, bytes.data(), sizeof(T));
}

void ByteSerialization::process(bool& value) {
    std::uint8_t byte = value ? 1 : 0;
    processBytes(byte);
    value = byte != 0;
}
void ByteSerialization::process(char& value) { processBytes(value); }
void ByteSerialization::process(signed char& value) { processBytes(value); }
void ByteSerialization::process(unsigned char& value) { processBytes(value); }
void ByteSerialization::process(short& value) { processBytes(value); }
void ByteSerialization::process(unsigned short& value) { processBytes(value); }
void ByteSerialization::process(int& value) { processBytes(value); }
void ByteSerialization::process(unsigned int& value) { processBytes(value); }
void ByteSerialization::process(long& value) { processBytes(value); }
void ByteSerialization::process(unsigned long& value) { processBytes(value); }
void ByteSerialization::process(long long& value) { processBytes(value); }
void ByteSerialization::process(unsigned long long& value) { processBytes(value); }
void ByteSerialization::process(float& value) { processBytes(value); }
void ByteSerialization::process(double& value) { processBytes(value); }
void ByteSerialization::process(long double& value) { processBytes(value); }

void Serializer::put(const std::string& text) {
    put(static_cast<std::uint32_t>(text.size()));
    out_->write({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

void Serializer::put(const std::map<std::string, std::string>& map) {
    put(static_cast<std::uint32_t>(map.size()));
    for (const auto& [key, value] : map)
        put(key);
    for (const auto& [key, value] : map)
        put(value);
}

std::string Deserializer::getText() {
    constexpr std::uint32_t kPieceBytes = 4096;
    auto left = get<std::uint32_t>();
    std::string text;
    while (left > 0) {
        const std::uint32_t piece = std::min(left, kPieceBytes);
        const std::size_t at = text.size();
        text.resize(at + piece);
        in_->read({reinterpret_cast<std::uint8_t*>(text.data()) + at, piece});
        left -= piece;
    }
    return text;
}

std::map<std::string, std::string> Deserializer::getMap() {
    std::vector<std::string> keys;
    for (auto left = get<std::uint32_t>(); left > 0; --left)
        keys.push_back(getText());
    std::map<std::string, std::string> map;
    for (std::string& key : keys)
        map[std::move(key)] = getText();
    return map;
}

void SwapEndianess::transfer(std::span<std::uint8_t> bytes) { std::ranges::reverse(bytes); }

} // namespace VORN
