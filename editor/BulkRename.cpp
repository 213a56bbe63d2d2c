#include "editor/BulkRename.h"

#include "core/Charset.h"
#include "core/ModulShared.h"
#include "platform/Platform.h"

namespace ortelix {

namespace {

// Only the route and waypoint views carry names.
bool Named(Session& s, const ModuleEditor& ed) {
    return ed.view() == EditorView::Waypoint || (ed.view() == EditorView::Route && ShownRoute(s, ed));
}

template <typename F>
bool EachNamed(Session& s, ModuleEditor& ed, F&& f) {
    if (!Named(s, ed)) return false;
    auto& points = ed.view() == EditorView::Route ? ShownRoute(s, ed)->Points : s.store.WayPoints;
    for (GeoPoint& p : points) {
        f(p);
        s.progress();
    }
    ed.refill();
    return true;
}

template <typename F>
bool EachNamedAsked(Session& s, ModuleEditor& ed, const char* question, F&& f) {
    if (!Named(s, ed) || !AskYes(s, question, EditorTitle(ed.view()))) return false;
    return EachNamed(s, ed, f);
}

}  // namespace

bool NameBeschreibungTauschen(Session& s, ModuleEditor& ed) {
    return EachNamed(s, ed, [](GeoPoint& p) { std::swap(p.Name, p.Desc); });
}

bool BeschreibungWirdName(Session& s, ModuleEditor& ed) {
    return EachNamedAsked(s, ed, "Sollen wirklich alle Beschreibungen überschrieben werden?",
                          [](GeoPoint& p) { p.Desc = p.Name; });
}

bool NameWirdBeschreibung(Session& s, ModuleEditor& ed) {
    return EachNamedAsked(s, ed, "Sollen wirklich alle Namen überschrieben werden?",
                          [](GeoPoint& p) { p.Name = p.Desc; });
}

bool LfdNummerAlsName(Session& s, ModuleEditor& ed) {
    int64_t i = 0;
    // The formats are minimum widths: the 1500th waypoint is WP1500.
    const std::string prefix =
        ed.view() == EditorView::Route ? "R" + FormatPoint(ed.element() + 1, "00") + "P" : std::string("WP");
    return EachNamedAsked(s, ed, "Sollen wirklich alle Namen überschrieben werden?", [&](GeoPoint& p) {
        p.Name = prefix + FormatPoint(static_cast<double>(++i), "000");
    });
}

bool NamenKuerzen(Session& s, ModuleEditor& ed) {
    if (!Named(s, ed)) return false;
    const OptDouble len = AskNumber(s, "Alle Namen werden auf diese maximale Zeichenlänge gekürzt.", "Namen kürzen", "6");
    if (!len || *len < 1) return false;
    const size_t n = static_cast<size_t>(*len);
    return EachNamedAsked(s, ed, "Sollen wirklich alle Namen gekürzt werden?",
                          [n](GeoPoint& p) { p.Name = std::string(Utf8Left(p.Name, n)); });
}

bool UmlauteErsetzen(Session& s, ModuleEditor& ed) {
    return EachNamed(s, ed, [](GeoPoint& p) {
        p.Name = ReplaceUmlauts(p.Name);
        p.Desc = ReplaceUmlauts(p.Desc);
    });
}

bool Utf8ZuAscii(Session& s, ModuleEditor& ed) {
    return EachNamed(s, ed, [](GeoPoint& p) {
        p.Name = FromUtf8(p.Name);
        p.Desc = FromUtf8(p.Desc);
    });
}

bool AsciiZuUtf8(Session& s, ModuleEditor& ed) {
    return EachNamed(s, ed, [](GeoPoint& p) {
        p.Name = ToUtf8(p.Name);
        p.Desc = ToUtf8(p.Desc);
    });
}

bool TracknameAusDatum(Session& s, ModuleEditor& ed) {
    const char* title = "Neue Tracknamen";
    if (!AskYes(s, "Sollen wirklich alle Tracknamen überschreiben werden?", title)) return false;
    const auto text = s.platform.inputBox(
        "Als Trackname wird eine beliebige Zeichenfolge und das Track-Datum eingetragen.\n\nGeben Sie die "
        "Zeichenfolge ein.",
        "Alle Tracknamen werden neu erzeugt", "");
    if (!text) return false;
    for (Track& t : s.store.Tracks) {
        if (t.Points.empty() || t.Points.front().Date_.empty()) continue;  // no date to name it by
        t.Name = *text + "_" + IsoDate(*t.Points.front().Date_);
        s.progress();
    }
    ed.refill();
    return true;
}

}  // namespace ortelix
