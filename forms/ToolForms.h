#pragma once
// The tool forms that commands of the kind Tool open (Kartenexport, NMEA
// Simulator, Editor, TomTom Bitmap). A form's issue adds its row.
#include <vector>

class QWidget;

namespace ortelix {

class Session;

using ToolFormFactory = QWidget* (*)(Session& session, QWidget* owner);

struct ToolForm {
    const char* control;  // MenToolsMapExp
    ToolFormFactory make;
};

const std::vector<ToolForm>& ToolForms();
ToolFormFactory ToolFormOf(const char* control);

}  // namespace ortelix
