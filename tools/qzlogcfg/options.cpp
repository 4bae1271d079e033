#include "tools/qzlogcfg/options.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iostream>

#include "tools/common/ascii.h"
#include "tools/common/command_line.h"
#include "tools/common/completion.h"
#include "tools/common/exit_codes.h"
#include "tools/common/tool_error.h"
#include "tools/qzlogcfg/check.h"
#include "tools/qzlogcfg/commands.h"
#include "tools/qzlogcfg/listing.h"

namespace zantlog::tools {

namespace {

constexpr char kVersion[] = "qzlogcfg 3.9.0.3";

constexpr char kDescription[] = R"(Examples:
  qzlogcfg register 12 --names shop --config C:\shop\log.conf
      register product 12; its settings go into that file
  qzlogcfg set 12 default LogDirectory=C:\shop\logs RolloverMode=FileSize MaxLogFileSizeKB=10MB
      settings of all originators of the product
  qzlogcfg set 12 3 diag=4 --dry-run
      show what would change for originator 3
  qzlogcfg show shop 3
      every setting of originator 3, its value, and where the value comes from
  qzlogcfg levels 12 3 --debug 6
      raise the debug level of a running product
  qzlogcfg check
      name everything that is wrong with the configuration

Shows and changes the configuration of the products on this machine.)";

constexpr char kFooter[] = R"(
A product is given by its id or one of its names, an originator by its id or as "default". Settings are described in
docs/configuration.md; case, "-" and "_" do not count in their names. The configuration is found through the
environment variable ZANTLOG_CFG_LOC, or else in the registry; --location names another one.
Exit code: 0 done, 1 nothing found (diff: there are differences), 2 wrong command line, 3 problems found,
4 the configuration cannot be read or changed.)";

struct CommandLine {
    std::string product;
    std::vector<std::string> words; // originator, assignments, keys: told apart afterwards
    std::optional<std::string> logSet;
    std::optional<std::string> location;
    std::string names;
    std::string config;
    std::optional<std::string> debug;
    std::optional<std::string> diag;
    std::optional<std::string> file;
    std::string left;
    std::string right;
    std::string shell;
    bool json = false;
    bool dryRun = false;
    bool all = false;
    bool replace = false;

    [[nodiscard]] Format format() const { return json ? Format::json : Format::text; }
    [[nodiscard]] DryRun dry() const { return dryRun ? DryRun::yes : DryRun::no; }
};

uint32_t requireId(const std::string &text, const std::string &what) {
    const std::optional<uint64_t> id = wholeNumber(text);
    if (!id || *id == 0 || *id > UINT32_MAX) {
        usageError(what + " is a number from 1 to 4294967295, not \"" + text + "\"");
    }
    return static_cast<uint32_t>(*id);
}

SectionName originatorNamed(const std::string &text) {
    if (lowered(text) == "default") {
        return {};
    }
    return {SectionKind::product, requireId(text, "an originator"), ""};
}

// The section, which is the log set or else the first word; the words that are left stay.
SectionName takeSection(CommandLine *line) {
    if (line->logSet) {
        const bool defaults = lowered(*line->logSet) == "default";
        return {SectionKind::logSet, 0, defaults ? "Default" : *line->logSet};
    }
    if (line->words.empty()) {
        usageError("whose settings? give an originator (a number, or \"default\"), or --logset NAME");
    }
    const SectionName section = originatorNamed(line->words.front());
    line->words.erase(line->words.begin());
    return section;
}

Target takeTarget(CommandLine *line) {
    return {line->product, takeSection(line)};
}

ShowScope takeScope(CommandLine *line) {
    ShowScope scope;
    if (!line->product.empty()) {
        scope.product = line->product;
    }
    if (line->logSet || !line->words.empty()) {
        if (!scope.product) {
            usageError("which product? give its id or name before --logset");
        }
        scope.section = takeSection(line);
    }
    if (!line->words.empty()) {
        usageError("\"" + line->words.front() + "\" was not expected");
    }
    return scope;
}

int runSet(CommandLine *line) {
    const Target target = takeTarget(line);
    if (line->words.empty()) {
        usageError("nothing to set: give KEY=VALUE");
    }
    return setSettings(target, line->words, line->dry(), std::cout);
}

int runUnset(CommandLine *line) {
    const Target target = takeTarget(line);
    if (line->words.empty() != line->all) {
        usageError("give the settings to remove, or --all");
    }
    return unsetSettings(target, line->words, line->all, line->dry(), std::cout);
}

int runLevels(CommandLine *line) {
    const Target target = takeTarget(line);
    if (!line->debug && !line->diag) {
        usageError("which level? give --debug N, --diag N or both");
    }
    if (!line->words.empty()) {
        usageError("\"" + line->words.front() + "\" was not expected");
    }
    return setLevels(target, line->debug, line->diag, line->dry(), std::cout);
}

// A command, what its command line may hold, and what it does.
struct Definition {
    const char *name;
    const char *description;
    const char *parts; // of kParts below
    int (*run)(CommandLine *line);
};

const Definition kDefinitions[] = {
    {"products", "list the registered products", "json",
     [](CommandLine *line) { return listProducts(line->format(), std::cout); }},
    {"originators", "list the originators that a product has settings for", "product json",
     [](CommandLine *line) { return listOriginators(line->product, line->format(), std::cout); }},
    {"logsets", "list the log sets of a product", "product json",
     [](CommandLine *line) { return listLogSets(line->product, line->format(), std::cout); }},
    {"show", "show every setting: its value, and where the value comes from", "scope logset json",
     [](CommandLine *line) { return showSettings(takeScope(line), line->format(), std::cout); }},
    {"set", "set settings", "product words logset dry-run", runSet},
    {"unset", "remove settings, so that the inherited values count", "product words logset dry-run all",
     runUnset},
    {"levels", "set the levels of debug and diagnostic messages", "product words logset levels dry-run",
     runLevels},
    {"register", "register a product", "product register",
     [](CommandLine *line) {
         return registerProduct(requireId(line->product, "a product"), line->names, line->config, std::cout);
     }},
    {"unregister", "remove a product's registration; its configuration is left", "product",
     [](CommandLine *line) { return unregisterProduct(line->product, std::cout); }},
    {"check", "name everything that is wrong", "json",
     [](CommandLine *line) { return checkConfiguration(line->format(), std::cout); }},
    {"export", "write the whole configuration as JSON", "file",
     [](CommandLine *line) { return exportConfiguration(line->file, std::cout); }},
    {"import", "register and set what an exported file holds", "input replace dry-run",
     [](CommandLine *line) {
         return importConfiguration(*line->file, line->replace, line->dry(), std::cout);
     }},
    {"diff", "compare two configurations", "sides",
     [](CommandLine *line) { return diffConfigurations(line->left, line->right, std::cout); }},
    {"paths", "show where the configuration is, and why", "json",
     [](CommandLine *line) { return showPaths(line->format(), std::cout); }},
};

struct Part {
    std::string_view name;
    void (*define)(CLI::App &command, CommandLine *line);
};

void addOptional(CLI::App &command, const std::string &option, std::optional<std::string> *target,
                 const std::string &type, const std::string &description) {
    const auto take = [target](const std::string &text) { *target = text; };
    command.add_option_function<std::string>(option, take, description)->type_name(type);
}

const Part kParts[] = {
    {"product",
     [](CLI::App &command, CommandLine *line) {
         command.add_option("product", line->product, "id or name")->type_name("PRODUCT")->required();
     }},
    {"scope",
     [](CLI::App &command, CommandLine *line) {
         command.add_option("product", line->product, "id or name; all products unless given")
             ->type_name("PRODUCT");
         command.add_option("originator", line->words, "id, or \"default\"; all sections unless given")
             ->type_name("ORIGINATOR")
             ->expected(0, 1);
     }},
    {"words",
     [](CLI::App &command, CommandLine *line) {
         command.add_option("words", line->words, "originator (unless --logset is given), then what to do")
             ->type_name("ORIGINATOR [KEY[=VALUE]...]");
     }},
    {"logset",
     [](CLI::App &command, CommandLine *line) {
         addOptional(command, "--logset", &line->logSet, "NAME",
                     "the section of this log set, or \"default\"");
     }},
    {"json", [](CLI::App &command, CommandLine *line) { command.add_flag("--json", line->json, "as JSON"); }},
    {"dry-run",
     [](CLI::App &command, CommandLine *line) {
         command.add_flag("--dry-run", line->dryRun, "change nothing; show what would change");
     }},
    {"all", [](CLI::App &command,
               CommandLine *line) { command.add_flag("--all", line->all, "all settings of the section"); }},
    {"levels",
     [](CLI::App &command, CommandLine *line) {
         addOptional(command, "--debug", &line->debug, "N", "0 (none) to 6");
         addOptional(command, "--diag", &line->diag, "N", "0 (none) to 6");
     }},
    {"register",
     [](CLI::App &command, CommandLine *line) {
         command.add_option("--names", line->names, "short names, separated by commas")
             ->type_name("NAMES")
             ->required();
         command
             .add_option("--config", line->config,
                         "a file *.conf, or a registry path below HKEY_LOCAL_MACHINE")
             ->type_name("PATH")
             ->required();
     }},
    {"file",
     [](CLI::App &command, CommandLine *line) {
         addOptional(command, "-o,--output", &line->file, "FILE", "write this file, not standard output");
     }},
    {"input",
     [](CLI::App &command, CommandLine *line) {
         addOptional(command, "file", &line->file, "FILE", "as export has written it");
         command.get_option("file")->required();
     }},
    {"replace",
     [](CLI::App &command, CommandLine *line) {
         command.add_flag("--replace", line->replace, "also remove settings that the file does not hold");
     }},
    {"sides",
     [](CLI::App &command, CommandLine *line) {
         command
             .add_option("a", line->left, "an exported file *.json, a configuration location, or \"current\"")
             ->type_name("A")
             ->required();
         command.add_option("b", line->right, "the other one")->type_name("B")->required();
     }},
};

bool hasPart(const Definition &definition, std::string_view part) {
    const std::string parts = std::string(" ") + definition.parts + " ";
    return parts.find(" " + std::string(part) + " ") != std::string::npos;
}

CompletionSpec completionSpec(const CLI::App &app) {
    CompletionSpec spec{"qzlogcfg", {{"", {}}}};
    for (const Definition &definition : kDefinitions) {
        CompletionCommand command{definition.name, {}};
        for (const CLI::Option *option : app.get_subcommand(definition.name)->get_options()) {
            for (const std::string &name : option->get_lnames()) {
                command.words.push_back("--" + name);
            }
        }
        if (hasPart(definition, "words") && !hasPart(definition, "levels")) {
            const bool assigns = std::string_view(definition.name) == "set";
            for (const Setting &setting : settings()) {
                command.words.push_back(std::string(setting.key) + (assigns ? "=" : ""));
            }
        }
        spec.commands.front().words.emplace_back(definition.name);
        spec.commands.push_back(command);
    }
    spec.commands.front().words.insert(spec.commands.front().words.end(),
                                       {"completion", "--location", "--help", "--version"});
    spec.commands.push_back({"completion", {"bash", "powershell"}});
    return spec;
}

void defineCommands(CLI::App &app, CommandLine *line) {
    app.require_subcommand(1);
    addOptional(app, "--location", &line->location, "LOCATION",
                "another configuration location: a file *.conf, or a registry path");
    app.set_version_flag("--version", std::string(kVersion), "print the version");
    for (const Definition &definition : kDefinitions) {
        CLI::App &command = *app.add_subcommand(definition.name, definition.description);
        command.fallthrough();
        for (const Part &part : kParts) {
            if (hasPart(definition, part.name)) {
                part.define(command, line);
            }
        }
    }
    app.add_subcommand("completion", "print a script that lets a shell complete command lines")
        ->add_option("shell", line->shell, "bash or powershell")
        ->type_name("SHELL")
        ->required()
        ->check(CLI::IsMember({"bash", "powershell"}));
}

Command commandOf(const CLI::App &app, const CommandLine &line) {
    if (app.got_subcommand("completion")) {
        const CompletionSpec spec = completionSpec(app);
        const std::string script = line.shell == "bash" ? bashCompletion(spec) : powershellCompletion(spec);
        return [script] {
            std::cout << script;
            return kExitSuccess;
        };
    }
    const auto chosen = std::find_if(std::begin(kDefinitions), std::end(kDefinitions),
                                     [&](const Definition &one) { return app.got_subcommand(one.name); });
    return [run = chosen->run, given = line]() mutable {
        // Before the library looks for its location.
        if (given.location) {
            setEnvironment("ZANTLOG_CFG_LOC", *given.location);
        }
        return run(&given);
    };
}

} // namespace

std::optional<Command> readConfigCommand(std::vector<std::string> arguments, int *exitCode) {
    CLI::App app(kDescription, "qzlogcfg");
    app.footer(kFooter);
    app.allow_windows_style_options(false);
    CommandLine line;
    try {
        defineCommands(app, &line);
        std::reverse(arguments.begin(), arguments.end()); // as CLI11 takes them
        app.parse(std::move(arguments));
        return commandOf(app, line);
    } catch (const CLI::CallForHelp &) {
        std::cout << app.help();
        *exitCode = kExitSuccess;
    } catch (const CLI::CallForVersion &) {
        std::cout << kVersion << '\n';
        *exitCode = kExitSuccess;
    } catch (const CLI::ParseError &error) {
        std::cerr << "qzlogcfg: " << error.what() << "\nqzlogcfg --help shows how it is used\n";
        *exitCode = kExitUsage;
    }
    return std::nullopt;
}

} // namespace zantlog::tools
