#include "qt/arrow_icon.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace zorkanca {

namespace {

// A thick arrow that points up, in a square of the given side.
QPainterPath UpArrow(double side) {
  QPainterPath path;
  path.moveTo(side * 0.5, side * 0.12);
  path.lineTo(side * 0.88, side * 0.52);
  path.lineTo(side * 0.63, side * 0.52);
  path.lineTo(side * 0.63, side * 0.88);
  path.lineTo(side * 0.37, side * 0.88);
  path.lineTo(side * 0.37, side * 0.52);
  path.lineTo(side * 0.12, side * 0.52);
  path.closeSubpath();
  return path;
}

QPixmap Arrow(bool up, const QColor& color, int side, double resolution) {
  QPixmap picture(QSize(side, side) * resolution);
  picture.setDevicePixelRatio(resolution);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  if (!up) {
    painter.translate(side, side);
    painter.rotate(180);
  }
  painter.fillPath(UpArrow(side), color);
  return picture;
}

}  // namespace

QIcon ArrowIcon(ButtonImage image, const QWidget& widget) {
  if (image == ButtonImage::kNone) return {};
  const bool up = image == ButtonImage::kEnabledUp || image == ButtonImage::kDisabledUp;
  const bool enabled = image == ButtonImage::kEnabledUp || image == ButtonImage::kEnabledDown;
  const QColor color = widget.palette().color(enabled ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText);
  const QPixmap picture = Arrow(up, color, widget.fontMetrics().height(), widget.devicePixelRatioF());
  QIcon icon;
  for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Disabled}) icon.addPixmap(picture, mode);
  return icon;
}

}  // namespace zorkanca
