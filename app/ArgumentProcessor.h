#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace VORN {

/// What the help, usage and version texts of a program or subcommand are made of.
struct ApplicationInfo {
    std::string name;
    std::string version; // empty: there is no "--version"
    std::string description;
    std::string programPath; // the usage line shows the part behind its last backslash
    std::uint32_t indent = 2;
    std::uint32_t descriptionIndent = 16;
    std::uint32_t lineWidth = 79;
};

/// Assigns the arguments of a command line to parameters, named and positional.
///
/// First declare parameters and add values to each, then call `parse`, then ask the values. The
/// kinds of values are in ArgumentValues.h. ArgumentHelp.h has the help and usage texts and the
/// handler that writes them.
class ArgumentProcessor {
public:
    static constexpr const char* kHelpOption = "--help";
    static constexpr const char* kVersionOption = "--version";

    /// A part of a parameter that takes one argument or more.
    class Value {
    public:
        /// `name` stands for the value in help and usage; it may be empty.
        explicit Value(std::string name) : name_{std::move(name)} {}
        virtual ~Value() = default;
        /// Whether it takes no more arguments.
        virtual bool complete() const = 0;
        /// Whether the argument list may end here.
        virtual bool mayStayUnassigned() const = 0;
        /// Takes one argument. Text that does not convert throws, mostly a `ConversionException`.
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

    /// Whether a parameter may be left out.
    enum class Presence { Optional, Required };

    /// An option or a positional argument, with its values in the order in which they are filled.
    class Parameter {
    public:
        /// `description` is shown in help; it may be empty.
        Parameter(std::string description, Presence presence)
            : description_{std::move(description)},
              presence_{presence} {}

        /// Appends a value `V`, made from `arguments`. The parameter owns it and must outlive the
        /// reference.
        template <class V, class... Arguments>
        V& add(Arguments&&... arguments) {
            auto value = std::make_unique<V>(std::forward<Arguments>(arguments)...);
            V& added = *value;
            values_.push_back(std::move(value));
            return added;
        }
        /// Whether it was given and its values are filled.
        bool assigned() const { return assigned_; }

        const std::string& description() const { return description_; }
        /// Whether it must be given.
        bool isRequired() const { return presence_ == Presence::Required; }
        const std::vector<std::unique_ptr<Value>>& values() const { return values_; }

    private:
        friend ArgumentProcessor;

        bool assigned_ = false;
        std::string description_;
        Presence presence_;
        std::vector<std::unique_ptr<Value>> values_;
    };

    /// Decides what happens when parsing ends early.
    class ActionHandler {
    public:
        virtual ~ActionHandler() = default;
        /// Called when help is asked for, by the argument `option`.
        virtual void help(const ArgumentProcessor& processor, const std::string& option) = 0;
        /// Called when the version is asked for.
        virtual void version(const ArgumentProcessor& processor) = 0;
        /// Called when the arguments are wrong. `message` is a sentence without an end of line.
        virtual void error(const ArgumentProcessor& processor, const std::string& message) = 0;
    };
    class DefaultActionHandler;

    /// If `escapeWord` is not empty, the argument behind such a word is always positional.
    explicit ArgumentProcessor(ApplicationInfo info, std::string escapeWord = {})
        : escapeWord_{std::move(escapeWord)},
          info_{std::move(info)} {}

    /// Declares an option, which may have several names. The processor owns the parameter.
    Parameter& addNamed(const std::vector<std::string>& names, std::string description,
                        Presence presence = Presence::Optional);
    /// Declares the next positional argument. The processor owns the parameter.
    Parameter& addPositional(std::string description, Presence presence = Presence::Required);

    /// Assigns the arguments from index 1 on. Returns true if the caller may go on, and false if
    /// `handler` was called for help, version or an error. Exceptions of values pass through.
    bool parse(int argc, const char* const* argv, ActionHandler& handler);

    const ApplicationInfo& info() const { return info_; }
    const std::string& escapeWord() const { return escapeWord_; }
    /// All parameters, named and positional ones, in the order of their declaration.
    const std::vector<std::unique_ptr<Parameter>>& parameters() const { return parameters_; }
    /// For each name of an option the index in `parameters`.
    const std::map<std::string, std::size_t>& names() const { return names_; }
    /// The indices in `parameters` of the positional ones, in the order in which they are filled.
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
