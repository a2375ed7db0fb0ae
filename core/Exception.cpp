#include "core/Exception.h"

#include "core/TypeName.h"

#include <array>
#include <sstream>
#include <string_view>

namespace VORN {

std::string printedForm(const Exception& exception, const std::string& context) {
    std::ostringstream text;
    text.exceptions(std::ios::badbit); // a line is never cut short in silence
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

void WhatException::write(std::ostream& out) const { out << text_; }

void CppException::write(std::ostream& out) const {
    out << "Wrapped C++ exception (" << type_ << "): " << what_;
}

void SupportException::write(std::ostream& out) const {
    out << "No support for " << subject_ << ". ";
}

void IteratorException::write(std::ostream& out) const { out << "Invalid iterator. "; }

void SignalSizeException::write(std::ostream& out) const { out << "Missmatching signal size. "; }

void UnexpectedEndException::write(std::ostream& out) const {
    out << "Unexpected end, expected " << expected_ << ".";
}

void ParseException::write(std::ostream& out) const {
    out << "String \"" << text_ << "\" could not be parsed into \"" << target_ << "\". ";
}

void UnexpectedValueException::write(std::ostream& out) const {
    out << value_ << " is not " << expectation_ << ". ";
}

void UninitializedException::write(std::ostream& out) const {
    out << subject_ << " not initialized. ";
}

void AccessException::write(std::ostream& out) const {
    out << "Failed to access " << subject_ << " because " << reason_ << ". ";
}

void AcquireException::write(std::ostream& out) const {
    out << "Failed to acquire " << subject_ << ". ";
}

void ReleaseException::write(std::ostream& out) const {
    out << "Failed to acquire " << subject_ << ". ";
}

void AllocateException::write(std::ostream& out) const {
    out << "Failed to allocate " << subject_ << ". ";
}

namespace {

constexpr std::array<std::string_view, 8> kArchiveStates{
    "NORMAL",         "INCOMPLETE_LEADER", "INCOMPLETE_HEADER", "INCOMPLETE_TRAILER",
    "INVALID_LEADER", "FUTURE_LEADER",     "INVALID_TRAILER",   "CRC_MISSMATCH",
};

} // namespace

ArchiveImpairedException::ArchiveImpairedException(const ArchiveImpairedException& other)
    : Clonable{other},
      state_{other.state_},
      previous_{other.previous_ ? other.previous_->clone() : nullptr} {}

void ArchiveImpairedException::write(std::ostream& out) const {
    out << "Archive impaired, ";
    if (state_ != Normal) {
        const auto index = static_cast<std::uint32_t>(state_);
        out << "end of index "
            << (index < kArchiveStates.size() ? kArchiveStates[index] : "not recognized") << ", ";
    }
    out << "modification prohibited. ";
    if (previous_)
        out << "\n  Previous exception " << printedForm(*previous_, "");
}

void Text::ConversionException::write(std::ostream& out) const {
    out << "Failed to convert \"" << text_ << "\" to " << target_ << ".";
}

void Migration::StreamException::write(std::ostream& out) const {
    out << "Migrator was not associated with a stream. ";
}

void Migration::FormatException::write(std::ostream& out) const {
    out << format_ << " : " << detail_;
}

} // namespace VORN
