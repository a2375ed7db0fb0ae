#pragma once

#include "core/Stream.h"

#include <array>
#include <map>
#include <string>

namespace VORN {

/// Visits values of elementary types, one operation per type.
class Serialization {
public:
    virtual ~Serialization() = default;
    virtual void process(bool& value) = 0;
    virtual void process(char& value) = 0;
    virtual void process(signed char& value) = 0;
    virtual void process(unsigned char& value) = 0;
    virtual void process(short& value) = 0;
    virtual void process(unsigned short& value) = 0;
    virtual void process(int& value) = 0;
    virtual void process(unsigned int& value) = 0;
    virtual void process(long& value) = 0;
    virtual void process(unsigned long& value) = 0;
    virtual void process(long long& value) = 0;
    virtual void process(unsigned long long& value) = 0;
    virtual void process(float& value) = 0;
    virtual void process(double& value) = 0;
    virtual void process(long double& value) = 0;
};

/// Implements every operation of `Serialization` by `transfer`, which is handed the value's bytes,
/// least significant first.
class ByteSerialization : public Serialization {
public:
    void process(bool& value) override;
    void process(char& value) override;
    void process(signed char& value) override;
    void process(unsigned char& value) override;
    void process(short& value) override;
    void process(unsigned short& value) override;
    void process(int& value) override;
    void process(unsigned int& value) override;
    void process(long& value) override;
    void process(unsigned long& value) override;
    void process(long long& value) override;
    void process(unsigned long long& value) override;
    void process(float& value) override;
    void process(double& value) override;
    void process(long double& value) override;

protected:
    /// May read or change the bytes.
    virtual void transfer(std::span<std::uint8_t> bytes) = 0;

private:
    template <class T>
    void processBytes(T& value);
};

/// Writes values least significant byte first. The stream is borrowed and must outlive it.
class Serializer : public ByteSerialization {
public:
    explicit Serializer(WriteStream& out) : out_{&out} {}

    /// Writes a copy of `value`.
    template <class T>
    void put(T value) {
        process(value);
    }
    /// Writes the length as 32 bits, then the bytes.
    void put(const std::string& text);
    /// Writes the count as 32 bits, then all keys, then all values in the same order.
    void put(const std::map<std::string, std::string>& map);

protected:
    void transfer(std::span<std::uint8_t> bytes) override { out_->write(bytes); }

private:
    WriteStream* out_;
};

/// Reads what `Serializer` wrote. The stream is borrowed and must outlive it.
///
/// Memory grows with the bytes that arrive, whatever a length claims.
class Deserializer : public ByteSerialization {
public:
    explicit Deserializer(ReadStream& in) : in_{&in} {}

    /// The next value of type `T`.
    template <class T>
    T get() {
        T value{};
        process(value);
        return value;
    }
    /// What `put` wrote of a text.
    std::string getText();
    /// What `put` wrote of a map; of keys that are there more than once the last value stays.
    std::map<std::string, std::string> getMap();

protected:
    void transfer(std::span<std::uint8_t> bytes) override { in_->read(bytes); }

private:
    ReadStream* in_;
};

/// Turns the byte order of every value around in place.
class SwapEndianess : public ByteSerialization {
protected:
    void transfer(std::span<std::uint8_t> bytes) override;
};

/// An object that can write itself.
class Serializable {
public:
    virtual ~Serializable() = default;
    virtual void serialize(Serializer& out) const = 0;
};

/// The number that four bytes, most significant first, stand for, as the formats of others have
/// them.
constexpr std::uint32_t fromBigEndian(std::span<const std::uint8_t, 4> bytes) {
    return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 |
           std::uint32_t{bytes[2]} << 8 | std::uint32_t{bytes[3]};
}

/// The same four bytes for a number.
constexpr std::array<std::uint8_t, 4> toBigEndian(std::uint32_t value) {
    return {static_cast<std::uint8_t>(value >> 24), static_cast<std::uint8_t>(value >> 16),
            static_cast<std::uint8_t>(value >> 8), static_cast<std::uint8_t>(value)};
}

} // namespace VORN
