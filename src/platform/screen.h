#pragma once

#include "ui/stage.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace zvr {

enum class WindowState { normal, minimized, maximized };

/// The windows. Paints the forms of a stage, once per turn of the loop and only what is dirty,
/// and reports touches and keys to it.
class Screen {
public:
    explicit Screen(EventLoop& loop);
    ~Screen();
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    /// From here on the stage's shown forms are on the screen. The stage outlives the screen's use of it.
    void Open(Stage& stage);
    void Close();
    void Flush();  ///< paints now what is dirty, before long work

    [[nodiscard]] Size PixelSize() const;  ///< the whole screen

    [[nodiscard]] Point RootOrigin() const;  ///< of the root window's inside, in pixels of the screen

    /// The root window: without frame it covers the whole screen, with frame it has title bar and border.
    void SetFrame(bool titleBarAndBorder);
    void SetTitle(const std::string& title);
    void SetRootState(WindowState state);
    [[nodiscard]] WindowState RootState() const;
    void ActivateRoot();            ///< before other programs' windows; a refusal is ignored
    void HidePointer(bool hidden);  ///< over the program's windows
    /// A window's alpha shows: on a screen whose windows nobody puts together it would be full or nothing.
    [[nodiscard]] bool CanBeTranslucent() const;
    /// Darkens all windows by a share: 0 not at all, 0.5 to half. Not what players draw into theirs.
    void SetDim(double share);
    /// The user or the session asks the root window to close; `sessionEnds` when the machine is going down.
    std::function<void(bool sessionEnds)> onCloseRequest;
    /// Time for files, and for nothing that shows or waits: the desktop's session asks its programs to save, and may
    /// end or go on; or the display has gone, and the process ends when this returns.
    std::function<void()> onSaveRequest;

    /// From here on the window follows the pointer until its button is let go.
    void StartDrag(const Form& window);

    /// Native window of a video control, for a player to draw into; 0 when there is none.
    [[nodiscard]] std::uintptr_t WindowOf(const Control& video);

    struct State;
    std::unique_ptr<State> state;
};

}  // namespace zvr
