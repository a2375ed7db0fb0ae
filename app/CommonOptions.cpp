#include "app/CommonOptions.h"

#include "app/Artwork.h"
#include "core/Exception.h"

namespace VORN {

/// The name of a pattern style; anything else is a `ParseException`.
class PegboardOption::TypeValue : public ArgumentProcessor::SingleArgumentValue {
public:
    TypeValue() : SingleArgumentValue{"type"} {}
    PatternStyle style() const { return style_; }

protected:
    void convert(const std::string& text) override {
        const auto style = patternStyleNamed(text);
        if (!style)
            throw ParseException{kNoOrigin, text, kDescription};
        style_ = *style;
    }

private:
    PatternStyle style_ = PatternStyle::Square;
};

PegboardOption::PegboardOption(ArgumentProcessor::Parameter& parameter)
    : parameter_{parameter},
      type_{parameter.add<TypeValue>()},
      size_{parameter.add<ArgumentProcessor::SimpleValue<unsigned>>("size")} {}

PatternStyle PegboardOption::style() const { return type_.style(); }

PatternOutputOption::PatternOutputOption(ArgumentProcessor::Parameter& parameter)
    : parameter_{parameter},
      file_{parameter.add<ArgumentProcessor::DirectValue<std::string>>("pattern")} {}

bool PatternOutputOption::write(const Pattern& pattern) const {
    if (parameter_.assigned())
        return savePattern(file_.get(), pattern);
    printPattern(pattern);
    return true;
}

ColorOption::ColorOption(ArgumentProcessor::Parameter& parameter, const Color& byDefault)
    : parameter_{parameter},
      red_{parameter.add<ArgumentProcessor::SimpleValue<float>>("R", byDefault[0])},
      green_{parameter.add<ArgumentProcessor::SimpleValue<float>>("G", byDefault[1])},
      blue_{parameter.add<ArgumentProcessor::SimpleValue<float>>("B", byDefault[2])} {}

} // namespace VORN
