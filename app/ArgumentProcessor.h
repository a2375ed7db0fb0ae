#pragma once

#include "app/ApplicationInfo.h"
#include "core/Conversion.h"
#include "core/TextWriter.h"

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace VORN {

/// Assigns an argument vector to named and positional parameters and composes help texts from them.
class ArgumentProcessor {
public:
    /// Takes arguments of one parameter; its name is its placeholder in texts and may be empty.
    class Value {
    public:
        explicit Value(std::string name) : name_{std::move(name)} {}
        virtual ~Value() = default;
        /// Whether it takes no further argument.
        virtual bool complete() const = 0;
        /// Whether the argument list may end here.
        virtual bool mayStayUnassigned() const = 0;
        /// Takes one argument; what does not convert throws, mostly a `ConversionException`.
        virtual void assign(const std::string& text) = 0;

        const std::string& name() const { return name_; }

    private:
        std::string name_;
    };

    /// Takes exactly one argument.
    class SingleArgumentValue : public Value {
    public:
        using Value::Value;
        bool complete() const override { return assigned_; }
        bool mayStayUnassigned() const override { return assigned_; }
        void assign(const std::string& text) override;

    protected:
        virtual void convert(const std::string& text) = 0;

    private:
        bool assigned_ = false;
    };

    /// A text, as given on the command line.
    template <class T>
    class DirectValue : public SingleArgumentValue {
    public:
        explicit DirectValue(std::string name, T byDefault = {})
            : SingleArgumentValue{std::move(name)},
              value_{std::move(byDefault)} {}
        const T& get() const { return value_; }

    protected:
        void convert(const std::string& text) override { value_ = text; }

    private:
        T value_;
    };

    /// A number; T is unsigned int or float.
    template <class T>
    class SimpleValue : public SingleArgumentValue {
    public:
        explicit SimpleValue(std::string name, T byDefault = {})
            : SingleArgumentValue{std::move(name)},
              value_{byDefault} {}
        T get() const { return value_; }

    protected:
        void convert(const std::string& text) override {
            if constexpr (std::is_same_v<T, float>)
                value_ = Text::toFloat(text);
            else
                value_ = Text::toUnsigned(text);
        }

    private:
        T value_;
    };

    /// Takes every argument that follows, at least one and at most `maximum`.
    class CollectValue : public Value {
    public:
        CollectValue(std::string name, std::size_t maximum)
            : Value{std::move(name)},
              maximum_{maximum} {}
        bool complete() const override { return texts_.size() == maximum_; }
        bool mayStayUnassigned() const override { return !texts_.empty(); }
        void assign(const std::string& text) override { texts_.push_back(text); }
        const std::vector<std::string>& get() const { return texts_; }

    private:
        std::size_t maximum_;
        std::vector<std::string> texts_;
    };

    enum class Presence { Optional, Required };

    /// One option or positional argument with the values that it fills, in order.
    class Parameter {
    public:
        Parameter(std::string description, Presence presence)
            : description_{std::move(description)},
              presence_{presence} {}

        /// Appends a value, which the parameter owns.
        template <class V, class... Arguments>
        V& add(Arguments&&... arguments) {
            auto value = std::make_unique<V>(std::forward<Arguments>(arguments)...);
            V& added = *value;
            values_.push_back(std::move(value));
            return added;
        }
        bool assigned() const { return assigned_; }

    private:
        friend ArgumentProcessor;

        bool assigned_ = false;
        std::string description_;
        Presence presence_;
        std::vector<std::unique_ptr<Value>> values_;
    };

    /// What is done when parsing ends early.
    class ActionHandler {
    public:
        virtual ~ActionHandler() = default;
        virtual void help(const ArgumentProcessor& processor, const std::string& option) = 0;
        virtual void version(const ArgumentProcessor& processor) = 0;
        virtual void error(const ArgumentProcessor& processor, const std::string& message) = 0;
    };

    /// Writes help and version to one stream and errors, with the usage line, to another. Both are
    /// borrowed and must outlive it.
    class DefaultActionHandler : public ActionHandler {
    public:
        DefaultActionHandler(WriteStream& out, WriteStream& errors) : out_{out}, errors_{errors} {}
        void help(const ArgumentProcessor& processor, const std::string& option) override;
        void version(const ArgumentProcessor& processor) override;
        void error(const ArgumentProcessor& processor, const std::string& message) override;

        /// Whether no error was reported.
        bool success() const { return success_; }

    private:
        Text::TextWriter out_;
        Text::TextWriter errors_;
        bool success_ = true;
    };

    explicit ArgumentProcessor(ApplicationInfo info, std::string escapeWord = {})
        : escapeWord_{std::move(escapeWord)},
          info_{std::move(info)} {}

    Parameter& addNamed(const std::vector<std::string>& names, std::string description,
                        Presence presence = Presence::Optional);
    Parameter& addPositional(std::string description, Presence presence = Presence::Required);

    /// Assigns the arguments from index 1 on. Returns whether the caller may go on; false after
    /// help, version or an error was handed to `handler`. What a value throws passes through.
    bool parse(int argc, const char* const* argv, ActionHandler& handler);

    const ApplicationInfo& info() const { return info_; }
    void writeHelp(Text::TextWriter& out) const;
    void writeUsage(Text::TextWriter& out) const;

private:
    using Arguments = std::vector<std::string>;

    Parameter& addParameter(std::string description, Presence presence);
    std::string assign(Parameter& parameter, const Arguments& arguments, std::size_t& at);
    std::string assignPositional(const Arguments& arguments, std::size_t& at, std::size_t& slot);
    std::string missing() const;

    std::string namesOf(std::size_t index) const;
    std::string optionUsage(std::size_t index) const;
    std::vector<std::string> positionalNames() const;
    void writeEntry(Text::TextWriter& out, const std::string& name,
                    const std::string& description) const;

    std::vector<std::unique_ptr<Parameter>> parameters_; // in declaration order
    std::map<std::string, std::size_t> names_;           // option name to index of its parameter
    std::vector<std::size_t> positionals_;               // indices, in the order of filling
    std::string escapeWord_;                             // empty: there is none
    ApplicationInfo info_;
};

} // namespace VORN
