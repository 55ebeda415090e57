#pragma once

#include "platform/picture.h"
#include "ui/geometry.h"
#include "ui/grid.h"
#include "ui/property.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zvr {

class Form;

enum class ControlKind {
    image,    ///< a picture, drawn in its own size unless `stretch`; a click through its own rectangle
    label,    ///< text, painted from the top of its rectangle and cut at its edges
    picture,  ///< a box with background colour and picture, may contain images
    grid,     ///< a list; `grid` is set
    textBox,  ///< a native text box; `text` is set
    video,    ///< a native window that a player draws into
};

/// What a label does with a text that it has no room for.
enum class Overflow {
    cut,       ///< at its edges
    ellipsis,  ///< a line that is too wide loses its middle: names of one kind differ at their ends
    fit,       ///< the whole text finds room, see FitText
};

/// A shape in which a box shows another picture than its own, pixel for pixel: the needle of a dial.
struct Inlay {
    PicturePointer picture;  ///< lies as the box's own does; null for none
    Color color = 0;         ///< where that picture doesn't reach
    std::vector<Rect>
        shape;  ///< pixels of the box: pieces of rows, top to bottom, left to right, none touching another
    friend bool operator==(const Inlay&, const Inlay&) = default;
};

/// What a text box holds. The screen writes what the user types; places are in characters (code points).
struct TextBox {
    std::string text;
    int selectionStart = 0;
    int selectionLength = 0;
    bool multiline = false;
    bool readOnly = false;  ///< change it through SetReadOnly
    bool digits = false;    ///< a number is typed into it
};

/// What a control tells its form. Unset handlers let a press through to the container.
/// Places are pixels from the control's own top left corner, and may lie outside of it while a finger drags.
struct ControlEvents {
    std::function<void(Point)> onDown;
    std::function<void(Point)> onDrag;
    std::function<void(Point)> onUp;      ///< after each press, wherever the finger lifts
    std::function<void(Point)> onClick;   ///< after onUp, if the finger lifted inside
    std::function<void()> onDoubleClick;  ///< grids: the second tap on one row, in place of another click
    std::function<void()> onChange;       ///< text boxes: the user changed the text
};

/// One control of a form: a plain record that the screen paints. Owned by its form, lives as long as it.
class Control {
public:
    Control(Form& form, ControlKind kind, std::string name, int index);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    Form& form;
    const ControlKind kind;
    const std::string name;        ///< such as "abutton"; elements of a control array share it
    const int index;               ///< element number in its array, 0 for a single control
    Control* container = nullptr;  ///< box that this control lies in: places count from it, it clips and hides

    Property<Control, double, ChangedPlace> left{*this};  ///< twips, from the form or the container
    Property<Control, double, ChangedPlace> top{*this};
    Property<Control, double, ChangedPlace> width{*this};
    Property<Control, double, ChangedPlace> height{*this};
    Property<Control, bool> visible{*this, true};
    Property<Control, std::string> caption{*this};
    Property<Control, PicturePointer> picture{*this};
    Property<Control, bool> stretch{*this};
    Property<Control, Plate> plate{*this};  ///< boxes: painted in place of the background colour
    Property<Control, Inlay> inlay{*this};  ///< boxes: over the picture
    Property<Control, Font> font{*this};
    Property<Control, Color> foreColor{*this};
    Property<Control, Color> backColor{*this};
    Property<Control, Align> align{*this};
    Property<Control, Overflow> overflow{*this};
    std::string role;              ///< what it is to the driver where its kind doesn't tell, such as "switch"
    int helpId = 0;                ///< running titles: visible characters * 100 + place of the first one, from 1
    int titleCharacters = 0;       ///< running titles: visible characters
    PicturePointer normalPicture;  ///< skin buttons: at rest
    PicturePointer activePicture;  ///< skin buttons: pressed

    std::unique_ptr<Grid> grid;     ///< grids only
    std::unique_ptr<TextBox> text;  ///< text boxes only; change it through SetText
    ControlEvents events;

    /// A command of a button, a placeholder of a label, or a mark of a slider.
    [[nodiscard]] const std::string& Tag() const { return tag; }
    void SetTag(std::string_view value);

    /// Replaces the text and sets the caret; counts in characters and is clamped.
    void SetText(std::string_view value, int selectionStart = 0, int selectionLength = 0);

    void TypeText(std::string_view value);  ///< takes the place of the selection; the caret comes behind it
    void TakeBack();                        ///< the selection, else the character before the caret

    void SetReadOnly(bool value);

    void MarkDirty();
    void MarkMoved();  ///< dirty, unless it still shows where it was painted last: pixels are larger than twips

    /// Pixels from the form's top left corner, the container's place included.
    [[nodiscard]] Rect Place() const;
    /// Place, cut by the container; empty where nothing shows.
    [[nodiscard]] Rect VisiblePlace() const;
    [[nodiscard]] bool IsShown() const;  ///< visible, and so is the container; says nothing of the form

    void Move(double newLeft, double newTop, double newWidth, double newHeight);
    void Move(Rect pixels) { Move(Twips(pixels.x), Twips(pixels.y), Twips(pixels.width), Twips(pixels.height)); }

    bool dirty = false;  ///< owned by the screen: cleared when painted
    Rect painted;        ///< owned by the screen: where it was painted last

private:
    std::string tag;
};

}  // namespace zvr
