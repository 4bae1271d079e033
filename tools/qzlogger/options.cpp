#include "tools/qzlogger/options.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>
#include <iostream>

#include "tools/common/exit_codes.h"
#include "zantlog/logging.h"

namespace zantlog::tools {

namespace {

constexpr char kVersion[] = "qzlogger 3.9.0.3";

constexpr char kDescription[] = R"(Examples:
  qzlogger --product 12 --originator 3 --app --severity 2 "disk C: is full"
      one application message of severity 2
  some-program | qzlogger --product 12 --originator 3 --diag --level 1 --who backup --from -
      each line of the program's output becomes a diagnostic message
  qzlogger --product 12 --originator 3 --app --log-set nightly --from report.txt
      each line of a file becomes a message in the log set "nightly"
  qzlogger --product 12 --originator 3 --audit --message-id 4711 --subject mary --outcome 0 "login"
      an audit message: catalog message 4711 with the text as its argument

Writes messages into the log of a product. Texts are taken as they are, whatever signs they contain.)";

constexpr char kFooter[] = R"(
Lines that are not UTF-8 are read in the code page of the system. The configuration is found through the
environment variable ZANTLOG_CFG_LOC, or else in the registry.
Exit code: 0 when every message was handed to the log, 1 when one could not be, 2 for a wrong command line.)";

struct FamilyName {
    const char *option;
    const char *description;
    Family family;
};

constexpr FamilyName kFamilies[] = {
    {"--app", "application messages", Family::application},
    {"--diag", "diagnostic messages", Family::diagnostic},
    {"--debug", "debug messages", Family::debug},
    {"--audit", "audit messages", Family::audit},
    {"--secure-audit", "secure-audit messages: to the event log alone", Family::secureAudit},
};

// Attributes that only some families have.
struct Attribute {
    const char *option;
    std::initializer_list<Family> families;
};

const Attribute kAttributes[] = {
    {"--severity", {Family::application}},
    {"--level", {Family::diagnostic, Family::debug, Family::secureAudit}},
    {"--who", {Family::application, Family::diagnostic, Family::debug}},
    {"--subject", {Family::audit, Family::secureAudit}},
    {"--outcome", {Family::audit, Family::secureAudit}},
    {"--message-id", {Family::application, Family::diagnostic, Family::audit, Family::secureAudit}},
    {"--sequence", {Family::application, Family::diagnostic, Family::debug, Family::audit}},
    {"--context", {Family::application, Family::diagnostic, Family::debug, Family::audit}},
    {"--log-set", {Family::application, Family::diagnostic, Family::debug, Family::audit}},
    {"--stdout", {Family::application, Family::diagnostic, Family::debug}},
    {"--stderr", {Family::application, Family::diagnostic}},
    {"--event-log", {Family::application}},
};

const char *optionOf(Family family) {
    for (const FamilyName &name : kFamilies) {
        if (name.family == family) {
            return name.option;
        }
    }
    return "";
}

void sayUsageError(const std::string &what) {
    std::cerr << "qzlogger: " << what << "\nqzlogger --help shows how it is used\n";
}

[[noreturn]] void usageError(const std::string &what) {
    throw CLI::ValidationError(what);
}

// Decimal and in a range; leading zeros do not make a number octal.
template <typename T>
CLI::Option *addNumber(CLI::App &app, const std::string &option, T *target, int64_t lowest, int64_t highest,
                       const std::string &description) {
    const auto take = [option, target, lowest, highest](const std::string &text) {
        int64_t value = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
        if (error != std::errc{} || end != text.data() + text.size() || value < lowest || value > highest) {
            usageError(option + " takes a number from " + std::to_string(lowest) + " to " +
                       std::to_string(highest) + ", not \"" + text + "\"");
        }
        *target = static_cast<T>(value);
    };
    return app.add_option_function<std::string>(option, take, description)->type_name("NUMBER");
}

void addTextOption(CLI::App &app, const std::string &option, std::optional<std::string> *target,
                   const std::string &type, const std::string &description) {
    const auto take = [target](const std::string &text) { *target = text; };
    app.add_option_function<std::string>(option, take, description)->type_name(type);
}

struct CommandLine {
    LoggerOptions options;
    uint32_t sequence = 0;
    std::optional<std::string> who;
    std::optional<std::string> subject;
    std::optional<std::string> title;
};

void defineFamilies(CLI::App &app) {
    for (const FamilyName &name : kFamilies) {
        app.add_flag(name.option)->description(name.description)->group("Kind of message (one of them)");
    }
}

void defineAttributes(CLI::App &app, CommandLine *line) {
    LoggerOptions &options = line->options;
    addNumber(app, "--severity", &options.severity, 0, 4,
              "of application messages: 0 information (unless given), 1 warning, 2 to 4 errors");
    addNumber(
        app, "--level", &options.level, INT32_MIN, INT32_MAX,
        "of diagnostic and debug messages: 1 (unless given) to 6; of secure-audit messages: 0 unless given");
    addTextOption(app, "--who", &line->who, "NAME",
                  "component that speaks; \"qzlogger\" for diagnostic and debug messages unless given");
    addTextOption(app, "--subject", &line->subject, "NAME", "of audit messages: who did it");
    addNumber(app, "--outcome", &options.outcome, 0, UINT32_MAX,
              "of audit messages: 0 is success (unless given)");
    addNumber(app, "--message-id", &options.messageId, 1, UINT32_MAX,
              "number in the product's message catalog; the text becomes the message's argument");
    addNumber(app, "--sequence", &line->sequence, 0, UINT32_MAX,
              "sequence number of the first message; automatic unless given");
}

void defineOptions(CLI::App &app, CommandLine *line) {
    LoggerOptions &options = line->options;
    addNumber(app, "--product", &options.product, 1, UINT32_MAX, "product id");
    addNumber(app, "--originator", &options.originator, 1, UINT32_MAX, "originator id");
    addTextOption(app, "--log-set", &options.logSet, "NAME", "write the file of this log set");
    addTextOption(app, "--context", &options.context, "TOKEN",
                  "begin a context: its token stands in all messages of this run");
    addTextOption(app, "--title", &line->title, "TEXT", "of the context");
    defineFamilies(app);
    defineAttributes(app, line);
    addTextOption(app, "--from", &options.from, "FILE",
                  "one message a line from a file, or from standard input: -");
    app.add_flag("--stdout")->description("also print the message on standard output");
    app.add_flag("--stderr")->description("also print application and diagnostic messages on standard error");
    app.add_flag("--event-log")->description("also report application messages to the event log");
    addTextOption(app, "text", &options.text, "TEXT", "the message; put -- before one that begins with -");
    app.add_option("--check-catalog", options.catalogs,
                   "log nothing: name the malformed lines of these message catalogs")
        ->type_name("FILE...");
    app.set_version_flag("--version", std::string(kVersion), "print the version");
}

Family chosenFamily(const CLI::App &app) {
    std::optional<Family> chosen;
    for (const FamilyName &name : kFamilies) {
        if (app.count(name.option) == 0) {
            continue;
        }
        if (chosen) {
            usageError(std::string(optionOf(*chosen)) + " and " + name.option + " exclude each other");
        }
        chosen = name.family;
    }
    if (!chosen) {
        usageError("the kind of message is missing: give --app, --diag, --debug, --audit or --secure-audit");
    }
    return *chosen;
}

void checkAttributes(const CLI::App &app, Family family) {
    for (const Attribute &attribute : kAttributes) {
        const auto &families = attribute.families;
        if (app.count(attribute.option) > 0 &&
            std::find(families.begin(), families.end(), family) == families.end()) {
            usageError(std::string(attribute.option) + " does not go with " + optionOf(family));
        }
    }
    const bool audit = family == Family::audit || family == Family::secureAudit;
    if (audit && app.count("--message-id") == 0) {
        usageError(std::string(optionOf(family)) +
                   " needs --message-id: audit messages come from a message catalog");
    }
}

void checkLevel(const LoggerOptions &options) {
    const bool ranged = options.family == Family::diagnostic || options.family == Family::debug;
    if (ranged && (options.level < 1 || options.level > 6)) {
        usageError("--level takes a number from 1 to 6 with " + std::string(optionOf(options.family)) +
                   ", not \"" + std::to_string(options.level) + "\"");
    }
}

void requireIds(const CLI::App &app) {
    for (const char *option : {"--product", "--originator"}) {
        if (app.count(option) == 0) {
            usageError(std::string(option) + " is missing: whose log is it?");
        }
    }
}

// A "-" separates the parts of a log file's name, so the file would be written and never found again.
void checkLogSet(const LoggerOptions &options) {
    if (!options.logSet) {
        return;
    }
    if (options.logSet->empty()) {
        usageError("--log-set takes the name of a log set, not an empty one");
    }
    if (options.logSet->find('-') != std::string::npos) {
        usageError("--log-set takes a name without \"-\", not \"" + *options.logSet +
                   "\": log files of such names are not found again");
    }
}

// A token stands in messages whose texts are UTF-8 and in the context's own, whose texts are native.
void checkContext(const CommandLine &line) {
    const std::optional<std::string> &token = line.options.context;
    if (line.title && !token) {
        usageError("--title needs --context: it is the title of a context");
    }
    if (!token) {
        return;
    }
    if (token->empty() || std::any_of(token->begin(), token->end(), [](char byte) {
            return static_cast<unsigned char>(byte) < ' ' || static_cast<unsigned char>(byte) > '~';
        })) {
        usageError("--context takes a token of ASCII characters, not \"" + *token + "\"");
    }
}

// A check goes alone.
void checkLoneCatalogs(const CLI::App &app) {
    for (const CLI::Option *option : app.get_options()) {
        if (option->count() > 0 && !option->check_name("--check-catalog")) {
            usageError("--check-catalog logs nothing and goes with nothing else, also not with " +
                       option->get_name());
        }
    }
}

void checkText(const LoggerOptions &options) {
    if (options.text && options.from) {
        usageError("a text and --from exclude each other");
    }
    if (!options.text && !options.from) {
        usageError("there is no message: give a text, or --from FILE, or --from - for standard input");
    }
}

void complete(const CLI::App &app, CommandLine *line) {
    LoggerOptions &options = line->options;
    if (!options.catalogs.empty()) {
        checkLoneCatalogs(app);
        return;
    }
    requireIds(app);
    options.family = chosenFamily(app);
    checkAttributes(app, options.family);
    checkLevel(options);
    checkLogSet(options);
    checkContext(*line);
    checkText(options);
    if (app.count("--level") == 0 && options.family == Family::secureAudit) {
        options.level = 0;
    }
    if (app.count("--sequence") > 0) {
        options.sequence = line->sequence;
    }
    // The library wants a component for these two.
    const bool needsWho = options.family == Family::diagnostic || options.family == Family::debug;
    options.who = line->who.value_or(needsWho ? "qzlogger" : "");
    options.subject = line->subject.value_or("");
    options.title = line->title.value_or("");
    options.outputFlags = (app.count("--stdout") > 0 ? static_cast<uint32_t>(ZANTLOG_TO_STDOUT) : 0U) |
                          (app.count("--stderr") > 0 ? static_cast<uint32_t>(ZANTLOG_TO_STDERR) : 0U) |
                          (app.count("--event-log") > 0 ? static_cast<uint32_t>(ZANTLOG_TO_EVENT_LOG) : 0U);
}

} // namespace

std::optional<LoggerOptions> readLoggerOptions(std::vector<std::string> arguments, int *exitCode) {
    CLI::App app(kDescription, "qzlogger");
    app.footer(kFooter);
    app.allow_windows_style_options(false); // a text may begin with a slash
    CommandLine line;
    try {
        defineOptions(app, &line);
        std::reverse(arguments.begin(), arguments.end()); // as CLI11 takes them
        app.parse(std::move(arguments));
        complete(app, &line);
        return line.options;
    } catch (const CLI::CallForHelp &) {
        std::cout << app.help();
        *exitCode = kExitSuccess;
    } catch (const CLI::CallForVersion &) {
        std::cout << kVersion << '\n';
        *exitCode = kExitSuccess;
    } catch (const CLI::ExtrasError &error) {
        sayUsageError(error.what() + std::string("; put a text of several words in quotation marks"));
        *exitCode = kExitUsage;
    } catch (const CLI::ParseError &error) {
        sayUsageError(error.what());
        *exitCode = kExitUsage;
    }
    return std::nullopt;
}

} // namespace zantlog::tools
