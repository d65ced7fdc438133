#pragma once
#include <QPixmap>
#include <QSize>
#include <QString>
#include <optional>

// The pictures the program ships are drawn at twice their size in points, so that they are as sharp
// as the text beside them on a Retina screen. Each is handed out as the screen wants it.
namespace Sharp {

// The screens' device pixel ratio, the highest of them (tests may set it).
qreal ratio();
void setRatioForTesting(std::optional<qreal> ratio);

// `source` drawn `points` large: at device pixel ratio 2 where the ratio is above 1, else halved
// smoothly to ratio 1. A source of another size is scaled smoothly first.
QPixmap pixmap(const QString& source, QSize points);

} // namespace Sharp
