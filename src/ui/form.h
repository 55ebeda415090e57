#pragma once

#include "ui/control.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zvr {

enum class Key {
    other,
    enter,
    escape,
    up,
    down,
    pageUp,
    pageDown,
    home,
    end,
    tab,
    backspace,
    f1,
    f2,
    f3,
    f4,
    f5,
    f6,
    f7,
    f8,
    f9,
    f10,
    f11,
    f12,
};

struct KeyEvent {
    Key key = Key::other;
    bool modifier = false;  ///< shift, control or alt is held
};

enum class FormRole {
    root,    ///< the program's window; the child forms lie in it
    child,   ///< a screen inside the root
    window,  ///< a window of its own, such as the splash
};

/// One screen: its controls in stacking order and what it tells the program.
/// A module's form object exists from the start; it is `loaded` when the module is in use.
class Form {
public:
    explicit Form(std::string name, FormRole role = FormRole::child);
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    const std::string name;
    const FormRole role;
    bool loaded = false;
    bool isModule = false;  ///< takes its look from a skin

    Property<Form, double> left{*this};  ///< twips in the root, or on the screen for a window of its own
    Property<Form, double> top{*this};
    Property<Form, double> width{*this, Twips(800)};
    Property<Form, double> height{*this, Twips(600)};
    Property<Form, bool> visible{*this, false};  ///< change it through the stage
    Property<Form, Color> backColor{*this};
    Property<Form, PicturePointer> background{*this};
    Property<Form, int> alpha{*this, 255};       ///< windows of their own only: 0 clear to 255 opaque
    Property<Form, bool> topMost{*this, false};  ///< windows of their own only
    /// Windows of their own only: a bar along the screen's top edge that other programs' windows stay clear of.
    Property<Form, bool> reservesTop{*this, false};
    Property<Form, std::uint32_t> style{*this};  ///< frame bits of a window, see clsStyle
    Property<Form, std::uint32_t> extendedStyle{*this};

    std::function<void()> onActivate;                ///< came to the front of the others
    std::function<void(const KeyEvent&)> onKeyDown;  ///< a key that no text box or list used
    std::function<void(const Control*)> onTouch;     ///< a finger came down, on that control or null, before they hear
    std::function<void()> onPress;                   ///< a finger came down on the bare form
    std::function<void()> onRelease;                 ///< a finger lifted, or the pointer moved over the bare form
    std::function<void()> onResize;                  ///< root only: the window has another inner size

    /// A new control in front of all others. The reference stays good for the form's life.
    Control& Add(ControlKind kind, std::string controlName, int index = 0);
    /// The control of that name and element number, or null.
    [[nodiscard]] Control* Find(std::string_view controlName, int index = 0) const;
    /// Stacking order, back to front.
    [[nodiscard]] const std::vector<Control*>& Controls() const { return order; }
    /// Destroys all controls, also of a form that shows. Never from a control's own event.
    void RemoveControls();
    void SendToBack(Control& control);
    void BringToFront(Control& control);
    void PlaceBehind(Control& control, Control& front);  ///< right behind `front`

    /// Topmost shown control at a pixel of the form, or null for the bare form.
    [[nodiscard]] Control* ControlAt(Point p) const;

    [[nodiscard]] Rect Place() const;  ///< pixels
    void Resize(Size pixels);          ///< the top left corner stays
    void CentreIn(const Form& outer);  ///< what is larger than it begins above and left of it
    void MarkDirty();                  ///< the whole form
    void ControlDirty(Control& control);

    Control* focus = nullptr;  ///< control that gets the keys while the form is active; null for the form
    unsigned tagRevision = 0;  ///< grows with each change of a control's tag

    std::function<void(Form&)> onDirty;               ///< owned by the stage: called once per painted state
    std::function<void(const Form&)> onControlsGone;  ///< owned by the stage: called before controls are destroyed
    std::function<void(Grid&)> onRowsGone;            ///< owned by the stage: a list begins anew
    std::vector<Control*> dirtyControls;              ///< owned by the screen
    bool dirty = true;                                ///< owned by the screen: repaint all

private:
    std::vector<std::unique_ptr<Control>> owned;
    std::vector<Control*> order;
};

}  // namespace zvr
