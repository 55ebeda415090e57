#pragma once

#include "options/optionparts.h"
#include "options/optionstable.h"
#include "platform/eventloop.h"
#include "platform/files.h"
#include "platform/lifetime.h"

namespace zvr {

/// Chooses a folder or a file with the finger: places at the left, at the right what the folder holds. Doesn't wait.
class PlaceChooser {
public:
    using Done = std::function<void(const std::string&)>;

    PlaceChooser(Program& program, std::string formName);

    Form form;

    /// Begins where `present` lies, or at the place that fits. Nothing while a dialog stands.
    void Open(Picks picks, const std::string& present, Done done);
    void Accept();  ///< as OK does: the folder that the path shows, or the file that is marked; nothing without one
    void Close();

    [[nodiscard]] const std::string& Folder() const { return folder; }  ///< shown, with a trailing separator
    /// Name of the file or program that is marked or was taken; empty for none.
    [[nodiscard]] const std::string& Marked() const { return marked; }

private:
    struct Place {
        std::string name;
        std::string icon;
        std::string path;  ///< with a trailing separator
        friend bool operator==(const Place&, const Place&) = default;
    };
    struct Entry {
        std::string name;
        bool isFolder = false;
        std::string commandLine;  ///< of an installed program, empty for files and folders
    };

    [[nodiscard]] std::vector<Place> PlacesNow() const;
    [[nodiscard]] std::vector<Entry> EntriesNow() const;
    void GoTo(std::string newFolder);
    void LookForSticks();
    void Later(std::function<void()> task);

    void Build();
    void MakePlaces();
    void MakePath(Rect head);
    void MakeRow(Rect row, const Entry& entry, int number);
    Control& MakeTarget(const char* name, Rect place, int number, Color ground, std::function<void()> onClick);
    [[nodiscard]] std::string IconOf(const Entry& entry) const;
    [[nodiscard]] int Pages() const;

    Program& program;
    OptionParts parts;
    const OptionLook& look = parts.look;
    Timer tmrSticks;  ///< runs while it is open
    Picks picks = Picks::folder;
    Done done;
    std::vector<Place> places;
    std::size_t place = 0;  ///< of `places`, the one that the folder lies in
    int firstPlace = 0;     ///< in view
    std::string folder;
    std::vector<Entry> entries;
    std::string marked;            ///< name of a file, empty for none
    Milliseconds rowsSeenFrom{0};  ///< by the clock of the loop: rows that a tap has brought take none before
    int page = 0;
    int rowsOnPage = 1;
    Lifetime lifetime;
};

}  // namespace zvr
