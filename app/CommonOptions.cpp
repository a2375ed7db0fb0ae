#include "app/CommonOptions.h"

#include "core/Exception.h"

namespace VORN {

namespace {

using SingleArgumentValue = ArgumentProcessor::SingleArgumentValue;
using SizeValue = ArgumentProcessor::SimpleValue<unsigned>;

PatternStyle styleOf(const SingleArgumentValue& type) {
    const std::string name = type.text().value_or("");
    const auto style = patternStyleNamed(name);
    if (!style)
        throw ParseException{kNoOrigin, name, PegboardOption::kDescription};
    return *style;
}

/// A pegboard's size, which checks the type in front of it.
class PegboardSizeValue : public SizeValue {
public:
    explicit PegboardSizeValue(const SingleArgumentValue& type)
        : SimpleValue{"size"},
          type_{type} {}
    void assign(const std::string& text) override {
        styleOf(type_);
        SizeValue::assign(text);
    }

private:
    const SingleArgumentValue& type_;
};

} // namespace

PegboardOption::PegboardOption(ArgumentProcessor::Parameter& parameter)
    : parameter_{parameter},
      type_{parameter.add<SingleArgumentValue>("type")},
      size_{parameter.add<PegboardSizeValue>(type_)} {}

PatternStyle PegboardOption::style() const { return styleOf(type_); }

} // namespace VORN
