#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace VORN {

/// What help, usage and version texts of a program or subcommand are built from.
struct ApplicationInfo {
    std::string name;
    std::string version; // "--version" is offered only when this is not empty
    std::string description;
    std::string programPath; // the usage line names what follows its last backslash
    std::uint32_t indent = 2;
    std::uint32_t descriptionIndent = 16;
    std::uint32_t lineWidth = 79;
};

/// Assigns an argument vector to the named and positional parameters declared before.
///
/// The kinds of values that parameters take stand in ArgumentValues.h, the texts that are composed
/// from them, and the handler that writes these, in ArgumentHelp.h.
class ArgumentProcessor {
public:
    static constexpr const char* kHelpOption = "--help";
    static constexpr const char* kVersionOption = "--version";

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

    class SingleArgumentValue;
    template <class T>
    class DirectValue;
    template <class T>
    class SimpleValue;
    class CollectValue;

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
        /// Whether the arguments named it and filled its values.
        bool assigned() const { return assigned_; }

        const std::string& description() const { return description_; }
        bool isRequired() const { return presence_ == Presence::Required; }
        const std::vector<std::unique_ptr<Value>>& values() const { return values_; }

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
        /// `option` is the argument that asked for help.
        virtual void help(const ArgumentProcessor& processor, const std::string& option) = 0;
        /// The version was asked for.
        virtual void version(const ArgumentProcessor& processor) = 0;
        /// `message` is a sentence about the arguments, without an end of line.
        virtual void error(const ArgumentProcessor& processor, const std::string& message) = 0;
    };
    class DefaultActionHandler;

    /// After an escape word that is not empty, an argument is positional whatever it looks like.
    explicit ArgumentProcessor(ApplicationInfo info, std::string escapeWord = {})
        : escapeWord_{std::move(escapeWord)},
          info_{std::move(info)} {}

    /// Declares an option, which may have several names. The parameter lives as long as this.
    Parameter& addNamed(const std::vector<std::string>& names, std::string description,
                        Presence presence = Presence::Optional);
    /// Declares the next positional argument. The parameter lives as long as this.
    Parameter& addPositional(std::string description, Presence presence = Presence::Required);

    /// Assigns the arguments from index 1 on. Returns whether the caller may go on; false after
    /// help, version or an error was handed to `handler`. What a value throws passes through.
    bool parse(int argc, const char* const* argv, ActionHandler& handler);

    const ApplicationInfo& info() const { return info_; }
    const std::string& escapeWord() const { return escapeWord_; }
    /// All parameters, named and positional alike, in the order of their declaration.
    const std::vector<std::unique_ptr<Parameter>>& parameters() const { return parameters_; }
    /// The index in `parameters` that each option name stands for.
    const std::map<std::string, std::size_t>& names() const { return names_; }
    /// The indices in `parameters` of the positional ones, in the order of filling.
    const std::vector<std::size_t>& positionals() const { return positionals_; }

private:
    using Arguments = std::vector<std::string>;

    Parameter& addParameter(std::string description, Presence presence);
    bool assignAll(const Arguments& arguments, ActionHandler& handler);
    void assignPositional(const Arguments& arguments, std::size_t& at, std::size_t& slot);
    static void assign(Parameter& parameter, const Arguments& arguments, std::size_t& at);
    void requireAssigned() const;

    std::vector<std::unique_ptr<Parameter>> parameters_;
    std::map<std::string, std::size_t> names_;
    std::vector<std::size_t> positionals_;
    std::string escapeWord_; // empty: there is none
    ApplicationInfo info_;
};

} // namespace VORN
