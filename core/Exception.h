#pragma once

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <ostream>
#include <string>
#include <utility>

namespace VORN {

/// Where an exception was raised.
struct Origin {
    const char* file = nullptr;      // may be null
    std::uint32_t line = 0xFFFFFFFF; // all ones: not known
};

constexpr Origin kNoOrigin{};

/// Root of every failure the program reports; each class composes its message from its fields.
class Exception {
public:
    /// `origin` is shown with the message if it is known; the program itself gives `kNoOrigin`.
    explicit Exception(Origin origin) : origin_{origin} {}
    Exception(const Exception&) = default;
    Exception& operator=(const Exception&) = default;

    /// Appends the message, without class name and end of line.
    virtual void write(std::ostream& out) const = 0;
    virtual ~Exception() = default;
    /// A copy of the same dynamic type, to be kept inside another exception.
    virtual std::unique_ptr<Exception> clone() const = 0;

    const Origin& origin() const { return origin_; }

private:
    Origin origin_;
};

/// Composes the line that shows `exception` to the user, its end of line included: the context
/// unless it is empty, the class name, the origin if it is known, and the message. Running out of
/// memory is a `std::bad_alloc`.
std::string printedForm(const Exception& exception, const std::string& context);

/// Supplies `clone`: an exception `Derived` derives from this instead of deriving from `Base`.
template <class Derived, class Base = Exception>
class Clonable : public Base {
public:
    using Base::Base;
    std::unique_ptr<Exception> clone() const override {
        return std::make_unique<Derived>(static_cast<const Derived&>(*this));
    }
};

/// A complete sentence as it is to be shown.
class WhatException : public Clonable<WhatException> {
public:
    /// `text` is the whole message.
    WhatException(Origin origin, std::string text) : Clonable{origin}, text_{std::move(text)} {}
    void write(std::ostream& out) const override;

private:
    std::string text_;
};

/// A stream or buffer that could not do what was asked of it.
class StreamException : public Clonable<StreamException, WhatException> {
public:
    using Clonable::Clonable;
};

/// An exception of the standard library, carried over into this family.
class CppException : public Clonable<CppException> {
public:
    /// `what` is the other exception's own text, `type` its class as `className` spells it.
    CppException(Origin origin, std::string what, std::string type)
        : Clonable{origin},
          what_{std::move(what)},
          type_{std::move(type)} {}
    void write(std::ostream& out) const override;

private:
    std::string what_;
    std::string type_; // as `className` spells it
};

/// A feature that the program does not implement.
class SupportException : public Clonable<SupportException> {
public:
    /// `subject` is a noun phrase, such as "PNG interlace method 1".
    SupportException(Origin origin, std::string subject)
        : Clonable{origin},
          subject_{std::move(subject)} {}
    void write(std::ostream& out) const override;

private:
    std::string subject_;
};

/// An iterator that does not point to an element.
class IteratorException : public Clonable<IteratorException> {
public:
    using Clonable::Clonable;
    void write(std::ostream& out) const override;
};

/// Signals of different sizes where equal sizes are required.
class SignalSizeException : public Clonable<SignalSizeException> {
public:
    using Clonable::Clonable;
    void write(std::ostream& out) const override;
};

/// Data that ends too early.
class UnexpectedEndException : public Clonable<UnexpectedEndException> {
public:
    /// `expected` is a noun phrase: what should have followed.
    UnexpectedEndException(Origin origin, std::string expected)
        : Clonable{origin},
          expected_{std::move(expected)} {}
    void write(std::ostream& out) const override;

private:
    std::string expected_;
};

/// A text that does not follow the grammar of what it should hold.
class ParseException : public Clonable<ParseException> {
public:
    /// `text` is what was read, `target` what it should have been, such as "palette entry".
    ParseException(Origin origin, std::string text, std::string target)
        : Clonable{origin},
          text_{std::move(text)},
          target_{std::move(target)} {}
    void write(std::ostream& out) const override;

private:
    std::string text_;
    std::string target_;
};

/// A value that is not of the kind that is wanted in its place.
class UnexpectedValueException : public Clonable<UnexpectedValueException> {
public:
    /// `expectation` is a noun phrase, such as "a palette symbol".
    UnexpectedValueException(Origin origin, std::string value, std::string expectation)
        : Clonable{origin},
          value_{std::move(value)},
          expectation_{std::move(expectation)} {}
    void write(std::ostream& out) const override;

private:
    std::string value_;
    std::string expectation_;
};

/// An object that is used before it was given what it needs.
class UninitializedException : public Clonable<UninitializedException> {
public:
    /// `subject` names what is missing, such as "Stream pump source".
    UninitializedException(Origin origin, std::string subject)
        : Clonable{origin},
          subject_{std::move(subject)} {}
    void write(std::ostream& out) const override;

private:
    std::string subject_;
};

/// A way of access that is not allowed.
class AccessException : public Clonable<AccessException> {
public:
    /// The message reads: failed to access `subject` because `reason`.
    AccessException(Origin origin, std::string subject, std::string reason)
        : Clonable{origin},
          subject_{std::move(subject)},
          reason_{std::move(reason)} {}
    void write(std::ostream& out) const override;

private:
    std::string subject_;
    std::string reason_;
};

/// A resource of the system that could not be acquired.
class AcquireException : public Clonable<AcquireException> {
public:
    /// `subject` names the resource.
    AcquireException(Origin origin, std::string subject)
        : Clonable{origin},
          subject_{std::move(subject)} {}
    void write(std::ostream& out) const override;

private:
    std::string subject_;
};

/// A resource of the system that could not be released. Deliberately, its message is worded like
/// that of `AcquireException`.
class ReleaseException : public Clonable<ReleaseException> {
public:
    /// `subject` names the resource.
    ReleaseException(Origin origin, std::string subject)
        : Clonable{origin},
          subject_{std::move(subject)} {}
    void write(std::ostream& out) const override;

private:
    std::string subject_;
};

/// Memory that could not be allocated.
class AllocateException : public Clonable<AllocateException> {
public:
    /// `subject` names what the memory was for, or how much was asked for.
    AllocateException(Origin origin, std::string subject)
        : Clonable{origin},
          subject_{std::move(subject)} {}
    void write(std::ostream& out) const override;

private:
    std::string subject_;
};

/// A key that a container does not hold; `T` is std::string or unsigned int.
template <class T>
class NotFoundException : public Clonable<NotFoundException<T>> {
public:
    /// `item` is the key, `container` a noun that names where it was looked for.
    NotFoundException(Origin origin, T item, std::string container)
        : Clonable<NotFoundException>{origin},
          item_{std::move(item)},
          container_{std::move(container)} {}
    void write(std::ostream& out) const override {
        out << "Could not find " << item_ << " in " << container_ << ". ";
    }

private:
    T item_;
    std::string container_;
};

/// A value beyond its bound. Deliberately, values of type unsigned char are shown as characters.
template <class T>
class BoundException : public Clonable<BoundException<T>> {
public:
    /// Whether `bound` itself is allowed is up to the place that throws.
    BoundException(Origin origin, T value, T bound)
        : Clonable<BoundException>{origin},
          value_{value},
          bound_{bound} {}
    void write(std::ostream& out) const override {
        out << "Value (" << value_ << ") out of bound (" << bound_ << "). ";
    }

protected:
    T value() const { return value_; }
    T bound() const { return bound_; }

private:
    T value_;
    T bound_;
};

/// More space asked for than there is. The value is the space requested, the bound what is
/// available.
template <class T>
class SpaceException : public Clonable<SpaceException<T>, BoundException<T>> {
public:
    using Clonable<SpaceException<T>, BoundException<T>>::Clonable;
    void write(std::ostream& out) const override {
        out << "More space requested (" << this->value() << ") than what is available ("
            << this->bound() << "). ";
    }
};

/// A package of resources that cannot be used because it is damaged.
class ArchiveImpairedException : public Clonable<ArchiveImpairedException> {
public:
    /// The states that reading a package may end in.
    enum State : std::int32_t {
        Normal,
        IncompleteLeader,
        IncompleteHeader,
        IncompleteTrailer,
        InvalidLeader,
        FutureLeader,
        InvalidTrailer,
        CrcMissmatch,
    };

    /// `state` is a `State`; any other number is shown as "not recognized". `previous` is the
    /// failure behind this one, if there is one.
    ArchiveImpairedException(Origin origin, std::int32_t state,
                             std::unique_ptr<Exception> previous = nullptr)
        : Clonable{origin},
          state_{state},
          previous_{std::move(previous)} {}
    /// Clones the failure behind it, too.
    ArchiveImpairedException(const ArchiveImpairedException& other);
    void write(std::ostream& out) const override;

private:
    std::int32_t state_;
    std::unique_ptr<Exception> previous_; // may be null
};

/// The family of what matches patterns in sequences of `Symbol`; so far only its failure exists.
template <class Symbol>
class Match {
public:
    /// A pattern that matched more or less often than it should.
    class UnexpectedNumberOfMatches : public Clonable<UnexpectedNumberOfMatches> {
    public:
        /// `got` matches were found, `expected` were wanted.
        UnexpectedNumberOfMatches(Origin origin, std::uint32_t got, std::uint32_t expected)
            : Clonable<UnexpectedNumberOfMatches>{origin},
              got_{got},
              expected_{expected} {}
        void write(std::ostream& out) const override {
            out << "Got " << got_ << " matches but expected " << expected_ << " matches. ";
        }

    private:
        std::uint32_t got_;
        std::uint32_t expected_;
    };
};

namespace Text {

/// A text that cannot be converted, or only its beginning.
class ConversionException : public Clonable<ConversionException> {
public:
    /// `target` is the type that was wanted, such as "unsigned int".
    ConversionException(Origin origin, std::string text, std::string target)
        : Clonable{origin},
          text_{std::move(text)},
          target_{std::move(target)} {}
    void write(std::ostream& out) const override;

private:
    std::string text_;
    std::string target_;
};

} // namespace Text

namespace Migration {

/// Metadata that an operation needs and was not given.
class InsufficientMetaException : public Clonable<InsufficientMetaException, WhatException> {
public:
    using Clonable::Clonable;
};

/// An importer or exporter used without a stream.
class StreamException : public Clonable<StreamException> {
public:
    using Clonable::Clonable;
    void write(std::ostream& out) const override;
};

/// Data or a request that violates a format.
class FormatException : public Clonable<FormatException> {
public:
    /// `format` is "NetPBM", "png", "deflate", "jpeg" or "native"; `detail` says what is wrong.
    FormatException(Origin origin, std::string format, std::string detail)
        : Clonable{origin},
          format_{std::move(format)},
          detail_{std::move(detail)} {}
    void write(std::ostream& out) const override;

private:
    std::string format_;
    std::string detail_;
};

} // namespace Migration

} // namespace VORN
