#pragma once

namespace zvr {

class Program;

/// What the samples show besides a quiet journey.
struct SampleState {
    bool pressed = false;  ///< each key as under a finger
    bool playing = false;
    bool muted = false;
    bool longest = false;  ///< names and messages that are longer than their room
};

/// Fills all forms with what they might show: labels, lists, boxes, sliders. For pictures of a skin.
void FillWithSamples(Program& program, const SampleState& state);

}  // namespace zvr
