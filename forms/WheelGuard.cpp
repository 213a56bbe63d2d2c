#include "forms/WheelGuard.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QScrollArea>

namespace ortelix {

namespace {
class WheelGuardFilter : public QObject {
public:
    explicit WheelGuardFilter(QAbstractScrollArea* area) : QObject(area), area_(area) {}

    void guard(QWidget* field) {
        field->setFocusPolicy(Qt::StrongFocus);
        field->installEventFilter(this);
        // A list box gets its wheel events on its viewport.
        if (auto* view = qobject_cast<QAbstractItemView*>(field)) view->viewport()->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* e) override {
        if (e->type() != QEvent::Wheel) return false;
        auto* w = static_cast<QWidget*>(watched);
        QWidget* field = qobject_cast<QAbstractItemView*>(w->parentWidget()) ? w->parentWidget() : w;
        if (field->hasFocus()) return false;
        QCoreApplication::sendEvent(area_->viewport(), e);
        return true;
    }

private:
    QAbstractScrollArea* area_;
};

// The popup list of a drop-down list belongs to its list, not to the frame.
bool InsideDropDown(QWidget* w, QWidget* top) {
    for (QObject* p = w->parent(); p && p != top; p = p->parent())
        if (qobject_cast<QComboBox*>(p)) return true;
    return false;
}
}  // namespace

void GuardWheel(QAbstractScrollArea* area) {
    auto* filter = new WheelGuardFilter(area);
    QWidget* inside = area->viewport();
    if (auto* scroll = qobject_cast<QScrollArea*>(area); scroll && scroll->widget()) inside = scroll->widget();
    for (auto* w : inside->findChildren<QComboBox*>()) filter->guard(w);
    for (auto* w : inside->findChildren<QAbstractSpinBox*>()) filter->guard(w);
    for (auto* w : inside->findChildren<QAbstractItemView*>())
        if (!InsideDropDown(w, inside)) filter->guard(w);
}

}  // namespace ortelix
