#pragma once

#include "app/ArgumentProcessor.h"
#include "core/Conversion.h"

#include <optional>
#include <type_traits>
#include <vector>

namespace VORN {

/// A value that takes exactly one argument and keeps its text.
class ArgumentProcessor::SingleArgumentValue : public Value {
public:
    using Value::Value;
    bool complete() const override { return text_.has_value(); }
    bool mayStayUnassigned() const override { return text_.has_value(); }
    void assign(const std::string& text) override { text_ = text; }

    /// The argument as it was given; nothing if it was not.
    const std::optional<std::string>& text() const { return text_; }

private:
    std::optional<std::string> text_;
};

/// A text; T is std::string.
template <class T>
class ArgumentProcessor::DirectValue : public SingleArgumentValue {
public:
    /// A value that is `byDefault` if no argument is given.
    explicit DirectValue(std::string name, T byDefault = {})
        : SingleArgumentValue{std::move(name)},
          byDefault_{std::move(byDefault)} {}
    /// The argument or the default.
    const T& get() const { return text() ? *text() : byDefault_; }

private:
    T byDefault_;
};

/// A number; T is unsigned int or float.
template <class T>
class ArgumentProcessor::SimpleValue : public SingleArgumentValue {
public:
    /// A value that is `byDefault` if no argument is given.
    explicit SimpleValue(std::string name, T byDefault = {})
        : SingleArgumentValue{std::move(name)},
          value_{byDefault} {}
    /// Text that is not such a number is a `ConversionException`.
    void assign(const std::string& text) override {
        if constexpr (std::is_same_v<T, float>)
            value_ = Text::toFloat(text);
        else
            value_ = Text::toUnsigned(text);
        SingleArgumentValue::assign(text);
    }
    T get() const { return value_; }

private:
    T value_;
};

/// A list: takes every argument that follows, at least one.
class ArgumentProcessor::CollectValue : public Value {
public:
    /// A list of at most `maximum` arguments.
    CollectValue(std::string name, std::size_t maximum)
        : Value{std::move(name)},
          maximum_{maximum} {}
    bool complete() const override { return texts_.size() == maximum_; }
    bool mayStayUnassigned() const override { return !texts_.empty(); }
    void assign(const std::string& text) override { texts_.push_back(text); }
    const std::vector<std::string>& get() const { return texts_; }

private:
    std::size_t maximum_;
    std::vector<std::string> texts_;
};

} // namespace VORN
