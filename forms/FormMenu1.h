#pragma once
// The small tool bar beside the main form: it stands at the main form's
// height, just right of it, and follows it when the main form moves.
#include <QWidget>

namespace ortelix {

class FormMenu1 : public QWidget {
    Q_OBJECT
public:
    explicit FormMenu1(QWidget* owner);
    // Places the bar beside the owner.
    void follow();

signals:
    // A button asks for the command of the same name.
    void command(const QString& control);

private:
    QWidget* owner_;
};

}  // namespace ortelix
