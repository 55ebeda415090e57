#pragma once

#include "platform/eventloop.h"
#include "ui/form.h"

#include <functional>
#include <vector>

namespace zvr {

/// Where the forms stand: stacking order, the active form, the modal one, and the road of a touch
/// from the screen to a control. The screen draws what stands here and reports touches and keys to it.
class Stage {
public:
    explicit Stage(EventLoop& loop);
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    void Add(Form& form);     ///< behind the others, hidden; sets `loaded`
    void Remove(Form& form);  ///< clears `loaded`
    [[nodiscard]] const std::vector<Form*>& Forms() const { return order; }  ///< back to front, root first

    /// Shows the form before its siblings and gives it, or its control, the keys.
    /// Does nothing to a form that isn't loaded. While a modal form is open it comes up behind it.
    void Front(Form& form, Control* focus = nullptr);
    void Show(Form& form);  ///< visible where it stands, not activated
    /// The root stays as long as a modal form needs it to lie in.
    void Hide(Form& form);
    [[nodiscard]] Form* FrontForm() const;   ///< topmost shown child form that isn't modal, or null
    [[nodiscard]] Form* ActiveForm() const;  ///< the modal form, else the front form

    /// Shows the form before all others; everything else is deaf until it is closed or hidden. Doesn't wait.
    /// A root that is hidden, behind another program, comes up for it and goes again with the last one.
    void ShowModal(Form& form);
    /// Hides it. With the last one gone the screen in front is active again; one that came up meanwhile is visited.
    void CloseModal(Form& form);
    [[nodiscard]] Form* ModalForm() const { return modalForms.empty() ? nullptr : modalForms.back(); }
    /// Touches and keys that come so soon are lost: they were meant for what stood there before.
    void DeafFor(Milliseconds duration) { deafUntil = loop.Monotonic() + duration; }

    // What the screen reports. Places are pixels of the root window, or of a window of its own.
    void PointerDown(Form& window, Point p);
    void PointerMove(Form& window, Point p);
    void PointerUp(Form& window, Point p);
    void PointerCancel();  ///< the window lost the pointer in the middle of a press
    void KeyDown(Form& window, const KeyEvent& key);
    void TextEdited(Control& box, std::string_view text, int selectionStart, int selectionLength);

    /// Called whenever something became dirty or moved, once until Painted(). Set by the screen.
    std::function<void()> onChange;
    /// The controls of that form are about to be destroyed. Set by the screen.
    std::function<void(const Form&)> onControlsGone;
    void Painted() { changePending = false; }
    void Changed();

private:
    struct Press {
        Form* form = nullptr;
        Control* control = nullptr;  ///< null: the bare form
        Point start;
        bool scrolling = false;
        std::int64_t startOffset = 0;
        Milliseconds time{0};
        bool stopsGlide = false;
    };
    struct Hit {
        Form* form = nullptr;
        Control* control = nullptr;
        Point inForm;
    };

    [[nodiscard]] Hit HitAt(Form& window, Point p) const;
    [[nodiscard]] Point ToForm(const Form& form, Point p) const;
    void Activate(Form* form);
    [[nodiscard]] Form* Root() const;
    void ForgetControlsOf(const Form& form);
    [[nodiscard]] static bool ListTook(Control& list, Key key);
    void GridTapped(Control& control, Point inControl, const Press& tap);
    void DragGrid(Point inForm);
    void Glide();

    EventLoop& loop;
    Timer glideTimer;
    std::vector<Form*> order;
    std::vector<Form*> modalForms;
    Form* active = nullptr;
    bool rootIsLent = false;      ///< it shows for the modal forms alone
    Form* behindModal = nullptr;  ///< in front when the first modal form came up
    Milliseconds deafUntil{0};
    Press press;
    Control* glidingGrid = nullptr;
    double glideSpeed = 0;  ///< pixels a millisecond
    Point lastMove;
    Milliseconds lastMoveTime{0};
    Control* lastTapGrid = nullptr;
    int lastTapRow = 0;
    int lastTapPlace = 0;  ///< from the list's upper edge
    Milliseconds lastTapTime{0};
    bool changePending = false;
};

}  // namespace zvr
