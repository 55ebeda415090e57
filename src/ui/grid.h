#pragma once

#include "platform/eventloop.h"
#include "ui/geometry.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zvr {

class Control;

/// Pictures that the program draws in front of rows, by the number that skins and lists use.
enum class ListIcon : std::uint8_t {
    none,
    folder,
    audio,
    video,
    image,
    removable,
    fixed,
    cdrom,
    network,
    playing,
    home,
    mobile,
    work,
    fax,
    mail,
    other,
};

struct GridRow {
    std::string text;
    std::int32_t data = 0;  ///< the hidden column: an index into the owner's records
    ListIcon icon = ListIcon::none;
    bool bold = false;
};

struct GridLook {
    int rowHeight = 24;  ///< pixels
    Color fore = 0;
    Color back = 0;
    Color backAlternate = 0;
    Color selectionFore = 0;
    Color selectionBack = 0;
    friend bool operator==(const GridLook&, const GridLook&) = default;
};

/// A list of one visible and one hidden column. Rows count from 1; 0 is none.
/// The rows live in one vector, or with whoever describes them when they are seen; no widget and no allocation stands
/// behind a row that isn't seen.
class Grid {
public:
    explicit Grid(Control& control) : control(&control) {}

    void Clear();  ///< for other rows, which are for the finger only when the driver has seen them
    void AddRow(std::string_view text, std::int32_t data, ListIcon icon = ListIcon::none, bool bold = false);
    void Reserve(std::size_t rows) { rowRecords.reserve(rows); }
    /// In place of all rows: that many, told by `describe` one by one. Such rows keep no icon and no bold of their own.
    /// Called again with more rows it keeps the selection and the place.
    void SetRows(int rows, std::function<GridRow(int row)> describe);
    [[nodiscard]] int RowCount() const { return describe ? describedRows : static_cast<int>(rowRecords.size()); }
    /// `row` from 1 to RowCount(). Good until the next call.
    [[nodiscard]] const GridRow& RowAt(int row) const;
    void SetIcon(int row, ListIcon icon);

    [[nodiscard]] int Row() const { return currentRow; }
    /// Selects `row` and scrolls just far enough to show it; out of range selects none.
    void Select(int row);
    /// For a key that moves the selection, after a finger has moved the list: a selected row that is out of sight hands
    /// over to the first row in sight, or `upwards` to the last. True when it did, and the key has done its work.
    [[nodiscard]] bool SelectInView(bool upwards);
    [[nodiscard]] int Top() const;  ///< first row that shows, at least 1
    void SetTop(int row);
    /// Another row is selected, or none.
    std::function<void()> onRowChange;
    [[nodiscard]] int VisibleRows() const;                    ///< whole rows that fit, at least 1
    [[nodiscard]] int FindText(std::string_view text) const;  ///< first row whose text is equal, 0 for none

    /// One line that stands in the middle while there are no rows; empty for nothing.
    void SetNotice(std::string_view text);
    [[nodiscard]] const std::string& Notice() const { return notice; }

    [[nodiscard]] const GridLook& Look() const { return look; }
    void SetLook(const GridLook& next);

    /// While redraw is off no change reaches the screen; switching it on again repaints once.
    void SetRedraw(bool on);

    [[nodiscard]] std::int64_t Height() const { return std::int64_t{RowCount()} * look.rowHeight; }  ///< of all rows
    [[nodiscard]] std::int64_t ScrollOffset() const { return scrollOffset; }  ///< pixels above the top edge
    void SetScrollOffset(std::int64_t pixels);                                ///< clamped to what there is
    [[nodiscard]] int RowAtPixel(int y) const;  ///< y from the grid's top edge; 0 behind the last row

    Milliseconds replaced{0};  ///< owned by the stage: when its rows were replaced last, 0 for never

private:
    void Changed();
    void ScrollToRow();

    Control* control;
    std::vector<GridRow> rowRecords;
    std::function<GridRow(int row)> describe;  ///< empty: the rows are the records
    int describedRows = 0;
    mutable GridRow described;
    GridLook look;
    std::string notice;
    int currentRow = 0;
    std::int64_t scrollOffset = 0;
    bool redraw = true;
    bool changedUnseen = false;
};

}  // namespace zvr
