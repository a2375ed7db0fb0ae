#pragma once

#include "app/ArgumentProcessor.h"
#include "beads/Pattern.h"
#include "core/Color.h"

namespace VORN {

/// How many pattern files a subcommand takes at most.
constexpr std::size_t kMaximumPatternFiles = 1000;

/// A pegboard as given on the command line: its type and its side length in beads.
class PegboardOption {
public:
    /// Shown in help, and as the target when a type is none.
    static constexpr const char* kDescription = "pegboard types are square | hex | circle";

    /// Adds its values to `parameter`, which must outlive it.
    explicit PegboardOption(ArgumentProcessor::Parameter& parameter);

    bool given() const { return parameter_.assigned(); }
    PatternStyle style() const;
    unsigned sizeBeads() const { return size_.get(); }

private:
    class TypeValue;

    ArgumentProcessor::Parameter& parameter_;
    TypeValue& type_;
    ArgumentProcessor::SimpleValue<unsigned>& size_;
};

/// Where a pattern goes: the file given on the command line, else standard output.
class PatternOutputOption {
public:
    static constexpr const char* kDescription = "output pattern file";

    /// Adds its value to `parameter`, which must outlive it.
    explicit PatternOutputOption(ArgumentProcessor::Parameter& parameter);

    /// False comes after one line on standard error; what cannot be written to its end throws.
    bool write(const Pattern& pattern) const;

private:
    ArgumentProcessor::Parameter& parameter_;
    ArgumentProcessor::DirectValue<std::string>& file_;
};

/// A colour as given on the command line: red, green and blue.
class ColorOption {
public:
    static constexpr const char* kDescription = "RGB color normalized to 0.0-1.0";

    /// Adds its values to `parameter`, which must outlive it.
    ColorOption(ArgumentProcessor::Parameter& parameter, const Color& byDefault);

    bool given() const { return parameter_.assigned(); }
    Color color() const { return {red_.get(), green_.get(), blue_.get()}; }

private:
    ArgumentProcessor::Parameter& parameter_;
    ArgumentProcessor::SimpleValue<float>& red_;
    ArgumentProcessor::SimpleValue<float>& green_;
    ArgumentProcessor::SimpleValue<float>& blue_;
};

} // namespace VORN
