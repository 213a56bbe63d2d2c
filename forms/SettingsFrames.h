#pragma once
// The factories of the settings frames whose options the main form holds.
class QWidget;

namespace ortelix {

class Session;

QWidget* MakeFrameDatum(Session& s, QWidget* parent);
QWidget* MakeFrameSwissMap(Session& s, QWidget* parent);
QWidget* MakeFrameTk25Track(Session& s, QWidget* parent);
QWidget* MakeFrameTk25Route(Session& s, QWidget* parent);
QWidget* MakeFrameTk25WayPoint(Session& s, QWidget* parent);
QWidget* MakeFrameGoogle(Session& s, QWidget* parent);
QWidget* MakeFrameASCII(Session& s, QWidget* parent);

}  // namespace ortelix
