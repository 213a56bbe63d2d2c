#pragma once
// The editor's table model: which source the grid shows (one track, one
// route or all waypoints), the window of at most 15,000 rows over it, the
// text of every cell, the write-back of edited cells into the store, the
// editor's own clipboard, and the list boxes. Qt-free: a table view asks for
// one cell at a time; nothing is copied into a grid of strings.
//
// Coordinates are those of the editor grid. Row 0 is the heading row, rows
// 1..rowCount() hold the elements erster+1 .. erster+rowCount(). Column 0 is
// the fixed index column, columns 1..columnCount()-1 the fields. Tracks and
// routes are named by their 0-based position in the store's lists; the list
// boxes show them as "1".."n".
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "editor/EditorColumns.h"
#include "editor/EditorLists.h"
#include "editor/EditorWindow.h"
#include "editor/TrackWalk.h"

namespace ortelix {

class Session;

// A rectangle of grid cells (Row, Col, RowSel, ColSel); its corners may be
// given in any order.
struct GridRect {
    int row1 = 0, col1 = 0, row2 = 0, col2 = 0;
};

// Colours as the store keeps them: 0x00BBGGRR.
struct CellColours {
    int32_t fore = 0;
    int32_t back = 65535;
};

// The totals of the last track fill, for the analysis window.
struct TrackTotals {
    int64_t points = 0;
    double lengthKm = 0;
    int64_t durationSeconds = 0;
    int64_t pauseSeconds = 0;
    int32_t minAlt = 0, maxAlt = 0;  // 0 when no point had an altitude other than 0
    double averageKmh = 0;
    double averageMovingKmh = 0;
};

class ModuleEditor {
public:
    explicit ModuleEditor(Session& session);
    ~ModuleEditor();
    ModuleEditor(const ModuleEditor&) = delete;
    ModuleEditor& operator=(const ModuleEditor&) = delete;

    // --- Fills. seite is corrected in place and becomes EditorSeite. A track
    // or route that does not exist shows an empty grid.
    void FillTrackGrid(int track, int& seite);
    void FillRouteGrid(int route, int& seite);
    void FillWayPointGrid(int& seite);
    // The choice of source, a click in a list: the grid from window 0.
    void showTrack(int track);
    void showRoute(int route);
    void showWayPoints();
    // CommandWPShift: the next or previous 15,000 elements of the shown source.
    void nextWindow();
    void previousWindow();
    // The shown source again, same window (after a command changed the store).
    void refill();

    EditorView view() const;
    int element() const;  // the shown track or route, -1 for waypoints or none
    int seite() const;    // EditorSeite
    int64_t erster() const;

    // --- Cells.
    int rowCount() const;     // rows below the heading row
    int columnCount() const;  // with column 0
    std::string_view heading(int col) const;
    int widthTwips(int col) const;
    bool isEditable(int col) const;
    bool isComputed(int col) const;
    // The text of a grid cell; row 0 gives the heading; "" outside the grid.
    std::string cellText(int row, int col) const;
    // The colour sample of the waypoint view (column 10, the letter "X").
    bool hasColourSample(int row, int col) const;
    CellColours colourSample(int row) const;

    // --- Editing. WriteGridCell stores the text into the element of that row
    // after the column's check, and returns what the cell shows now (the
    // stored value, not what was typed). Outside the grid nothing happens and
    // "" comes back.
    std::string WriteGridCell(std::string_view text, int row, int col);
    // Return in the cell editor: the same text into column col of every row
    // from the lower to the higher of row and rowSel.
    void commitRange(std::string_view text, int row, int rowSel, int col);

    // --- The editor's own clipboard (not the system's).
    void kopieren(const GridRect& sel);
    void ausschneiden(const GridRect& sel);
    void loeschen(const GridRect& sel);
    // The copied block from the current cell on, keeping its shape; cells
    // beyond the grid are dropped.
    void einfuegen(int row, int col);
    bool hasCopy() const;
    std::string copyText() const;  // ":" before each cell, "\r\n" behind each row

    // --- Lists and name boxes.
    EditorLists ListsRefresh() const;
    std::string trackName(int track) const;
    void setTrackName(int track, std::string_view name);
    std::string routeName(int route) const;
    void setRouteName(int route, std::string_view name);

    // --- Statistics of the last track fill.
    const TrackSum& trackSum() const;
    TrackTotals trackTotals() const;

private:
    struct State;
    Session& session_;
    std::unique_ptr<State> st_;
};

}  // namespace ortelix
