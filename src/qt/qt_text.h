// Texts and pixels between the system and the library of windows, which both hold UTF-16.
#pragma once

#include <QString>
#include <QStringView>

#include "runtime/text.h"

namespace zorkanca {

inline QString ToQt(TextView text) {
  return QStringView(text.data(), static_cast<qsizetype>(text.size())).toString();
}

inline Text FromQt(QStringView text) {
  return Text(text.utf16(), static_cast<std::size_t>(text.size()));
}

}  // namespace zorkanca
