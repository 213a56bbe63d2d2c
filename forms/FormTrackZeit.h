#pragma once
// "Track anpassen": new times for the points of a track, from a speed or at
// a fixed interval. The form only gathers the choice; the editor's core
// computes the times.
#include <QDialog>

#include "editor/BulkTimes.h"

class QCheckBox;
class QLineEdit;
class QRadioButton;

namespace ortelix {

class FormTrackZeit : public QDialog {
    Q_OBJECT
public:
    explicit FormTrackZeit(QWidget* parent);
    TrackZeitWahl wahl() const;

private:
    QRadioButton* opt_[2] = {};
    QLineEdit* txtSpeed_ = nullptr;
    QLineEdit* txtTime_ = nullptr;
    QCheckBox* chk_ = nullptr;
};

}  // namespace ortelix
