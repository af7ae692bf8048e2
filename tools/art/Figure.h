#pragma once

#include <QImage>

#include "Ball.h"
#include "Pose.h"

namespace tarvo::art {

/// A frame of the assistant, 64 pixels square times `density`, on transparent ground.
QImage AssistantFrame(const Pose& pose, int density);

/// The parts, each drawn over those before it. They are drawn in pixels of the plain frame.
void DrawSteam(QPainter& painter, const Ball& ball, const Pose& pose);
void DrawFarParts(QPainter& painter, const Ball& ball, const Pose& pose);
void DrawBody(QPainter& painter, const Ball& ball, const Pose& pose);
void DrawFace(QPainter& painter, const Ball& ball, const Pose& pose);
void DrawNearParts(QPainter& painter, const Ball& ball, const Pose& pose);
void DrawSweat(QPainter& painter, const Ball& ball, const Pose& pose);

}  // namespace tarvo::art
