#include "export/driven_word.h"

#include "export/word_opening.h"
#include "foundation/ignore_errors.h"

namespace zorkanca {

namespace {

constexpr std::int32_t kFirstVersionWithLanguageCheck = 9;

}  // namespace

void DrivenWord::Take(WordApplicationReference word) {
  word_ = std::move(word);
  if (MajorVersion(*word_) < kFirstVersionWithLanguageCheck) return;
  checkLanguage_ = word_->CheckLanguage();
  word_->CheckLanguage(false);
}

void DrivenWord::Leave(bool shows) {
  if (!word_) return;
  IgnoreErrors([&] { word_->ScreenUpdating(true); });
  if (shows) {
    IgnoreErrors([&] { word_->Visible(true); });
    IgnoreErrors([&] { word_->WindowState(WordWindowState::kMaximize); });
  }
  if (checkLanguage_) IgnoreErrors([&] { word_->CheckLanguage(*checkLanguage_); });
}

}  // namespace zorkanca
