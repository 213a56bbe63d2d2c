#pragma once
// Turning the mouse wheel over a settings frame scrolls the frame. A list or
// number field (drop-down list, list box, spin box) takes the wheel only while
// it has the keyboard focus, so that scrolling past it never changes an option
// the user does not look at.
class QAbstractScrollArea;

namespace ortelix {

// Guards every list and number field inside the area as it stands now: they
// take the focus by click or tab only, and their wheel events go to the area
// while they do not have it.
void GuardWheel(QAbstractScrollArea* area);

}  // namespace ortelix
