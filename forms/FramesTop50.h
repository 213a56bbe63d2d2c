#pragma once
// The settings frames of the Top50 overlay: the map, tracks and areas,
// routes, waypoints, texts, and the import of overlays.
class QWidget;

namespace ortelix {

class Session;

QWidget* MakeFrameTop50Karte(Session& s, QWidget* parent);
QWidget* MakeFrameTop50Track(Session& s, QWidget* parent);
QWidget* MakeFrameTop50Route(Session& s, QWidget* parent);
QWidget* MakeFrameTop50WayPoint(Session& s, QWidget* parent);
QWidget* MakeFrameTop50Texte(Session& s, QWidget* parent);
QWidget* MakeFrameTop50Import(Session& s, QWidget* parent);

}  // namespace ortelix
