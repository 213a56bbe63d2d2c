#pragma once
// The date choice of a log with several days: one check box per date.
// Command1 ticks all, Command2 clears all ticks; closing the form answers.
#include <QDialog>
#include <string>
#include <vector>

class QListWidget;

namespace ortelix {

class FormTrackAuswahl : public QDialog {
    Q_OBJECT
public:
    explicit FormTrackAuswahl(const std::vector<std::string>& dates, QWidget* parent = nullptr);

    std::vector<bool> ticked() const;
    void tickAll(bool on);

    // Shows the form modally and returns the ticked entries.
    static std::vector<bool> choose(const std::vector<std::string>& dates, QWidget* parent);

private:
    QListWidget* list_;
};

}  // namespace ortelix
