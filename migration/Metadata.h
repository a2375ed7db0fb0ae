#pragma once

#include "core/Serialization.h"

#include <map>
#include <string>
#include <vector>

namespace VORN::Migration {

/// What is known about a picture: texts by key.
class Metadata : public Serializable {
public:
    /// Writes all keys with their values, as `Serializer` writes a map.
    void serialize(Serializer& out) const override;
    /// Sets the text of `key`, whether it was there or not.
    virtual void set(const std::string& key, const std::string& value);
    /// Whether there is a text for `key`.
    virtual bool has(const std::string& key) const;
    /// The text of `key`; a missing key is a `NotFoundException`.
    virtual std::string get(const std::string& key) const;
    /// All keys, in byte order.
    virtual std::vector<std::string> keys() const;

    /// Sets every key of `other` here.
    void assign(const Metadata& other);

private:
    std::map<std::string, std::string> values_;
};

} // namespace VORN::Migration
