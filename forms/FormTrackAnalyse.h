#pragma once
// The height profile of a track: the profile of TrackProfil scaled to the
// window and drawn again, from the same data, whenever the window changes
// its size. Beside it the altitude axis and the track's totals.
#include <QWidget>

#include "editor/ModuleEditor.h"
#include "editor/TrackProfil.h"

class QLabel;

namespace ortelix {

class FormTrackAnalyse : public QWidget {
    Q_OBJECT
public:
    explicit FormTrackAnalyse(QWidget* owner);

    // The profile and totals of one track; its name goes into the caption.
    void display(ProfilDrawing drawing, const TrackTotals& totals, const QString& trackName = {});
    const ProfilDrawing& drawing() const { return drawing_; }
    // How often the profile was drawn, and where its surface lay the last time.
    int paints() const { return paints_; }
    QRect surface() const { return surface_; }
    QWidget* canvas() const { return canvas_; }

private:
    friend class ProfilCanvas;
    void paintProfil(QWidget& on);

    ProfilDrawing drawing_;
    QWidget* canvas_;
    QLabel* totals_;
    int paints_ = 0;
    QRect surface_;
};

}  // namespace ortelix
