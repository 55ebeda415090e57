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
    const TextBox& box = *txtSearchTerm->text;
    const auto start = static_cast<std::size_t>(box.selectionStart);
    const std::size_t end = start + static_cast<std::size_t>(box.selectionLength);
    std::string typed(text::Mid(box.text, 0, start));
    typed += character;
    typed += text::Mid(box.text, end);
    txtSearchTerm->SetText(typed, box.selectionStart + 1);
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
