#pragma once

#include "app/ArgumentValues.h"
#include "beads/Pattern.h"
#include "core/Color.h"

#include <array>

namespace VORN {

// The kinds of options that subcommands have. Each adds its values to the parameter that it is made
// with; the parameter is borrowed and must outlive the option.

/// An option or argument with one value.
template <class V>
class Option {
public:
    /// `details` are the arguments of the value's constructor: its name, then its default or, for a
    /// list, its maximum.
    template <class... Details>
    explicit Option(ArgumentProcessor::Parameter& parameter, Details&&... details)
        : parameter_{parameter},
          value_{parameter.add<V>(std::forward<Details>(details)...)} {}

    /// Whether the user gave it.
    bool given() const { return parameter_.assigned(); }
    /// The value, or its default.
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
    /// An option that is only given or not.
    explicit FlagOption(ArgumentProcessor::Parameter& parameter) : parameter_{parameter} {}
    /// Whether the user gave it.
    bool given() const { return parameter_.assigned(); }

private:
    ArgumentProcessor::Parameter& parameter_;
};

/// An option with N numbers; T is unsigned int or float.
template <class T, std::size_t N>
class NumbersOption {
public:
    /// `names` stand for the numbers in help and usage.
    NumbersOption(ArgumentProcessor::Parameter& parameter, const std::array<const char*, N>& names,
                  const std::array<T, N>& byDefault = {})
        : parameter_{parameter} {
        for (std::size_t i = 0; i < N; ++i)
            values_[i] = &parameter.add<ArgumentProcessor::SimpleValue<T>>(names[i], byDefault[i]);
    }
    /// Whether the user gave it.
    bool given() const { return parameter_.assigned(); }
    /// Number `i`, from 0 on, or its default.
    T operator[](std::size_t i) const { return values_[i]->get(); }

private:
    ArgumentProcessor::Parameter& parameter_;
    std::array<ArgumentProcessor::SimpleValue<T>*, N> values_{};
};

/// An option with a colour: red, green and blue.
class ColorOption : public NumbersOption<float, 3> {
public:
    static constexpr const char* kDescription = "RGB color normalized to 0.0-1.0";

    /// `byDefault` is the colour if none is given.
    ColorOption(ArgumentProcessor::Parameter& parameter, const std::array<float, 3>& byDefault)
        : NumbersOption{parameter, {"R", "G", "B"}, byDefault} {}
    /// The colour, or its default.
    Color color() const { return {(*this)[0], (*this)[1], (*this)[2]}; }
};

/// An option with a pegboard: its type, one of the pattern styles, and its size in beads.
class PegboardOption {
public:
    /// Shown in help, and in the message about an unknown type.
    static constexpr const char* kDescription = "pegboard types are square | hex | circle";

    /// An unknown type is a `ParseException`, which is thrown when the size is assigned.
    explicit PegboardOption(ArgumentProcessor::Parameter& parameter);

    /// Whether the user gave it.
    bool given() const { return parameter_.assigned(); }
    /// The style of patterns for the pegboard; the option must have been given.
    PatternStyle style() const;
    /// The length of a side in beads, or the number of rings of a circle.
    unsigned sizeBeads() const { return size_.get(); }

private:
    ArgumentProcessor::Parameter& parameter_;
    ArgumentProcessor::SingleArgumentValue& type_;
    ArgumentProcessor::SimpleValue<unsigned>& size_;
};

/// The largest number of pattern files that a subcommand takes.
constexpr std::size_t kMaximumPatternFiles = 1000;

} // namespace VORN
