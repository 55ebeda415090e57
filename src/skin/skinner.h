#pragma once

#include "platform/picture.h"
#include "platform/xml.h"
#include "ui/form.h"

#include <string>
#include <string_view>

namespace zvr {

class Program;

enum class SkinVersion { good = 1, unreadable = 2, none = 3, other = 4 };

/// Applies a skin: a folder of pictures and one skindata.xml that gives every screen its look and its buttons.
class Skinner {
public:
    explicit Skinner(Program& program);

    std::string loadedSkin;    ///< applied now; empty until a first load went without a fault
    std::string skinFolder;    ///< of the skin being applied, with its trailing separator
    XmlDocument skinDocument;  ///< its skindata.xml
    bool skinFailed = false;   ///< a fault was reported since the load began

    /// Applies the skin of that name; nothing when it is the one applied.
    void LoadSkin(const std::string& skinName);
    void ClearSkin();
    /// Puts the screens in the middle of the root.
    void CenterForms();
    [[nodiscard]] SkinVersion CheckSkinVersion(const std::string& skinName) const;
    /// Text of the first element at the path, empty if there is none.
    [[nodiscard]] std::string ReadSkinValue(std::string_view path) const;
    /// A code that begins with "=", or a text: the one way of every skin fault. Ends the program when no skin
    /// was ever applied.
    void ReportSkinError(const std::string& text);

private:
    void ApplyGeneral();

    Program& program;
};

/// "#RRGGBB"; black for anything else.
[[nodiscard]] Color ParseSkinColor(std::string_view text);

}  // namespace zvr
