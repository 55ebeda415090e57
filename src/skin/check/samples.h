#pragma once

namespace zvr {

class Program;

/// Fills all forms with what they might show on a journey: labels, lists, boxes, sliders. For pictures of a skin.
void FillWithSamples(Program& program);

}  // namespace zvr
