#pragma once

#include "app/ArgumentValues.h"
#include "beads/Pattern.h"
#include "core/Color.h"

#include <array>

namespace VORN {

// Each adds its values to the parameter that it is made with, which must outlive it.

/// An option or argument with one value.
template <class V>
class Option {
public:
    /// `details` are those of the value: its name and its default or, for a list, its maximum.
    template <class... Details>
    explicit Option(ArgumentProcessor::Parameter& parameter, Details&&... details)
        : parameter_{parameter},
          value_{parameter.add<V>(std::forward<Details>(details)...)} {}

    bool given() const { return parameter_.assigned(); }
    decltype(auto) get() const { return value_.get(); }

private:
    ArgumentProcessor::Parameter& parameter_;
    V& value_;
};

using TextOption = Option<ArgumentProcessor::DirectValue<std::string>>;
using TextListOption = Option<ArgumentProcessor::CollectValue>;
using FractionOption = Option<ArgumentProcessor::SimpleValue<float>>;

/// An option without values.
class FlagOption {
public:
    explicit FlagOption(ArgumentProcessor::Parameter& parameter) : parameter_{parameter} {}
    bool given() const { return parameter_.assigned(); }

private:
    ArgumentProcessor::Parameter& parameter_;
};

/// An option with N numbers; T is unsigned int or float.
template <class T, std::size_t N>
class NumbersOption {
public:
    NumbersOption(ArgumentProcessor::Parameter& parameter, const std::array<const char*, N>& names,
                  const std::array<T, N>& byDefault = {})
        : parameter_{parameter} {
        for (std::size_t i = 0; i < N; ++i)
            values_[i] = &parameter.add<ArgumentProcessor::SimpleValue<T>>(names[i], byDefault[i]);
    }
    bool given() const { return parameter_.assigned(); }
    T operator[](std::size_t i) const { return values_[i]->get(); }

private:
    ArgumentProcessor::Parameter& parameter_;
    std::array<ArgumentProcessor::SimpleValue<T>*, N> values_{};
};

/// A colour: red, green and blue.
class ColorOption : public NumbersOption<float, 3> {
public:
    static constexpr const char* kDescription = "RGB color normalized to 0.0-1.0";

    ColorOption(ArgumentProcessor::Parameter& parameter, const std::array<float, 3>& byDefault)
        : NumbersOption{parameter, {"R", "G", "B"}, byDefault} {}
    Color color() const { return {(*this)[0], (*this)[1], (*this)[2]}; }
};

/// A pegboard: its type and its side length in beads.
class PegboardOption {
public:
    /// Shown in help, and as the target when there is no such type.
    static constexpr const char* kDescription = "pegboard types are square | hex | circle";

    /// The type is looked at when the size arrives: an unknown one is then a `ParseException`.
    explicit PegboardOption(ArgumentProcessor::Parameter& parameter);

    bool given() const { return parameter_.assigned(); }
    /// Of the pattern that the pegboard takes; the option must have been given.
    PatternStyle style() const;
    unsigned sizeBeads() const { return size_.get(); }

private:
    ArgumentProcessor::Parameter& parameter_;
    ArgumentProcessor::SingleArgumentValue& type_;
    ArgumentProcessor::SimpleValue<unsigned>& size_;
};

/// How many pattern files a subcommand takes at most.
constexpr std::size_t kMaximumPatternFiles = 1000;

} // namespace VORN
