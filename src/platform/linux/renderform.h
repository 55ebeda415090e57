#pragma once

#include "ui/form.h"

#include <string>

namespace zvr {

/// Paints a form as the screen would, lists and text boxes included, into a PNG file. False if it can't be written.
[[nodiscard]] bool RenderForm(const Form& form, const std::string& file);

}  // namespace zvr
