#include "migration/Metadata.h"

#include "core/Exception.h"

namespace VORN::Migration {

void Metadata::serialize(Serializer& out) const {
    std::map<std::string, std::string> values;
    for (const std::string& key : keys())
        values[key] = get(key);
    out.put(values);
}

void Metadata::set(const std::string& key, const std::string& value) { values_[key] = value; }

bool Metadata::has(const std::string& key) const { return values_.contains(key); }

std::string Metadata::get(const std::string& key) const {
    const auto found = values_.find(key);
    if (found == values_.end())
        throw NotFoundException<std::string>{kNoOrigin, key, "metadata"};
    return found->second;
}

std::vector<std::string> Metadata::keys() const {
    std::vector<std::string> keys;
    keys.reserve(values_.size());
    for (const auto& [key, value] : values_)
        keys.push_back(key);
    return keys;
}

void Metadata::assign(const Metadata& other) {
    for (const std::string& key : other.keys())
        set(key, other.get(key));
}

} // namespace VORN::Migration
