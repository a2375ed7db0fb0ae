#include "app/SubcommandApplication.h"

#include "app/ArgumentHelp.h"
#include "app/ArgumentValues.h"

#include <algorithm>

namespace VORN {

namespace {

constexpr const char* kHelpName = "help";
constexpr const char* kHelpDescription = "Print this message.";

using Entries = std::vector<SubcommandApplication::SubcommandEntry>;

std::string joinNames(const Entries& entries) {
    std::string joined;
    for (const auto& entry : entries)
        joined += (joined.empty() ? "" : " | ") + entry.name;
    return joined;
}

int statusOf(const ArgumentProcessor::DefaultActionHandler& handler) {
    return handler.success() ? 0 : 1;
}

} // namespace

SubcommandApplication::Subcommand::Subcommand(const std::string& program, const std::string& name,
                                              std::string description, std::string version)
    : arguments_{ApplicationInfo{.name = program + " " + name,
                                 .version = std::move(version),
                                 .description = std::move(description),
                                 .programPath = {}}} {}

SubcommandApplication::Help::Help(const ApplicationInfo& info, const Entries& entries,
                                  WriteStream& out)
    : Subcommand{info.name, kHelpName, kHelpDescription, ""},
      entries_{entries},
      out_{out},
      indent_{info.indent},
      descriptionIndent_{info.descriptionIndent},
      lineWidth_{info.lineWidth} {}

int SubcommandApplication::Help::run() {
    constexpr std::string_view kTitle = "Subcommands: ";
    Text::TextWriter writer{out_};
    writer.write(kTitle);
    writer.paragraph(joinNames(entries_), kTitle.size(), kTitle.size(), lineWidth_);
    writer.write("\n\n");
    for (const SubcommandEntry& entry : entries_) {
        writer.write(std::string(indent_, ' ') + entry.name + "  ");
        writer.paragraph(entry.description, indent_ + entry.name.size() + 2, descriptionIndent_,
                         lineWidth_);
        writer.endLine();
    }
    writer.endLine();
    writer.flush();
    return 0;
}

SubcommandApplication::SubcommandApplication(ApplicationInfo info,
                                             std::span<const Registration> table, WriteStream& out,
                                             WriteStream& errors)
    : info_{std::move(info)},
      out_{out},
      errors_{errors} {
    entries_.push_back(
        {kHelpName, kHelpDescription, nullptr, std::make_shared<Help>(info_, entries_, out_)});
    for (const Registration& line : table)
        entries_.push_back({line.name, line.description, line.factory, nullptr});
}

int SubcommandApplication::run(int argc, const char* const* argv) {
    ArgumentProcessor topLevel{info_};
    const auto& name =
        topLevel.addPositional(joinNames(entries_), ArgumentProcessor::Presence::Optional)
            .add<ArgumentProcessor::DirectValue<std::string>>("subcommand", kHelpName);
    ArgumentProcessor::DefaultActionHandler topLevelHandler{out_, errors_};
    if (!topLevel.parse(std::min(argc, 2), argv, topLevelHandler))
        return statusOf(topLevelHandler);

    const std::shared_ptr<Subcommand> subcommand = find(name.get());
    if (!subcommand)
        return reportUnknown(name.get());
    const int count = std::max(argc - 1, 0);
    ArgumentProcessor::DefaultActionHandler handler{out_, errors_};
    if (!subcommand->arguments().parse(count, argv + (argc - count), handler))
        return statusOf(handler);
    return subcommand->run();
}

std::shared_ptr<SubcommandApplication::Subcommand>
SubcommandApplication::find(const std::string& name) const {
    const auto entry = std::ranges::find(entries_, name, &SubcommandEntry::name);
    if (entry == entries_.end())
        return nullptr;
    if (entry->instance)
        return entry->instance;
    return entry->factory != nullptr ? entry->factory() : nullptr;
}

int SubcommandApplication::reportUnknown(const std::string& name) {
    if (name != kHelpName) {
        Text::TextWriter writer{errors_};
        writer.write(name + " is not a recognized subcommand. ");
        writer.endLine();
        writer.flush();
    }
    Help{info_, entries_, errors_}.run();
    return name == kHelpName ? 0 : 1;
}

} // namespace VORN
