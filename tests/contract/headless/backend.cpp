#include "contract/backend.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace zvr::contract {
namespace {

constexpr Milliseconds moment{1};

}  // namespace

void Hand::Press(Point inRoot) {
    stage.PointerDown(*stage.Forms().front(), inRoot);
    loop.Wait(moment);
}

void Hand::Drag(Point inRoot) {
    stage.PointerMove(*stage.Forms().front(), inRoot);
    loop.Wait(moment);
}

void Hand::Lift(Point inRoot) {
    stage.PointerUp(*stage.Forms().front(), inRoot);
    loop.Wait(moment);
}

void Hand::Strike(Key key) {
    stage.KeyDown(*stage.Forms().front(), {key});
    loop.Wait(moment);
}

void Hand::Type(Control& box, std::string_view text) {
    // At the end of the text, where the caret of these tests stands.
    const std::string all = box.text->text + std::string(text);
    const auto isStart = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; };
    stage.TextEdited(box, all, static_cast<int>(std::count_if(all.begin(), all.end(), isStart)), 0);
    loop.Wait(moment);
}

std::string Hand::ShownText(Control& box) {
    return box.text->text;
}

}  // namespace zvr::contract

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
