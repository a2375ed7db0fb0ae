#pragma once

#include "core/Serialization.h"

#include <map>
#include <string>
#include <vector>

namespace VORN::Migration {

/// Texts by key, one per key, keys in byte order.
class Metadata : public Serializable {
public:
    /// Writes all keys with their values as a map.
    void serialize(Serializer& out) const override;
    /// Inserts or replaces.
    virtual void set(const std::string& key, const std::string& value);
    /// Whether the key is there.
    virtual bool has(const std::string& key) const;
    /// A missing key is a `NotFoundException`.
    virtual std::string get(const std::string& key) const;
    /// All keys, in byte order.
    virtual std::vector<std::string> keys() const;

    /// Sets every key of `other` here.
    void assign(const Metadata& other);

private:
    std::map<std::string, std::string> values_;
};

} // namespace VORN::Migration
