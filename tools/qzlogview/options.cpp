#include "tools/qzlogview/options.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iostream>

#include "tools/common/ascii.h"
#include "tools/common/completion.h"
#include "tools/common/tool_error.h"
#include "tools/qzlogview/count.h"

namespace zantlog::view {

namespace {

constexpr char kVersion[] = "qzlogview 3.9.0.3";

constexpr char kDescription[] = R"(Examples:
  qzlogview --product 12 --since yesterday --severity ">=warning"
      warnings and errors of a product, of all its files, in the order of their times
  qzlogview --product shop --originator 3 -f
      the last ten messages of an originator, and every new one
  qzlogview --where 'type == audit && outcome != 0 && time >= "-7d"'
      audit messages of the last week that tell a failure
  qzlogview --context a81f C:\logs
      what belongs to one context, from the files of a directory
  qzlogview --since -1h --count-by who
      who said how much in the last hour
  qzlogview --product 12 -o json --fields time,who,text,args
      some fields, for another program
  qzlogview --verify C:\logs
      whether every line is a record, and no number is missing

Shows the messages of log files, of all files that are named, or of all that the configurations of this machine lead
to.)";

constexpr char kFooter[] = R"(
Times are written 2026-11-20, "2026-11-20 14:03", 14:03:05.250, now, today, yesterday, -90m, -3h or -2d. The query language and
the fields are described in docs/qzlogview.md.
Exit code: 0 done, 1 nothing matched, 2 wrong command line, 3 damage found (--verify), 4 something could not be read.)";

struct CommandLine {
    ViewOptions options;
    std::string format = "compact";
    std::string colours = "auto";
    std::string zone = "local";
    std::string fields;
    bool utc = false;
    std::string completion;
};

void addText(CLI::App &app, const std::string &option, std::optional<std::string> *target,
             const std::string &type, const std::string &description) {
    const auto take = [target](const std::string &text) { *target = text; };
    app.add_option_function<std::string>(option, take, description)->type_name(type);
}

void addTexts(CLI::App &app, const std::string &option, std::vector<std::string> *target,
              const std::string &type, const std::string &description) {
    app.add_option(option, *target, description)->type_name(type)->expected(1)->take_all();
}

void addCount(CLI::App &app, const std::string &option, std::optional<uint64_t> *target,
              const std::string &description) {
    const auto take = [option, target](const std::string &text) {
        *target = tools::wholeNumber(text);
        if (!*target) {
            tools::usageError(option + " takes a number, not \"" + text + "\"");
        }
    };
    app.add_option_function<std::string>(option, take, description)->type_name("N");
}

void defineSelection(CLI::App &app, Selection *selection) {
    const std::string group = "Which messages";
    addTexts(app, "--product", &selection->products, "ID", "of these products: ids or names");
    addTexts(app, "--originator", &selection->originators, "ID", "of these originators: ids or names");
    addTexts(app, "--logset", &selection->logSets, "NAME", "of the files of these log sets");
    addText(app, "--since", &selection->since, "TIME", "at this time or later");
    addText(app, "--until", &selection->until, "TIME", "at this time or earlier");
    addTexts(app, "--type", &selection->types, "TYPE", "debug, diagnostic, application, context, audit");
    addText(app, "--severity", &selection->severity, "SEVERITY",
            "of application messages: 0 to 4 or information, warning, error, severe, fatal; \">=2\" for that "
            "and above");
    addText(app, "--level", &selection->level, "LEVEL", "of debug and diagnostic messages: 2, or \"<=2\"");
    addTexts(app, "--who", &selection->who, "NAME", "of these components, or subjects of audit messages");
    addTexts(app, "--context", &selection->contexts, "TOKEN", "of these contexts");
    addTexts(app, "--pid", &selection->processes, "ID", "of these processes");
    addTexts(app, "--tid", &selection->threads, "ID", "of these threads");
    addText(app, "--grep", &selection->grep, "REGEX", "whose text holds what matches the regular expression");
    addText(app, "--where", &selection->where, "EXPRESSION",
            "for which the expression of the query language is true");
    app.add_flag("--not", selection->inverted,
                 "those that the options do not select (product, originator and log set stay)");
}

void defineOutput(CLI::App &app, CommandLine *line) {
    ViewOptions &options = line->options;
    app.add_option("-o,--output", line->format, "compact, long, json, csv or raw")
        ->type_name("FORMAT")
        ->check(CLI::IsMember({"compact", "long", "json", "csv", "raw"}));
    app.add_option("--fields", line->fields, "these fields only: time,who,text,...")->type_name("NAMES");
    app.add_option("--color,--colour", line->colours, "auto, always or never")
        ->type_name("WHEN")
        ->check(CLI::IsMember({"auto", "always", "never"}));
    app.add_flag("--utc", line->utc, "times in UTC");
    app.add_option("--tz", line->zone, "times in this zone: +01:00")->type_name("OFFSET");
    addCount(app, "--head", &options.head, "the first N");
    addCount(app, "-n,--tail", &options.tail, "the last N");
    app.add_flag("--reverse", options.reverse, "the latest first");
    app.add_flag("-f,--follow", options.follow,
                 "the last ones (10, or -n), and new ones as they are written");
    app.add_flag("--count", options.count, "only how many there are");
    app.add_option("--count-by", options.countBy,
                   "how many of each who, type, severity, originator, hour or minute")
        ->type_name("WHAT");
    app.add_flag("--verify", options.verify, "only whether the files are whole");
    addText(app, "--html", &options.html, "FILE", "a page with a chart and a table of the messages");
    app.add_option("--completion", line->completion,
                   "print a script that lets a shell complete command lines")
        ->type_name("SHELL")
        ->check(CLI::IsMember({"bash", "powershell"}));
    app.add_option("files", options.files,
                   "log files, and directories of them; unless given, those of the configurations")
        ->type_name("FILE...");
    app.set_version_flag("--version", std::string(kVersion), "print the version");
}

// The arguments once more, for those who read the page.
std::string joined(const std::vector<std::string> &arguments) {
    std::string text;
    for (const std::string &argument : arguments) {
        const bool plain = argument.find_first_of(" \"") == std::string::npos;
        text += (text.empty() ? "" : " ") + (plain ? argument : "'" + argument + "'");
    }
    return text;
}

std::vector<std::string> splitFields(const std::string &text) {
    std::vector<std::string> names;
    for (size_t begin = 0; begin < text.size();) {
        const size_t end = std::min(text.find(',', begin), text.size());
        names.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return names;
}

OutputFormat formatOf(const std::string &name) {
    if (name == "long") {
        return OutputFormat::longForm;
    }
    if (name == "json") {
        return OutputFormat::json;
    }
    if (name == "csv") {
        return OutputFormat::csv;
    }
    return name == "raw" ? OutputFormat::raw : OutputFormat::compact;
}

// Of options that each choose what becomes of the messages, one can be meant.
void checkOnePurpose(const ViewOptions &options) {
    const int purposes = (options.follow ? 1 : 0) + (options.count || !options.countBy.empty() ? 1 : 0) +
                         (options.verify ? 1 : 0) + (options.html ? 1 : 0);
    if (purposes > 1) {
        tools::usageError("--follow, --count, --count-by, --verify and --html exclude each other");
    }
    if (options.head && options.tail) {
        tools::usageError("--head and --tail exclude each other");
    }
    const bool shown = purposes == 0 || options.follow;
    if (!shown && (options.head || options.tail || options.reverse)) {
        tools::usageError("--head, --tail and --reverse are for messages that are shown");
    }
    if (options.follow && (options.head || options.reverse)) {
        tools::usageError("--follow goes with neither --head nor --reverse");
    }
}

void complete(CommandLine *line) {
    ViewOptions &options = line->options;
    const std::optional<Zone> zone = zoneFromText(line->utc ? "utc" : line->zone);
    if (!zone) {
        tools::usageError("--tz takes an offset such as +01:00, not \"" + line->zone + "\"");
    }
    options.zone = *zone;
    options.format = formatOf(line->format);
    options.fields = splitFields(line->fields);
    checkFields(options.fields);
    options.colours = line->colours == "auto"     ? Colours::automatic
                      : line->colours == "always" ? Colours::always
                                                  : Colours::never;
    if (!RecordCounter::isKnown(options.countBy)) {
        tools::usageError("--count-by takes who, type, severity, originator, hour or minute, not \"" +
                          options.countBy + "\"");
    }
    checkOnePurpose(options);
}

void printCompletion(const CLI::App &app, const std::string &shell) {
    tools::CompletionSpec spec{"qzlogview", {{"", {}}}};
    for (const CLI::Option *option : app.get_options()) {
        for (const std::string &name : option->get_lnames()) {
            spec.commands.front().words.push_back("--" + name);
        }
    }
    std::cout << (shell == "bash" ? bashCompletion(spec) : powershellCompletion(spec));
}

} // namespace

std::optional<ViewOptions> readViewOptions(std::vector<std::string> arguments, int *exitCode) {
    CLI::App app(kDescription, "qzlogview");
    app.footer(kFooter);
    app.allow_windows_style_options(false);
    CommandLine line;
    try {
        defineSelection(app, &line.options.selection);
        defineOutput(app, &line);
        line.options.description = joined(arguments);
        std::reverse(arguments.begin(), arguments.end()); // as CLI11 takes them
        app.parse(std::move(arguments));
        if (line.completion.empty()) {
            complete(&line);
            return line.options;
        }
        printCompletion(app, line.completion);
        *exitCode = tools::kExitSuccess;
    } catch (const CLI::CallForHelp &) {
        std::cout << app.help();
        *exitCode = tools::kExitSuccess;
    } catch (const CLI::CallForVersion &) {
        std::cout << kVersion << '\n';
        *exitCode = tools::kExitSuccess;
    } catch (const CLI::ParseError &error) {
        std::cerr << "qzlogview: " << error.what() << "\nqzlogview --help shows how it is used\n";
        *exitCode = tools::kExitUsage;
    }
    return std::nullopt;
}

} // namespace zantlog::view
