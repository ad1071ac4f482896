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
  IgnoreErrors([&] {
    if (!word_) return;
    word_->ScreenUpdating(true);
    if (shows) {
      word_->Visible(true);
      word_->WindowState(WordWindowState::kMaximize);
    }
    if (checkLanguage_) word_->CheckLanguage(*checkLanguage_);
  });
}

}  // namespace zorkanca
