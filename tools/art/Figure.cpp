#include "Figure.h"

#include <QPainter>

#include "Canvas.h"

namespace tarvo::art {

QImage AssistantFrame(const Pose& pose, int density) {
  constexpr int kSize = 64;
  return Drawn(kSize * density, kSize * density, [&](QPainter& painter) {
    painter.scale(density, density);
    painter.setPen(Qt::NoPen);
    const Ball ball(pose);
    DrawSteam(painter, ball, pose);
    DrawFarParts(painter, ball, pose);
    DrawBody(painter, ball, pose);
    DrawFace(painter, ball, pose);
    DrawNearParts(painter, ball, pose);
    DrawSweat(painter, ball, pose);
  });
}

}  // namespace tarvo::art
