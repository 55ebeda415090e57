#include "ui/grid.h"

#include "ui/form.h"

#include <algorithm>
#include <utility>

namespace zvr {

void Grid::Clear() {
    rowRecords.clear();
    describe = nullptr;
    scrollOffset = 0;
    if (control->form.onRowsGone) {
        control->form.onRowsGone(*this);
    }
    Changed();
    Select(0);
}

void Grid::AddRow(std::string_view text, std::int32_t data, ListIcon icon, bool bold) {
    rowRecords.push_back({std::string(text), data, icon, bold});
    Changed();
}

void Grid::SetRows(int rows, std::function<GridRow(int row)> next) {
    if (rows < RowCount()) {
        Clear();
    }
    rowRecords.clear();
    describe = std::move(next);
    describedRows = rows;
    Changed();
}

const GridRow& Grid::RowAt(int row) const {
    if (!describe) {
        return rowRecords[static_cast<std::size_t>(row) - 1];
    }
    described = describe(row);
    return described;
}

void Grid::SetIcon(int row, ListIcon icon) {
    if (describe) {
        return;
    }
    GridRow& record = rowRecords[static_cast<std::size_t>(row) - 1];
    if (record.icon != icon) {
        record.icon = icon;
        Changed();
    }
}

void Grid::Select(int row) {
    const int before = currentRow;
    currentRow = row >= 1 && row <= RowCount() ? row : 0;
    ScrollToRow();
    if (currentRow != before) {
        Changed();
        if (onRowChange) {
            onRowChange();
        }
    }
}

void Grid::ScrollToRow() {
    if (currentRow == 0) {
        return;
    }
    const std::int64_t rowTop = std::int64_t{currentRow - 1} * look.rowHeight;
    const int height = control->Place().height;
    if (rowTop < scrollOffset) {
        SetScrollOffset(rowTop);
    } else if (rowTop + look.rowHeight > scrollOffset + height) {
        SetScrollOffset(rowTop + look.rowHeight - height);
    }
}

bool Grid::SelectInView(bool upwards) {
    const std::int64_t height = look.rowHeight;
    const std::int64_t room = control->Place().height;
    const std::int64_t rowTop = (currentRow - 1) * height;
    const std::int64_t seen = std::min(rowTop + height, scrollOffset + room) - std::max(rowTop, scrollOffset);
    if (currentRow == 0 || 2 * seen >= std::min(height, room)) {
        return false;
    }
    const std::int64_t row = upwards ? (scrollOffset + room) / height : (scrollOffset + height - 1) / height + 1;
    Select(static_cast<int>(std::clamp<std::int64_t>(row, 1, RowCount())));
    return true;
}

int Grid::Top() const {
    return static_cast<int>(scrollOffset / look.rowHeight) + 1;
}

void Grid::SetTop(int row) {
    SetScrollOffset((std::int64_t{row} - 1) * look.rowHeight);
}

int Grid::VisibleRows() const {
    return std::max(1, control->Place().height / look.rowHeight);
}

int Grid::FindText(std::string_view text) const {
    for (int row = 1; row <= RowCount(); ++row) {
        if (RowAt(row).text == text) {
            return row;
        }
    }
    return 0;
}

void Grid::SetNotice(std::string_view text) {
    if (notice != text) {
        notice = text;
        Changed();
    }
}

void Grid::SetLook(const GridLook& next) {
    if (look == next) {
        return;
    }
    look = next;
    look.rowHeight = std::max(1, look.rowHeight);
    SetScrollOffset(scrollOffset);
    Changed();
}

void Grid::SetRedraw(bool on) {
    redraw = on;
    if (on && changedUnseen) {
        changedUnseen = false;
        control->MarkDirty();
    }
}

void Grid::SetScrollOffset(std::int64_t pixels) {
    const std::int64_t most = std::max<std::int64_t>(0, Height() - control->Place().height);
    const std::int64_t next = std::clamp<std::int64_t>(pixels, 0, most);
    if (next != scrollOffset) {
        scrollOffset = next;
        Changed();
    }
}

int Grid::RowAtPixel(int y) const {
    const std::int64_t row = (y + scrollOffset) / look.rowHeight + 1;
    return row <= RowCount() ? static_cast<int>(row) : 0;
}

void Grid::Changed() {
    if (redraw) {
        control->MarkDirty();
    } else {
        changedUnseen = true;
    }
}

}  // namespace zvr
