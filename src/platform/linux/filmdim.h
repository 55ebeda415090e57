#pragma once

struct libvlc_media_player_t;

namespace zvr {

struct EngineLibrary;

/// Darkens what the player shows, now and in all that it has still to show: 0 not at all, 0.5 to half. Waits for
/// nothing; not from within one of the engine's events.
void DimFilm(const EngineLibrary& vlc, libvlc_media_player_t* player, double share);

}  // namespace zvr
