#include "media/mediasearch.h"

#include "core/moduleform.h"
#include "core/program.h"
#include "platform/text.h"

namespace zvr {

MediaSearch::MediaSearch(Program& program) : program(program) {}

void MediaSearch::Load() {
    LoadModuleForm(program, form);
    resultlist = &form.Add(ControlKind::grid, "resultlist");
    txtSearchTerm = &form.Add(ControlKind::textBox, "txtSearchTerm");
    form.focus = txtSearchTerm;
}

void MediaSearch::TypeCharacter(std::string_view character) {
    txtSearchTerm->TypeText(character);
    if (txtSearchTerm->events.onChange) {
        txtSearchTerm->events.onChange();
    }
    form.focus = txtSearchTerm;
}

void MediaSearch::ClearSearchTerm() {
    txtSearchTerm->SetText("");
    if (txtSearchTerm->events.onChange) {
        txtSearchTerm->events.onChange();
    }
    form.focus = txtSearchTerm;
}

}  // namespace zvr
