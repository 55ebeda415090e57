#pragma once

#include "platform/eventloop.h"
#include "platform/files.h"
#include "ui/geometry.h"

#include <functional>
#include <memory>
#include <string>

namespace zvr {

enum class DvdState { uninitialised = -1, stopped = 0, paused = 1, running = 2 };

/// Plays a film disc with its menus. Never waits for the engine; what it can't do is ignored.
class DvdControl {
public:
    explicit DvdControl(EventLoop& loop);
    ~DvdControl();
    DvdControl(const DvdControl&) = delete;
    DvdControl& operator=(const DvdControl&) = delete;

    /// What was asked for last, as far as the disc allows.
    [[nodiscard]] DvdState PlayState() const;

    /// The disc of the next play from a stop: a drive's device, an image, or the folder that holds its files.
    void SetDVDDirectory(const std::string& path);
    /// Native window to draw into; takes effect at the next play from a stop.
    void SetVideoWindow(std::uintptr_t window);
    void SetDim(double share);  ///< darkens the picture: 0 not at all, 0.5 to half; holds for all films

    /// From the beginning, from a pause on, or back to the normal speed. An error when the disc isn't there.
    [[nodiscard]] files::ErrorText Play();
    void Pause();
    void Stop();
    void PlayForwards(double speed);
    void PlayBackwards(double speed);  ///< in steps and without sound, until the beginning; then it plays on
    // These three play on from there, at the normal speed, also from a pause.
    void PlayNextChapter();
    void PlayPrevChapter();
    void ShowRootMenu();
    /// Multiplies the zoom in force; it stays between 1 and 8. The centre is in pixels of the film, and moves so that
    /// the cut stays inside of the picture.
    void Zoom(int x, int y, double ratio);
    /// A finger on the picture, in pixels of the window: chooses the button of a menu that lies there.
    void Touch(Point p);

    /// From the event loop: there is no film on the disc, or it can't be read.
    std::function<void(const files::ErrorText& error)> onFailed;

    struct State;
    std::unique_ptr<State> state;
};

}  // namespace zvr
