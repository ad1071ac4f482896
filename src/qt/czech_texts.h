// Czech texts of the dialogs that the library of windows brings along, for a computer without its translations.
#pragma once

#include <QTranslator>

namespace zorkanca {

class CzechTexts final : public QTranslator {
 public:
  bool isEmpty() const override { return false; }
  /// Of the texts of file dialogs, messages and their buttons; nothing for any other.
  QString translate(const char* context, const char* text, const char* disambiguation, int number) const override;
};

}  // namespace zorkanca
