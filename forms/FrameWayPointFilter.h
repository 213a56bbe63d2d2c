#pragma once
// The "Waypoint Filter" settings frame of the main form: the filter entry,
// the radius and the corners and centre as degrees and decimal minutes.
class QWidget;

namespace ortelix {

class Session;

QWidget* MakeFrameWayPointFilter(Session& s, QWidget* parent);

}  // namespace ortelix
