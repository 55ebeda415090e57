#pragma once

#include "platform/xml.h"
#include "skin/skinpictures.h"
#include "skin/skinreadings.h"

#include <memory>
#include <string>

namespace zvr {

class Program;

/// One load of a skin, from its document to the forms.
class SkinLoad {
public:
    /// `folder` ends with a separator.
    SkinLoad(Program& program, std::shared_ptr<const XmlDocument> document, std::string folder);

    /// All steps, in their order. A fault is reported, and the load goes on with the next form or screen. Runs events
    /// while a fault's box is open; ends at once when another load began there, or the program ends.
    void Apply();

private:
    void ApplyGeneral();
    void SkinForm(const SkinFormRow& row);
    [[nodiscard]] bool MakeButtons(const SkinFormRow& row, Form& form);
    void MakeButton(const SkinReadings& readings, Form& form, int index);
    void MakeLabels(Form& form);
    void MakeLabel(const SkinReadings& readings, Form& form, int index, bool isShadow);
    /// False if the rest of the screen's layout does not count.
    [[nodiscard]] bool ApplyPart(const SkinPart& part, Form& form);
    /// True if there was something to report.
    bool Report(const SkinReadings& readings);
    void EndOnBadShadow(const SkinReadings& label);
    [[nodiscard]] bool IsOver() const;

    Program& program;
    const std::shared_ptr<const XmlDocument> kept;  ///< the next load has another one
    const XmlDocument& document;
    SkinPictures pictures;
    const unsigned number;  ///< of the load
};

}  // namespace zvr
