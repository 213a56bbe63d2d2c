#pragma once
// The small tool bar beside the main form: it stands at the main form's
// height, just right of it, and follows it when the main form moves or
// changes its size. Its buttons run the commands of the same name; one whose
// command is not built yet is disabled and says so in its tooltip.
#include <QWidget>

namespace ortelix {

class FormMenu1 : public QWidget {
    Q_OBJECT
public:
    explicit FormMenu1(QWidget* owner);
    // Places the bar beside the owner.
    void follow();
    // The space between the owner's right edge and the bar, in pixels.
    static constexpr int kGap = 4;  // 55 twips of the original layout

signals:
    // A button asks for the command of the same name.
    void command(const QString& control);

private:
    QWidget* owner_;
};

}  // namespace ortelix
