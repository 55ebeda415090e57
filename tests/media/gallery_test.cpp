#include "media/gallery.h"

#include "playerbench.h"
#include "skin/skinner.h"

#include <filesystem>

namespace zvr {
namespace {

using std::chrono_literals::operator""s;

class GalleryForm : public PlayerBench {
protected:
    void Picture(const std::string& name, int width = 40, int height = 30) {
        bench.folder.Write("pictures/" + name, PngBytes(width, height));
    }
    void Visit(const std::string& settings = {}) {
        std::filesystem::create_directories(In(""));
        Open("[gallery]\nIMAGEFOLDER=" + In("") + "\nSLIDESHOWWAITSECS=2\n" + settings, "SINGLECLICKLISTSELECT=1\n");
        Do("gallery.show");
    }
    void Show(const std::string& name) {
        ASSERT_GT(Names().FindText(name), 0) << name;
        Names().Select(Names().FindText(name));
        Do("gallery.listselect");
    }
    [[nodiscard]] std::string In(const std::string& name) const { return bench.folder.path + "/pictures/" + name; }
    [[nodiscard]] Gallery& Form() { return bench.program->gallery; }
    [[nodiscard]] Grid& Names() { return *Form().imglist->grid; }
    [[nodiscard]] std::string Shown() {
        const PicturePointer picture = Form().imgImage->picture;
        return picture == nullptr || !Form().imgImage->visible ? "" : picture->Path().substr(In("").size());
    }
    /// Over the picture, from its middle.
    void Swipe(int x, int y) {
        const Point from = bench.MiddleOf(*Form().picImage);
        bench.Down(from);
        bench.Move({from.x + x / 2, from.y + y / 2});
        bench.Up({from.x + x, from.y + y});
        bench.Advance(Milliseconds{10});
    }
};

TEST_F(GalleryForm, BrowsesFoldersAndKeepsTheOldPictureWhereOneIsBroken) {
    Picture("a.jpg");
    Picture("sub/b.JPG", 3000, 1000);
    bench.folder.Write("pictures/broken.jpg", "none");
    bench.folder.Write("pictures/notes.txt", "");
    Visit();
    EXPECT_THAT(RowsOf(Names()), ElementsAre("..", "sub", "a.jpg", "broken.jpg"));
    EXPECT_EQ(Names().RowAt(3).icon, ListIcon::image);
    Show("a.jpg");
    EXPECT_EQ(Shown(), "a.jpg");
    EXPECT_EQ(Form().imgImage->Place().width, 40);
    EXPECT_FALSE(Form().imgImage->stretch);
    Show("broken.jpg");
    EXPECT_EQ(Shown(), "a.jpg");
    Show("sub");
    EXPECT_EQ(Form().currentFolder, In("sub"));
    Show("b.JPG");
    EXPECT_EQ(Shown(), "sub/b.JPG");
    EXPECT_EQ(Form().imgImage->Place().width, Form().picImage->Place().width);
    Show("..");
    EXPECT_EQ(Names().RowAt(Names().Row()).text, "sub");
    std::filesystem::remove_all(In("sub"));
    Form().ReadDirectory(In("sub"));
    EXPECT_EQ(Form().currentFolder, In("").substr(0, In("").size() - 1));
}

TEST_F(GalleryForm, TheShowGoesThroughThePicturesOfTheFolder) {
    Picture("a.jpg");
    Picture("b.jpg");
    bench.folder.Write("pictures/c.jpg", "none");
    bench.folder.Write("pictures/sub.jpg/x.txt", "");
    Visit();
    Do("gallery.slideshowon");
    std::vector<std::string> seen;
    for (int i = 0; i < 4; ++i) {
        bench.Advance(2s);
        seen.push_back(Shown());
    }
    EXPECT_EQ(seen[0], seen[2]);
    EXPECT_EQ(seen[1], seen[3]);
    EXPECT_NE(seen[0], seen[1]);
    Show("a.jpg");
    EXPECT_FALSE(Form().tmrSlideshow.Enabled()) << "a choice by hand ends it";
    Form().loopSlideshow = false;
    Do("gallery.slideshowon");
    for (int i = 0; i < 10 && Form().tmrSlideshow.Enabled(); ++i) {
        bench.Advance(2s);
    }
    EXPECT_FALSE(Form().tmrSlideshow.Enabled());
    EXPECT_NE(Shown(), "") << "on the last picture";
    for (const char* name : {"a.jpg", "b.jpg"}) {
        std::filesystem::remove(In(name));
    }
    Form().ReadDirectory(In(""));
    Form().loopSlideshow = true;
    Do("gallery.slideshowon");
    bench.Advance(2s);
    EXPECT_FALSE(Form().tmrSlideshow.Enabled()) << "at once, without any";
    EXPECT_EQ(Form().currentImageIndex, 0);
}

TEST_F(GalleryForm, ATapFillsTheScreenAndASwipeTurnsThePage) {
    for (const char* name : {"a.jpg", "b.jpg", "d.jpg"}) {
        Picture(name, 4000, 3000);
    }
    bench.folder.Write("pictures/c.jpg", "none");
    Visit();
    Show("a.jpg");
    const Rect preview = Form().picImage->Place();
    const PicturePointer small = Form().imgImage->picture;
    bench.Tap(bench.MiddleOf(*Form().picImage));
    bench.skin.WriteTo(bench.folder, "other");
    bench.program->skinner.LoadSkin("other");
    bench.Advance(Milliseconds{50});
    EXPECT_EQ(Form().picImage->Place(), (Rect{0, 0, 800, 600})) << "another skin leaves it there";
    EXPECT_EQ(Form().imgImage->Place(), (Rect{0, 0, 800, 600}));
    EXPECT_NE(Form().imgImage->picture, small) << "a sharper one";
    EXPECT_FALSE(Form().imglist->visible);
    Swipe(-200, 10);
    EXPECT_EQ(Shown(), "b.jpg");
    Swipe(-200, 10);
    EXPECT_EQ(Shown(), "d.jpg") << "the broken one is passed over";
    Swipe(-200, 10);
    EXPECT_EQ(Shown(), "d.jpg");
    Swipe(200, 10);
    EXPECT_EQ(Shown(), "b.jpg");
    EXPECT_EQ(Names().RowAt(Names().Row()).text, "b.jpg");
    std::filesystem::remove(In("a.jpg"));
    Swipe(200, 10);
    EXPECT_EQ(Shown(), "a.jpg") << "it was read ahead";
    EXPECT_EQ(Form().picImage->Place().width, 800) << "a swipe is no tap";
    Swipe(10, 3);
    EXPECT_EQ(Form().picImage->Place(), preview);
    EXPECT_TRUE(Form().imglist->visible);
}

}  // namespace
}  // namespace zvr
