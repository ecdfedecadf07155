#pragma once

#include <QRect>

class QWidget;

/// Fixed frames in languages that are written from right to left.
namespace orvana
{

/// Returns a frame of a child of `parent`, given for left to right, in the direction of `parent`.
QRect mirrored(const QRect &frame, const QWidget &parent);

/// Moves all children of a widget that stand at fixed frames, given for left to right, to where they are in
/// the direction of the widget. To be called once, after the frames were set.
void mirrorChildren(QWidget &parent);

} // namespace orvana
