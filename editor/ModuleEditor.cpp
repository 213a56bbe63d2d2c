#include "editor/ModuleEditor.h"

#include "core/Session.h"

namespace ortelix {

// First version: the interface only; the bodies follow.
struct ModuleEditor::State {
    EditorView view = EditorView::Track;
    int element = -1;
    int seite = 0;
    TrackTable track;
};

ModuleEditor::ModuleEditor(Session& session) : session_(session), st_(std::make_unique<State>()) {}
ModuleEditor::~ModuleEditor() = default;

void ModuleEditor::FillTrackGrid(int, int&) {}
void ModuleEditor::FillRouteGrid(int, int&) {}
void ModuleEditor::FillWayPointGrid(int&) {}
void ModuleEditor::showTrack(int) {}
void ModuleEditor::showRoute(int) {}
void ModuleEditor::showWayPoints() {}
void ModuleEditor::nextWindow() {}
void ModuleEditor::previousWindow() {}
void ModuleEditor::refill() {}
EditorView ModuleEditor::view() const { return st_->view; }
int ModuleEditor::element() const { return st_->element; }
int ModuleEditor::seite() const { return st_->seite; }
int64_t ModuleEditor::erster() const { return 0; }
int ModuleEditor::rowCount() const { return 0; }
int ModuleEditor::columnCount() const { return static_cast<int>(EditorColumns(st_->view).size()); }
std::string_view ModuleEditor::heading(int) const { return {}; }
int ModuleEditor::widthTwips(int) const { return 0; }
bool ModuleEditor::isEditable(int) const { return false; }
bool ModuleEditor::isComputed(int) const { return false; }
std::string ModuleEditor::cellText(int, int) const { return {}; }
bool ModuleEditor::hasColourSample(int, int) const { return false; }
CellColours ModuleEditor::colourSample(int) const { return {}; }
std::string ModuleEditor::WriteGridCell(std::string_view, int, int) { return {}; }
void ModuleEditor::commitRange(std::string_view, int, int, int) {}
void ModuleEditor::kopieren(const GridRect&) {}
void ModuleEditor::ausschneiden(const GridRect&) {}
void ModuleEditor::loeschen(const GridRect&) {}
void ModuleEditor::einfuegen(int, int) {}
bool ModuleEditor::hasCopy() const { return false; }
std::string ModuleEditor::copyText() const { return {}; }
EditorLists ModuleEditor::ListsRefresh() const { return {}; }
std::string ModuleEditor::trackName(int) const { return {}; }
void ModuleEditor::setTrackName(int, std::string_view) {}
std::string ModuleEditor::routeName(int) const { return {}; }
void ModuleEditor::setRouteName(int, std::string_view) {}
const TrackSum& ModuleEditor::trackSum() const { return st_->track.sum; }
TrackTotals ModuleEditor::trackTotals() const { return {}; }

}  // namespace ortelix
