#include "cli/report.h"

#include <cstdio>
#include <nlohmann/json.hpp>

#include "cli/command_line.h"
#include "cli/input_check.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

namespace {

using Json = nlohmann::ordered_json;

Json TextsOf(const std::vector<Text>& texts) {
  Json array = Json::array();
  for (const Text& text : texts) array.push_back(ToUtf8(text));
  return array;
}

// One line of standard error; line ends inside are the terminal's.
std::string LineOf(TextView text) {
  return ToUtf8(Replace(text, kCrLf, u"\n"));
}

// What is said of a file that is not there, with the one that may be meant.
Error WithHint(const Error& error) {
  const Text hint = FileHint(error);
  Text description = error.description();
  if (!hint.empty() && description.ends_with(u'.')) description.pop_back();
  return {error.number(), error.source(), description + hint};
}

Text NumberAndDescription(const Error& error) {
  return DecimalText(error.number()) + u" - " + error.description();
}

}  // namespace

void Report::PrintLine(TextView text) {
  statusLine_.Erase();
  const std::string line = ToUtf8(text) + "\n";
  std::fwrite(line.data(), 1, line.size(), stdout);
}

void Report::Tell(TextView text) {
  statusLine_.Erase();
  std::fprintf(stderr, "zorkanca: %s\n", LineOf(text).c_str());
}

void Report::File(TextView path) {
  const std::lock_guard lock(mutex_);
  if (json_) {
    files_.emplace_back(path);
  } else {
    PrintLine(path);
  }
}

void Report::Value(TextView text) {
  const std::lock_guard lock(mutex_);
  if (json_) {
    values_.emplace_back(text);
  } else {
    PrintLine(text);
  }
}

void Report::Records(std::int64_t count) {
  const std::lock_guard lock(mutex_);
  records_ += count;
}

void Report::Warning(TextView text) {
  const std::lock_guard lock(mutex_);
  if (!toldWarnings_.emplace(text).second) return;
  warnings_.emplace_back(text);
  Tell(u"warning: " + Text(text));
}

void Report::Cause(const Error& error) {
  const std::lock_guard lock(mutex_);
  cause_ = WithHint(error);
  const Text text = NumberAndDescription(error);
  if (said_.find(text) == Text::npos) Tell(u"cause: " + NumberAndDescription(*cause_));
}

void Report::Failure(const Error& error) {
  const std::lock_guard lock(mutex_);
  failure_ = WithHint(error);
  Tell(NumberAndDescription(*failure_));
}

void Report::Failure(TextView text) {
  const std::lock_guard lock(mutex_);
  failure_ = Error(static_cast<std::int32_t>(RuntimeError::kInvalidCall), u"", Text(text));
  Tell(text);
}

void Report::WrongUsage(const std::string& text, const std::string& command) {
  Failure(FromUtf8(text));
  std::fprintf(stderr, "'zorkanca%s%s --help' tells what there is.\n", command.empty() ? "" : " ", command.c_str());
}

void Report::MessageBox(const Message& message) {
  const std::lock_guard lock(mutex_);
  statusLine_.Erase();
  if (message.buttons != MessageButtons::kOk) return;
  message_ = Replace(message.text, kCrLf, u"\n");
  said_.append(message_).append(u"\n");
}

std::string Report::AsJson(int status) const {
  Json object = {{"files", TextsOf(files_)}, {"records", records_}, {"warnings", TextsOf(warnings_)}};
  if (!values_.empty()) object["values"] = TextsOf(values_);
  Json& error = object["error"];
  if (status == kDone) return object.dump(2, ' ', false, Json::error_handler_t::replace);
  const std::optional<Error>& known = cause_ ? cause_ : failure_;
  std::int32_t number = known ? known->number() : 0;
  Text description = known ? known->description() : message_;
  if (status == kInterrupted && !known) {
    number = static_cast<std::int32_t>(RuntimeError::kUserInterrupt);
    description = DescriptionOf(RuntimeError::kUserInterrupt);
  }
  error = {{"number", number},
           {"source", known ? ToUtf8(known->source()) : ""},
           {"description", ToUtf8(description)},
           {"message", ToUtf8(message_.empty() ? description : message_)}};
  return object.dump(2, ' ', false, Json::error_handler_t::replace);
}

int Report::Finish(int status) {
  statusLine_.Erase();
  if (json_) std::fprintf(stdout, "%s\n", AsJson(status).c_str());
  if (std::fflush(stdout) == 0) return status;
  std::perror("zorkanca: standard output");
  return kFailed;
}

MessageAnswer ReportedUserInterface::Show(const Message& message) {
  report_.MessageBox(message);
  return user_.Show(message);
}

Text ReportedUserInterface::ChooseFile(const FileDialog& dialog) {
  report_.statusLine().Erase();
  return user_.ChooseFile(dialog);
}

Text ReportedUserInterface::ChooseFolder(TextView title, TextView startFolder) {
  report_.statusLine().Erase();
  return user_.ChooseFolder(title, startFolder);
}

void ReportedUserInterface::ShowModal(Form& form, Form* owner) {
  report_.statusLine().Erase();
  user_.ShowModal(form, owner);
}

}  // namespace zorkanca::cli
