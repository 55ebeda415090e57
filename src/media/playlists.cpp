#include "media/playlists.h"

#include "core/commanddispatcher.h"
#include "core/moduleform.h"
#include "core/program.h"
#include "media/mediaplayer.h"
#include "platform/text.h"

#include <algorithm>

namespace zvr {
namespace {

constexpr std::string_view newExtension = ".m3u";

std::string WithoutExtension(const std::string& name) {
    return name.substr(0, name.rfind('.'));
}

std::string Trimmed(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(' ');
    return begin == text.npos ? "" : std::string(text.substr(begin, text.find_last_not_of(' ') - begin + 1));
}

bool IsLegalName(std::string_view name) {
    return std::none_of(name.begin(), name.end(), [](char c) {
        constexpr std::string_view illegal = "\\/:*?\"<>|;";
        return static_cast<unsigned char>(c) < 32 || illegal.find(c) != illegal.npos;
    });
}

}  // namespace

Playlists::Playlists(Program& program) : program(program) {}

void Playlists::Load() {
    LoadModuleForm(program, form);
    playlistlist = &form.Add(ControlKind::grid, "playlistlist");
    txtCurrentPlaylistName = &form.Add(ControlKind::textBox, "txtCurrentPlaylistName");
    form.onActivate = [this] {
        program.commanddispatcher.pushModuleHistory(form.name);
        RefreshPlaylistList();
        ShowSelectedName();
    };
    playlistlist->events.onClick = [this](Point) { ShowSelectedName(); };
}

void Playlists::RefreshPlaylistList() {
    if (reading || !files::IsFolder(playlistFolder)) {
        return;
    }
    reading = true;
    FileSearch& filesearch = program.mediaplayer.filesearch;
    filesearch.abort = false;
    // Apart from the entries that the rows stand for: the driver can choose one of those while the scan runs.
    std::vector<FileEntry> found;
    filesearch.Scan(playlistFolder, false, true, "m3u;pls", found);
    entries = std::move(found);
    Grid& grid = *playlistlist->grid;
    const bool bold = playlistlist->font.get().bold;
    grid.SetRedraw(false);
    grid.Clear();
    std::int32_t index = 0;
    for (const FileEntry& entry : entries) {
        if (!entry.IsFolder()) {
            grid.AddRow(entry.name, index, ListIcon::none, bold);
        }
        ++index;
    }
    grid.Select(1);
    grid.SetRedraw(true);
    ShowSelectedName();
    reading = false;
}

std::string Playlists::SelectedName() const {
    const int row = playlistlist->grid->Row();
    return row == 0 ? "" : playlistlist->grid->RowAt(row).text;
}

std::string Playlists::SelectedPath() const {
    return InFolder(SelectedName());
}

std::string Playlists::InFolder(const std::string& name) const {
    return playlistFolder + (playlistFolder.ends_with(files::separator) ? "" : "/") + name;
}

void Playlists::ShowSelectedName() {
    if (const std::string name = SelectedName(); !name.empty()) {
        txtCurrentPlaylistName->SetText(WithoutExtension(name));
    }
}

std::optional<std::string> Playlists::CheckedNewPath() {
    const auto refuse = [this](const char* key) {
        program.showMessage(program.languageText(key));
        return std::nullopt;
    };
    const std::string& typed = txtCurrentPlaylistName->text->text;
    const std::string selected = SelectedName();
    const std::string suffix(newExtension);
    if (Trimmed(typed).empty() || (!selected.empty() && text::Lower(typed + suffix) == text::Lower(selected))) {
        return refuse("PLAYLISTS_ENTERNEWNAME");
    }
    const std::string name = Trimmed(typed) + suffix;
    if (!IsLegalName(name)) {
        return refuse("PLAYLISTS_ILLEGALFILENAME");
    }
    std::string path = InFolder(name);
    if (files::Exists(path)) {
        return refuse("PLAYLISTS_ALREADEXISTS");
    }
    return path;
}

void Playlists::ReportFailure(const char* key, const std::string& errorText) {
    program.showMessage(program.languageText(key) + "\n\n" + errorText);
}

bool Playlists::Confirm(const char* key, const std::string& name) {
    return program.showMessage(program.languageText(key) + "\n\n" + name, MessageButtons::yesNo) == MessageAnswer::yes;
}

void Playlists::CreateNewPlaylistFromTextbox() {
    const auto path = CheckedNewPath();
    if (!path) {
        return;
    }
    if (const auto error = files::WriteAtomic(*path, ""); !error.empty()) {
        ReportFailure("PLAYLISTS_CREATEERROR", error);
        return;
    }
    RefreshPlaylistList();
}

void Playlists::RenamePlaylist() {
    if (SelectedName().empty()) {
        return;
    }
    const std::string old = SelectedPath();
    const auto path = CheckedNewPath();
    if (!path) {
        return;
    }
    if (const auto error = files::Rename(old, *path); !error.empty()) {
        ReportFailure("PLAYLISTS_RENAMEERROR", error);
        return;
    }
    std::string& current = program.mediaplayer.currentPlaylistFile;
    if (old == current) {
        current = *path;
    }
    RefreshPlaylistList();
}

void Playlists::DeleteSelectedPlaylist() {
    // Noted before the question: the row that is selected when it is answered may be another.
    const std::string name = SelectedName();
    const std::string path = SelectedPath();
    if (name.empty() || !Confirm("PLAYLISTS_DELETE", name)) {
        return;
    }
    if (const auto error = files::Remove(path); !error.empty()) {
        ReportFailure("PLAYLISTS_DELETEERROR", error);
        return;
    }
    if (path == program.mediaplayer.currentPlaylistFile) {
        program.mediaplayer.currentPlaylistFile.clear();
        program.mediaplayer.DisplayPlaylistFilesInList();
    }
    RefreshPlaylistList();
}

void Playlists::EmptySelectedPlaylist() {
    const std::string name = SelectedName();
    const std::string path = SelectedPath();
    if (name.empty() || !Confirm("PLAYLISTS_EMPTY", name)) {
        return;
    }
    if (const auto error = files::WriteAtomic(path, ""); !error.empty()) {
        ReportFailure("PLAYLISTS_EMPTYERROR", error);
        return;
    }
    RefreshPlaylistList();
    if (path == program.mediaplayer.currentPlaylistFile) {
        program.mediaplayer.DisplayPlaylistFilesInList();
    }
}

void Playlists::LoadSelectedPlaylist() {
    const std::string name = SelectedName();
    if (name.empty()) {
        return;
    }
    MediaPlayer& mediaplayer = program.mediaplayer;
    mediaplayer.currentPlaylistFile = InFolder(name);
    if (mediaplayer.showingPlaylist) {
        mediaplayer.DisplayPlaylistFilesInList();
    } else {
        mediaplayer.SwitchListMode();
    }
    program.dispatchCommand("mediaplayer.show");
}

}  // namespace zvr
