#include "qt/screen_scale.h"

#include <QApplication>
#include <QFontMetricsF>
#include <algorithm>

namespace zorkanca {

float PixelsPerTwip() {
  constexpr float kTwipsPerPixel = 15;
  constexpr double kLineHeight = 13;
  constexpr double kLetterWidth = 6;
  const QFontMetricsF metrics(QApplication::font());
  const QString letters = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
  const double letterWidth = metrics.horizontalAdvance(letters) / static_cast<double>(letters.size());
  const double growth = std::max({1.0, metrics.height() / kLineHeight, letterWidth / kLetterWidth});
  return static_cast<float>(growth) / kTwipsPerPixel;
}

QRect ToPixels(const Bounds& twips) {
  const float scale = PixelsPerTwip();
  const QPoint topLeft(qRound(twips.left * scale), qRound(twips.top * scale));
  const QPoint end(qRound((twips.left + twips.width) * scale), qRound((twips.top + twips.height) * scale));
  return QRect(topLeft, QSize(end.x() - topLeft.x(), end.y() - topLeft.y()));
}

Bounds ToTwips(const QRect& pixels) {
  const auto twips = [scale = PixelsPerTwip()](int length) { return static_cast<float>(length) / scale; };
  return {.left = twips(pixels.left()),
          .top = twips(pixels.top()),
          .width = twips(pixels.width()),
          .height = twips(pixels.height())};
}

}  // namespace zorkanca
