#pragma once

#include "core/Serialization.h"

#include <map>
#include <string>
#include <vector>

namespace VORN::Migration {

/// Texts by key, one per key, keys in byte order.
class Metadata : public Serializable {
public:
    void serialize(Serializer& out) const override;
    /// Inserts or replaces.
    virtual void set(const std::string& key, const std::string& value);
    virtual bool has(const std::string& key) const;
    /// A missing key is a `NotFoundException`.
    virtual std::string get(const std::string& key) const;
    virtual std::vector<std::string> keys() const;

    /// Sets every key of `other` here.
    void assign(const Metadata& other);

private:
    std::map<std::string, std::string> values_;
};

} // namespace VORN::Migration
