#pragma once

#include "skin/skinner.h"
#include "support/bench.h"

#include <string>
#include <utility>
#include <vector>

namespace zvr {

inline constexpr const char* goodSkin = "Dark&Silver 800x600";
inline constexpr double twips = twipsPerPixel;

inline std::string Tag(const std::string& name, const std::string& content) {
    return "<" + name + ">" + content + "</" + name + ">";
}

/// The first line in which two texts differ, as both have it, with its number; empty if they are equal.
inline std::string FirstDifference(const std::string& expected, const std::string& actual) {
    if (expected == actual) {
        return {};
    }
    const auto line = [](const std::string& text, std::size_t begin) {
        return begin >= text.size() ? "(nothing)" : text.substr(begin, text.find('\n', begin) - begin);
    };
    const auto [a, b] = std::mismatch(expected.begin(), expected.end(), actual.begin(), actual.end());
    const auto same = std::string(expected.begin(), a);
    const std::size_t begin = same.rfind('\n') + 1;
    return "line " + std::to_string(std::count(same.begin(), same.end(), '\n') + 1) +
           "\n  expected: " + line(expected, begin) + "\n  actual:   " + line(actual, begin);
}

inline std::string ButtonXml(int x, int y, const std::string& command, const std::string& normal = "normal.png",
                             const std::string& active = "active.png") {
    return Tag("b", Tag("posx", std::to_string(x)) + Tag("posy", std::to_string(y)) + Tag("command", command) +
                        Tag("normal-image", normal) + Tag("active-image", active));
}

inline std::string LabelXml(const std::string& text, const std::string& more = "<shadow-distance>0</shadow-distance>") {
    return Tag("l", "<posx>10</posx><posy>20</posy><width>200</width><height>30</height>" + Tag("text", text) + more);
}

/// A program in its main menu with a good skin, and a second skin to try things on.
class SkinTest : public testing::Test {
protected:
    Bench bench;
    TestSkin tried;  ///< the second skin, before the edits of Replace
    std::vector<std::pair<std::string, std::string>> extraFiles;

    Program& Running() {
        if (!bench.program) {
            bench.Start();
        }
        return *bench.program;
    }

    /// Puts `to` in the place of the first `from` inside of a section of the second skin.
    void Replace(const std::string& section, const std::string& from, const std::string& to) {
        edits.push_back({section, from, to});
    }
    /// Puts elements in front of all others of the section.
    void Insert(const std::string& section, const std::string& xml) {
        Replace(section, "<" + section + ">", "<" + section + ">" + xml);
    }

    [[nodiscard]] std::string TriedXml() const {
        std::string xml = tried.Xml();
        for (const auto& [section, from, to] : edits) {
            const auto begin = xml.find("<" + section + ">");
            const auto at = xml.find(from, begin);
            EXPECT_LT(at, xml.find("</" + section + ">", begin)) << section << " has no " << from;
            xml.replace(at, from.size(), to);
        }
        return xml;
    }

    void Write(const std::string& name, const std::string& xml) {
        tried.WriteTo(bench.folder, name);
        const std::string base = "skins/" + name + "/";
        bench.folder.Write(base + "skindata.xml", xml);
        bench.folder.Write(base + "broken.png", "no picture");
        bench.folder.Write(base + "small.png", PngBytes(30, 20));
        bench.folder.Write(base + "images/deep.png", PngBytes(60, 40));
    }

    /// Loads the second skin into the running program. Each call takes a name of its own.
    std::string LoadTried() {
        Running();
        const std::string name = "tried" + std::to_string(++tries);
        Write(name, TriedXml());
        bench.dialogs.critical.clear();
        Running().skinner.LoadSkin(name);
        return name;
    }

    /// The codes of all boxes since the last load; a box without one as its whole text.
    [[nodiscard]] std::vector<std::string> Reported() const {
        std::vector<std::string> codes;
        for (const std::string& text : bench.dialogs.critical) {
            const auto begin = text.find("(ErrCode");
            codes.push_back(begin == text.npos ? text : text.substr(begin + 8, text.find(')', begin) - begin - 8));
        }
        return codes;
    }

    static std::vector<Control*> Shown(const Form& form, const std::string& array) {
        std::vector<Control*> shown;
        for (int index = 1; Control* const control = form.Find(array, index); ++index) {
            if (control->visible) {
                shown.push_back(control);
            }
        }
        return shown;
    }

    static std::vector<std::string> Commands(const Form& form) {
        std::vector<std::string> commands;
        for (const Control* button : Shown(form, "abutton")) {
            commands.push_back(button->Tag());
        }
        return commands;
    }

    static std::ptrdiff_t Depth(const Control& control) {
        const auto& order = control.form.Controls();
        return std::find(order.begin(), order.end(), &control) - order.begin();
    }

private:
    struct Edit {
        std::string section;
        std::string from;
        std::string to;
    };
    std::vector<Edit> edits;
    int tries = 0;

protected:
    void ForgetEdits() { edits.clear(); }
};

}  // namespace zvr
