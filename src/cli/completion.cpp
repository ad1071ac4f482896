// The finished words are followed from left to right as the program itself would take them: a command leads to that
// command, an option that takes a value waits for the next word, all others are values. What may stand in the place of
// the unfinished word follows from where that ends.
#include "cli/completion.h"

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <span>

#include "cli/command_page.h"

#include "host/linux_platform.h"
#include "host/registry/file_registry.h"
#include "runtime/error.h"
#include "runtime/utf8.h"
#include "templates/template_list_key.h"

namespace zorkanca::cli {

namespace {

struct Candidate {
  std::string word;
  std::string description;
};

std::string HomeOfEnvironment() {
  const char* home = std::getenv("ZORKANCA_HOME");
  return home ? home : "";
}

const OptionPage* FindOption(const CommandPage& page, const std::string& name) {
  for (const OptionPage& option : page.options) {
    for (const std::string& each : option.names) {
      if (each == name) return &option;
    }
  }
  return nullptr;
}

const CommandPage* FindCommand(const CommandPage& page, const std::string& name) {
  for (const CommandPage& command : page.commands) {
    if (command.name == name) return &command;
  }
  return nullptr;
}

class Completer {
 public:
  explicit Completer(const CommandPage& program) : program_(program) {}

  void Follow(std::span<const std::string> words) {
    for (const std::string& word : words) Follow(word);
  }

  void Complete(const std::string& word) {
    const std::size_t equals = word.find('=');
    const bool isOption = word.starts_with("--") && !onlyValues_;
    const OptionPage* option = isOption && equals != std::string::npos ? Find(word.substr(0, equals)) : nullptr;
    if (option) {
      AddValues(*option, word.substr(0, equals + 1));
    } else if (waiting_) {
      AddValues(*waiting_, "");
    } else if (!onlyValues_ && word.starts_with("-")) {
      AddOptions(*command_);
      if (command_ != &program_) AddOptions(program_);
      candidates_.push_back({"--help", "tell what there is"});
    } else if (!command_->commands.empty()) {
      for (const CommandPage& each : command_->commands) candidates_.push_back({each.name, each.description});
    } else if (const OptionPage* value = NextValue()) {
      AddValues(*value, "");
    }
    // A shell that takes "=" for the end of a word asks with it alone.
    Print(word == "=" ? "" : word);
  }

 private:
  const OptionPage* Find(const std::string& name) const {
    const OptionPage* own = FindOption(*command_, name);
    return own ? own : FindOption(program_, name);
  }

  void Follow(const std::string& word) {
    if (waiting_) {
      if (word == "=") return;
      Remember(*waiting_, word);
      waiting_ = nullptr;
    } else if (onlyValues_) {
      values_.push_back(word);
    } else if (word == "--") {
      onlyValues_ = true;
    } else if (word.size() > 1 && word[0] == '-') {
      FollowOption(word);
    } else if (const CommandPage* inner = values_.empty() ? FindCommand(*command_, word) : nullptr) {
      command_ = inner;
    } else {
      values_.push_back(word);
    }
  }

  void FollowOption(const std::string& word) {
    const std::size_t equals = word.find('=');
    const OptionPage* option = Find(word.substr(0, equals));
    if (!option) return;
    if (equals == std::string::npos) {
      waiting_ = option->value.empty() ? nullptr : option;
    } else {
      Remember(*option, word.substr(equals + 1));
    }
  }

  // What the names of lists depend on.
  void Remember(const OptionPage& option, const std::string& value) {
    if (option.names.back() == "--application") application_ = value;
    if (option.names.back() == "--home") home_ = value;
  }

  const OptionPage* NextValue() const {
    const std::vector<OptionPage>& all = command_->values;
    if (values_.size() < all.size()) return &all[values_.size()];
    return !all.empty() && all.back().repeatable ? &all.back() : nullptr;
  }

  void AddOptions(const CommandPage& page) {
    for (const OptionPage& option : page.options) candidates_.push_back({option.names.back(), option.description});
  }

  // @param before  stands before each value in the same word: "--locale="
  void AddValues(const OptionPage& option, const std::string& before) {
    for (const std::string& choice : option.choices) candidates_.push_back({before + choice, ""});
    switch (option.kind) {
      case ValueKind::kFile:
      case ValueKind::kFileOrFolder:
        paths_ = ":files";
        break;
      case ValueKind::kFolder:
        paths_ = ":folders";
        break;
      case ValueKind::kTemplate:
        paths_ = ":files";
        for (const std::string& list : Lists())
          candidates_.push_back({before + "[" + list + "]", "a list of templates"});
        break;
      case ValueKind::kList:
        for (const std::string& list : Lists()) candidates_.push_back({before + list, ""});
        break;
      case ValueKind::kApplication:
        for (const std::string& code : KeysOf(ListsKey())) candidates_.push_back({before + code, ""});
        break;
      case ValueKind::kCommand:
        AddCommands();
        break;
      case ValueKind::kText:
      case ValueKind::kChoice:
      case ValueKind::kLocale:
        break;
    }
  }

  void AddCommands() {
    const CommandPage* page = &program_;
    for (const std::string& name : values_) {
      page = FindCommand(*page, name);
      if (!page) return;
    }
    for (const CommandPage& each : page->commands) candidates_.push_back({each.name, each.description});
  }

  static Text ListsKey() { return Text(kCursorStart) + u"\\" + Text(kTemplateListsKey); }

  std::vector<std::string> Lists() const {
    if (application_.empty()) return {};
    return KeysOf(ListsKey() + u"\\" + FromUtf8(application_));
  }

  std::vector<std::string> KeysOf(const Text& key) const {
    FileRegistry registry(home_.empty() ? DefaultHomeFolder() : home_);
    std::vector<std::string> names;
    for (const Text& name : registry.SubkeyNames(RegistryHive::kCurrentUser, key)) names.push_back(ToUtf8(name));
    return names;
  }

  void Print(const std::string& start) const {
    for (const Candidate& each : candidates_) {
      if (!each.word.starts_with(start)) continue;
      std::printf("%s%s%s\n", each.word.c_str(), each.description.empty() ? "" : "\t", each.description.c_str());
    }
    if (!paths_.empty()) std::puts(paths_.c_str());
  }

  const CommandPage& program_;
  const CommandPage* command_ = &program_;
  const OptionPage* waiting_ = nullptr;  // takes the next word
  bool onlyValues_ = false;
  std::vector<std::string> values_;
  std::string application_;
  std::string home_ = HomeOfEnvironment();
  std::vector<Candidate> candidates_;
  std::string paths_;
};

}  // namespace

void PrintCompletions(const CLI::App& app, const std::vector<std::string>& words) {
  const CommandPage program = PageOf(app);
  Completer completer(program);
  if (words.empty()) return completer.Complete("");
  completer.Follow(std::span(words).first(words.size() - 1));
  try {
    completer.Complete(words.back());
  } catch (const Error&) {  // a registry that cannot be read offers nothing
  }
}

}  // namespace zorkanca::cli
