#pragma once

#include "platform/xml.h"
#include "skin/pairs.h"
#include "skin/placeholders.h"
#include "skin/skinvalues.h"
#include "ui/form.h"

#include <memory>
#include <string>
#include <string_view>

namespace zvr {

class Program;

enum class SkinVersion { good = 1, unreadable = 2, none = 3, other = 4 };

/// Applies a skin: a folder of pictures and one skindata.xml that gives every screen its look and its buttons.
class Skinner {
public:
    explicit Skinner(Program& program);

    std::string loadedSkin;                           ///< applied now; empty until a first load went without a fault
    std::string skinFolder;                           ///< of the skin being applied, with its trailing separator
    std::shared_ptr<const XmlDocument> skinDocument;  ///< its skindata.xml
    bool skinFailed = false;                          ///< a fault was reported since the load began

    PlaceholderCache placeholders;
    PairStates pairs;

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
    /// A code that begins with "=", or a text: the one way of every skin fault. Runs events until the box is closed.
    /// Ends the program when no skin was ever applied.
    void ReportSkinError(const std::string& text);

    [[nodiscard]] std::string FolderOf(const std::string& skinName) const;  ///< with a trailing separator
    [[nodiscard]] unsigned Loads() const { return loads; }                  ///< begun so far
    [[nodiscard]] bool TakesGeneral(
        const Form& form) const;  ///< its size and background are those of the section general

private:
    void Apply(const std::string& skinName);
    void ReportVersion(SkinVersion version);

    Program& program;
    unsigned loads = 0;
    std::string skinBeingLoaded;
};

}  // namespace zvr
