#pragma once
// The information frame ("Information"): the counters of the store and the
// notices of the active filters, refreshed by the main form's Timer1.
#include <QGroupBox>
#include <array>

class QLabel;

namespace ortelix {

struct InfoFrame;

class FrameInfo : public QGroupBox {
    Q_OBJECT
public:
    explicit FrameInfo(QWidget* parent = nullptr);
    void display(const InfoFrame& values);
    const QLabel* labelInfo(int index) const { return LabelInfo[static_cast<size_t>(index)]; }

private:
    std::array<QLabel*, 14> LabelInfo{};
};

}  // namespace ortelix
