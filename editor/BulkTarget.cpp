#include "editor/BulkTarget.h"

#include "core/ModulShared.h"
#include "platform/Platform.h"

namespace ortelix {

std::string EditorTitle(EditorView view) {
    switch (view) {
        case EditorView::Track: return "Editor Track";
        case EditorView::Route: return "Editor Route";
        case EditorView::Waypoint: return "Editor Waypoint";
    }
    return "Editor";
}

Track* ShownTrack(Session& s, const ModuleEditor& ed) {
    const int e = ed.element();
    if (ed.view() != EditorView::Track || e < 0 || static_cast<size_t>(e) >= s.store.Tracks.size()) return nullptr;
    return &s.store.Tracks[static_cast<size_t>(e)];
}

Route* ShownRoute(Session& s, const ModuleEditor& ed) {
    const int e = ed.element();
    if (ed.view() != EditorView::Route || e < 0 || static_cast<size_t>(e) >= s.store.Routes.size()) return nullptr;
    return &s.store.Routes[static_cast<size_t>(e)];
}

bool AskYes(Session& s, const std::string& text, const std::string& title) {
    return s.platform.messageBox(text, title, Buttons::YesNo, Icon::Question) == Answer::Yes;
}

OptDouble AskNumber(Session& s, const std::string& prompt, const std::string& title, const std::string& proposal) {
    const auto answer = s.platform.inputBox(prompt, title, proposal);
    if (!answer) return {};
    const std::string_view text = Trim(*answer);
    if (text.empty()) return {};
    std::string point(text);
    std::replace(point.begin(), point.end(), ',', '.');
    return LeadingNumber(point);
}

std::string TrackPointName(size_t t, size_t i) { return "T" + std::to_string(t + 1) + "P" + std::to_string(i + 1); }

}  // namespace ortelix
