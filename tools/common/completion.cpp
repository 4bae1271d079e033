#include "tools/common/completion.h"

#include <algorithm>

namespace zantlog::tools {

namespace {

std::string replaced(std::string text, const std::string &what, const std::string &with) {
    for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size())) {
        text.replace(at, what.size(), with);
    }
    return text;
}

std::string joined(const std::vector<std::string> &words, const std::string &separator,
                   const std::string &quote) {
    std::string text;
    for (const std::string &word : words) {
        text += (text.empty() ? "" : separator) + quote + word + quote;
    }
    return text;
}

// The word that names the command is the first one that is a command.
constexpr char kBash[] =
    R"(# bash completion of @PROGRAM@; put it into ~/.bash_completion, or: source <(@PROGRAM@ completion bash)
_@PROGRAM@() {
    local current=${COMP_WORDS[COMP_CWORD]} command= word words
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        case $word in
            @NAMES@) command=$word; break ;;
        esac
    done
    case $command in
@CASES@    esac
    COMPREPLY=($(compgen -W "$words" -- "$current"))
    [[ ${COMPREPLY[0]} == *= ]] && compopt -o nospace
    [[ ${#COMPREPLY[@]} == 0 ]] && compopt -o default
}
complete -F _@PROGRAM@ @PROGRAM@ @PROGRAM@.exe
)";

constexpr char kPowershell[] = R"(# PowerShell completion of @PROGRAM@; put it into $PROFILE
Register-ArgumentCompleter -Native -CommandName @PROGRAM@, @PROGRAM@.exe -ScriptBlock {
    param($wordToComplete, $commandAst, $cursorPosition)
    $words = @{
@CASES@    }
    $command = $commandAst.CommandElements | Select-Object -Skip 1 | ForEach-Object { "$_" } |
        Where-Object { $_ -and $words.ContainsKey($_) } | Select-Object -First 1
    $words["$command"] | Where-Object { $_ -like "$wordToComplete*" } |
        ForEach-Object { [System.Management.Automation.CompletionResult]::new($_, $_, 'ParameterValue', $_) }
}
)";

} // namespace

std::string bashCompletion(const CompletionSpec &spec) {
    std::vector<std::string> names;
    std::string cases;
    for (const CompletionCommand &command : spec.commands) {
        const std::string pattern = command.name.empty() ? "''" : command.name;
        cases += "        " + pattern + ") words='" + joined(command.words, " ", "") + "' ;;\n";
        if (!command.name.empty()) {
            names.push_back(command.name);
        }
    }
    // A pattern that no word matches, for a tool without commands.
    const std::string pattern = names.empty() ? "''" : joined(names, "|", "");
    std::string script = replaced(kBash, "@PROGRAM@", spec.program);
    return replaced(replaced(script, "@NAMES@", pattern), "@CASES@", cases);
}

std::string powershellCompletion(const CompletionSpec &spec) {
    std::string cases;
    for (const CompletionCommand &command : spec.commands) {
        cases += "        '" + command.name + "' = @(" + joined(command.words, ", ", "'") + ")\n";
    }
    return replaced(replaced(kPowershell, "@PROGRAM@", spec.program), "@CASES@", cases);
}

} // namespace zantlog::tools
