#pragma once
// The panel of "Farbe Waypoints ändern": a text colour and a background
// colour (WpFore, WpBack) with their swatches, chosen with the system's
// colour dialog, and the buttons that apply them or hide the panel.
#include <QFrame>
#include <cstdint>
#include <functional>

class QLabel;
class QPushButton;

namespace ortelix {

class FrameWPColor : public QFrame {
    Q_OBJECT
public:
    // apply gets the two colours as the store keeps them (0x00BBGGRR).
    FrameWPColor(QWidget* parent, std::function<void(int32_t fore, int32_t back)> apply);

    int32_t wpFore() const { return fore_; }
    int32_t wpBack() const { return back_; }
    void setColours(int32_t fore, int32_t back);

private:
    void showSwatches();
    void choose(int index);

    std::function<void(int32_t, int32_t)> apply_;
    int32_t fore_ = 0;          // black
    int32_t back_ = 0xFFFFFF;   // white
    QLabel* shape_[2] = {};
};

}  // namespace ortelix
