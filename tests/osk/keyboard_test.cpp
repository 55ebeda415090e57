#include "zvr_osk/keyboard.h"

#include "support/matchers.h"
#include "ui/contrast.h"
#include "zvr_osk/keycodes.h"
#include "zvr_osk/look.h"

#include <map>

using namespace zvr;
using namespace zvr::osk;
using namespace std::chrono_literals;

namespace {

/// A finger on a keyboard of the smallest screen, and what comes of it.
class Fingers : public testing::Test {
protected:
    Fingers() { keyboard.Fit(MeasuresFor(480), 800); }

    Keyboard::Events Wiring() {
        return {.type = [this](char32_t sign) { typed += sign; },
                .strike = [this](Act act) { struck.push_back(act); },
                .hide = [this] { ++hidden; },
                .otherEdge = [this] { ++otherEdges; },
                .drag = [this](int way) { drags.push_back(way); },
                .drop = [this] { ++drops; },
                .otherLayout = [this] { ++otherLayouts; },
                .changed = [] {}};
    }
    const PlacedKey& KeyOf(Act act, char32_t sign = 0) const {
        for (const PlacedKey& key : keyboard.Keys()) {
            if (key.key.act == act && key.key.sign == sign) {
                return key;
            }
        }
        ADD_FAILURE() << "no such key";
        return keyboard.Keys().front();
    }
    static Point MiddleOf(const PlacedKey& key) {
        return {key.place.x + key.place.width / 2, key.place.y + key.place.height / 2};
    }
    void Press(Act act, char32_t sign = 0, int finger = 1) {
        const Point at = MiddleOf(KeyOf(act, sign));
        keyboard.Down(finger, at, at.y, now);
    }
    void Tap(Act act, char32_t sign = 0) {
        Press(act, sign);
        keyboard.Up(1);
    }
    void Tap(std::u32string_view signs) {
        for (const char32_t sign : signs) {
            Tap(Act::sign, sign);
        }
    }
    /// Each moment at which something is due, as a timer would.
    void Wait(Keyboard::Time time) {
        for (const Keyboard::Time end = now + time; now < end;) {
            now = std::min(end, keyboard.NextTime().value_or(end));
            keyboard.TimePassed(now);
        }
    }

    std::u32string typed;
    std::vector<Act> struck;
    std::vector<int> drags;
    int hidden = 0;
    int otherEdges = 0;
    int drops = 0;
    int otherLayouts = 0;
    Keyboard::Time now{1000};
    Keyboard keyboard{Wiring(), 0};
};

KeyMeaning Means(std::uint8_t code, char32_t character, unsigned modifiers = 0, std::uint8_t group = 0) {
    return {{code, group, modifiers}, SymbolOf(character)};
}

}  // namespace

TEST(KeyboardGeometry, EveryPlaceBelongsToOneKeyAndTwoFifthsAreTheMost) {
    for (const Layout& layout : Layouts()) {
        for (const Page page : {Page::letters, Page::signs}) {
            for (const int height : {400, 480, 600, 800, 1080}) {
                const Measures measures = MeasuresFor(height);
                EXPECT_LE(measures.height * 5, height * 2);
                std::map<int, int> ends;
                int bottom = 0;
                for (const PlacedKey& key : PlaceKeys(RowsOf(layout, page), measures, std::max(800, height * 4 / 3))) {
                    if (const auto end = ends.find(key.touch.y); end != ends.end()) {
                        EXPECT_EQ(key.touch.x, end->second) << layout.name << " " << height;
                    }
                    ends[key.touch.y] = key.touch.x + key.touch.width;
                    bottom = std::max(bottom, key.place.y + key.place.height);
                    EXPECT_GE(key.place.width, 60);
                }
                EXPECT_EQ(ends.size(), 4U);
                EXPECT_LE(bottom, measures.height);
            }
        }
    }
}

TEST(KeyboardGeometry, GoesToTheOtherEdgeWhereItCoversTheBoxAndThatHelps) {
    const Rect area{0, 50, 800, 430};
    EXPECT_EQ(EdgeClearOf({10, 300, 100, 50}, area, 192, Edge::bottom), Edge::top);
    EXPECT_EQ(EdgeClearOf({10, 60, 100, 50}, area, 192, Edge::bottom), Edge::bottom);
    EXPECT_EQ(EdgeClearOf({10, 60, 100, 50}, area, 192, Edge::top), Edge::bottom);
    EXPECT_EQ(EdgeClearOf({10, 60, 100, 400}, area, 192, Edge::bottom), Edge::bottom) << "a box that is everywhere";
    EXPECT_EQ(KeyboardPlace(area, 192, Edge::bottom), (Rect{0, 288, 800, 192}));
    EXPECT_EQ(KeyboardPlace(area, 192, Edge::top).y, 50);
    EXPECT_EQ(NearestEdge(160, area, 192), Edge::top);
    EXPECT_EQ(NearestEdge(180, area, 192), Edge::bottom);
}

TEST_F(Fingers, TypeWhenTheyLiftAndNotWhenTheySlideOff) {
    Press(Act::sign, U'a');
    EXPECT_TRUE(keyboard.IsPressed(KeyOf(Act::sign, U'a')));
    EXPECT_EQ(typed, U"");
    keyboard.Up(1);
    EXPECT_EQ(typed, U"a");
    const Point beside = MiddleOf(KeyOf(Act::sign, U's'));
    Press(Act::sign, U'a');
    keyboard.Move(1, beside, beside.y);
    EXPECT_FALSE(keyboard.IsPressed(KeyOf(Act::sign, U's')));
    keyboard.Up(1);
    Press(Act::sign, U'a');
    keyboard.Cancel();
    EXPECT_EQ(typed, U"a");
    // The second thumb comes down before the first one lifts.
    Press(Act::sign, U'b', 1);
    Press(Act::sign, U'c', 2);
    keyboard.Up(1);
    keyboard.Up(2);
    EXPECT_EQ(typed, U"abc");
}

TEST_F(Fingers, ShiftServesOneLetterOrAllUntilItIsTouchedAgain) {
    Tap(Act::shift);
    EXPECT_EQ(keyboard.SignOf(KeyOf(Act::sign, U'q')), U'Q');
    Tap(U"qw");
    Tap(Act::shift);
    Tap(Act::shift);
    EXPECT_EQ(keyboard.ShiftState(), Shift::locked);
    Tap(U"er");
    Tap(Act::shift);
    Tap(U"t");
    EXPECT_EQ(typed, U"QwERt");
    Tap(Act::layout);
    EXPECT_EQ(otherLayouts, 1);
    Tap(Act::shift);
    Tap(U"ß");
    Tap(Act::shift);
    Tap(U"ü");
    Tap(Act::page);
    Tap(U"7");
    Tap(Act::left);
    Tap(Act::enter);
    Tap(Act::page);
    Tap(U"y ");
    EXPECT_EQ(typed, U"QwERtßÜ7y ");
    EXPECT_THAT(struck, ElementsAre(Act::left, Act::enter));
    Tap(Act::edge);
    Tap(Act::hide);
    EXPECT_EQ(otherEdges + hidden, 2);
}

TEST_F(Fingers, HeldBackspaceRepeatsAndAHeldLetterOffersItsRelatives) {
    Tap(Act::backspace);
    EXPECT_EQ(struck.size(), 1U);
    Press(Act::backspace);
    Wait(440ms);
    EXPECT_EQ(struck.size(), 1U);
    Wait(1s);
    const std::size_t repeated = struck.size();
    EXPECT_GE(repeated, 15U);
    keyboard.Up(1);
    Wait(1s);
    EXPECT_EQ(struck.size(), repeated) << "none for the lifting, none afterwards";

    Press(Act::sign, U'e');
    Wait(700ms);
    EXPECT_EQ(keyboard.SignOf(KeyOf(Act::sign, U'e')), U'é');
    keyboard.Up(1);
    Tap(Act::shift);
    Press(Act::sign, U'e');
    Wait(900ms);
    keyboard.Up(1);
    Press(Act::sign, U's');
    Wait(500ms + 400ms * 4);
    keyboard.Up(1);
    EXPECT_EQ(typed, U"éÈß") << "the last one went once round";
}

TEST_F(Fingers, DragTheKeyboardAndTypeNothing) {
    const Point at = MiddleOf(KeyOf(Act::sign, U'a'));
    Press(Act::sign, U'a');
    keyboard.Move(1, {at.x, at.y - 60}, at.y - 60);
    EXPECT_THAT(drags, IsEmpty());
    keyboard.Move(1, {at.x, at.y - 90}, at.y - 90);
    keyboard.Move(1, at, at.y - 200);
    keyboard.Up(1);
    EXPECT_THAT(drags, ElementsAre(-90, -200));
    EXPECT_EQ(drops, 1);
    EXPECT_EQ(typed, U"");
}

TEST(KeyCodes, TheStrokeThatDisturbsLeast) {
    const std::vector<KeyMeaning> meanings{Means(20, U'a', withShift), Means(38, U'a'),
                                           Means(38, U'A', withShift), Means(24, U'@', withLevel3),
                                           Means(24, U'@', 0, 1),      Means(11, U'ф', 0, 1)};
    EXPECT_EQ(FindStroke(meanings, SymbolOf(U'a'), 0), (KeyStroke{38, 0, 0}));
    EXPECT_EQ(FindStroke(meanings, SymbolOf(U'@'), 0), (KeyStroke{24, 0, withLevel3}));
    EXPECT_EQ(FindStroke(meanings, SymbolOf(U'@'), 1), (KeyStroke{24, 1, 0}));
    EXPECT_EQ(FindStroke(meanings, SymbolOf(U'ф'), 0), (KeyStroke{11, 1, 0}));
    EXPECT_EQ(FindStroke(meanings, SymbolOf(U'ß'), 0), std::nullopt);
}

TEST(KeyCodes, SpareKeysKeepTheirMeaningForAsLongAsTheyCan) {
    const std::vector<KeyMeaning> meanings{Means(38, U'a')};
    SpareKeys spare;
    spare.SetCodes({9, 8, 7});
    EXPECT_THAT(spare.Bind(U"aüÜ", meanings), ElementsAre(Binding{9, SymbolOf(U'ü'), SymbolOf(U'Ü')}))
        << "a letter and its capital on one key; what there is already on none";
    EXPECT_THAT(spare.Bind(U"€ß", meanings), ElementsAre(Binding{8, 0x10020AC, 0x10020AC}, Binding{7, 0xDF, 0xDF}));
    spare.Used(9);
    spare.SetCodes({7, 8, 9});
    EXPECT_THAT(spare.Bind(U"é", meanings), ElementsAre(testing::Field(&Binding::code, 8)));
    EXPECT_EQ(spare.Bind(U"öäñç", meanings).size(), 3U) << "no more than there are keys";
    EXPECT_EQ(MissingKeys(U"aäÄÖ", meanings), 2U);
}

TEST(KeyboardLook, ReadsWhatZvrTellsAndNothingElse) {
    const auto look = ReadLook(
        R"({"ok":true,"language":"de","skin":"/skins/A \"B\"/","background":"#0F1214","text":"#F1F4F6",)"
        R"("selection":"#84461B","dialog":true,"shown":false,"dim":35,"digits":false,"box":{"x":12,"y":-3,"width":360,"height":76}})");
    ASSERT_TRUE(look);
    EXPECT_EQ(look->skinFolder, "/skins/A \"B\"/");
    EXPECT_TRUE(look->dialog);
    EXPECT_EQ(look->dim, 0.35);
    EXPECT_FALSE(look->shown);
    EXPECT_EQ(look->background, RgbColor(0x0F, 0x12, 0x14));
    EXPECT_EQ(look->box, (Rect{12, -3, 360, 76}));
    for (
        const char* const other :
        {"", R"({"ok":true})", R"({"error":"no"})",
         R"({"ok":true,"language":"de","skin":"","background":"#0F12G4","text":"#F1F4F6","selection":"#84461B","dialog":false,"shown":true,"dim":0,"digits":0,"box":null})"}) {
        EXPECT_FALSE(ReadLook(other)) << other;
    }
}

TEST(KeyboardLook, IsLegibleByDayByNightAndOnLightSkins) {
    const std::vector<std::pair<Color, Color>> skins{{RgbColor(0x0F, 0x12, 0x14), RgbColor(0xF1, 0xF4, 0xF6)},
                                                     {RgbColor(0x07, 0x05, 0x04), RgbColor(0xBF, 0x9D, 0x80)},
                                                     {RgbColor(0xF0, 0xF0, 0xE8), RgbColor(20, 24, 27)},
                                                     {RgbColor(0x80, 0x80, 0x80), RgbColor(0xF1, 0xF4, 0xF6)}};
    for (const auto& [background, text] : skins) {
        ZvrLook look;
        look.background = background;
        look.text = text;
        const Palette palette = PaletteOf(look);
        EXPECT_GE(Contrast(palette.ink, palette.key.top), 4.5);
        EXPECT_GE(Contrast(palette.quietInk, palette.quiet.top), 4.5);
        EXPECT_GE(Contrast(palette.litInk, palette.quiet.top), 4.5);
        EXPECT_GE(Contrast(palette.pressedInk, palette.pressed.bottom), 4.5);
        if (Contrast(background, text) > 7) {
            EXPECT_GE(Contrast(palette.key.bottom, palette.pressed.bottom), 4) << "a press is seen";
        }
    }
}
