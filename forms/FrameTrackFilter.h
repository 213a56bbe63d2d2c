#pragma once
// The "Track Filter" settings frame of the main form: every option of the
// track filter, bound to the options table.
class QWidget;

namespace ortelix {

class Session;

QWidget* MakeFrameTrackFilter(Session& s, QWidget* parent);

}  // namespace ortelix
