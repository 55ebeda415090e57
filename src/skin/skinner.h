#pragma once

#include "platform/picture.h"
#include "platform/xml.h"
#include "skin/placeholders.h"
#include "skin/skinfaults.h"
#include "ui/form.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace zvr {

class Program;

enum class SkinVersion { good = 1, unreadable = 2, none = 3, other = 4 };

/// A picture that a skin names.
struct SkinPicture {
    bool exists = false;     ///< there is such a file
    PicturePointer picture;  ///< null if there is none, or it can't be decoded
};

/// Applies a skin: a folder of pictures and one skindata.xml that gives every screen its look and its buttons.
class Skinner {
public:
    explicit Skinner(Program& program);

    std::string loadedSkin;    ///< applied now; empty until a first load went without a fault
    std::string skinFolder;    ///< of the skin being applied, with its trailing separator
    XmlDocument skinDocument;  ///< its skindata.xml
    bool skinFailed = false;   ///< a fault was reported since the load began

    PlaceholderCache placeholders;

    /// Applies the skin of that name; nothing when it is the one applied. Runs events while a fault's box is open.
    void LoadSkin(const std::string& skinName);
    /// Applies the present skin anew, from what its folder holds by now. Not while another load is under way.
    void ReloadSkin();
    /// In the middle of a load: some forms have the new look, some none.
    [[nodiscard]] bool IsLoading() const { return !skinBeingLoaded.empty(); }
    void ClearSkin();
    /// Puts the screens in the middle of the root. Only the one in front stays shown.
    void CenterForms();
    [[nodiscard]] SkinVersion CheckSkinVersion(const std::string& skinName) const;
    /// Text of the first element at the path, empty if there is none.
    [[nodiscard]] std::string ReadSkinValue(std::string_view path) const;
    /// `text` as a skin writes it: a path below the skin's folder. Read once in a load, however often it is named.
    [[nodiscard]] SkinPicture FindPicture(const std::string& text);
    /// A code that begins with "=", or a text: the one way of every skin fault. Runs events until the box is closed.
    /// Ends the program when no skin was ever applied.
    void ReportSkinError(const std::string& text);
    void ReportSkinError(SkinFault fault, std::string_view name = {}) { ReportSkinError(SkinFaultCode(fault, name)); }

    [[nodiscard]] std::string FolderOf(const std::string& skinName) const;  ///< with a trailing separator

private:
    void Apply(const std::string& skinName);
    void ReportVersion(SkinVersion version);
    void ApplyGeneral();
    [[nodiscard]] double GeneralSize(std::string_view path, SkinFault fault);
    void ApplyForms(unsigned load);
    void UncoverToggles();
    /// True when the program ends, or another load began while events ran.
    [[nodiscard]] bool IsOver(unsigned load) const;

    Program& program;
    unsigned loads = 0;
    std::string skinBeingLoaded;
    std::unordered_map<std::string, SkinPicture> pictures;  ///< of the load in progress, by text
};

/// "#RRGGBB"; black for anything else.
[[nodiscard]] Color ParseSkinColor(std::string_view text);

/// The number that a skin's text begins with, kept within what a screen can have.
[[nodiscard]] double SkinNumber(std::string_view text);

}  // namespace zvr
