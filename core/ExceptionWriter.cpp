#include "core/ExceptionWriter.h"

#include "core/TypeName.h"

#include <sstream>

namespace VORN {

std::string printedForm(const Exception& exception, const std::string& context) {
    std::ostringstream text;
    if (!context.empty())
        text << "context: " << context << "> ";
    text << "VORN " << className(typeid(exception));
    const Origin& origin = exception.origin();
    if (origin.file != nullptr && origin.line != kNoOrigin.line)
        text << " (" << origin.file << ", " << origin.line << " )";
    text << ": ";
    exception.write(text);
    text << '\n';
    return text.str();
}

void ExceptionWriter::handle(const Exception& exception, const std::string& context) {
    const std::lock_guard lock{mutex_};
    writer_.write(printedForm(exception, context));
    writer_.flush();
    ++count_;
}

} // namespace VORN
