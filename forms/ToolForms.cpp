#include "forms/ToolForms.h"

#include <cstring>

#include "forms/FormEditor.h"
#include "forms/FormMapExp.h"
#include "forms/FormNMEASim.h"

namespace ortelix {

const std::vector<ToolForm>& ToolForms() {
    static const std::vector<ToolForm> forms = {
        {"MenToolsMapExp", &FormMapExp::open},
        {"MenToolsNMEASim", &FormNMEASim::open},
        {"MenToolsTTBitmap", nullptr},
        {"MenEinEditor", &FormEditor::open},
    };
    return forms;
}

ToolFormFactory ToolFormOf(const char* control) {
    for (const ToolForm& f : ToolForms())
        if (std::strcmp(f.control, control) == 0) return f.make;
    return nullptr;
}

}  // namespace ortelix
