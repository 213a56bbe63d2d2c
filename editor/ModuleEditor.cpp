#include "editor/ModuleEditor.h"

#include <algorithm>
#include <unordered_map>

#include "core/ModulShared.h"
#include "core/Session.h"
#include "editor/ComputedCells.h"
#include "editor/EditorClipboard.h"
#include "editor/EditorFields.h"
#include "platform/Platform.h"

namespace ortelix {

struct ModuleEditor::State {
    EditorView view = EditorView::Track;
    int element = -1;
    int seite = 0;  // EditorSeite
    EditorWindow window;
    TrackTable track;
    RouteTable route;
    // Texts written into cells that have no store field (the computed
    // columns, the colour sample): the grid keeps them until the next fill.
    std::unordered_map<int64_t, std::string> written;
    EditorClipboard clipboard;

    static int64_t Key(int row, int col) { return static_cast<int64_t>(row) * 64 + col; }
};

namespace {

// The busy cursor while a fill walks the element.
class BusyCursor {
public:
    explicit BusyCursor(Platform& p) : p_(p) { p_.setBusy(true); }
    ~BusyCursor() { p_.setBusy(false); }
    BusyCursor(const BusyCursor&) = delete;
    BusyCursor& operator=(const BusyCursor&) = delete;

private:
    Platform& p_;
};

template <typename List>
bool Has(const List& list, int i) {
    return i >= 0 && static_cast<size_t>(i) < list.size();
}

}  // namespace

ModuleEditor::ModuleEditor(Session& session) : session_(session), st_(std::make_unique<State>()) {}
ModuleEditor::~ModuleEditor() = default;

// ---- Fills --------------------------------------------------------------

void ModuleEditor::FillTrackGrid(int track, int& seite) {
    BusyCursor busy(session_.platform);
    auto& tracks = session_.store.Tracks;
    State& s = *st_;
    s.view = EditorView::Track;
    s.element = track;
    s.written.clear();
    s.route = {};
    const int64_t n = Has(tracks, track) ? static_cast<int64_t>(tracks[static_cast<size_t>(track)].Points.size()) : 0;
    s.window = WindowFor(seite, n);
    s.seite = seite;
    s.track = Has(tracks, track) ? FillTrackTable(tracks[static_cast<size_t>(track)], s.window.erster, s.window.zeilen)
                                 : TrackTable{};
}

void ModuleEditor::FillRouteGrid(int route, int& seite) {
    BusyCursor busy(session_.platform);
    auto& routes = session_.store.Routes;
    State& s = *st_;
    s.view = EditorView::Route;
    s.element = route;
    s.written.clear();
    s.track = {};
    const int64_t n = Has(routes, route) ? static_cast<int64_t>(routes[static_cast<size_t>(route)].Points.size()) : 0;
    s.window = WindowFor(seite, n);
    s.seite = seite;
    s.route = Has(routes, route) ? FillRouteTable(routes[static_cast<size_t>(route)], s.window.erster, s.window.zeilen)
                                 : RouteTable{};
}

void ModuleEditor::FillWayPointGrid(int& seite) {
    State& s = *st_;
    s.view = EditorView::Waypoint;
    s.element = -1;
    s.written.clear();
    s.track = {};
    s.route = {};
    s.window = WindowFor(seite, static_cast<int64_t>(session_.store.WayPoints.size()));
    s.seite = seite;
}

void ModuleEditor::showTrack(int track) {
    int seite = 0;
    FillTrackGrid(track, seite);
}

void ModuleEditor::showRoute(int route) {
    int seite = 0;
    FillRouteGrid(route, seite);
}

void ModuleEditor::showWayPoints() {
    int seite = 0;
    FillWayPointGrid(seite);
}

void ModuleEditor::refill() {
    int seite = st_->seite;
    switch (st_->view) {
        case EditorView::Track: FillTrackGrid(st_->element, seite); break;
        case EditorView::Route: FillRouteGrid(st_->element, seite); break;
        case EditorView::Waypoint: FillWayPointGrid(seite); break;
    }
}

void ModuleEditor::nextWindow() {
    ++st_->seite;
    refill();
}

void ModuleEditor::previousWindow() {
    st_->seite = std::max(0, st_->seite - 1);
    refill();
}

EditorView ModuleEditor::view() const { return st_->view; }
int ModuleEditor::element() const { return st_->view == EditorView::Waypoint ? -1 : st_->element; }
int ModuleEditor::seite() const { return st_->seite; }
int64_t ModuleEditor::erster() const { return st_->window.erster; }

// ---- Cells ----------------------------------------------------------------

int ModuleEditor::rowCount() const { return st_->window.zeilen; }
int ModuleEditor::columnCount() const { return static_cast<int>(EditorColumns(st_->view).size()); }

std::string_view ModuleEditor::heading(int col) const {
    const auto cols = EditorColumns(st_->view);
    return col >= 0 && col < static_cast<int>(cols.size()) ? cols[static_cast<size_t>(col)].heading : std::string_view();
}

int ModuleEditor::widthTwips(int col) const {
    const auto cols = EditorColumns(st_->view);
    return col >= 0 && col < static_cast<int>(cols.size()) ? cols[static_cast<size_t>(col)].widthTwips : 0;
}

bool ModuleEditor::isEditable(int col) const {
    const auto cols = EditorColumns(st_->view);
    return col >= 0 && col < static_cast<int>(cols.size()) && cols[static_cast<size_t>(col)].editable;
}

bool ModuleEditor::isComputed(int col) const {
    const auto cols = EditorColumns(st_->view);
    return col >= 0 && col < static_cast<int>(cols.size()) && cols[static_cast<size_t>(col)].computed;
}

std::string ModuleEditor::cellText(int row, int col) const {
    const State& s = *st_;
    if (row == 0) return std::string(heading(col));
    if (row < 1 || row > s.window.zeilen || col < 0 || col >= columnCount()) return {};
    if (const auto it = s.written.find(State::Key(row, col)); it != s.written.end()) return it->second;
    const int64_t index = s.window.erster + row - 1;  // 0-based element
    if (col == 0) return std::to_string(index + 1);
    const DataStore& store = session_.store;
    // The store may have shrunk since the fill (a command that has not filled
    // again yet): those rows show nothing.
    switch (s.view) {
        case EditorView::Track: {
            if (col >= 10) return TrackComputedText(s.track, row, col);
            if (!Has(store.Tracks, s.element)) return {};
            const auto& pts = store.Tracks[static_cast<size_t>(s.element)].Points;
            return index < static_cast<int64_t>(pts.size()) ? TrackFieldText(pts[static_cast<size_t>(index)], col) : "";
        }
        case EditorView::Route: {
            if (col >= 10) return RouteComputedText(s.route, row, col);
            if (!Has(store.Routes, s.element)) return {};
            const auto& pts = store.Routes[static_cast<size_t>(s.element)].Points;
            return index < static_cast<int64_t>(pts.size()) ? GeoFieldText(pts[static_cast<size_t>(index)], col) : "";
        }
        case EditorView::Waypoint:
            if (col == 10) return "X";
            return index < static_cast<int64_t>(store.WayPoints.size())
                       ? GeoFieldText(store.WayPoints[static_cast<size_t>(index)], col)
                       : "";
    }
    return {};
}

bool ModuleEditor::hasColourSample(int row, int col) const {
    return st_->view == EditorView::Waypoint && col == 10 && row >= 1 && row <= st_->window.zeilen;
}

CellColours ModuleEditor::colourSample(int row) const {
    CellColours c;
    const int64_t index = st_->window.erster + row - 1;
    const auto& wps = session_.store.WayPoints;
    if (st_->view != EditorView::Waypoint || row < 1 || index >= static_cast<int64_t>(wps.size())) return c;
    const GeoPoint& p = wps[static_cast<size_t>(index)];
    c.fore = p.ForeColor.valueOr(0);
    c.back = p.BackColor.valueOr(65535);
    return c;
}

// ---- Editing --------------------------------------------------------------

std::string ModuleEditor::WriteGridCell(std::string_view text, int row, int col) {
    State& s = *st_;
    if (row < 1 || col < 1 || row > s.window.zeilen || col >= columnCount()) return {};
    const int64_t index = s.window.erster + row - 1;
    DataStore& store = session_.store;
    bool stored = false;
    switch (s.view) {
        case EditorView::Track:
            if (Has(store.Tracks, s.element)) {
                auto& pts = store.Tracks[static_cast<size_t>(s.element)].Points;
                if (index < static_cast<int64_t>(pts.size()))
                    stored = WriteTrackField(pts[static_cast<size_t>(index)], col, text);
            }
            break;
        case EditorView::Route:
            if (Has(store.Routes, s.element)) {
                auto& pts = store.Routes[static_cast<size_t>(s.element)].Points;
                if (index < static_cast<int64_t>(pts.size()))
                    stored = WriteGeoField(pts[static_cast<size_t>(index)], col, text);
            }
            break;
        case EditorView::Waypoint:
            if (index < static_cast<int64_t>(store.WayPoints.size()))
                stored = WriteGeoField(store.WayPoints[static_cast<size_t>(index)], col, text);
            break;
    }
    // A field column shows what the store took; any other cell keeps the text.
    if (stored) {
        s.written.erase(State::Key(row, col));
        return cellText(row, col);
    }
    if (!isEditable(col)) s.written[State::Key(row, col)] = std::string(text);
    return cellText(row, col);
}

void ModuleEditor::commitRange(std::string_view text, int row, int rowSel, int col) {
    const int from = std::max(1, std::min(row, rowSel));
    const int to = std::min(std::max(row, rowSel), st_->window.zeilen);
    for (int r = from; r <= to; ++r) WriteGridCell(text, r, col);
}

// ---- Clipboard --------------------------------------------------------------

namespace {
// The selection held to the grid, so that a runaway rectangle costs nothing.
GridRect Clamped(const GridRect& sel, int rows, int cols) {
    auto clamp = [](int v, int hi) { return std::clamp(v, 0, std::max(0, hi)); };
    return {clamp(sel.row1, rows), clamp(sel.col1, cols - 1), clamp(sel.row2, rows), clamp(sel.col2, cols - 1)};
}
}  // namespace

void ModuleEditor::kopieren(const GridRect& sel) {
    const GridRect g = Clamped(sel, rowCount(), columnCount());
    st_->clipboard.copy(g.row1, g.col1, g.row2, g.col2, [this](int r, int c) { return cellText(r, c); });
}

void ModuleEditor::ausschneiden(const GridRect& sel) {
    const GridRect g = Clamped(sel, rowCount(), columnCount());
    const EditorClipboard::WriteCell clear = [this](std::string_view t, int r, int c) { WriteGridCell(t, r, c); };
    st_->clipboard.copy(g.row1, g.col1, g.row2, g.col2, [this](int r, int c) { return cellText(r, c); }, &clear);
}

void ModuleEditor::loeschen(const GridRect& sel) {
    const GridRect g = Clamped(sel, rowCount(), columnCount());
    for (int r = std::min(g.row1, g.row2); r <= std::max(g.row1, g.row2); ++r)
        for (int c = std::min(g.col1, g.col2); c <= std::max(g.col1, g.col2); ++c) WriteGridCell("", r, c);
}

void ModuleEditor::einfuegen(int row, int col) {
    st_->clipboard.paste(row, col, [this](std::string_view t, int r, int c) { WriteGridCell(t, r, c); });
}

bool ModuleEditor::hasCopy() const { return !st_->clipboard.empty(); }
std::string ModuleEditor::copyText() const { return st_->clipboard.text(); }

// ---- Lists and names --------------------------------------------------------

EditorLists ModuleEditor::ListsRefresh() const { return ListsOf(session_.store); }

std::string ModuleEditor::trackName(int track) const {
    const auto& t = session_.store.Tracks;
    return Has(t, track) ? t[static_cast<size_t>(track)].Name : std::string();
}

void ModuleEditor::setTrackName(int track, std::string_view name) {
    auto& t = session_.store.Tracks;
    if (Has(t, track)) t[static_cast<size_t>(track)].Name = std::string(name);
}

std::string ModuleEditor::routeName(int route) const {
    const auto& r = session_.store.Routes;
    return Has(r, route) ? r[static_cast<size_t>(route)].Name : std::string();
}

void ModuleEditor::setRouteName(int route, std::string_view name) {
    auto& r = session_.store.Routes;
    if (Has(r, route)) r[static_cast<size_t>(route)].Name = std::string(name);
}

// ---- Statistics -------------------------------------------------------------

const TrackSum& ModuleEditor::trackSum() const { return st_->track.sum; }

TrackTotals ModuleEditor::trackTotals() const {
    const TrackTable& t = st_->track;
    TrackTotals out;
    if (st_->view != EditorView::Track || !Has(session_.store.Tracks, st_->element)) return out;
    out.points = static_cast<int64_t>(session_.store.Tracks[static_cast<size_t>(st_->element)].Points.size());
    out.lengthKm = t.last.km;
    out.durationSeconds = t.last.duration;
    out.pauseSeconds = t.sum.PauseSum;
    out.minAlt = t.sum.MinAlt;
    out.maxAlt = t.sum.MaxAlt;
    out.averageKmh = t.last.average;
    out.averageMovingKmh = t.last.averageMoving;
    return out;
}

}  // namespace ortelix
