#pragma once

#include "ui/form.h"

#include <string>

namespace zvr {

/// Paints a form as the screen would, lists and text boxes included, into a PNG file. With `outlines` each key has its
/// edge and its command over it, each list, box and area its name. False if it can't be written.
[[nodiscard]] bool RenderForm(const Form& form, const std::string& file, bool outlines = false);

/// Paints a plain key of that size with a caption, to begin a skin from. False if it can't be written.
[[nodiscard]] bool RenderKey(const std::string& caption, Size size, bool pressed, const std::string& file);

}  // namespace zvr
