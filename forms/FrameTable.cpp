#include "forms/FrameTable.h"

#include <cstring>

#include "forms/FramesTop50.h"
#include "forms/FrameTrackFilter.h"
#include "forms/FrameWayPointFilter.h"
#include "forms/SettingsFrames.h"

namespace ortelix {

const std::vector<FramePage>& FramePages() {
    static const std::vector<FramePage> pages = {
        {kFrameInfo, "MenSetUpInfo", "Information", nullptr},  // made by FormMain itself
        {kFrameDatum, "MenEinHelmert", "Datumstransformation", MakeFrameDatum},
        {kFrameTop50Karte, "MenSetUpTop50Karte", "Top50 Karte", MakeFrameTop50Karte},
        {kFrameTop50Track, "MenSetUpTop50Track", "Top50 Track", MakeFrameTop50Track},
        {kFrameTop50Route, "MenSetUpTop50Route", "Top50 Route", MakeFrameTop50Route},
        {kFrameTop50WayPoint, "MenSetUpTop50WayPoint", "Top50 Waypoint", MakeFrameTop50WayPoint},
        {kFrameTop50Texte, "MenSetUpTop50Texte", "Top50 Texte", MakeFrameTop50Texte},
        {kFrameTop50Import, "MenSetUpTop50Import", "Top50 Import", MakeFrameTop50Import},
        {kFrameSwissMap, "MenSetUpSwissMap", "Swiss Map 50", MakeFrameSwissMap},
        {kFrameTk25Track, "MenSetUpTk25Track", "TK25 Hessen Track", MakeFrameTk25Track},
        {kFrameTk25Route, "MenSetUpTk25Route", "TK25 Hessen Route", MakeFrameTk25Route},
        {kFrameTk25WayPoint, "MenSetUpTk25WayPoint", "TK25 Hessen Waypoint", MakeFrameTk25WayPoint},
        {kFrameGoogle, "MenSetUpGoogle", "Google Earth", MakeFrameGoogle},
        {kFrameTrackFilter, "MenSetUpTrackFilter", "Track Filter", MakeFrameTrackFilter},
        {kFrameWayPointFilter, "MenSetUpWayPointFilter", "Waypoint Filter", MakeFrameWayPointFilter},
        {kFrameASCII, "MenSetUpASCII", "Text Datei", MakeFrameASCII},
    };
    return pages;
}

const FramePage* FrameOfCommand(const char* control) {
    for (const FramePage& p : FramePages())
        if (std::strcmp(p.control, control) == 0) return &p;
    return nullptr;
}

}  // namespace ortelix
