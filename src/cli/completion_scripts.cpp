// The scripts that make shells ask the program what may follow. They know nothing of its commands.
#include "cli/completion.h"

namespace zorkanca::cli {

namespace {

constexpr const char* kBash = R"sh(# zorkanca: completion for bash, made by "zorkanca completion bash"
_zorkanca() {
  local word=${COMP_WORDS[COMP_CWORD]} line
  [[ $word == = ]] && word=
  COMPREPLY=()
  while IFS= read -r line; do
    case $line in
      :files) compopt -o filenames; mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -f -- "$word") ;;
      :folders) compopt -o filenames; mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -d -- "$word") ;;
      *) COMPREPLY+=("$(printf %q "${line%%$'\t'*}")") ;;
    esac
  done < <("${COMP_WORDS[0]}" complete "${COMP_WORDS[@]:1:COMP_CWORD}" 2>/dev/null)
} 2>/dev/null
complete -F _zorkanca zorkanca
)sh";

constexpr const char* kZsh = R"sh(#compdef zorkanca
# zorkanca: completion for zsh, made by "zorkanca completion zsh"
_zorkanca() {
  local line
  local -a items
  local paths
  for line in "${(@f)$(${words[1]} complete "${(@)words[2,CURRENT]}" 2>/dev/null)}"; do
    case $line in
      :files) paths=_files ;;
      :folders) paths='_files -/' ;;
      ?*) items+=("${${line%%$'\t'*}//:/\\:}${${(M)line%$'\t'*}/$'\t'/:}") ;;
    esac
  done
  (( ${#items} )) && _describe zorkanca items
  [[ -n $paths ]] && ${=paths}
}
if [[ ${funcstack[1]} == _zorkanca ]]; then _zorkanca "$@"; else compdef _zorkanca zorkanca; fi
)sh";

constexpr const char* kFish = R"sh(# zorkanca: completion for fish, made by "zorkanca completion fish"
function __zorkanca_complete
    set -l words (commandline -opc)
    for line in (command $words[1] complete $words[2..-1] (commandline -ct) 2>/dev/null)
        switch $line
            case :files
                __fish_complete_path (commandline -ct)
            case :folders
                __fish_complete_directories (commandline -ct)
            case '*'
                echo $line
        end
    end
end
complete -c zorkanca -f -a '(__zorkanca_complete)'
)sh";

}  // namespace

std::string CompletionScript(const std::string& shell) {
  if (shell == "zsh") return kZsh;
  return shell == "fish" ? kFish : kBash;
}

}  // namespace zorkanca::cli
