#pragma once
// The settings frames of the main form, by the index that ShowFrame takes.
// A frame is a widget made by its factory; one row of FramePages() registers
// it. A frame with a public slot "refresh()" is told when the options were
// loaded or reset.
#include <vector>

class QWidget;

namespace ortelix {

class Session;

enum FrameIndex {
    kFrameInfo = 0,
    kFrameDatum = 1,
    kFrameTop50Karte = 2,
    kFrameTop50Track = 3,
    kFrameTop50Route = 4,
    kFrameTop50WayPoint = 5,
    kFrameTop50Texte = 6,
    kFrameTop50Import = 7,
    kFrameSwissMap = 8,
    kFrameTk25Track = 9,
    kFrameTk25Route = 10,
    kFrameTk25WayPoint = 11,
    kFrameGoogle = 12,
    kFrameTrackFilter = 13,
    kFrameWayPointFilter = 14,
    kFrameASCII = 15,
    kFrameCount
};

using FrameFactory = QWidget* (*)(Session& session, QWidget* parent);

struct FramePage {
    int index;
    const char* control;  // the command of "Einstellungen" that shows it
    const char* caption;
    FrameFactory make;    // nullptr: a placeholder page until the frame exists
};

const std::vector<FramePage>& FramePages();
const FramePage* FrameOfCommand(const char* control);

}  // namespace ortelix
