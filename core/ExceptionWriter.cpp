#include "core/ExceptionWriter.h"

namespace VORN {

void ExceptionWriter::handle(const Exception& exception, const std::string& context) {
    const std::lock_guard lock{mutex_};
    writer_.write(printedForm(exception, context));
    writer_.flush();
    ++count_;
}

} // namespace VORN
