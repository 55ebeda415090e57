#pragma once

#include "platform/mediacontrol.h"
#include "platform/mixer.h"

#include <string>

namespace zvr::contract {

/// What the sound tests need of a backend beside its services; one implementation each.

/// Fails the test, and says how to run it, where there is no sound to test with.
void RequireSound();

/// Address of a test medium of that name; a player made by the test knows it from here on.
[[nodiscard]] std::string Medium(MediaControl& media, const std::string& name);

/// Where the backend has no media, the address lasts that long.
void TellLength(MediaControl& media, const std::string& address, double seconds);

/// A mixer whose lines are: a master that also serves the wave output, and no CD.
void PrepareMixer(Mixer& mixer);
/// Another program sets both channels of the wave output.
void ChangeFromOutside(Mixer& mixer, int percent);

}  // namespace zvr::contract
