#pragma once

#include "core/Exception.h"
#include "core/TextWriter.h"

#include <mutex>
#include <string>

namespace VORN {

/// Receives exceptions that no other code could handle.
class ExceptionHandler {
public:
    virtual ~ExceptionHandler() = default;
    /// Reports `exception`. `context` tells what was being done; it may be empty.
    virtual void handle(const Exception& exception, const std::string& context) = 0;
};

/// Writes every exception it is handed, each as one uninterrupted block, from any thread.
class ExceptionWriter : public ExceptionHandler {
public:
    /// `out` is borrowed and must outlive the writer.
    explicit ExceptionWriter(WriteStream& out) : writer_{out} {}

    /// Writes the line of `printedForm` and flushes. It is composed as a whole before its first
    /// byte is written; throws what the stream throws, and `std::bad_alloc`.
    void handle(const Exception& exception, const std::string& context) override {
        const std::lock_guard lock{mutex_};
        writer_.write(printedForm(exception, context));
        writer_.flush();
        ++count_;
    }
    unsigned count() const { return count_; }

private:
    std::mutex mutex_; // guards what follows
    Text::TextWriter writer_;
    unsigned count_ = 0; // exceptions written so far
};

} // namespace VORN
