#include "ui/grid.h"

#include "ui/control.h"

#include <algorithm>

namespace zvr {

void Grid::Clear() {
    rowRecords.clear();
    currentRow = 0;
    scrollOffset = 0;
    Changed();
}

void Grid::AddRow(std::string_view text, std::int32_t data, ListIcon icon, bool bold) {
    rowRecords.push_back({std::string(text), data, icon, bold});
    Changed();
}

void Grid::SetIcon(int row, ListIcon icon) {
    GridRow& record = rowRecords[static_cast<std::size_t>(row) - 1];
    if (record.icon != icon) {
        record.icon = icon;
        Changed();
    }
}

void Grid::Select(int row) {
    const int next = row >= 1 && row <= RowCount() ? row : 0;
    if (next != currentRow) {
        currentRow = next;
        Changed();
    }
    if (next == 0) {
        return;
    }
    const int rowTop = (next - 1) * look.rowHeight;
    const int height = control->Place().height;
    if (rowTop < scrollOffset) {
        SetScrollOffset(rowTop);
    } else if (rowTop + look.rowHeight > scrollOffset + height) {
        SetScrollOffset(rowTop + look.rowHeight - height);
    }
}

int Grid::Top() const {
    return scrollOffset / look.rowHeight + 1;
}

void Grid::SetTop(int row) {
    SetScrollOffset((row - 1) * look.rowHeight);
}

int Grid::VisibleRows() const {
    return std::max(1, control->Place().height / look.rowHeight);
}

int Grid::FindText(std::string_view text) const {
    const auto found =
        std::find_if(rowRecords.begin(), rowRecords.end(), [text](const GridRow& row) { return row.text == text; });
    return found == rowRecords.end() ? 0 : static_cast<int>(found - rowRecords.begin()) + 1;
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

void Grid::SetScrollOffset(int pixels) {
    const int most = std::max(0, RowCount() * look.rowHeight - control->Place().height);
    const int next = std::clamp(pixels, 0, most);
    if (next != scrollOffset) {
        scrollOffset = next;
        Changed();
    }
}

int Grid::RowAtPixel(int y) const {
    const int row = (y + scrollOffset) / look.rowHeight + 1;
    return row <= RowCount() ? row : 0;
}

void Grid::Changed() {
    if (redraw) {
        control->MarkDirty();
    } else {
        changedUnseen = true;
    }
}

}  // namespace zvr
